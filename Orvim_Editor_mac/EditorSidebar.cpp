#include "EditorSidebar.h"

#include "DisplaySimulatorState.h"
#include "EditorRuntime.h"
#include "controls/Rule.h"
#include "controls/SwitchRow.h"
#include "controls/SymbolIcon.h"

#include <QFrame>
#include <QListWidget>
#include <QShortcut>
#include <QVBoxLayout>

namespace orvim {

namespace {

constexpr int rowPixelSize = 16;
constexpr int rowHeight = 34;
constexpr int symbolSize = 20;
constexpr int padding = 8;
constexpr int sidebarWidth = 248;

} // namespace

EditorSidebar::EditorSidebar(EditorRuntime& runtime, QWidget* parent) : QWidget(parent), m_runtime(runtime)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(padding);
    makePageList();
    makeSwitches();
    setMinimumWidth(sidebarWidth);
    showSelectedPage();
    showSwitches();
}

void EditorSidebar::makePageList()
{
    m_pages = new QListWidget(this);
    m_pages->setObjectName(QStringLiteral("pageList"));
    m_pages->setAccessibleName(tr("ページ"));
    m_pages->setFrameShape(QFrame::NoFrame);
    m_pages->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pages->setIconSize({symbolSize, symbolSize});
    m_pages->viewport()->setAutoFillBackground(false);
    QFont font = m_pages->font();
    font.setPixelSize(rowPixelSize);
    m_pages->setFont(font);
    for (const EditorPage page : allEditorPages) {
        auto* const row = new QListWidgetItem(symbolIcon(symbol(page)), title(page), m_pages);
        row->setSizeHint({0, rowHeight});
        const QKeySequence shortcut(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(page)));
        row->setToolTip(QStringLiteral("%1 (%2)").arg(title(page), shortcut.toString(QKeySequence::NativeText)));
        connect(new QShortcut(shortcut, this), &QShortcut::activated, this,
                [this, page] { m_runtime.setSelectedPage(page); });
    }
    layout()->addWidget(m_pages);
    connect(m_pages, &QListWidget::currentRowChanged, this, [this](int index) {
        if (index >= 0) m_runtime.setSelectedPage(static_cast<EditorPage>(index));
    });
    // A click with Ctrl would take the mark off the page that is shown.
    connect(m_pages, &QListWidget::itemSelectionChanged, this,
            [this] { m_pages->item(static_cast<int>(m_runtime.selectedPage()))->setSelected(true); });
    connect(&m_runtime, &EditorRuntime::selectedPageChanged, this, &EditorSidebar::showSelectedPage);
}

void EditorSidebar::makeSwitches()
{
    layout()->addWidget(makeRule(this));

    m_logSwitch = new SwitchRow(tr("ログウィンドウOn"), tr("ログウィンドウOff"), this);
    m_logSwitch->setObjectName(QStringLiteral("logWindowSwitch"));
    layout()->addWidget(m_logSwitch);
    connect(m_logSwitch, &SwitchRow::toggled, &m_runtime, &EditorRuntime::setLogWindowIsVisible);
    connect(&m_runtime, &EditorRuntime::logWindowIsVisibleChanged, this, &EditorSidebar::showSwitches);

    m_simulatorSwitch = new SwitchRow(tr("画面シミュレータOn"), tr("画面シミュレータOff"), this);
    m_simulatorSwitch->setObjectName(QStringLiteral("simulatorSwitch"));
    layout()->addWidget(m_simulatorSwitch);
    DisplaySimulatorState& simulator = m_runtime.displaySimulator();
    connect(m_simulatorSwitch, &SwitchRow::toggled, &simulator, &DisplaySimulatorState::setWindowVisible);
    connect(&simulator, &DisplaySimulatorState::changed, this, &EditorSidebar::showSwitches);
}

void EditorSidebar::showSelectedPage()
{
    m_pages->setCurrentRow(static_cast<int>(m_runtime.selectedPage()));
}

void EditorSidebar::showSwitches()
{
    m_logSwitch->setChecked(m_runtime.logWindowIsVisible());
    m_simulatorSwitch->setChecked(m_runtime.displaySimulator().fields().displayWindowIsVisible);
}

} // namespace orvim
