#include "core/tone/ToneRecords.h"

#include "core/tone/ToneParameterTable.h"

#include <functional>
#include <gtest/gtest.h>

namespace tonavelle {
namespace {

TEST(MasterToneParameters, StartsOnTheModulesOwnEffects)
{
    EXPECT_EQ(MasterToneParameters(), MasterToneParameters({.reverbType = 0,
                                                            .chorusDepth = 100,
                                                            .chorusFrequency = 9,
                                                            .delayTime = 127,
                                                            .delayFeedbackGain = 120,
                                                            .masterVolume = 127}));
}

TEST(MasterToneParameters, ConstructorKeepsTheLowSevenBitsOfEachValue)
{
    const MasterToneParameters master({.reverbType = 130,
                                       .chorusDepth = 228,
                                       .chorusFrequency = 137,
                                       .delayTime = 255,
                                       .delayFeedbackGain = 248,
                                       .masterVolume = 128});
    EXPECT_EQ(master.reverbType, 2);
    EXPECT_EQ(master.chorusDepth, 100);
    EXPECT_EQ(master.chorusFrequency, 9);
    EXPECT_EQ(master.delayTime, 127);
    EXPECT_EQ(master.delayFeedbackGain, 120);
    EXPECT_EQ(master.masterVolume, 0);
}

TEST(ChannelToneParameters, ConstructorClampsSignedValuesAndMasksTheOthers)
{
    EXPECT_EQ(ChannelToneParameters({.cutOff = 100}).cutOff, 63);
    EXPECT_EQ(ChannelToneParameters({.fineTuning = -9000}).fineTuning, -8192);
    EXPECT_EQ(ChannelToneParameters({.volume = 200}).volume, 72);
}

TEST(ChannelToneParameters, ConstructorClampsEverySignedValueAtBothEnds)
{
    const ChannelToneParameters high({.cutOff = 64,
                                      .resonance = 64,
                                      .unisonDetune = 64,
                                      .panpot = 64,
                                      .vibratoRate = 64,
                                      .fineTuning = 8192,
                                      .coarseTuning = 64});
    EXPECT_EQ(high, ChannelToneParameters({.cutOff = 63,
                                           .resonance = 63,
                                           .unisonDetune = 63,
                                           .panpot = 63,
                                           .vibratoRate = 63,
                                           .fineTuning = 8191,
                                           .coarseTuning = 63}));
    const ChannelToneParameters low({.cutOff = -65,
                                     .resonance = -65,
                                     .unisonDetune = -65,
                                     .panpot = -65,
                                     .vibratoRate = -65,
                                     .fineTuning = -8193,
                                     .coarseTuning = -65});
    EXPECT_EQ(low.cutOff, -64);
    EXPECT_EQ(low.resonance, -64);
    EXPECT_EQ(low.unisonDetune, -64);
    EXPECT_EQ(low.panpot, -64);
    EXPECT_EQ(low.vibratoRate, -64);
    EXPECT_EQ(low.fineTuning, -8192);
    EXPECT_EQ(low.coarseTuning, -64);
}

TEST(ChannelToneParameters, ConstructorKeepsSettingsThatHaveNoNumber)
{
    const ChannelToneParameters channel(
        {.drumTrackSetting = ToneDrumTrackSetting::drum, .bankKind = ToneBankKind::user, .isReleaseActive = false});
    EXPECT_EQ(channel.drumTrackSetting, ToneDrumTrackSetting::drum);
    EXPECT_EQ(channel.bankKind, ToneBankKind::user);
    EXPECT_FALSE(channel.isReleaseActive);
}

TEST(ChannelToneParameters, UserBankIsBankSelectSixteen)
{
    EXPECT_EQ(ChannelToneParameters({.bankKind = ToneBankKind::user}).bankSelectMSB(), 16);
    EXPECT_EQ(ChannelToneParameters({.bankKind = ToneBankKind::user}).bankSelectLSB(), 0);
    EXPECT_EQ(ChannelToneParameters().bankSelectMSB(), 0);
}

/// A value of the parameter's range other than `standard`.
int otherValue(const ToneParameter& row, int standard)
{
    return standard == row.range.highest ? row.range.lowest : row.range.highest;
}

TEST(ToneRecords, DifferInAnySingleValue)
{
    for (const ToneParameter& row : masterToneParameterRows()) {
        MasterToneParameters master;
        setValue(row, master, otherValue(row, value(row, master)));
        EXPECT_NE(master, MasterToneParameters()) << row.label;
    }
    for (const ToneParameter& row : channelToneParameterRows()) {
        ChannelToneParameters channel;
        setValue(row, channel, otherValue(row, value(row, channel)));
        EXPECT_NE(channel, ChannelToneParameters()) << row.label;
    }
}

TEST(ImportedUserPatch, DiffersInAnySingleField)
{
    const ImportedUserPatch patch;
    EXPECT_EQ(patch, ImportedUserPatch());
    EXPECT_NE(patch, (ImportedUserPatch{.name = "A", .parameters = {}}));
    EXPECT_NE(patch, (ImportedUserPatch{.name = {}, .parameters = ChannelToneParameters({.attack = 1})}));
    EXPECT_NE(patch, (ImportedUserPatch{.name = {}, .parameters = {}, .noteNumber = 1}));
}

TEST(ImportedToneData, DiffersInAnySingleField)
{
    const auto changed = [](const std::function<void(ImportedToneData&)>& change) {
        ImportedToneData data;
        change(data);
        return data;
    };
    const ImportedToneData data;
    EXPECT_EQ(data, ImportedToneData());
    EXPECT_NE(data, changed([](ImportedToneData& other) { other.master.masterVolume = 1; }));
    EXPECT_NE(data, changed([](ImportedToneData& other) { other.channels.resize(1); }));
    EXPECT_NE(data, changed([](ImportedToneData& other) { other.userMelodies.resize(1); }));
    EXPECT_NE(data, changed([](ImportedToneData& other) { other.userDrums.resize(1); }));
    EXPECT_NE(data, changed([](ImportedToneData& other) { other.userDrumName.push_back('A'); }));
    EXPECT_NE(data, changed([](ImportedToneData& other) { other.userWaveforms.resize(1); }));
}

} // namespace
} // namespace tonavelle
