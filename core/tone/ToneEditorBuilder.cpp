#include "core/tone/ToneEditorBuilder.h"

#include "core/protocol/MIDIFileFormat.h"
#include "core/protocol/MIDIMessageBuilder.h"
#include "core/protocol/MIDINumbers.h"
#include "core/protocol/SysExBuilder.h"
#include "core/tone/ToneDefaults.h"
#include "core/tone/ToneNames.h"
#include "core/tone/ToneSysExLayout.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>
#include <variant>

namespace tonavelle {

Batch flattened(const MessageGroups& groups)
{
    Batch batch;
    for (const Batch& group : groups)
        batch.insert(batch.end(), group.begin(), group.end());
    return batch;
}

} // namespace tonavelle

namespace tonavelle::ToneEditorBuilder {

namespace {

using ID = ToneParameterID;
using Kind = ToneCarrier::Kind;

constexpr int modulationController = 1;
constexpr int pitchBendCentre = 8192;
constexpr int noParameter = 127;
constexpr std::size_t firstParameterByte = moduleFrameHead.size() + 1;

constexpr std::array masterOrder{
    ID::masterVolume, ID::delayTime, ID::delayFeedbackGain, ID::chorusDepth, ID::chorusFrequency, ID::reverbType,
};

/// What brings a channel to a known state without standing for a value of the record.
enum class Rest { modulationWheel, pitchBendWheel, rpnNull };

constexpr std::array<std::variant<ID, Rest>, 12> basicSetupOrder{
    ID::panpot,
    ID::volume,
    ID::expression,
    ID::reverbSend,
    ID::chorusSend,
    ID::delaySend,
    Rest::modulationWheel,
    ID::fineTuning,
    ID::coarseTuning,
    ID::pitchBendSensitivity,
    Rest::pitchBendWheel,
    Rest::rpnNull,
};

constexpr std::array soundVariationOrder{
    ID::resonance,       ID::cutOff,         ID::vibratoRate,  ID::distortionType,
    ID::distortionLevel, ID::distortionGain, ID::unisonNumber, ID::unisonDetune,
};

constexpr std::array voiceEditOrder{
    ID::waveType,   ID::waveNumber,      ID::ringModMultiply, ID::ringModGain,  ID::sweepType,
    ID::sweepSpeed, ID::attack,          ID::decay,           ID::sustainLevel, ID::sustainRate,
    ID::release,    ID::isReleaseActive, ID::outputGain,
};

Batch carriedBy(const ToneCarrier& carrier, int channel, int wire)
{
    switch (carrier.kind) {
    case Kind::controller:
        return {MIDIMessageBuilder::controlChange(channel, carrier.number, wire)};
    case Kind::nrpn:
        return nrpn(channel, carrier.msb, carrier.number, wire);
    case Kind::rpn:
        return MIDIMessageBuilder::rpnWithoutDataLSB(channel, carrier.msb, carrier.number, wire);
    case Kind::rpnFourteenBit:
        return MIDIMessageBuilder::rpnOneData(channel, carrier.msb, carrier.number, wire);
    case Kind::masterVolume:
        return {masterVolume(wire)};
    case Kind::programSelection:
        break; // needs the whole record: programSelectionMessages
    }
    return {};
}

Batch group(ID id, int channel, const ChannelToneParameters& parameters)
{
    const ToneParameter& parameter = toneParameter(id);
    return carriedBy(parameter.carrier, channel, wireValue(parameter, parameters));
}

Batch group(Rest rest, int channel, const ChannelToneParameters&)
{
    switch (rest) {
    case Rest::modulationWheel:
        return {MIDIMessageBuilder::controlChange(channel, modulationController, 0)};
    case Rest::pitchBendWheel:
        return {MIDIMessageBuilder::pitchBend(channel, pitchBendCentre)};
    case Rest::rpnNull:
        return {MIDIMessageBuilder::controlChange(channel, Controller::rpnMSB, noParameter),
                MIDIMessageBuilder::controlChange(channel, Controller::rpnLSB, noParameter)};
    }
    return {};
}

MessageGroups groups(std::span<const ID> order, int channel, const ChannelToneParameters& parameters)
{
    MessageGroups result;
    result.reserve(order.size());
    for (const ID id : order)
        result.push_back(group(id, channel, parameters));
    return result;
}

void append(Batch& batch, Batch more)
{
    batch.insert(batch.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::uint8_t dataByte(int value)
{
    return static_cast<std::uint8_t>(value & 0x7F);
}

/// The parameter bytes of a patch message of `size` bytes, with its class filled in; addressed by their place in the
/// whole message.
class PatchParameters
{
public:
    PatchParameters(std::size_t size, bool isDrum) : bytes(size - firstParameterByte - 1)
    {
        set(PatchMessageLayout::patchClass, static_cast<int>(isDrum ? PatchClass::drum : PatchClass::melody));
    }

    void set(std::size_t offset, int value) { bytes[offset - firstParameterByte] = dataByte(value); }
    std::span<const std::uint8_t> all() const { return bytes; }

private:
    std::vector<std::uint8_t> bytes;
};

} // namespace

Batch nrpn(int channel, int msb, int lsb, int value)
{
    return MIDIMessageBuilder::nrpn(channel, msb, lsb, value, 0);
}

Message masterVolume(int value)
{
    Message message(masterVolumeHead.begin(), masterVolumeHead.end());
    message.push_back(dataByte(value));
    message.push_back(MIDIFileFormat::sysExEnd);
    return message;
}

MessageGroups masterMessageGroups(const MasterToneParameters& master, int channel)
{
    MessageGroups result;
    for (const ID id : masterOrder)
        result.push_back(carriedBy(toneParameter(id).carrier, channel, wireValue(toneParameter(id), master)));
    return result;
}

Batch masterMessages(const MasterToneParameters& master, int channel)
{
    return flattened(masterMessageGroups(master, channel));
}

Batch programSelectionMessages(int channel, const ChannelToneParameters& parameters)
{
    return {
        MIDIMessageBuilder::controlChange(channel, Controller::bankSelectMSB, parameters.bankSelectMSB()),
        MIDIMessageBuilder::controlChange(channel, Controller::bankSelectLSB, parameters.bankSelectLSB()),
        MIDIMessageBuilder::programChange(channel, parameters.programChange),
    };
}

Batch drumTrackSettingMessages(int channel, const ChannelToneParameters& parameters)
{
    return group(ID::drumTrackSetting, channel, parameters);
}

Batch soundSelectionMessages(int channel, const ChannelToneParameters& parameters)
{
    Batch batch = drumTrackSettingMessages(channel, parameters);
    append(batch, programSelectionMessages(channel, parameters));
    return batch;
}

MessageGroups gmBasicSetupMessageGroups(int channel, const ChannelToneParameters& parameters)
{
    MessageGroups result;
    result.reserve(basicSetupOrder.size());
    for (const auto& step : basicSetupOrder)
        result.push_back(std::visit([&](auto what) { return group(what, channel, parameters); }, step));
    return result;
}

MessageGroups soundVariationMessageGroups(int channel, const ChannelToneParameters& parameters)
{
    return groups(soundVariationOrder, channel, parameters);
}

MessageGroups voiceEditMessageGroups(int channel, const ChannelToneParameters& parameters)
{
    return groups(voiceEditOrder, channel, parameters);
}

Batch voiceEditMessages(int channel, const ChannelToneParameters& parameters)
{
    return flattened(voiceEditMessageGroups(channel, parameters));
}

Batch gmSetupMessages(int channel, const ChannelToneParameters& parameters)
{
    Batch batch = flattened(gmBasicSetupMessageGroups(channel, parameters));
    append(batch, flattened(soundVariationMessageGroups(channel, parameters)));
    return batch;
}

bool sendsVoiceEdit(const ChannelToneParameters& parameters)
{
    return parameters.drumTrackSetting == ToneDrumTrackSetting::melody && parameters.bankKind == ToneBankKind::preset;
}

Batch channelSetupMessages(int channel, const ChannelToneParameters& parameters)
{
    Batch batch = gmSetupMessages(channel, parameters);
    if (sendsVoiceEdit(parameters)) append(batch, voiceEditMessages(channel, parameters));
    return batch;
}

Batch channelMessages(int channel, const ChannelToneParameters& parameters)
{
    Batch batch = soundSelectionMessages(channel, parameters);
    append(batch, channelSetupMessages(channel, parameters));
    return batch;
}

Batch restoreMessages(int channel, const ChannelToneParameters& parameters)
{
    Batch batch = soundSelectionMessages(channel, parameters);
    if (sendsVoiceEdit(parameters)) append(batch, voiceEditMessages(channel, parameters));
    return batch;
}

Batch sendAllMessages(const MasterToneParameters& master, std::span<const ChannelToneParameters> channels)
{
    Batch batch{SysExBuilder::tonavelleReset()};
    append(batch, masterMessages(master, 0));
    const int count = static_cast<int>(std::min<std::size_t>(channels.size(), channelCount));
    for (int channel = 0; channel < count; ++channel)
        append(batch, channelMessages(channel, channels[static_cast<std::size_t>(channel)]));
    return batch;
}

Batch liveMessages(ToneParameterID id, const MasterToneParameters& master)
{
    const ToneParameter& parameter = toneParameter(id);
    return carriedBy(parameter.carrier, 0, wireValue(parameter, master));
}

Batch liveMessages(ToneParameterID id, int channel, const ChannelToneParameters& parameters)
{
    const ToneParameter& parameter = toneParameter(id);
    if (id == ID::drumTrackSetting) return soundSelectionMessages(channel, parameters);
    switch (parameter.carrier.kind) {
    case Kind::programSelection:
        return programSelectionMessages(channel, parameters);
    case Kind::rpn: // live, the unused low data byte goes out as well
        return MIDIMessageBuilder::rpn(channel, parameter.carrier.msb, parameter.carrier.number,
                                       wireValue(parameter, parameters), 0);
    default:
        return group(id, channel, parameters);
    }
}

Batch selectUserMelodyPatch(int channel, int program)
{
    return soundSelectionMessages(
        channel, ChannelToneParameters({.bankKind = ToneBankKind::user, .programChange = dataByte(program)}));
}

Batch selectUserDrumPatch(int channel)
{
    return soundSelectionMessages(channel, ChannelToneParameters({.drumTrackSetting = ToneDrumTrackSetting::drum,
                                                                  .bankKind = ToneBankKind::user}));
}

Message userPatchParam(bool isDrum, int program, std::uint8_t noteNumber, const ChannelToneParameters& parameters,
                       std::optional<int> drumKey)
{
    PatchParameters bytes(PatchMessageLayout::parameterMessageSize, isDrum);
    if (isDrum) {
        bytes.set(PatchMessageLayout::drumKey, drumKey.value_or(program));
        bytes.set(PatchMessageLayout::drumPitch, noteNumber);
    } else {
        bytes.set(PatchMessageLayout::program, program);
    }
    for (const ToneParameter& parameter : channelToneParameterRows())
        if (parameter.patchOffset != 0) bytes.set(parameter.patchOffset, wireValue(parameter, parameters));
    return SysExBuilder::frame(Command::tonePatch, bytes.all());
}

Message userPatchName(bool isDrum, int program, std::string_view name)
{
    PatchParameters bytes(PatchMessageLayout::nameMessageSize, isDrum);
    if (!isDrum) bytes.set(PatchMessageLayout::program, program);
    const std::string text = normalizedPatchName(name);
    for (std::size_t i = 0; i < PatchMessageLayout::nameLength; ++i)
        bytes.set(PatchMessageLayout::name + i, text[i]);
    return SysExBuilder::frame(Command::tonePatchName, bytes.all());
}

} // namespace tonavelle::ToneEditorBuilder
