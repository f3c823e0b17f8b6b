#include "MainWindow.h"

#include "DisplaySimulatorState.h"
#include "EditorPageHost.h"
#include "EditorRuntime.h"
#include "EditorSidebar.h"
#include "LogWindowView.h"
#include "StatusLogBar.h"
#include "WebPages.h"
#include "controls/Rule.h"
#include "simulator/DisplaySimulatorWindowView.h"

#include <QCloseEvent>
#include <QFrame>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvim {

namespace {

constexpr QSize defaultSize(1270, 980);
constexpr QSize smallestSize(640, 400);

void bringToFront(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
}

} // namespace

MainWindow::MainWindow(EditorRuntime& runtime, Dialogs& dialogs) : m_runtime(runtime), m_dialogs(dialogs)
{
    setWindowTitle(QStringLiteral("Orvim Editor for macOS (2026-07-11)"));
    setObjectName(QStringLiteral("main"));
    makeContent();
    makeHelpMenu();
    setMinimumSize(smallestSize);
    resize(defaultSize);
    connect(&runtime, &EditorRuntime::logWindowIsVisibleChanged, this, &MainWindow::showLogWindow);
    DisplaySimulatorState& simulator = runtime.displaySimulator();
    connect(&simulator, &DisplaySimulatorState::changed, this,
            [this, &simulator] { showSimulatorWindow(simulator.fields().displayWindowIsVisible); });
    connect(m_pages, &EditorPageHost::simulatorWindowRequested, this, &MainWindow::raiseSimulatorWindow);
}

MainWindow::~MainWindow() = default;

void MainWindow::makeContent()
{
    auto* const splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(new EditorSidebar(m_runtime));
    m_pages = new EditorPageHost(m_runtime, m_dialogs);
    splitter->addWidget(m_pages);
    splitter->setStretchFactor(1, 1);

    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(splitter, 1);
    layout->addWidget(makeRule());
    layout->addWidget(new StatusLogBar(m_runtime.midiOutManager()));
    setCentralWidget(content);
}

void MainWindow::makeHelpMenu()
{
    QMenu* const help = menuBar()->addMenu(tr("ヘルプ(&H)"));
    QAction* const manual = help->addAction(QStringLiteral("Orvim Editor Help"));
    manual->setShortcut(QKeySequence::HelpContents);
    connect(manual, &QAction::triggered, this, [] { openWebPage(manualPage()); });
}

void MainWindow::showLogWindow(bool visible)
{
    if (visible && !m_logWindow) m_logWindow = std::make_unique<LogWindowView>(m_runtime);
    if (!m_logWindow || m_logWindow->isVisible() == visible) return;
    if (visible)
        m_logWindow->show();
    else
        m_logWindow->close();
}

void MainWindow::showSimulatorWindow(bool visible)
{
    if (visible && !m_simulatorWindow) makeSimulatorWindow();
    if (m_simulatorWindow && m_simulatorWindow->isVisible() != visible) m_simulatorWindow->setVisible(visible);
}

void MainWindow::makeSimulatorWindow()
{
    m_simulatorWindow = std::make_unique<DisplaySimulatorWindowView>(m_runtime, m_dialogs);
    connect(m_simulatorWindow.get(), &DisplaySimulatorWindowView::settingsRequested, this,
            [this] { bringToFront(*this); });
}

void MainWindow::raiseSimulatorWindow()
{
    bringToFront(*m_simulatorWindow);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (m_logWindow) m_logWindow->hide();
    if (m_simulatorWindow) m_simulatorWindow->hide();
    Q_EMIT closed();
}

} // namespace orvim
