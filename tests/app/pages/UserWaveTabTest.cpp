#include "controls/ElidedButton.h"
#include "controls/UserWaveformNSView.h"
#include "controls/ValidatedTextField.h"
#include "core/tone/UserWaveformBuilder.h"
#include "tests/app/support/ToneEditorTabTest.h"
#include "tests/app/support/WaveFile.h"

#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QToolButton>
#include <QWindow>

namespace orvim {
namespace {

using test::bytes;
using test::joined;
using testing::ElementsAre;
using tonavelle::Batch;
using tonavelle::UserWaveform;
namespace UserWaveformBuilder = tonavelle::UserWaveformBuilder;

class UserWaveTabTest : public test::ToneEditorTabTest
{
protected:
    UserWaveTabTest() : ToneEditorTabTest(ToneEditorTab::userWave) {}

    void click(const QString& button)
    {
        QTest::mouseClick(&control<QPushButton>(button), Qt::LeftButton);
        settle();
    }
    UserWaveformNSView& surface() { return control<UserWaveformNSView>(QStringLiteral("waveform")); }
};

Batch selection(std::uint8_t waveType)
{
    return {bytes("B0 63 0A"), bytes("B0 62 00"),   bytes("B0 06 00"), bytes("B0 26 00"),
            bytes("B0 00 00"), bytes("B0 20 00"),   bytes("C0 50"),    bytes("B0 63 02"),
            bytes("B0 62 00"), {0xB0, 6, waveType}, bytes("B0 26 00")};
}

TEST_F(UserWaveTabTest, FourSlotsStandInTheList)
{
    EXPECT_EQ(list().accessibleName(), QStringLiteral("ユーザー波形スロット"));
    EXPECT_EQ(list().items(), (QStringList{QStringLiteral("User Wave 1"), QStringLiteral("User Wave 2"),
                                           QStringLiteral("User Wave 3"), QStringLiteral("User Wave 4")}));
}

TEST_F(UserWaveTabTest, ARowIsHeardWhileItIsHeld)
{
    pressRow(2);
    EXPECT_EQ(state().selectedUserWave, 2);
    EXPECT_EQ(state().userWavePreviewSlot, 2);
    releaseRow();
    EXPECT_EQ(played(13), (joined(selection(0x0A), {bytes("90 3C 7F"), bytes("80 3C 00")})));
    EXPECT_TRUE(plugged.log().isEmpty());
    EXPECT_EQ(part(0), (tonavelle::PerformanceMonitorPart{"081:Square Wave", false, false, 80}));
}

TEST_F(UserWaveTabTest, ARowThatTheArrowsReachIsWhatThePreviewChannelPlays)
{
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    settle();
    EXPECT_EQ(played(11), selection(0x09));
}

TEST_F(UserWaveTabTest, ShapeButtonsEvaluateTheirFormula)
{
    const std::array<std::pair<const char*, const char*>, 5> shapes{
        {{"SIN", "sin(t)"}, {"SAW", "saw(t)"}, {"Square", "squ(t)"}, {"Triangle", "tri(t)"}, {"Flat", "0"}}};
    for (const auto& [title, formula] : shapes) {
        click(QString::fromUtf8(title));
        EXPECT_EQ(control<ValidatedTextField>(QStringLiteral("数式入力")).text(), QString::fromUtf8(formula));
        EXPECT_EQ(state().userWave(), UserWaveformBuilder::samplesFromFormula(formula)) << title;
        EXPECT_EQ(surface().currentSamples(), state().userWave()) << title;
    }
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(UserWaveTabTest, OperationButtonsChangeTheSamples)
{
    UserWaveform ramp = UserWaveformBuilder::flat();
    ramp[0] = -100;
    ramp[1] = 50;
    const std::array<std::tuple<const char*, std::int16_t, std::int16_t>, 4> operations{
        {{"Norm", -32'767, 16'384}, {"Norm(offset)", -32'767, 32'767}, {"Invert", 100, -50}, {"Abs", 100, 50}}};
    for (const auto& [title, first, second] : operations) {
        page->actions().waves.setSamples(ramp);
        click(QString::fromUtf8(title));
        EXPECT_EQ(state().userWave()[0], first) << title;
        EXPECT_EQ(state().userWave()[1], second) << title;
    }
}

TEST_F(UserWaveTabTest, ExampleButtonsEvaluateTheirFormula)
{
    QStringList examples;
    for (auto* const button : scaffold.findChildren<ElidedButton*>())
        examples << button->text();
    EXPECT_EQ(examples,
              (QStringList{QStringLiteral("pow( ( (t - pi) / pi) , 3)"), QStringLiteral("sin(7 * t) * saw(t)"),
                           QStringLiteral("abs( (squ(t) / 2 + 0.5) * tri( 2 * t + pi / 2) ) - abs( (-squ(t) / 2 + "
                                          "0.5) * sin(2 * t) )")}));
    for (const QString& formula : examples) {
        click(formula);
        EXPECT_EQ(control<QLabel>(QStringLiteral("formulaStatus")).text(), QStringLiteral("OK"));
        EXPECT_EQ(state().userWave(), UserWaveformBuilder::samplesFromFormula(formula.toStdString()));
    }
}

TEST_F(UserWaveTabTest, AStrokeGoesIntoTheSlotAndIsNotSent)
{
    QTest::mouseClick(&surface(), Qt::LeftButton, {}, QPoint(surface().width() - 1, 0));
    settle();
    EXPECT_EQ(state().userWave().back(), 32'767);
    EXPECT_EQ(control<QLabel>(QStringLiteral("unsent")).text(), QStringLiteral("未送信"));
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(UserWaveTabTest, AStrokeBelongsToTheSlotOnWhichItBegan)
{
    const int right = surface().width() - 1;
    QTest::mousePress(&surface(), Qt::LeftButton, {}, QPoint(right, 0));
    page->actions().waves.selectUserWave(1);
    settle();
    QTest::mouseRelease(&surface(), Qt::LeftButton, {}, QPoint(right - 50, 0));
    EXPECT_EQ(state().instrument.userWaveforms[0].back(), 32'767);
    EXPECT_EQ(state().instrument.userWaveforms[1], UserWaveformBuilder::sine());
}

TEST_F(UserWaveTabTest, AStrokeGivesWayToNewToneData)
{
    click(QStringLiteral("Flat"));
    QTest::mousePress(&surface(), Qt::LeftButton, {}, QPoint(50, 0));
    dialogs.answer = true;
    page->actions().files.newToneData();
    settle();
    QTest::mouseRelease(&surface(), Qt::LeftButton, {}, QPoint(50, 0));
    EXPECT_EQ(state().userWave(), UserWaveformBuilder::sine());
    EXPECT_EQ(surface().currentSamples(), UserWaveformBuilder::sine());
}

TEST_F(UserWaveTabTest, ControlZTakesTheLastEditBack)
{
    click(QStringLiteral("Flat"));
    surface().setFocus();
    QTest::keyClick(&surface(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ(surface().currentSamples(), UserWaveformBuilder::sine());
    EXPECT_TRUE(control<QLabel>(QStringLiteral("unsent")).text().isEmpty());
}

TEST_F(UserWaveTabTest, TheMarksAreToldToThoseWhoHearThePage)
{
    click(QStringLiteral("Flat"));
    auto& send = control<QPushButton>(QStringLiteral("送信"));
    EXPECT_EQ(send.accessibleDescription(), QStringLiteral("未送信"));
    EXPECT_EQ(control<ValidatedTextField>(QStringLiteral("数式入力")).accessibleDescription(), QStringLiteral("OK"));
    click(QStringLiteral("送信"));
    EXPECT_TRUE(send.accessibleDescription().isEmpty());
}

TEST_F(UserWaveTabTest, TheWAVButtonsReadAndWriteTheSlot)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("wave.wav"));
    test::writeFile(path, test::waveFile(std::vector<std::int16_t>{77}));
    dialogs.pathToOpen = path;
    click(QStringLiteral("WAV読込"));
    EXPECT_EQ(state().userWave(), UserWaveform(2'048, 77));
    EXPECT_EQ(surface().currentSamples(), UserWaveform(2'048, 77));
    dialogs.pathToSave = folder.filePath(QStringLiteral("out.wav"));
    click(QStringLiteral("WAV保存"));
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("UserWave1.wav")});
    EXPECT_EQ(QFileInfo(*dialogs.pathToSave).size(), 4'140);
}

TEST_F(UserWaveTabTest, TheMenuReadsAndWritesTheSlotToo)
{
    const auto choose = [this](const char* text) {
        for (auto* const menu : scaffold.findChildren<QMenu*>())
            for (QAction* const action : menu->actions())
                if (action->text() == QString::fromUtf8(text)) action->trigger();
        settle();
    };
    page->actions().waves.selectUserWave(2);
    const QTemporaryDir folder;
    dialogs.pathToOpen = folder.filePath(QStringLiteral("wave.wav"));
    test::writeFile(*dialogs.pathToOpen, test::waveFile(std::vector<std::int16_t>{-99}));
    choose("ユーザー波形のインポート");
    EXPECT_EQ(state().instrument.userWaveforms[2], UserWaveform(2'048, -99));
    EXPECT_EQ(surface().currentSamples(), UserWaveform(2'048, -99));
    dialogs.pathToSave = folder.filePath(QStringLiteral("out.wav"));
    choose("ユーザー波形のエクスポート");
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("UserWave3.wav")});
    page->actions().waves.selectUserWave(0);
    dialogs.pathToOpen = dialogs.pathToSave;
    choose("ユーザー波形のインポート");
    EXPECT_EQ(state().instrument.userWaveforms[0], UserWaveform(2'048, -99));
}

TEST_F(UserWaveTabTest, TheHelpButtonOpensTheHelpAndTheNextClickOnItOnlyClosesIt)
{
    auto& button = control<QToolButton>(QStringLiteral("formulaHelpButton"));
    QTest::mouseClick(&button, Qt::LeftButton);
    settle();
    auto* const help = scaffold.findChild<QFrame*>(QStringLiteral("formulaHelp"));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(help));
    const QPoint place = button.mapToGlobal(button.rect().center());
    // A popup gets the press beside it, the window below it the release.
    QTest::mousePress(help->windowHandle(), Qt::LeftButton, {}, help->mapFromGlobal(place));
    settle();
    QTest::mouseRelease(scaffold.windowHandle(), Qt::LeftButton, {}, scaffold.mapFromGlobal(place));
    settle();
    EXPECT_FALSE(help->isVisible());
    EXPECT_FALSE(state().isUserWaveFormulaHelpPresented);
}

TEST_F(UserWaveTabTest, EveryTabFitsTheWidthOfASmallWindow)
{
    scaffold.resize(760, 560);
    for (const ToneEditorTab tab : allToneEditorTabs) {
        open(tab);
        settle();
        for (auto* const area : scaffold.findChildren<QScrollArea*>())
            if (area->isVisible()) {
                EXPECT_LE(area->widget()->width(), area->viewport()->width()) << static_cast<int>(tab);
            }
    }
    for (auto* const button : scaffold.findChildren<ElidedButton*>()) {
        const bool isWhole = button->shownText() == button->text();
        EXPECT_EQ(button->toolTip(), isWhole ? QString() : button->text());
    }
}

} // namespace
} // namespace orvim
