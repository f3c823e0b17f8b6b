#include "core/tone/ToneUserMessages.h"

#include "core/tone/ToneEditorBuilder.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using orvim::test::bytes;

TEST(ToneUserMessages, NothingEditedGivesNoMessage)
{
    EXPECT_TRUE(userMessages(factoryToneInstrument(), {}).empty());
}

TEST(ToneUserMessages, EverythingIsMelodiesDrumsNameAndWaveforms)
{
    const auto list = userMessages(factoryToneInstrument(), everything);
    ASSERT_EQ(list.size(), 128u * 2 + 128 + 1 + 4 * 128);
    EXPECT_EQ(list[0].label, "User Patch Param Send");
    EXPECT_EQ(list[0].message, bytes("F0 00 48 05 7F 40 00 00 00 00 00 00 00 1F 46 02 00 00 05 5A 0C 00 00 30 F7"));
    EXPECT_EQ(list[1].label, "User Patch Name Send");
    EXPECT_EQ(list[1].message, bytes("F0 00 48 05 7F 41 00 00 00 55 73 65 72 20 4D 65 6C 6F 64 79 20 F7"));
    EXPECT_EQ(list[256 + 38].label, "User Patch Param Send") << "not the label of the drum tab's own send";
    EXPECT_EQ(list[256 + 38].message,
              bytes("F0 00 48 05 7F 40 01 00 00 26 01 06 01 1F 00 02 00 00 00 7F 00 00 45 4E F7"));
    EXPECT_EQ(list[384].label, "User Patch Name Send");
    EXPECT_EQ(list[384].message, bytes("F0 00 48 05 7F 41 01 00 00 55 73 65 72 20 44 72 75 6D 20 20 20 F7"));
    EXPECT_EQ(list[385].label, "User Waveform Send Data");
    EXPECT_EQ(Message(list[385].message.begin(), list[385].message.begin() + 8), bytes("F0 00 48 05 7F 48 00 00"));
    EXPECT_EQ(Message(list.back().message.begin(), list.back().message.begin() + 8), bytes("F0 00 48 05 7F 48 03 7F"));
}

TEST(ToneUserMessages, EqualNamesOfTwoMelodiesAreBothWritten)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userMelodies[1].name = "Same";
    instrument.userMelodies[2].name = "Same";
    const auto list = userMessages(instrument, {});
    ASSERT_EQ(list.size(), 4u);
    EXPECT_EQ(list[1].message, ToneEditorBuilder::userPatchName(false, 1, "Same"));
    EXPECT_EQ(list[3].message, ToneEditorBuilder::userPatchName(false, 2, "Same"));
}

TEST(ToneUserMessages, ChangedNameOfADrumNoteIsNeverWritten)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userDrums[38].name = "My Snare";
    EXPECT_TRUE(userMessages(instrument, {}).empty());
    EXPECT_EQ(userMessages(instrument, everything), userMessages(factoryToneInstrument(), everything));
}

TEST(ToneUserMessages, DrumSetNameFollowsTheDrumFlag)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.drumSetName = "Kit";
    ASSERT_EQ(userMessages(instrument, {}).size(), 1u);
    EXPECT_EQ(userMessages(instrument, {}).front(),
              (LabelledMessage{"User Patch Name Send", ToneEditorBuilder::userPatchName(true, 0, "Kit")}));
    instrument.drumSetName = "User Drum   ";
    EXPECT_TRUE(userMessages(instrument, {}).empty()) << "names are compared as the module gets them";
    EXPECT_EQ(userMessages(instrument, {.writesDirtyUserDrumOnly = false}).size(), 128u + 1);
    EXPECT_EQ(userMessages(instrument, {.writesDirtyUserMelodyOnly = false}).size(), 256u);
}

TEST(ToneUserMessages, OneChangedSampleWritesItsWholeSlot)
{
    ToneInstrument instrument = factoryToneInstrument();
    ++instrument.userWaveforms[3][2047];
    const auto list = userMessages(instrument, {});
    ASSERT_EQ(list.size(), 128u);
    EXPECT_EQ(list[0].message[6], 3);
    EXPECT_EQ(userMessages(factoryToneInstrument(), {.writesDirtyUserWaveOnly = false}).size(), 512u);
}

TEST(ToneUserMessages, WaveformThatIsNotWholeIsLeftOut)
{
    ToneInstrument instrument = factoryToneInstrument();
    instrument.userWaveforms[0].pop_back();
    EXPECT_EQ(userMessages(instrument, {.writesDirtyUserWaveOnly = false}).size(), 3u * 128);
}

} // namespace
} // namespace tonavelle
