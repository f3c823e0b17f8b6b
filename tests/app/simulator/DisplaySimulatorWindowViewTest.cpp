#include "simulator/DisplaySimulatorWindowView.h"

#include "DisplaySimulatorState.h"
#include "EditorRuntime.h"
#include "pages/DisplaySimulatorSettingsPageView.h"
#include "simulator/DisplayCanvas.h"
#include "simulator/RenderDisplay.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/app/support/RecordingMIDISystem.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

namespace orvim {
namespace {

struct Shown {
    Shown()
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    const DisplayFields& fields() const { return state.fields(); }
    QMenu& menu()
    {
        auto* menu = window.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        Q_EMIT menu->aboutToShow();
        return *menu;
    }
    QAction* action(const QString& title)
    {
        menu();
        for (auto* action : window.findChildren<QAction*>()) {
            if (action->text() == title) return action;
        }
        ADD_FAILURE() << "no action " << title.toStdString();
        return nullptr;
    }
    void choose(const QString& title) { action(title)->trigger(); }

    EditorRuntime runtime{std::make_unique<test::RecordingMIDISystem>()};
    DisplaySimulatorState& state = runtime.displaySimulator();
    test::RecordingDialogs dialogs;
    DisplaySimulatorWindowView window{runtime, dialogs};
};

QStringList titles(const QMenu& menu)
{
    QStringList all;
    for (const auto* action : menu.actions()) {
        if (!action->isSeparator()) all << action->text();
    }
    return all;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

// Size and place

TEST(DisplaySimulatorWindowView, HasTheSizeOfItsScaleAndBorderAndNoOther)
{
    Shown shown;
    struct Row {
        int scale;
        bool border;
        QSize size;
    };
    for (const auto& row : {Row{1, false, {320, 170}}, Row{2, false, {640, 340}}, Row{3, false, {960, 510}},
                            Row{3, true, {984, 534}}, Row{2, true, {656, 356}}, Row{1, true, {328, 178}}}) {
        shown.state.setWindowScale(row.scale);
        shown.state.setWindowShowsBorder(row.border);
        EXPECT_EQ(shown.window.size(), row.size);
        EXPECT_EQ(shown.window.minimumSize(), row.size);
        EXPECT_EQ(shown.window.maximumSize(), row.size);
    }
}

TEST(DisplaySimulatorWindowView, TakesTheSizeThatWasSetBeforeItWasMade)
{
    EditorRuntime runtime(std::make_unique<test::RecordingMIDISystem>());
    test::RecordingDialogs dialogs;
    runtime.displaySimulator().setWindowScale(3);
    runtime.displaySimulator().setWindowShowsBorder(true);
    runtime.displaySimulator().setWindowAlwaysOnTop(true);
    const DisplaySimulatorWindowView window(runtime, dialogs);
    EXPECT_EQ(window.size(), QSize(984, 534));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(DisplaySimulatorWindowView, SetsThePictureInsideABlackBorder)
{
    Shown shown;
    shown.state.setColorMode(DisplaySimulatorColorMode::gs);
    shown.state.setWindowScale(3);
    shown.state.setWindowShowsBorder(true);
    QTest::qWait(50);
    const auto picture = shown.window.grab().toImage();
    const auto band = qRgb(0xD8, 0x5E, 0x09), area = qRgb(0xFF, 0x6F, 0x0C), black = qRgb(0, 0, 0);
    const auto at = [&](int x, int y) { return picture.pixel(QPoint(x, y) * picture.devicePixelRatio()); };
    EXPECT_EQ(at(11, 11), black);
    EXPECT_EQ(at(12, 12), band);
    EXPECT_EQ(at(971, 12), band);
    EXPECT_EQ(at(972, 12), black);
    EXPECT_EQ(at(12, 521), area);
    EXPECT_EQ(at(12, 522), black);
}

TEST(DisplaySimulatorWindowView, HasNoFrameAndItsTitle)
{
    const Shown shown;
    EXPECT_TRUE(shown.window.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_FALSE(shown.window.windowFlags().testFlag(Qt::BypassWindowManagerHint));
    EXPECT_EQ(shown.window.windowTitle(), QStringLiteral("画面シミュレータ"));
    EXPECT_FALSE(shown.window.testAttribute(Qt::WA_DeleteOnClose));
}

TEST(DisplaySimulatorWindowView, FirstStandsAtTheTopRight)
{
    const Shown shown;
    const auto area = shown.window.screen()->availableGeometry();
    EXPECT_EQ(shown.window.pos(), QPoint(area.x() + area.width() - 16 - 320, area.y() + 16));
}

TEST(DisplaySimulatorWindowView, OpensAgainWhereItStood)
{
    Shown shown;
    shown.window.move(100, 120);
    shown.window.close();
    QTest::qWait(20);
    shown.window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown.window));
    EXPECT_EQ(shown.window.pos(), QPoint(100, 120));
}

TEST(DisplaySimulatorWindowView, ComesBackFromOutsideEveryScreen)
{
    Shown shown;
    shown.window.hide();
    shown.window.move(-5000, -5000);
    shown.window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown.window));
    EXPECT_TRUE(shown.window.screen()->availableGeometry().contains(shown.window.geometry()));
}

TEST(DisplaySimulatorWindowView, StaysWhereItIsAndVisibleWhenItsStackingChanges)
{
    Shown shown;
    shown.window.move(90, 80);
    QTest::qWait(20);
    QSignalSpy changes(&shown.state, &DisplaySimulatorState::changed);
    for (const bool onTop : {true, false}) {
        shown.state.setWindowAlwaysOnTop(onTop);
        EXPECT_TRUE(shown.window.isVisible());
        EXPECT_EQ(shown.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint), onTop);
        EXPECT_EQ(shown.window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), onTop);
        EXPECT_TRUE(shown.window.windowHandle()->flags().testFlag(Qt::FramelessWindowHint));
        EXPECT_EQ(shown.window.pos(), QPoint(90, 80));
    }
    EXPECT_EQ(changes.count(), 2) << "the window has not gone and come back";
}

