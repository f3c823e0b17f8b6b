#include "core/tone/ToneParameterTable.h"

#include <array>
#include <gmock/gmock.h>
#include <set>
#include <string_view>

namespace tonavelle {
namespace {

using ID = ToneParameterID;
using Kind = ToneCarrier::Kind;
using testing::ElementsAre;

struct Row {
    ID id;
    std::string_view label;
    int lowest;
    int highest;
    int standard;
};

// clang-format off
constexpr std::array<Row, 39> labelsAndRanges{{
    {ID::reverbType,           "Reverb Type", 0, 2, 0},
    {ID::chorusDepth,          "Chorus Depth", 0, 127, 100},
    {ID::chorusFrequency,      "Chorus Freq", 0, 127, 9},
    {ID::delayTime,            "Delay Time", 0, 127, 127},
    {ID::delayFeedbackGain,    "Delay Feedback Gain", 0, 127, 120},
    {ID::masterVolume,         "Master Volume", 0, 127, 127},
    {ID::drumTrackSetting,     "Drum Track Setting", 0, 1, 0},
    {ID::bankKind,             "Bank Select / Program Change", 0, 1, 0},
    {ID::programChange,        "Bank Select / Program Change", 0, 127, 0},
    {ID::reverbSend,           "Reverb", 0, 127, 20},
    {ID::chorusSend,           "Chorus", 0, 127, 0},
    {ID::delaySend,            "Delay", 0, 127, 0},
    {ID::distortionType,       "Dist Type", 0, 3, 0},
    {ID::distortionLevel,      "Dist Level", 0, 127, 127},
    {ID::distortionGain,       "Dist Gain", 0, 127, 64},
    {ID::cutOff,               "Cut Off", -64, 63, 0},
    {ID::resonance,            "Resonance", -64, 63, 0},
    {ID::unisonNumber,         "Unison Num", 0, 127, 0},
    {ID::unisonDetune,         "Unison Detune", -64, 63, 0},
    {ID::volume,               "Volume", 0, 127, 100},
    {ID::expression,           "Expression", 0, 127, 127},
    {ID::panpot,               "Panpot", -64, 63, 0},
    {ID::vibratoRate,          "Vibrato Rate", -64, 63, 0},
    {ID::pitchBendSensitivity, "PB Sensitivity", 0, 127, 2},
    {ID::fineTuning,           "Fine Tuning", -8192, 8191, 0},
    {ID::coarseTuning,         "Coarse Tuning", -64, 63, 0},
    {ID::waveType,             "Wave Type", 0, 11, 0},
    {ID::waveNumber,           "Wave Num", 0, 12, 0},
    {ID::ringModMultiply,      "Ringmod Multiply", 0, 127, 31},
    {ID::ringModGain,          "Ringmod Gain", 0, 127, 70},
    {ID::attack,               "Attack Time", 0, 127, 0},
    {ID::decay,                "Decay Time", 0, 127, 5},
    {ID::sustainLevel,         "Sustain Level", 0, 127, 90},
    {ID::sustainRate,          "Sustain Rate", 0, 127, 12},
    {ID::release,              "Release Time", 0, 127, 0},
    {ID::isReleaseActive,      "Release Active", 0, 1, 1},
    {ID::sweepType,            "Sweep Type", 0, 2, 2},
    {ID::sweepSpeed,           "Sweep Speed", 0, 127, 0},
    {ID::outputGain,           "Output Gain", 0, 127, 48},
}};
// clang-format on

TEST(ToneParameterTable, HasTheseLabelsRangesAndDefaults)
{
    for (const Row& expected : labelsAndRanges) {
        const ToneParameter& row = toneParameter(expected.id);
        EXPECT_EQ(row.label, expected.label);
        EXPECT_EQ(row.range, (ToneValueRange{expected.lowest, expected.highest})) << expected.label;
        const int standard =
            isMasterParameter(row) ? value(row, MasterToneParameters()) : value(row, ChannelToneParameters());
        EXPECT_EQ(standard, expected.standard) << expected.label;
    }
}

TEST(ToneParameterTable, HoldsSixMasterAndThirtyThreeChannelParameters)
{
    EXPECT_EQ(masterToneParameterRows().size(), 6u);
    EXPECT_EQ(channelToneParameterRows().size(), 33u);
    EXPECT_EQ(toneParameterRows().size(), 39u);
}

TEST(ToneParameterTable, EveryFieldStandsOnce)
{
    for (std::size_t i = 0; i < toneParameterRows().size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_NE(toneParameterRows()[i].field, toneParameterRows()[j].field) << i << " and " << j;
}

TEST(ToneParameterTable, NoTwoParametersShareACarrierButBankAndProgram)
{
    for (const ToneParameter& a : toneParameterRows())
        for (const ToneParameter& b : toneParameterRows()) {
            const bool isShared = a.id != b.id && a.carrier == b.carrier;
            EXPECT_TRUE(!isShared || a.carrier.kind == Kind::programSelection) << a.label << " and " << b.label;
        }
}

TEST(ToneParameterTable, PatchesCarryThirteenParametersInTheirBytes)
{
    std::set<std::size_t> offsets;
    for (const ToneParameter& row : toneParameterRows())
        if (row.patchOffset != 0) offsets.insert(row.patchOffset);
    EXPECT_EQ(offsets, (std::set<std::size_t>{10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 23}));
}

TEST(ToneParameterTable, EveryValueInRangeComesBackFromTheWire)
{
    for (const ToneParameter& row : masterToneParameterRows())
        for (int v = row.range.lowest; v <= row.range.highest; ++v) {
            MasterToneParameters written;
            MasterToneParameters read;
            setValue(row, written, v);
            EXPECT_EQ(value(row, written), v);
            setWireValue(row, read, wireValue(row, written));
            EXPECT_EQ(read, written) << row.label << " " << v;
        }
    for (const ToneParameter& row : channelToneParameterRows())
        for (int v = row.range.lowest; v <= row.range.highest; ++v) {
            ChannelToneParameters written;
            ChannelToneParameters read;
            setValue(row, written, v);
            EXPECT_EQ(value(row, written), v);
            setWireValue(row, read, wireValue(row, written));
            EXPECT_EQ(read, written) << row.label << " " << v;
        }
}

TEST(ToneParameterTable, SignedValuesTravelAboutTheMiddle)
{
    const ChannelToneParameters channel({.panpot = -64, .fineTuning = 8191});
    EXPECT_EQ(wireValue(toneParameter(ID::panpot), channel), 0);
    EXPECT_EQ(wireValue(toneParameter(ID::cutOff), channel), 64);
    EXPECT_EQ(wireValue(toneParameter(ID::fineTuning), channel), 16383);
}

TEST(ToneParameterTable, ReleaseFlagIsInvertedOnTheWire)
{
    const ToneParameter& row = toneParameter(ID::isReleaseActive);
    EXPECT_EQ(wireValue(row, ChannelToneParameters({.isReleaseActive = true})), 0);
    EXPECT_EQ(wireValue(row, ChannelToneParameters({.isReleaseActive = false})), 1);
    ChannelToneParameters channel;
    setWireValue(row, channel, 127);
    EXPECT_FALSE(channel.isReleaseActive);
    setWireValue(row, channel, 0);
    EXPECT_TRUE(channel.isReleaseActive);
}

TEST(ToneParameterTable, OnlyOneMakesATrackADrumTrack)
{
    const ToneParameter& row = toneParameter(ID::drumTrackSetting);
    ChannelToneParameters channel;
    setWireValue(row, channel, 1);
    EXPECT_EQ(channel.drumTrackSetting, ToneDrumTrackSetting::drum);
    setWireValue(row, channel, 2);
    EXPECT_EQ(channel.drumTrackSetting, ToneDrumTrackSetting::melody);
}

TEST(ToneParameterTable, SustainLevelHasTheHigherNumberOfItsPair)
{
    EXPECT_EQ(toneParameter(ID::sustainLevel).carrier, (ToneCarrier{Kind::nrpn, 6, 1}));
    EXPECT_EQ(toneParameter(ID::sustainRate).carrier, (ToneCarrier{Kind::nrpn, 6, 0}));
}

TEST(ToneParameterTable, FindsARowByItsCarrier)
{
    ASSERT_NE(findToneParameter({Kind::nrpn, 7, 20}), nullptr);
    EXPECT_EQ(findToneParameter({Kind::nrpn, 7, 20})->id, ID::reverbType);
    ASSERT_NE(findToneParameter({Kind::controller, 0, 91}), nullptr);
    EXPECT_EQ(findToneParameter({Kind::controller, 0, 91})->id, ID::reverbSend);
    EXPECT_EQ(findToneParameter({Kind::nrpn, 7, 2}), nullptr);
    EXPECT_EQ(findToneParameter({Kind::controller, 0, 1}), nullptr);
}

TEST(ToneParameterTable, ControlsAreNamedAsTheirSendsButForThreeOfThem)
{
    EXPECT_EQ(toneParameter(ID::drumTrackSetting).caption(), "Drum Track Set");
    EXPECT_EQ(toneParameter(ID::drumTrackSetting).label, "Drum Track Setting");
    EXPECT_EQ(toneParameter(ID::bankKind).caption(), "Bank");
    EXPECT_EQ(toneParameter(ID::bankKind).label, "Bank Select / Program Change");
    EXPECT_EQ(toneParameter(ID::programChange).caption(), "");
    EXPECT_EQ(toneParameter(ID::programChange).label, "Bank Select / Program Change");
    const std::set<ID> named{ID::drumTrackSetting, ID::bankKind, ID::programChange};
    for (const ToneParameter& row : toneParameterRows())
        EXPECT_EQ(row.caption() == row.label, !named.contains(row.id)) << row.label;
}

TEST(ToneParameterTable, GroupsHaveTheirCaptions)
{
    EXPECT_EQ(caption(toneParameter(ID::reverbType).group), "リバーブ");
    EXPECT_EQ(caption(toneParameter(ID::bankKind).group), "");
    EXPECT_EQ(caption(toneParameter(ID::panpot).group), "音量・定位");
    EXPECT_EQ(caption(toneParameter(ID::waveType).group), "オシレータ1・2");
    EXPECT_EQ(caption(toneParameter(ID::outputGain).group), "音の大きさ");
}

TEST(ToneParameterTable, NamesTheValuesThatAreChosenByName)
{
    EXPECT_THAT(toneParameter(ID::reverbType).choices, ElementsAre("Normal", "Hall", "Room"));
    EXPECT_THAT(toneParameter(ID::drumTrackSetting).choices, ElementsAre("Melody", "Drum"));
    EXPECT_THAT(toneParameter(ID::bankKind).choices, ElementsAre("Preset", "User"));
    EXPECT_THAT(toneParameter(ID::distortionType).choices, ElementsAre("OFF", "Hard Clip", "Soft Clip", "Assym"));
    EXPECT_THAT(toneParameter(ID::waveType).choices,
                ElementsAre("SINE", "SQUARE", "TRIANGLE", "SAW", "WHITE NOISE", "PINK NOISE", "PCM", "PCM Reverse",
                            "User Wave 1", "User Wave 2", "User Wave 3", "User Wave 4"));
    EXPECT_THAT(toneParameter(ID::sweepType).choices, ElementsAre("UP", "DOWN", "NONE"));
    const std::set<ID> named{ID::reverbType,     ID::drumTrackSetting, ID::bankKind,
                             ID::distortionType, ID::waveType,         ID::sweepType};
    for (const ToneParameter& row : toneParameterRows())
        EXPECT_EQ(row.choices.empty(), !named.contains(row.id)) << row.label;
}

} // namespace
} // namespace tonavelle
