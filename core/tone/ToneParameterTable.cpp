#include "core/tone/ToneParameterTable.h"

#include <algorithm>
#include <type_traits>

namespace tonavelle {
namespace {

using ID = ToneParameterID;
using Group = ToneControlGroup;
using Kind = ToneCarrier::Kind;
using M = MasterToneValues;
using C = ChannelToneValues;

constexpr ToneCarrier controller(std::uint8_t number)
{
    return {Kind::controller, 0, number};
}
constexpr ToneCarrier nrpn(std::uint8_t msb, std::uint8_t lsb)
{
    return {Kind::nrpn, msb, lsb};
}
constexpr ToneCarrier rpn(std::uint8_t lsb)
{
    return {Kind::rpn, 0, lsb};
}
constexpr ToneCarrier rpnFourteenBit(std::uint8_t lsb)
{
    return {Kind::rpnFourteenBit, 0, lsb};
}
constexpr ToneCarrier programSelection{Kind::programSelection, 0, 0};
constexpr ToneCarrier masterVolumeMessage{Kind::masterVolume, 0, 0};

constexpr ToneValueRange sevenBits{0, 127};
constexpr ToneValueRange signedSevenBits{-64, 63};
constexpr ToneValueRange signedFourteenBits{-8192, 8191};

constexpr std::size_t masterRowCount = 6;

// The sustain level has the higher NRPN number of its pair, and the release flag the inverse of the field on the wire
// (see wireForm): the module wants both so.
// clang-format off
constexpr std::array<ToneParameter, 39> rows{{
    // id                  label                  range          offset  group                carried by        patch  field
    {ID::reverbType,        "Reverb Type",         {0, 2},              0, Group::reverb,       nrpn(7, 20),          0, &M::reverbType, reverbTypeNames},
    {ID::chorusDepth,       "Chorus Depth",        sevenBits,           0, Group::chorus,       nrpn(7, 10),          0, &M::chorusDepth},
    {ID::chorusFrequency,   "Chorus Freq",         sevenBits,           0, Group::chorus,       nrpn(7, 11),          0, &M::chorusFrequency},
    {ID::delayTime,         "Delay Time",          sevenBits,           0, Group::delay,        nrpn(7, 0),           0, &M::delayTime},
    {ID::delayFeedbackGain, "Delay Feedback Gain", sevenBits,           0, Group::delay,        nrpn(7, 1),           0, &M::delayFeedbackGain},
    {ID::masterVolume,      "Master Volume",       sevenBits,           0, Group::masterVolume, masterVolumeMessage,  0, &M::masterVolume},

    {ID::drumTrackSetting,  "Drum Track Setting",  {0, 1},              0, Group::bank,         nrpn(10, 0),          0, &C::drumTrackSetting, drumTrackSettingNames, "Drum Track Set"},
    {ID::bankKind,          "Bank Select / Program Change", {0, 1},     0, Group::bank,         programSelection,     0, &C::bankKind, bankKindNames, "Bank"},
    {ID::programChange,     "Bank Select / Program Change", sevenBits,  0, Group::program,      programSelection,     0, &C::programChange, {}, ""},
    {ID::reverbSend,        "Reverb",              sevenBits,           0, Group::effectSend,   controller(91),       0, &C::reverbSend},
    {ID::chorusSend,        "Chorus",              sevenBits,           0, Group::effectSend,   controller(93),       0, &C::chorusSend},
    {ID::delaySend,         "Delay",               sevenBits,           0, Group::effectSend,   controller(94),       0, &C::delaySend},
    {ID::distortionType,    "Dist Type",           {0, 3},              0, Group::distortion,   nrpn(8, 0),           0, &C::distortionType, distortionTypeNames},
    {ID::distortionLevel,   "Dist Level",          sevenBits,           0, Group::distortion,   nrpn(8, 1),           0, &C::distortionLevel},
    {ID::distortionGain,    "Dist Gain",           sevenBits,           0, Group::distortion,   nrpn(8, 2),           0, &C::distortionGain},
    {ID::cutOff,            "Cut Off",             signedSevenBits,    64, Group::filter,       controller(74),       0, &C::cutOff},
    {ID::resonance,         "Resonance",           signedSevenBits,    64, Group::filter,       controller(71),       0, &C::resonance},
    {ID::unisonNumber,      "Unison Num",          sevenBits,           0, Group::unison,       nrpn(9, 0),           0, &C::unisonNumber},
    {ID::unisonDetune,      "Unison Detune",       signedSevenBits,    64, Group::unison,       nrpn(9, 1),           0, &C::unisonDetune},
    {ID::volume,            "Volume",              sevenBits,           0, Group::volumeAndPan, controller(7),        0, &C::volume},
    {ID::expression,        "Expression",          sevenBits,           0, Group::volumeAndPan, controller(11),       0, &C::expression},
    {ID::panpot,            "Panpot",              signedSevenBits,    64, Group::volumeAndPan, controller(10),       0, &C::panpot},
    {ID::vibratoRate,       "Vibrato Rate",        signedSevenBits,    64, Group::pitch,        controller(76),       0, &C::vibratoRate},
    {ID::pitchBendSensitivity, "PB Sensitivity",   sevenBits,           0, Group::pitch,        rpn(0),               0, &C::pitchBendSensitivity},
    {ID::fineTuning,        "Fine Tuning",         signedFourteenBits, 8192, Group::pitch,      rpnFourteenBit(1),    0, &C::fineTuning},
    {ID::coarseTuning,      "Coarse Tuning",       signedSevenBits,    64, Group::pitch,        rpn(2),               0, &C::coarseTuning},

    {ID::waveType,          "Wave Type",           {0, 11},             0, Group::oscillators,  nrpn(2, 0),          11, &C::waveType, waveTypeNames, {}, ToneChoiceControl::menu},
    {ID::waveNumber,        "Wave Num",            {0, 12},             0, Group::oscillators,  nrpn(2, 1),          12, &C::waveNumber},
    {ID::ringModMultiply,   "Ringmod Multiply",    sevenBits,           0, Group::oscillators,  nrpn(3, 0),          13, &C::ringModMultiply},
    {ID::ringModGain,       "Ringmod Gain",        sevenBits,           0, Group::oscillators,  nrpn(3, 1),          14, &C::ringModGain},
    {ID::attack,            "Attack Time",         sevenBits,           0, Group::envelope,     controller(73),      17, &C::attack},
    {ID::decay,             "Decay Time",          sevenBits,           0, Group::envelope,     controller(75),      18, &C::decay},
    {ID::sustainLevel,      "Sustain Level",       sevenBits,           0, Group::envelope,     nrpn(6, 1),          19, &C::sustainLevel},
    {ID::sustainRate,       "Sustain Rate",        sevenBits,           0, Group::envelope,     nrpn(6, 0),          20, &C::sustainRate},
    {ID::release,           "Release Time",        sevenBits,           0, Group::envelope,     controller(72),      21, &C::release},
    {ID::isReleaseActive,   "Release Active",      {0, 1},              0, Group::envelope,     nrpn(6, 10),         10, &C::isReleaseActive},
    {ID::sweepType,         "Sweep Type",          {0, 2},              0, Group::sweep,        nrpn(4, 0),          15, &C::sweepType, sweepTypeNames, {}, ToneChoiceControl::menu},
    {ID::sweepSpeed,        "Sweep Speed",         sevenBits,           0, Group::sweep,        nrpn(4, 1),          16, &C::sweepSpeed},
    {ID::outputGain,        "Output Gain",         sevenBits,           0, Group::loudness,     nrpn(2, 2),          23, &C::outputGain},
}};

constexpr std::array<std::string_view, 16> groupCaptions{
    "リバーブ", "コーラス", "ディレイ", "マスターボリューム", "", "音色リスト", "エフェクトセンド", "ディストーション",
    "フィルター", "ユニゾン", "音量・定位", "ピッチ", "オシレータ1・2", "ADSR", "スイープ", "音の大きさ",
};
// clang-format on

constexpr bool standsInItsPlace(std::size_t index)
{
    const ToneParameter& row = rows[index];
    return row.id == static_cast<ID>(index) &&
           std::holds_alternative<std::uint8_t M::*>(row.field) == (index < masterRowCount);
}

constexpr bool hasANameForEachChoice(const ToneParameter& row)
{
    return row.choices.empty() || static_cast<int>(row.choices.size()) == row.range.highest + 1;
}

constexpr bool tableIsSound()
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!standsInItsPlace(i) || !hasANameForEachChoice(rows[i])) return false;
    return true;
}
static_assert(tableIsSound());
static_assert(groupCaptions.size() == static_cast<std::size_t>(Group::loudness) + 1);

