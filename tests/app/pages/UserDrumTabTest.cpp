#include "controls/ValidatedTextField.h"
#include "tests/app/support/ToneEditorTabTest.h"

#include <QTemporaryDir>

namespace orvim {
namespace {

using test::bytes;
using test::PatchControlStep;
using tonavelle::Batch;

class UserDrumTabTest : public test::ToneEditorTabTest
{
protected:
    UserDrumTabTest() : ToneEditorTabTest(ToneEditorTab::userDrum) {}

    void select(int row)
    {
        page->actions().patches.selectUserDrum(row);
        settle();
        forget();
    }
};

TEST_F(UserDrumTabTest, ARowPlaysItsNoteOnChannel10WhileItIsHeld)
{
    pressRow(7);
    EXPECT_EQ(state().selectedUserDrum, 7);
    EXPECT_EQ(state().userDrumPreviewNote, 7);
    releaseRow();
    EXPECT_EQ(played(9),
              (Batch{bytes("B9 63 0A"), bytes("B9 62 00"), bytes("B9 06 01"), bytes("B9 26 00"), bytes("B9 00 10"),
                     bytes("B9 20 00"), bytes("C9 00"), bytes("99 07 7F"), bytes("89 07 00")}));
    EXPECT_TRUE(plugged.log().isEmpty());
    EXPECT_EQ(part(9), (tonavelle::PerformanceMonitorPart{"001:User Drum", true, true, 0}));
}

TEST_F(UserDrumTabTest, TheSetsNameIsTypedLimitedAndSent)
{
    auto& name = control<ValidatedTextField>(QStringLiteral("ドラムセット名"));
    EXPECT_EQ(name.text(), QStringLiteral("User Drum"));
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, QStringLiteral("Kit"));
    EXPECT_EQ(plugged.sent().back(), bytes("F0 00 48 05 7F 41 01 00 00 4B 69 74 20 20 20 20 20 20 20 20 20 F7"));
    EXPECT_EQ(labels().back(), QStringLiteral("SysEx: User Drum Name Send"));
    EXPECT_EQ(part(9).name, "001:Kit");
    QTest::keyClicks(&name, QStringLiteral("0123456789"));
    EXPECT_EQ(state().instrument.drumSetName, "Kit012345678");
}

TEST_F(UserDrumTabTest, ANotesNameIsKeptOnScreenButIsLostOnTheNextOpen)
{
    const QTemporaryDir folder;
    dialogs.pathToSave = folder.filePath(QStringLiteral("tone_data.mid"));
    dialogs.pathToOpen = dialogs.pathToSave;
    dialogs.answer = true;
    select(38);
    auto& name = control<ValidatedTextField>(QStringLiteral("Name"));
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, QStringLiteral("Mine"));
    settle();
    EXPECT_EQ(list().items()[38], QStringLiteral("038 (Mine)"));
    EXPECT_TRUE(plugged.sent().empty());
    page->actions().files.save();
    page->actions().files.open();
    settle();
    EXPECT_EQ(list().items()[38], QStringLiteral("038 (Acoustic Snare)"));
    EXPECT_EQ(name.text(), QStringLiteral("Acoustic Snare"));
}

TEST_F(UserDrumTabTest, UndoingInTheNameStaysWithTheNote)
{
    auto& name = control<ValidatedTextField>(QStringLiteral("Name"));
    name.setFocus();
    QTest::keyClicks(&name, QStringLiteral("A"));
    QTest::keyClick(&name, Qt::Key_Backspace);
    select(1);
    QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(state().userDrum().name, "");
}

class UserDrumControlTest : public UserDrumTabTest, public testing::WithParamInterface<PatchControlStep>
{
};

TEST_P(UserDrumControlTest, OneStepSendsThePatchWithThatByteChanged)
{
    select(38);
    page->actions().model.change(ToneEditorPart::userDrum,
                                 [](ToneEditorState& state) { state.instrument.userDrums[38].presetProgram = 38; });
    auto& widget = control<QWidget>(QString::fromUtf8(GetParam().caption));
    widget.setFocus();
    QTest::keyClick(&widget, GetParam().key);
    auto expected = bytes("F0 00 48 05 7F 40 01 00 00 26 01 06 01 1F 00 02 00 00 00 7F 00 00 45 4E F7");
    ASSERT_NE(expected[GetParam().offset], GetParam().value);
    expected[GetParam().offset] = GetParam().value;
    EXPECT_EQ(plugged.sent(), Batch{expected});
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Drum Param Send")});
    EXPECT_EQ(state().userDrum().presetProgram, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(AllFourteen, UserDrumControlTest,
                         testing::Values(PatchControlStep{"Wave Type", Qt::Key_Down, 11, 0x07},
                                         PatchControlStep{"Wave Num", Qt::Key_Right, 12, 0x02},
                                         PatchControlStep{"Notenum", Qt::Key_Right, 22, 0x46},
                                         PatchControlStep{"Ringmod Multiply", Qt::Key_Right, 13, 0x20},
                                         PatchControlStep{"Ringmod Gain", Qt::Key_Right, 14, 0x01},
                                         PatchControlStep{"Attack Time", Qt::Key_Right, 17, 0x01},
                                         PatchControlStep{"Decay Time", Qt::Key_Right, 18, 0x01},
                                         PatchControlStep{"Sustain Level", Qt::Key_Left, 19, 0x7E},
                                         PatchControlStep{"Sustain Rate", Qt::Key_Right, 20, 0x01},
                                         PatchControlStep{"Release Time", Qt::Key_Right, 21, 0x01},
                                         PatchControlStep{"Release Active", Qt::Key_Space, 10, 0x00},
                                         PatchControlStep{"Sweep Type", Qt::Key_Up, 15, 0x01},
                                         PatchControlStep{"Sweep Speed", Qt::Key_Right, 16, 0x01},
                                         PatchControlStep{"Output Gain", Qt::Key_Right, 23, 0x4F}));

} // namespace
} // namespace orvim
