#include "pages/ToneEditorPreviews.h"

#include "tests/app/support/ToneEditorTest.h"

namespace orvim {
namespace {

using test::bytes;
using testing::ElementsAre;
using tonavelle::Batch;
using Part = tonavelle::PerformanceMonitorPart;
using Tab = ToneEditorTab;

class ToneEditorPreviewsTest : public test::ToneEditorTest
{
protected:
    void open(Tab tab)
    {
        actions.previews.openTab(tab);
        QCoreApplication::processEvents();
    }
};

TEST_F(ToneEditorPreviewsTest, OpeningATabShowsItAtOnceAndSendsInTheNextTurn)
{
    actions.previews.openTab(Tab::userMelody);
    EXPECT_EQ(state().selectedToneTab, Tab::userMelody);
    EXPECT_TRUE(state().loadedToneTabs.contains(Tab::userMelody));
    EXPECT_TRUE(sent().empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(sent().size(), 7U);
}

TEST_F(ToneEditorPreviewsTest, TheMelodyTabSelectsItsPatchOnChannel1)
{
    actions.patches.selectUserMelody(7);
    open(Tab::userMelody);
    EXPECT_THAT(sent(), ElementsAre(bytes("B0 63 0A"), bytes("B0 62 00"), bytes("B0 06 00"), bytes("B0 26 00"),
                                    bytes("B0 00 10"), bytes("B0 20 00"), bytes("C0 07")));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Select User Melody Patch")});
    EXPECT_EQ(part(0), (Part{"008:User Melody", true, false, 7}));
    EXPECT_EQ(state().instrument.channels[0].programChange, 0);
}

TEST_F(ToneEditorPreviewsTest, WhileMuchWaitsASelectionGoesAheadOfItAndBehindItOnceMore)
{
    open(Tab::userMelody);
    forget();
    plugged.system.isBehind = true;
    actions.patches.selectUserMelody(5);
    actions.previews.followSelection();
    QCoreApplication::processEvents();
    const Batch melody{bytes("B0 63 0A"), bytes("B0 62 00"), bytes("B0 06 00"), bytes("B0 26 00"),
                       bytes("B0 00 10"), bytes("B0 20 00"), bytes("C0 05")};
    EXPECT_EQ(sent(), melody);
    EXPECT_EQ(playedUpToNow(), melody);
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Select User Melody Patch")});
    open(Tab::userWave);
    forget();
    actions.previews.pressUserWave(3);
    EXPECT_THAT(sent(), testing::Contains(bytes("B0 06 0B")));
    EXPECT_EQ(playedUpToNow().back(), bytes("90 3C 7F"));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Select User Wave Preview")});
}

TEST_F(ToneEditorPreviewsTest, TheDrumTabSelectsTheDrumSetOnChannel10)
{
    open(Tab::userDrum);
    EXPECT_THAT(sent(), ElementsAre(bytes("B9 63 0A"), bytes("B9 62 00"), bytes("B9 06 01"), bytes("B9 26 00"),
                                    bytes("B9 00 10"), bytes("B9 20 00"), bytes("C9 00")));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Select User Drum Patch")});
    EXPECT_EQ(part(9), (Part{"001:User Drum", true, true, 0}));
}

TEST_F(ToneEditorPreviewsTest, TheWaveTabSelectsItsSlotOnChannel1)
{
    actions.waves.selectUserWave(2);
    open(Tab::userWave);
    EXPECT_THAT(sent(), ElementsAre(bytes("B0 63 0A"), bytes("B0 62 00"), bytes("B0 06 00"), bytes("B0 26 00"),
                                    bytes("B0 00 00"), bytes("B0 20 00"), bytes("C0 50"), bytes("B0 63 02"),
                                    bytes("B0 62 00"), bytes("B0 06 0A"), bytes("B0 26 00")));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Select User Wave Preview")});
    EXPECT_EQ(part(0), (Part{"081:Square Wave", false, false, 80}));
}

TEST_F(ToneEditorPreviewsTest, LeavingTheMelodyTabForTheMasterEndsTheNoteAndRestoresNothingUntilTheChannelTab)
{
    open(Tab::userMelody);
    actions.previews.pressUserMelody(0);
    ASSERT_EQ(played(8).size(), 8U);
    forget();
    open(Tab::master);
    EXPECT_EQ(played(1), Batch{bytes("80 3C 00")});
    EXPECT_TRUE(sent().empty());
    open(Tab::channel);
    EXPECT_EQ(labels(), (QStringList{QStringLiteral("Restore Channel From Preview"),
                                     QStringLiteral("Restore Channel From Preview")}));
    const Batch restored = sent();
    // Channel 1 gets its drum setting, its program and 13 parameters of its sound; a drum channel no sound.
    ASSERT_EQ(restored.size(), 7U + 4 * 10 + 3 + 7);
    EXPECT_EQ(restored.front(), bytes("B0 63 0A"));
    EXPECT_EQ(restored[6], bytes("C0 00"));
    EXPECT_EQ(restored[restored.size() - 7], bytes("B9 63 0A"));
    EXPECT_EQ(restored[restored.size() - 5], bytes("B9 06 01"));
    EXPECT_EQ(restored.back(), bytes("C9 00"));
    EXPECT_EQ(part(0), (Part{"001:Piano 1", false, false, 0}));
    EXPECT_EQ(part(9), (Part{"001:Standard Set", false, true, 0}));
}

TEST_F(ToneEditorPreviewsTest, GoingFromOneUserTabToAnotherRestoresNothing)
{
    open(Tab::userMelody);
    forget();
    open(Tab::userDrum);
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Select User Drum Patch")});
    EXPECT_EQ(part(0).name, "001:User Melody");
}

TEST_F(ToneEditorPreviewsTest, AHeldRowPlaysItsPatchUntilTheRelease)
{
    actions.previews.pressUserMelody(3);
    EXPECT_EQ(state().userMelodyPreviewIndex, 3);
    actions.previews.releaseUserMelody();
    EXPECT_THAT(played(9), ElementsAre(bytes("B0 63 0A"), bytes("B0 62 00"), bytes("B0 06 00"), bytes("B0 26 00"),
                                       bytes("B0 00 10"), bytes("B0 20 00"), bytes("C0 03"), bytes("90 3C 7F"),
                                       bytes("80 3C 00")));
    EXPECT_EQ(state().userMelodyPreviewIndex, std::nullopt);
    EXPECT_TRUE(plugged.log().isEmpty());
    EXPECT_EQ(part(0), (Part{"004:User Melody", true, false, 3}));
}

TEST_F(ToneEditorPreviewsTest, AHeldDrumRowPlaysItsNoteOnChannel10)
{
    actions.previews.pressUserDrum(38);
    EXPECT_EQ(state().userDrumPreviewNote, 38);
    actions.previews.releaseUserDrum();
    EXPECT_EQ(part(9), (Part{"001:User Drum", true, true, 0}));
    const Batch notes = played(9);
    EXPECT_EQ(notes[7], bytes("99 26 7F"));
    EXPECT_EQ(notes[8], bytes("89 26 00"));
}

TEST_F(ToneEditorPreviewsTest, AHeldWaveRowPlaysItsSlot)
{
    actions.previews.pressUserWave(3);
    EXPECT_EQ(state().userWavePreviewSlot, 3);
    actions.previews.releaseUserWave();
    EXPECT_EQ(part(0), (Part{"081:Square Wave", false, false, 80}));
    const Batch notes = played(13);
    EXPECT_EQ(notes[9], bytes("B0 06 0B"));
    EXPECT_EQ(notes[11], bytes("90 3C 7F"));
    EXPECT_EQ(notes[12], bytes("80 3C 00"));
}

TEST_F(ToneEditorPreviewsTest, AWavePreviewThatCannotBeBuiltIsReportedAndPlaysNothing)
{
    actions.previews.pressUserWave(1);
    actions.previews.pressUserWave(4);
    EXPECT_EQ(status(), QStringLiteral("スロット番号が不正"));
    EXPECT_EQ(plugged.log(), QStringLiteral(" スロット番号が不正\n"));
    EXPECT_EQ(state().userWavePreviewSlot, std::nullopt);
    // The note that sounded ends, and nothing else comes before the next one.
    actions.previews.pressChannel(7);
    const Batch notes = played(14);
    ASSERT_EQ(notes.size(), 14U);
    EXPECT_EQ(notes[12], bytes("80 3C 00"));
    EXPECT_EQ(notes[13], bytes("97 3C 7F"));
}

TEST_F(ToneEditorPreviewsTest, ARowHeldOverATabChangeEndsThereAndTheLaterReleaseDoesNothing)
{
    actions.previews.pressUserDrum(40);
    EXPECT_EQ(played(8).size(), 8U);
    forget();
    open(Tab::userWave);
    EXPECT_EQ(played(1), Batch{bytes("89 28 00")});
    actions.previews.releaseUserDrum();
    actions.previews.pressChannel(0);
    EXPECT_EQ(played(2), (Batch{bytes("89 28 00"), bytes("90 3C 7F")}));
}

TEST_F(ToneEditorPreviewsTest, ARowThatIsNoneEndsTheNoteAndPlaysNothing)
{
    actions.previews.pressUserMelody(3);
    actions.previews.pressUserDrum(40);
    ASSERT_EQ(playedUpToNow().size(), 16U);
    forget();
    actions.previews.pressUserMelody(128);
    EXPECT_EQ(playedUpToNow(), Batch{bytes("80 3C 00")});
    EXPECT_EQ(state().userMelodyPreviewIndex, std::nullopt);
    EXPECT_EQ(state().userDrumPreviewNote, 40);
    forget();
    actions.previews.pressUserDrum(-1);
    EXPECT_EQ(playedUpToNow(), Batch{bytes("89 28 00")});
    EXPECT_EQ(state().userDrumPreviewNote, std::nullopt);
    EXPECT_TRUE(sent().empty());
}

TEST_F(ToneEditorPreviewsTest, ARowBeyondTheChannelsLeavesTheNoteThatSounds)
{
    actions.previews.pressChannel(2);
    actions.previews.pressChannel(16);
    actions.previews.pressChannel(-1);
    EXPECT_EQ(playedUpToNow(), Batch{bytes("92 3C 7F")});
    EXPECT_EQ(state().previewChannel, 2);
}

TEST_F(ToneEditorPreviewsTest, ASelectionOutsideItsListIsBroughtBackBeforeItIsInstalled)
{
    actions.patches.selectUserMelody(500);
    EXPECT_EQ(state().selectedUserMelody, 127);
    open(Tab::userMelody);
    EXPECT_EQ(sent().back(), bytes("C0 7F"));
    actions.waves.selectUserWave(-3);
    EXPECT_EQ(state().selectedUserWave, 0);
}

TEST_F(ToneEditorPreviewsTest, ATabChangeWithoutAHeldRowPlaysNothing)
{
    for (const Tab tab : {Tab::channel, Tab::userMelody, Tab::userDrum, Tab::userWave, Tab::master})
        open(tab);
    EXPECT_EQ(playedUpToNow(), Batch());
    EXPECT_EQ(labels(),
              (QStringList{QStringLiteral("Restore Channel From Preview"),
                           QStringLiteral("Restore Channel From Preview"), QStringLiteral("Select User Melody Patch"),
                           QStringLiteral("Select User Drum Patch"), QStringLiteral("Select User Wave Preview")}));
}

TEST_F(ToneEditorPreviewsTest, HoldingAChannelsRowAndPressingAnotherEndsTheFirstNote)
{
    actions.previews.pressChannel(2);
    actions.previews.pressChannel(5);
    actions.previews.releaseChannel();
    EXPECT_THAT(played(4), ElementsAre(bytes("92 3C 7F"), bytes("82 3C 00"), bytes("95 3C 7F"), bytes("85 3C 00")));
}

TEST_F(ToneEditorPreviewsTest, EveryTabChangeEndsAChannelsTestNote)
{
    actions.previews.pressChannel(4);
    open(Tab::master);
    EXPECT_EQ(played(2), (Batch{bytes("94 3C 7F"), bytes("84 3C 00")}));
    EXPECT_EQ(state().previewChannel, std::nullopt);
}

TEST_F(ToneEditorPreviewsTest, TheKeyboardFollowsTheTab)
{
    actions.channels.selectChannel(6);
    EXPECT_EQ(state().keyboardChannel(), 6);
    open(Tab::channel);
    EXPECT_EQ(state().keyboardChannel(), 6);
    open(Tab::userMelody);
    EXPECT_EQ(state().keyboardChannel(), 0);
    open(Tab::userDrum);
    EXPECT_EQ(state().keyboardChannel(), 9);
    open(Tab::userWave);
    EXPECT_EQ(state().keyboardChannel(), 0);
}

} // namespace
} // namespace orvim
