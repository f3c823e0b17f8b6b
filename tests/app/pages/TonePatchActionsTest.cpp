#include "pages/TonePatchActions.h"

#include "tests/app/support/ToneEditorTest.h"

namespace orvim {
namespace {

using test::bytes;
using tonavelle::Batch;
using ID = tonavelle::ToneParameterID;

class TonePatchActionsTest : public test::ToneEditorTest
{
};

TEST_F(TonePatchActionsTest, AStepOfAMelodyControlSendsTheWholeSound)
{
    actions.patches.selectUserMelody(4);
    actions.patches.setUserMelody(ID::attack, 1);
    EXPECT_EQ(sent(), Batch{bytes("F0 00 48 05 7F 40 00 00 04 00 00 00 00 1F 46 02 00 01 05 5A 0C 00 00 30 F7")});
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Patch Param Send")});
    EXPECT_EQ(state().userMelody().parameters.attack, 1);
}

TEST_F(TonePatchActionsTest, APresetLoadsItsSoundKeepsTheNameAndIsRemembered)
{
    actions.patches.choosePreset(80);
    EXPECT_EQ(state().userMelody().presetProgram, 80);
    EXPECT_EQ(state().userMelody().name, "User Melody");
    EXPECT_EQ(state().userMelody().parameters.waveType, 1);
    EXPECT_EQ(sent(), Batch{bytes("F0 00 48 05 7F 40 00 00 00 00 00 01 00 00 00 02 00 00 00 7F 00 00 00 1E F7")});
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Patch Param Send")});
    actions.patches.setUserMelody(ID::outputGain, 31);
    EXPECT_EQ(state().userMelody().presetProgram, std::nullopt);
}

TEST_F(TonePatchActionsTest, AMelodyNameKeepsTwelveCharactersWithBlanksForKana)
{
    actions.patches.selectUserMelody(1);
    actions.patches.setUserMelodyName(QStringLiteral("あBc0123456789"));
    EXPECT_EQ(state().userMelody().name, " Bc012345678");
    EXPECT_EQ(sent(), Batch{bytes("F0 00 48 05 7F 41 00 00 01 20 42 63 30 31 32 33 34 35 36 37 38 F7")});
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Patch Name Send")});
}

TEST_F(TonePatchActionsTest, RenamingAMelodyRenamesTheChannelsThatPlayIt)
{
    actions.channels.selectChannel(3);
    actions.channels.setChannel(ID::bankKind, 1);
    actions.channels.chooseProgram(1);
    actions.patches.selectUserMelody(1);
    actions.patches.setUserMelodyName(QStringLiteral("Bell"));
    EXPECT_EQ(part(3).name, "002:Bell");
    EXPECT_EQ(part(0).name, "001:Piano 1");
}

TEST_F(TonePatchActionsTest, AStepOfADrumControlSendsTheSoundUnderItsNote)
{
    actions.patches.selectUserDrum(38);
    actions.patches.setUserDrum(ID::outputGain, 79);
    EXPECT_EQ(sent(), Batch{bytes("F0 00 48 05 7F 40 01 00 00 26 01 06 01 1F 00 02 00 00 00 7F 00 00 45 4F F7")});
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Drum Param Send")});
}

TEST_F(TonePatchActionsTest, TheNoteNumberIsThePitchOfTheDrum)
{
    actions.patches.selectUserDrum(38);
    actions.patches.setUserDrumNoteNumber(70);
    EXPECT_EQ(state().userDrum().noteNumber, 70);
    EXPECT_EQ(sent().back()[22], 70);
    actions.patches.setUserDrumNoteNumber(500);
    EXPECT_EQ(state().userDrum().noteNumber, 127);
}

TEST_F(TonePatchActionsTest, RenamingTheDrumSetRenamesTheChannelsThatPlayIt)
{
    actions.channels.selectChannel(9);
    actions.channels.setChannel(ID::bankKind, 1);
    forget();
    actions.patches.setDrumSetName(QStringLiteral("Kit"));
    EXPECT_EQ(sent(), Batch{bytes("F0 00 48 05 7F 41 01 00 00 4B 69 74 20 20 20 20 20 20 20 20 20 F7")});
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Drum Name Send")});
    EXPECT_EQ(part(9).name, "001:Kit");
}

TEST_F(TonePatchActionsTest, RenamingTheDrumSetReachesChannelsThatPlayItUnderAnyProgram)
{
    // As a file may give it to a channel.
    actions.model.change(ToneEditorPart::channel, [](ToneEditorState& state) {
        auto& channel = state.instrument.channels[3];
        channel.drumTrackSetting = tonavelle::ToneDrumTrackSetting::drum;
        channel.bankKind = tonavelle::ToneBankKind::user;
        channel.programChange = 5;
    });
    plugged.runtime.displaySimulator().setPart(3, "001:User Drum", true, true, 5);
    plugged.runtime.displaySimulator().setPart(9, "001:User Drum", true, true, 0);
    actions.patches.setDrumSetName(QStringLiteral("Kit"));
    EXPECT_EQ(part(3).name, "001:Kit");
    EXPECT_EQ(part(9).name, "001:Kit");
    EXPECT_EQ(part(4).name, "001:Piano 1");
}

TEST_F(TonePatchActionsTest, RenamingTheMelodyThatIsPreviewedRenamesItsRow)
{
    actions.patches.selectUserMelody(3);
    actions.previews.pressUserMelody(3);
    actions.patches.setUserMelodyName(QStringLiteral("Bell"));
    EXPECT_EQ(part(0).name, "004:Bell");
}

TEST_F(TonePatchActionsTest, ADrumNotesNameIsKeptWithoutASend)
{
    actions.patches.selectUserDrum(34);
    actions.patches.setUserDrumName(QStringLiteral("Electric Snare Long"));
    EXPECT_EQ(state().userDrum().name, "Electric Snare Long");
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(plugged.log().isEmpty());
}

} // namespace
} // namespace orvim
