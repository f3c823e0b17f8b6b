#include "MainWindow.h"

#include "EditorPageHost.h"
#include "LogWindowView.h"
#include "PageScaffold.h"
#include "StatusLogBar.h"
#include "WebPages.h"
#include "controls/ElidedLabel.h"
#include "controls/SwitchRow.h"
#include "controls/ThemeColors.h"
#include "simulator/DisplaySimulatorWindowView.h"
#include "tests/app/support/Browser.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/support/Bytes.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;
using test::PluggedRuntime;
using test::RecordingDialogs;

template <typename Window>
Window* topLevel()
{
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const window = qobject_cast<Window*>(widget)) return window;
    return nullptr;
}

/// Whether a pixel of the widget has exactly that colour.
bool shows(QWidget& widget, const QColor& color)
{
    const QImage picture = widget.grab().toImage();
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == color) return true;
    return false;
}

class MainWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    template <typename Control>
    Control& control(const char* name)
    {
        auto* const found = window.findChild<Control*>(QString::fromUtf8(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    void chooseInSidebar(EditorPage page)
    {
        auto& list = control<QListWidget>("pageList");
        const QRect row = list.visualItemRect(list.item(static_cast<int>(page)));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row.center());
    }

    PluggedRuntime plugged;
    RecordingDialogs dialogs;
    MainWindow window{plugged.runtime, dialogs};
};

TEST_F(MainWindowTest, OpensOnTheCommandPageWithItsTitleAndSize)
{
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Orvim Editor for macOS (2026-07-11)"));
    EXPECT_EQ(MainWindow(plugged.runtime, dialogs).size(), QSize(1270, 980));
    EXPECT_EQ(plugged.runtime.selectedPage(), EditorPage::command);
    EXPECT_TRUE(window.pages().page(EditorPage::command).isVisible());
    EXPECT_EQ(topLevel<LogWindowView>(), nullptr);
    EXPECT_EQ(topLevel<DisplaySimulatorWindowView>(), nullptr);
}

TEST_F(MainWindowTest, EveryPageIsAliveFromTheStartAndOnlyTheSelectedOneIsSeen)
{
    for (const EditorPage selected : allEditorPages) {
        chooseInSidebar(selected);
        EXPECT_EQ(plugged.runtime.selectedPage(), selected);
        for (const EditorPage page : allEditorPages)
            EXPECT_EQ(window.pages().page(page).isVisible(), page == selected) << qPrintable(title(page));
    }
}

TEST_F(MainWindowTest, PagesAreChosenByKeyboardToo)
{
    QTest::keyClick(&window, Qt::Key_7, Qt::ControlModifier);
    EXPECT_EQ(plugged.runtime.selectedPage(), EditorPage::displaySimulatorSettings);
    QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(plugged.runtime.selectedPage(), EditorPage::command);
}

TEST_F(MainWindowTest, WhatStandsInAPageSurvivesAChangeOfPage)
{
    auto& field = control<QLineEdit>("日本語(上段)：");
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("abc"));
    chooseInSidebar(EditorPage::toneEditor);
    chooseInSidebar(EditorPage::command);
    EXPECT_EQ(field.text(), QStringLiteral("abc"));
}

TEST_F(MainWindowTest, TheLogSwitchOpensAndClosesTheLogWindow)
{
    auto& logSwitch = control<SwitchRow>("logWindowSwitch");
    EXPECT_EQ(logSwitch.text(), QStringLiteral("ログウィンドウOff"));
    QTest::mouseClick(&logSwitch, Qt::LeftButton);
    auto* const log = topLevel<LogWindowView>();
    ASSERT_NE(log, nullptr);
    EXPECT_TRUE(log->isVisible());
    EXPECT_EQ(log->windowTitle(), QStringLiteral("Log Window"));
    EXPECT_EQ(logSwitch.text(), QStringLiteral("ログウィンドウOn"));
    QTest::mouseClick(&logSwitch, Qt::LeftButton);
    EXPECT_FALSE(log->isVisible());
    EXPECT_FALSE(plugged.runtime.logWindowIsVisible());
}

TEST_F(MainWindowTest, ClosingTheLogWindowByItsFrameTurnsTheSwitchOffAndTheSwitchOpensItAnew)
{
    auto& logSwitch = control<SwitchRow>("logWindowSwitch");
    QTest::mouseClick(&logSwitch, Qt::LeftButton);
    topLevel<LogWindowView>()->close();
    EXPECT_FALSE(logSwitch.isChecked());
    EXPECT_EQ(logSwitch.text(), QStringLiteral("ログウィンドウOff"));
    logSwitch.setFocus();
    QTest::keyClick(&logSwitch, Qt::Key_Space);
    EXPECT_TRUE(topLevel<LogWindowView>()->isVisible());
}

