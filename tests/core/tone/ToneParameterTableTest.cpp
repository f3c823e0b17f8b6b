#include "core/tone/ToneParameterTable.h"

#include <gtest/gtest.h>
#include <set>

namespace tonavelle {
namespace {

using ID = ToneParameterID;
using Kind = ToneCarrier::Kind;

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

TEST(ToneParameterTable, DefaultsLieInTheirRanges)
{
    for (const ToneParameter& row : masterToneParameterRows()) {
        EXPECT_GE(value(row, MasterToneParameters()), row.range.lowest) << row.label;
        EXPECT_LE(value(row, MasterToneParameters()), row.range.highest) << row.label;
    }
    for (const ToneParameter& row : channelToneParameterRows()) {
        EXPECT_GE(value(row, ChannelToneParameters()), row.range.lowest) << row.label;
        EXPECT_LE(value(row, ChannelToneParameters()), row.range.highest) << row.label;
    }
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
    for (const ToneParameter& row : toneParameterRows())
        EXPECT_EQ(row.caption(), row.controlLabel ? *row.controlLabel : row.label);
}

TEST(ToneParameterTable, GroupsHaveTheirCaptions)
{
    EXPECT_EQ(caption(toneParameter(ID::reverbType).group), "リバーブ");
    EXPECT_EQ(caption(toneParameter(ID::bankKind).group), "");
    EXPECT_EQ(caption(toneParameter(ID::panpot).group), "音量・定位");
    EXPECT_EQ(caption(toneParameter(ID::waveType).group), "オシレータ1・2");
    EXPECT_EQ(caption(toneParameter(ID::outputGain).group), "音の大きさ");
}

TEST(ToneParameterTable, NamesTheWavesAndSweeps)
{
    EXPECT_EQ(toneParameter(ID::waveType).choices[7], "PCM Reverse");
    EXPECT_EQ(toneParameter(ID::waveType).choices[8], "User Wave 1");
    EXPECT_EQ(toneParameter(ID::sweepType).choices[2], "NONE");
    EXPECT_EQ(toneParameter(ID::distortionType).choices[3], "Assym");
    EXPECT_TRUE(toneParameter(ID::waveNumber).choices.empty());
}

} // namespace
} // namespace tonavelle
