#include "controls/TickSnappingSlider.h"
#include "controls/ValidatedTextField.h"
#include "tests/app/support/ToneEditorTabTest.h"

#include <QComboBox>
#include <QInputMethodEvent>

namespace orvim {
namespace {

using test::bytes;
using test::joined;
using test::PatchControlStep;
using testing::ElementsAre;
using tonavelle::Batch;

class UserMelodyTabTest : public test::ToneEditorTabTest
{
protected:
    UserMelodyTabTest() : ToneEditorTabTest(ToneEditorTab::userMelody) {}
};

Batch selection(std::uint8_t program)
{
    return {bytes("B0 63 0A"), bytes("B0 62 00"), bytes("B0 06 00"), bytes("B0 26 00"),
            bytes("B0 00 10"), bytes("B0 20 00"), {0xC0, program}};
}

TEST_F(UserMelodyTabTest, ARowIsHeardWhileItIsHeldAndItsControlsFollow)
{
    page->actions().patches.selectUserMelody(5);
    page->actions().patches.setUserMelodyName(QStringLiteral("Bell"));
    page->actions().patches.selectUserMelody(0);
    settle();
    forget();
    pressRow(5);
    EXPECT_EQ(state().selectedUserMelody, 5);
    EXPECT_EQ(state().userMelodyPreviewIndex, 5);
    releaseRow();
    EXPECT_EQ(played(9), (joined(selection(5), {bytes("90 3C 7F"), bytes("80 3C 00")})));
    EXPECT_TRUE(plugged.log().isEmpty());
    settle();
    EXPECT_EQ(control<ValidatedTextField>(QStringLiteral("楽器名")).text(), QStringLiteral("Bell"));
    EXPECT_EQ(part(0), (tonavelle::PerformanceMonitorPart{"006:Bell", true, false, 5}));
}

TEST_F(UserMelodyTabTest, AKeyThatComesRightBehindAPressedRowChangesThatRow)
{
    page->actions().patches.selectUserMelody(1);
    auto& attack = control<TickSnappingSlider>(QStringLiteral("Attack Time"));
    attack.choose(90);
    page->actions().patches.selectUserMelody(0);
    settle();
    EXPECT_EQ(attack.value(), 0);
    forget();
    // As after a wait that has held both back: nothing but the events themselves comes between them.
    pressRow(1);
    releaseRow();
    QTest::sendKeyEvent(QTest::Press, &attack, Qt::Key_Right, QString(), Qt::NoModifier);
    EXPECT_EQ(attack.value(), 91);
    EXPECT_EQ(state().instrument.userMelodies[1].parameters.attack, 91);
}

TEST_F(UserMelodyTabTest, ARowThatTheArrowsReachIsWhatThePreviewChannelPlays)
{
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(state().selectedUserMelody, 1);
    settle();
    EXPECT_EQ(played(7), selection(1));
    EXPECT_EQ(part(0), (tonavelle::PerformanceMonitorPart{"002:User Melody", true, false, 1}));
    EXPECT_TRUE(plugged.log().isEmpty());
}

TEST_F(UserMelodyTabTest, ManyArrowsInOneTurnSendTheLastRowOnce)
{
    list().setFocus();
    for (int i = 0; i < 20; ++i)
        QTest::sendKeyEvent(QTest::Click, &list(), Qt::Key_Down, QString(), Qt::NoModifier);
    settle();
    // The note stands behind all that the arrows have sent.
    page->actions().previews.pressChannel(0);
    EXPECT_EQ(played(8), (joined(selection(20), {bytes("90 3C 7F")})));
}

TEST_F(UserMelodyTabTest, AnArrowAndThenAnotherTabLeaveTheChannelToThatTab)
{
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    page->actions().previews.openTab(ToneEditorTab::master);
    settle();
    page->actions().previews.pressChannel(0);
    EXPECT_EQ(played(1), Batch{bytes("90 3C 7F")});
}

TEST_F(UserMelodyTabTest, ARowHeldOverATabChangeEndsThereAndTheLaterReleaseDoesNothing)
{
    PreviewPatchListView& melodies = list();
    pressRow(3);
    click(ToneEditorTab::userDrum);
    QTest::mouseRelease(melodies.viewport(), Qt::LeftButton);
    settle();
    page->actions().previews.pressChannel(4);
    EXPECT_EQ(played(10), (joined(selection(3), {bytes("90 3C 7F"), bytes("80 3C 00"), bytes("94 3C 7F")})));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Select User Drum Patch")});
}

TEST_F(UserMelodyTabTest, AClickWithControlKeepsTheMarkOnTheRow)
{
    for (int i = 0; i < 2; ++i) {
        const QRect row = list().visualRect(list().model()->index(3, 0));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier, row.center());
        settle();
        EXPECT_EQ(state().selectedUserMelody, 3);
        EXPECT_TRUE(list().selectionModel()->isSelected(list().model()->index(3, 0)));
    }
}

TEST_F(UserMelodyTabTest, APresetChosenFromItsMenuIsSentAndShown)
{
    auto& presets = control<QComboBox>(QStringLiteral("プリセット"));
    EXPECT_EQ(presets.count(), 128);
    presets.setFocus();
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(&presets, Qt::Key_Down);
    settle();
    EXPECT_EQ(state().userMelody().presetProgram, 1);
    EXPECT_EQ(presets.currentIndex(), 1);
    EXPECT_EQ(labels(), (QStringList{QStringLiteral("SysEx: User Patch Param Send"),
                                     QStringLiteral("SysEx: User Patch Param Send")}));
}

TEST_F(UserMelodyTabTest, UndoingInTheNameStaysWithThePatch)
{
    auto& name = control<ValidatedTextField>(QStringLiteral("楽器名"));
    name.setFocus();
    QTest::keyClick(&name, Qt::Key_End);
    QTest::keyClicks(&name, QStringLiteral("A"));
    QTest::keyClick(&name, Qt::Key_Backspace);
    page->actions().patches.selectUserMelody(1);
    settle();
    forget();
    QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(state().userMelody().name, "User Melody");
    EXPECT_EQ(name.text(), QStringLiteral("User Melody"));
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(UserMelodyTabTest, WhatIsBeingComposedEndsWithThePatchWhateverTheNextOnesName)
{
    auto& name = control<ValidatedTextField>(QStringLiteral("楽器名"));
    name.setFocus();
    QInputMethodEvent composing(QStringLiteral("べ"), {});
    QApplication::sendEvent(&name, &composing);
    page->actions().patches.selectUserMelody(1);
    settle();
    EXPECT_EQ(name.text(), QStringLiteral("User Melody"));
    EXPECT_EQ(name.displayText(), QStringLiteral("User Melody"));
    EXPECT_TRUE(plugged.sent().empty());
}

class UserMelodyControlTest : public UserMelodyTabTest, public testing::WithParamInterface<PatchControlStep>
{
};

TEST_P(UserMelodyControlTest, OneStepSendsThePatchWithThatByteChanged)
{
    page->actions().model.change(ToneEditorPart::userMelody,
                                 [](ToneEditorState& state) { state.instrument.userMelodies[0].presetProgram = 0; });
    auto& widget = control<QWidget>(QString::fromUtf8(GetParam().caption));
    widget.setFocus();
    QTest::keyClick(&widget, GetParam().key);
    auto expected = bytes("F0 00 48 05 7F 40 00 00 00 00 00 00 00 1F 46 02 00 00 05 5A 0C 00 00 30 F7");
    ASSERT_NE(expected[GetParam().offset], GetParam().value);
    expected[GetParam().offset] = GetParam().value;
    EXPECT_EQ(plugged.sent(), Batch{expected});
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Patch Param Send")});
    EXPECT_EQ(state().userMelody().presetProgram, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(AllThirteen, UserMelodyControlTest,
                         testing::Values(PatchControlStep{"Wave Type", Qt::Key_Down, 11, 0x01},
                                         PatchControlStep{"Wave Num", Qt::Key_Right, 12, 0x01},
                                         PatchControlStep{"Ringmod Multiply", Qt::Key_Right, 13, 0x20},
                                         PatchControlStep{"Ringmod Gain", Qt::Key_Right, 14, 0x47},
                                         PatchControlStep{"Attack Time", Qt::Key_Right, 17, 0x01},
                                         PatchControlStep{"Decay Time", Qt::Key_Right, 18, 0x06},
                                         PatchControlStep{"Sustain Level", Qt::Key_Right, 19, 0x5B},
                                         PatchControlStep{"Sustain Rate", Qt::Key_Right, 20, 0x0D},
                                         PatchControlStep{"Release Time", Qt::Key_Right, 21, 0x01},
                                         PatchControlStep{"Release Active", Qt::Key_Space, 10, 0x01},
                                         PatchControlStep{"Sweep Type", Qt::Key_Up, 15, 0x01},
                                         PatchControlStep{"Sweep Speed", Qt::Key_Right, 16, 0x01},
                                         PatchControlStep{"Output Gain", Qt::Key_Right, 23, 0x31}));

} // namespace
} // namespace orvim