// The mouse

TEST(DisplaySimulatorWindowView, ThreeDoubleClicksReturnToTheFirstScale)
{
    Shown shown;
    for (const int scale : {2, 3, 1}) {
        QTest::mouseDClick(&shown.window, Qt::LeftButton, {}, {20, 20});
        EXPECT_EQ(shown.fields().displayWindowScale, scale);
    }
}

TEST(DisplaySimulatorWindowView, ADoubleClickOfAnUnsteadyHandStillScales)
{
    Shown shown;
    const auto place = shown.window.pos();
    QTest::mousePress(&shown.window, Qt::LeftButton, {}, {50, 50});
    QTest::mouseMove(&shown.window, {52, 51});
    QTest::mouseRelease(&shown.window, Qt::LeftButton, {}, {52, 51});
    QTest::mouseDClick(&shown.window, Qt::LeftButton, {}, {52, 51});
    EXPECT_EQ(shown.fields().displayWindowScale, 2);
    EXPECT_EQ(shown.window.pos(), place);
}

/// How far the window goes when the real pointer is dragged from inside it down to the right: a window manager that
/// moves a window follows no other. Nothing where there is no way to move it.
std::optional<QPoint> wayDragged(DisplaySimulatorWindowView& window, int button)
{
    window.move(100, 100);
    QTest::qWait(50);
    const auto before = window.pos();
    const QPoint start = window.mapToGlobal(QPoint(50, 50)) * window.devicePixelRatio();
    const auto drag = QStringLiteral("mousemove %1 %2 mousedown %3 %4 sleep 0.05 mouseup %3")
                          .arg(start.x())
                          .arg(start.y())
                          .arg(button)
                          .arg(QStringLiteral("sleep 0.05 mousemove_relative 40 30 ").repeated(4));
    QProcess pointer;
    pointer.start(QStringLiteral("xdotool"), drag.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    if (!QTest::qWaitFor([&] { return pointer.state() == QProcess::NotRunning; }, 5000)) return std::nullopt;
    if (pointer.error() != QProcess::UnknownError || pointer.exitCode() != 0) return std::nullopt;
    static_cast<void>(QTest::qWaitFor([&] { return window.pos() != before; }, 500));
    return window.pos() - before;
}

TEST(DisplaySimulatorWindowView, ADragAnywhereInItMovesIt)
{
    Shown shown;
    const auto way = wayDragged(shown.window, 1);
    if (!way) GTEST_SKIP() << "there is no xdotool to move the pointer";
    EXPECT_GT(way->x(), 0);
    EXPECT_GT(way->y(), 0);
    EXPECT_EQ(shown.fields().displayWindowScale, 1);
}

TEST(DisplaySimulatorWindowView, ADragWithTheRightButtonDoesNotMoveIt)
{
    Shown shown;
    const auto way = wayDragged(shown.window, 3);
    if (!way) GTEST_SKIP() << "there is no xdotool to move the pointer";
    EXPECT_EQ(*way, QPoint(0, 0));
    shown.menu().close();
}

TEST(DisplaySimulatorWindowView, OtherButtonsDoNotScale)
{
    Shown shown;
    QTest::mouseDClick(&shown.window, Qt::RightButton, {}, {20, 20});
    EXPECT_EQ(shown.fields().displayWindowScale, 1);
}

// Coming and going

TEST(DisplaySimulatorWindowView, TellsTheStateWhenItComesAndGoes)
{
    Shown shown;
    EXPECT_TRUE(shown.fields().displayWindowIsVisible);
    shown.window.close();
    EXPECT_FALSE(shown.fields().displayWindowIsVisible);
    shown.window.show();
    EXPECT_TRUE(shown.fields().displayWindowIsVisible);
    shown.window.hide();
    EXPECT_FALSE(shown.fields().displayWindowIsVisible);
}

TEST(DisplaySimulatorWindowView, FollowsTheStateWhileHidden)
{
    Shown shown;
    shown.window.hide();
    shown.state.setWindowScale(2);
    EXPECT_EQ(shown.window.size(), QSize(640, 340));
}

// The menu

TEST(DisplaySimulatorWindowView, MenuHasItsRowsInOrder)
{
    Shown shown;
    EXPECT_EQ(titles(shown.menu()), (QStringList{QStringLiteral("境界表示"), QStringLiteral("常に最前面に表示"),
                                                 QStringLiteral("解像度"), QStringLiteral("PNGで保存"),
                                                 QStringLiteral("画面シミュレータの設定"), QStringLiteral("隠す")}));
    EXPECT_EQ(titles(*shown.action(QStringLiteral("解像度"))->menu()),
              (QStringList{QStringLiteral("100%"), QStringLiteral("200%"), QStringLiteral("300%")}));
}

TEST(DisplaySimulatorWindowView, MenuOpensOnTheRightButton)
{
    Shown shown;
    QContextMenuEvent event(QContextMenuEvent::Mouse, {20, 20}, shown.window.mapToGlobal(QPoint(20, 20)));
    QCoreApplication::sendEvent(&shown.window, &event);
    EXPECT_TRUE(shown.menu().isVisible());
    shown.menu().close();
}

TEST(DisplaySimulatorWindowView, MenuShowsAndMovesTheState)
{
    Shown shown;
    for (const bool on : {true, false}) {
        shown.choose(QStringLiteral("境界表示"));
        shown.choose(QStringLiteral("常に最前面に表示"));
        EXPECT_EQ(shown.fields().displayWindowShowsBorder, on);
        EXPECT_EQ(shown.fields().displayWindowAlwaysOnTop, on);
        EXPECT_EQ(shown.action(QStringLiteral("境界表示"))->isChecked(), on);
        EXPECT_EQ(shown.action(QStringLiteral("常に最前面に表示"))->isChecked(), on);
    }
    EXPECT_TRUE(shown.action(QStringLiteral("100%"))->isChecked());
    shown.choose(QStringLiteral("300%"));
    EXPECT_EQ(shown.fields().displayWindowScale, 3);
    EXPECT_FALSE(shown.action(QStringLiteral("100%"))->isChecked());
    shown.state.setWindowScale(2);
    EXPECT_TRUE(shown.action(QStringLiteral("200%"))->isChecked());
}

TEST(DisplaySimulatorWindowView, SettingsSelectTheirPage)
{
    Shown shown;
    QSignalSpy spy(&shown.window, &DisplaySimulatorWindowView::settingsRequested);
    shown.choose(QStringLiteral("画面シミュレータの設定"));
    EXPECT_EQ(shown.runtime.selectedPage(), EditorPage::displaySimulatorSettings);
    EXPECT_EQ(spy.count(), 1);
}

TEST(DisplaySimulatorWindowView, HidingDismissesTheWindow)
{
    Shown shown;
    shown.choose(QStringLiteral("隠す"));
    EXPECT_FALSE(shown.window.isVisible());
    EXPECT_FALSE(shown.fields().displayWindowIsVisible);
}

// The picture file

TEST(DisplaySimulatorWindowView, SavesThePictureAtItsOwnSizeWhateverTheScale)
{
    Shown shown;
    const QTemporaryDir folder;
    shown.dialogs.pathToSave = folder.filePath(QStringLiteral("screen.png"));
    shown.state.setWindowScale(2);
    shown.state.setWindowShowsBorder(true);
    shown.state.setColorMode(DisplaySimulatorColorMode::xg);
    shown.choose(QStringLiteral("PNGで保存"));

    EXPECT_EQ(shown.dialogs.proposedNames, QStringList{QStringLiteral("display_sim.png")});
    EXPECT_EQ(shown.dialogs.savedKinds, QList{FileKind::png});
    const auto bytes = contentOf(*shown.dialogs.pathToSave);
    ASSERT_GT(bytes.size(), 26);
    EXPECT_EQ(bytes[24], 8) << "bits a channel";
    EXPECT_EQ(bytes[25], 6) << "red, green, blue, alpha";
    const auto saved = QImage::fromData(bytes, "PNG").convertToFormat(QImage::Format_RGBA8888);
    ASSERT_EQ(saved.size(), QSize(320, 170));
    DisplayCanvas canvas;
    renderDisplay(shown.fields(), canvas);
    EXPECT_EQ(QByteArrayView(saved.constBits(), saved.sizeInBytes()),
              QByteArrayView(canvas.bytes().data(), static_cast<qsizetype>(canvas.bytes().size())));
}

/// An empty folder that is the current one for a while.
class CurrentFolder
{
public:
    CurrentFolder() { EXPECT_TRUE(QDir::setCurrent(m_folder.path())); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { QDir::setCurrent(m_before); }

    QStringList content() const { return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

private:
    QString m_before = QDir::currentPath();
    QTemporaryDir m_folder;
};

TEST(DisplaySimulatorWindowView, CancelledSavingWritesNothing)
{
    const CurrentFolder folder;
    Shown shown;
    shown.dialogs.pathToSave = QStringLiteral("display_sim.png");
    shown.choose(QStringLiteral("PNGで保存"));
    ASSERT_EQ(folder.content(), QStringList{QStringLiteral("display_sim.png")}) << "a name alone lands here";
    QFile::remove(QStringLiteral("display_sim.png"));

    shown.dialogs.pathToSave = std::nullopt;
    shown.choose(QStringLiteral("PNGで保存"));
    EXPECT_EQ(shown.dialogs.proposedNames.size(), 2);
    EXPECT_EQ(folder.content(), QStringList());
}

TEST(DisplaySimulatorWindowView, FailedSavingIsDroppedWithoutAWord)
{
    Shown shown;
    const QTemporaryDir folder;
    shown.dialogs.pathToSave = folder.filePath(QStringLiteral("missing/screen.png"));
    shown.choose(QStringLiteral("PNGで保存"));
    EXPECT_FALSE(QFile::exists(*shown.dialogs.pathToSave));
    EXPECT_TRUE(shown.dialogs.questions.isEmpty());
    EXPECT_TRUE(shown.window.isVisible());
}

TEST(DisplaySimulatorWindowView, SavingReplacesAnOlderFileWhole)
{
    Shown shown;
    const QTemporaryDir folder;
    shown.dialogs.pathToSave = folder.filePath(QStringLiteral("screen.png"));
    QFile old(*shown.dialogs.pathToSave);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(100'000, 'x'));
    old.close();
    shown.choose(QStringLiteral("PNGで保存"));
    EXPECT_EQ(QImage(*shown.dialogs.pathToSave).size(), QSize(320, 170));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "no temporary is left";
}

// Rest

/// Counts how often a timer of the program goes off; what the toolkit's controls do by themselves is no timer of ours.
class TimerCounter : public QObject
{
public:
    TimerCounter() { QCoreApplication::instance()->installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Timer && qobject_cast<QTimer*>(receiver)) ++count;
        return false;
    }
};

TEST(DisplaySimulatorWindowView, NoTimerRunsWhileNothingMoves)
{
    Shown shown;
    DisplaySimulatorSettingsPageView page(shown.state);
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&page));
    QTest::qWait(100);
    TimerCounter timers;
    QTest::qWait(300);
    EXPECT_EQ(timers.count, 0);
    for (const QObject* owner : {static_cast<QObject*>(&shown.window), static_cast<QObject*>(&page)}) {
        for (const auto* timer : owner->findChildren<QTimer*>())
            EXPECT_FALSE(timer->isActive()) << owner->metaObject()->className();
    }

    shown.state.setFaceBlinking(true);
    QTest::qWait(300);
    EXPECT_GT(timers.count, 0) << "the blinking is seen";
    shown.state.setFaceBlinking(false);
    EXPECT_FALSE(shown.state.blinkTimer().isActive());
    EXPECT_FALSE(shown.state.asciiTimer().isActive());
    EXPECT_FALSE(shown.state.dotbarTimer().isActive());
    timers.count = 0;
    QTest::qWait(300);
    EXPECT_EQ(timers.count, 0);
}

} // namespace
} // namespace orvim