TEST_F(MainWindowTest, TheSimulatorSwitchOpensAndClosesItsWindow)
{
    auto& simulatorSwitch = control<SwitchRow>("simulatorSwitch");
    EXPECT_EQ(simulatorSwitch.text(), QStringLiteral("画面シミュレータOff"));
    QTest::mouseClick(&simulatorSwitch, Qt::LeftButton);
    auto* const simulator = topLevel<DisplaySimulatorWindowView>();
    ASSERT_NE(simulator, nullptr);
    EXPECT_TRUE(simulator->isVisible());
    EXPECT_EQ(simulatorSwitch.text(), QStringLiteral("画面シミュレータOn"));
    simulator->close();
    EXPECT_FALSE(simulatorSwitch.isChecked());
    QTest::mouseClick(&simulatorSwitch, Qt::LeftButton);
    EXPECT_TRUE(simulator->isVisible());
    QTest::mouseClick(&simulatorSwitch, Qt::LeftButton);
    EXPECT_FALSE(simulator->isVisible());
}

TEST_F(MainWindowTest, WithTheSimulatorWindowClosedTheModelGoesOnFollowingThePages)
{
    QTest::mouseClick(&control<SwitchRow>("simulatorSwitch"), Qt::LeftButton);
    QTest::mouseClick(&control<SwitchRow>("simulatorSwitch"), Qt::LeftButton);
    QTest::mouseClick(&control<QPushButton>("オシロスコープ"), Qt::LeftButton);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::oscilloscope);
}

TEST_F(MainWindowTest, ClosingTheMainWindowEndsTheProgramWithTheSideWindowsOpen)
{
    QTest::mouseClick(&control<SwitchRow>("simulatorSwitch"), Qt::LeftButton);
    QTest::mouseClick(&control<SwitchRow>("logWindowSwitch"), Qt::LeftButton);
    QSignalSpy closed(&window, &MainWindow::closed);
    window.close();
    EXPECT_EQ(closed.count(), 1);
    for (QWidget* const widget : QApplication::topLevelWidgets())
        EXPECT_FALSE(widget->isVisible()) << widget->metaObject()->className();
}

TEST_F(MainWindowTest, TheOnlyMenuIsHelpWithTheManual)
{
    const auto menus = window.menuBar()->actions();
    ASSERT_EQ(menus.size(), 1);
    EXPECT_EQ(menus[0]->menu()->actions().size(), 1);
    QAction* const manual = menus[0]->menu()->actions()[0];
    EXPECT_EQ(manual->text(), QStringLiteral("Orvim Editor Help"));
    test::Browser browser;
    manual->trigger();
    EXPECT_EQ(browser.opened, QList<QUrl>{manualPage()});
}

TEST_F(MainWindowTest, AClickWithCtrlKeepsTheSelectedPageMarked)
{
    auto& list = control<QListWidget>("pageList");
    const QRect row = list.visualItemRect(list.item(0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, row.center());
    EXPECT_TRUE(list.item(0)->isSelected());
}

TEST_F(MainWindowTest, TheStatusBarExplainsItself)
{
    QStringList captions;
    for (const QLabel* const label : window.findChildren<QLabel*>())
        captions << label->text();
    EXPECT_TRUE(captions.contains(QStringLiteral("MIDI Out デバイス：")));
    EXPECT_EQ(control<QWidget>("destinationPicker").toolTip(),
              QStringLiteral("MIDI出力先を選択します。通常は「Tonavelle_mini」または「MIDIOUT2 "
                             "(Tonavelle_mini)」を選択して下さい。"));
    EXPECT_EQ(control<QWidget>("reloadDestinations").toolTip(), QStringLiteral("MIDI OUT一覧を更新"));
}

TEST_F(MainWindowTest, F5ListsTheDestinationsAnew)
{
    plugged.system.endpoints.push_back({9, "Other", {}});
    QTest::keyClick(&window, Qt::Key_F5);
    auto& picker = control<QComboBox>("destinationPicker");
    EXPECT_TRUE(QTest::qWaitFor([&picker] { return picker.count() == 3; }));
}

TEST_F(MainWindowTest, EveryControlHasANameForWhoCannotSeeIt)
{
    plugged.runtime.setLogWindowIsVisible(true);
    int controls = 0;
    for (const EditorPage page : allEditorPages) {
        plugged.runtime.setSelectedPage(page);
        for (const QWidget* const widget : QApplication::allWidgets()) {
            if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible()) continue;
            if (qobject_cast<const QScrollArea*>(widget) || widget->objectName().startsWith(QLatin1String("qt_")))
                continue;
            ++controls;
            const auto* const button = qobject_cast<const QAbstractButton*>(widget);
            const QString name = button && !button->text().isEmpty() ? button->text() : widget->accessibleName();
            EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className() << qPrintable(widget->objectName());
            EXPECT_FALSE(widget->objectName().isEmpty()) << widget->metaObject()->className() << qPrintable(name);
        }
    }
    EXPECT_GE(controls, 100);
}