constexpr std::uint8_t lowSevenBits(int value)
{
    return static_cast<std::uint8_t>(value & 127);
}

/// The field of the channel record that a row stands for, handed to `use` with its own type.
template <typename Use>
auto withChannelField(const ToneParameter& parameter, Use use)
{
    using Result = decltype(use(static_cast<int C::*>(nullptr)));
    return std::visit(
        [&](auto field) -> Result {
            if constexpr (std::is_same_v<decltype(field), std::uint8_t M::*>)
                throw std::bad_variant_access();
            else
                return use(field);
        },
        parameter.field);
}

void store(std::uint8_t& target, int value, const ToneParameter&)
{
    target = lowSevenBits(value);
}
void store(bool& target, int value, const ToneParameter&)
{
    target = value != 0;
}
void store(int& target, int value, const ToneParameter& parameter)
{
    target = std::clamp(value, parameter.range.lowest, parameter.range.highest);
}
void store(ToneDrumTrackSetting& target, int value, const ToneParameter&)
{
    target = value == 1 ? ToneDrumTrackSetting::drum : ToneDrumTrackSetting::melody;
}
void store(ToneBankKind& target, int value, const ToneParameter&)
{
    target = value == 1 ? ToneBankKind::user : ToneBankKind::preset;
}

int wireForm(std::uint8_t value, const ToneParameter&)
{
    return lowSevenBits(value);
}
int wireForm(bool value, const ToneParameter&)
{
    return value ? 0 : 1;
}
int wireForm(int value, const ToneParameter& parameter)
{
    return std::clamp(value, parameter.range.lowest, parameter.range.highest) + parameter.wireOffset;
}
int wireForm(ToneDrumTrackSetting value, const ToneParameter&)
{
    return static_cast<int>(value);
}
int wireForm(ToneBankKind value, const ToneParameter&)
{
    return static_cast<int>(value);
}

} // namespace

