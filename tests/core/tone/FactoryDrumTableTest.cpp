#include "core/tone/FactoryDrumTable.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

TEST(FactoryDrumTable, Note81IsTheOpenTriangle)
{
    const UserDrumDefaultPatch patch = defaultUserDrumPatch(81);
    EXPECT_EQ(patch.name, "Open Triangle");
    EXPECT_EQ(patch.noteNumber, 90);
    EXPECT_EQ(patch.parameters, ChannelToneParameters({.isReleaseActive = false,
                                                       .waveType = 1,
                                                       .waveNumber = 0,
                                                       .ringModMultiply = 86,
                                                       .ringModGain = 120,
                                                       .sweepType = 2,
                                                       .sweepSpeed = 0,
                                                       .attack = 0,
                                                       .decay = 3,
                                                       .sustainLevel = 30,
                                                       .sustainRate = 20,
                                                       .release = 0,
                                                       .outputGain = 38}));
}

TEST(FactoryDrumTable, NotesOutsideTheMapShareOneNamelessSound)
{
    const UserDrumDefaultPatch patch = defaultUserDrumPatch(34);
    EXPECT_EQ(patch.name, "");
    EXPECT_EQ(patch.noteNumber, 38);
    EXPECT_EQ(patch.parameters, ChannelToneParameters({.isReleaseActive = false,
                                                       .waveType = 1,
                                                       .waveNumber = 0,
                                                       .ringModMultiply = 31,
                                                       .ringModGain = 127,
                                                       .sweepType = 1,
                                                       .sweepSpeed = 64,
                                                       .attack = 0,
                                                       .decay = 0,
                                                       .sustainLevel = 127,
                                                       .sustainRate = 0,
                                                       .release = 0,
                                                       .outputGain = 60}));
    for (const int note : {0, 33, 82, 127})
        EXPECT_EQ(defaultUserDrumPatch(note), patch) << note;
}

TEST(FactoryDrumTable, FirstNoteOfTheMapIsABassDrumSample)
{
    const UserDrumDefaultPatch patch = defaultUserDrumPatch(35);
    EXPECT_EQ(patch.name, "Acoustic Bass Drum");
    EXPECT_EQ(patch.parameters.waveType, 6);
    EXPECT_EQ(patch.parameters.waveNumber, 4);
    EXPECT_EQ(patch.parameters.outputGain, 78);
    EXPECT_EQ(patch.noteNumber, 69);
}

TEST(FactoryDrumTable, VibraslapAndGuirosHaveLowPitches)
{
    EXPECT_EQ(defaultUserDrumPatch(58).name, "Vibraslap");
    EXPECT_EQ(defaultUserDrumPatch(58).noteNumber, 15);
    EXPECT_EQ(defaultUserDrumPatch(73).noteNumber, 19);
    EXPECT_EQ(defaultUserDrumPatch(74).noteNumber, 19);
}

TEST(FactoryDrumTable, SweepsOfMaracasAndLongGuiro)
{
    EXPECT_EQ(defaultUserDrumPatch(70).parameters.sweepType, 1);
    EXPECT_EQ(defaultUserDrumPatch(70).parameters.sweepSpeed, 127);
    EXPECT_EQ(defaultUserDrumPatch(74).parameters.sweepType, 0);
    EXPECT_EQ(defaultUserDrumPatch(74).parameters.sweepSpeed, 17);
}

TEST(FactoryDrumTable, EveryNoteOfTheMapHasANameAndRunsToItsEnd)
{
    for (int note = 35; note <= 81; ++note) {
        const UserDrumDefaultPatch patch = defaultUserDrumPatch(note);
        EXPECT_NE(patch.name, "") << note;
        EXPECT_FALSE(patch.parameters.isReleaseActive) << note;
        EXPECT_EQ(patch.parameters.drumTrackSetting, ToneDrumTrackSetting::melody) << note;
        EXPECT_LE(patch.parameters.waveNumber, 12) << note;
    }
}

} // namespace
} // namespace tonavelle