TEST_F(MainWindowTest, ThePickerListsTheDestinationsBehindNoChoice)
{
    plugged.system.plug({"Tonavelle_mini", "Other"});
    plugged.runtime.midiOutManager().refreshDestinations();
    auto& picker = control<QComboBox>("destinationPicker");
    ASSERT_EQ(picker.count(), 3);
    EXPECT_EQ(picker.itemText(0), QStringLiteral("未選択"));
    EXPECT_EQ(picker.itemText(1), QStringLiteral("Tonavelle_mini"));
    EXPECT_EQ(picker.currentIndex(), 1);
    EXPECT_EQ(picker.width(), 220);

    picker.setFocus();
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(plugged.runtime.midiOutManager().selectedDestinationID(), 2u);
    QTest::keyClick(&picker, Qt::Key_Home);
    EXPECT_EQ(plugged.runtime.midiOutManager().selectedDestinationID(), std::nullopt);
}

TEST_F(MainWindowTest, TheReloadButtonListsAnewAndTriesTheSelectedOneAgain)
{
    plugged.system.selections.clear();
    plugged.system.endpoints.push_back({9, "Other", {}});
    QTest::mouseClick(&control<QWidget>("reloadDestinations"), Qt::LeftButton);
    EXPECT_EQ(control<QComboBox>("destinationPicker").count(), 3);
    EXPECT_EQ(plugged.system.selections, std::vector<MIDIEndpointRef>{1});
}

TEST_F(MainWindowTest, AnErrorIsShownInRedUntilTheNextSuccess)
{
    MIDIOutManager& manager = plugged.runtime.midiOutManager();
    manager.sendUIType(200);
    QCoreApplication::processEvents();
    const QColor red = errorColor(window.palette());
    const QColor green = successColor(window.palette());
    EXPECT_TRUE(shows(control<QWidget>("statusIcon"), red));
    EXPECT_TRUE(shows(control<QWidget>("statusMessage"), red));
    EXPECT_EQ(control<ElidedLabel>("statusMessage").text(), QStringLiteral("UI Typeは0〜127で指定してください。"));
    EXPECT_EQ(control<QWidget>("statusIcon").accessibleName(), QStringLiteral("エラー"));
    manager.sendUIType(2);
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows(control<QWidget>("statusIcon"), green));
    EXPECT_FALSE(shows(control<QWidget>("statusMessage"), red));
    EXPECT_EQ(control<ElidedLabel>("statusMessage").text(), QStringLiteral("UI Type Set (2) を送信しました。"));
    EXPECT_EQ(control<QWidget>("statusIcon").accessibleName(), QStringLiteral("正常"));
}

TEST_F(MainWindowTest, TheProgressBarStandsOnlyWhileThereIsProgress)
{
    auto& bar = control<QProgressBar>("progress");
    EXPECT_FALSE(bar.isVisible());
    plugged.runtime.midiOutManager().setProgressFraction(0.25);
    QCoreApplication::processEvents();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.width(), 180);
    EXPECT_EQ(bar.value() * 4, bar.maximum());
    plugged.runtime.midiOutManager().setProgressFraction(std::nullopt);
    QCoreApplication::processEvents();
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(MainWindowTest, ALongStatusNeverWidensTheWindow)
{
    const int width = window.minimumSizeHint().width();
    plugged.runtime.midiOutManager().setStatus(QString(2000, QLatin1Char('x')), false);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.minimumSizeHint().width(), width);
    EXPECT_FALSE(control<ElidedLabel>("statusMessage").toolTip().isEmpty());
}

} // namespace
} // namespace orvim