std::span<const ToneParameter> toneParameterRows()
{
    return rows;
}
std::span<const ToneParameter> masterToneParameterRows()
{
    return toneParameterRows().first(masterRowCount);
}
std::span<const ToneParameter> channelToneParameterRows()
{
    return toneParameterRows().subspan(masterRowCount);
}

const ToneParameter& toneParameter(ToneParameterID id)
{
    return rows.at(static_cast<std::size_t>(id));
}

bool isMasterParameter(const ToneParameter& parameter)
{
    return std::holds_alternative<std::uint8_t M::*>(parameter.field);
}

const ToneParameter* findToneParameter(const ToneCarrier& carrier)
{
    const auto found = std::ranges::find(rows, carrier, &ToneParameter::carrier);
    return found == rows.end() ? nullptr : &*found;
}

std::string_view caption(ToneControlGroup group)
{
    return groupCaptions.at(static_cast<std::size_t>(group));
}

int value(const ToneParameter& parameter, const MasterToneParameters& master)
{
    return master.*std::get<std::uint8_t M::*>(parameter.field);
}

int value(const ToneParameter& parameter, const ChannelToneParameters& channel)
{
    return withChannelField(parameter, [&](auto field) { return static_cast<int>(channel.*field); });
}

void setValue(const ToneParameter& parameter, MasterToneParameters& master, int value)
{
    store(master.*std::get<std::uint8_t M::*>(parameter.field), value, parameter);
}

void setValue(const ToneParameter& parameter, ChannelToneParameters& channel, int value)
{
    withChannelField(parameter, [&](auto field) { store(channel.*field, value, parameter); });
}

int wireValue(const ToneParameter& parameter, const MasterToneParameters& master)
{
    return wireForm(master.*std::get<std::uint8_t M::*>(parameter.field), parameter);
}

int wireValue(const ToneParameter& parameter, const ChannelToneParameters& channel)
{
    return withChannelField(parameter, [&](auto field) { return wireForm(channel.*field, parameter); });
}

void setWireValue(const ToneParameter& parameter, MasterToneParameters& master, int wire)
{
    setValue(parameter, master, wire);
}

void setWireValue(const ToneParameter& parameter, ChannelToneParameters& channel, int wire)
{
    const bool isInverted = std::holds_alternative<bool C::*>(parameter.field);
    setValue(parameter, channel, isInverted ? (wire == 0 ? 1 : 0) : wire - parameter.wireOffset);
}

} // namespace tonavelle
