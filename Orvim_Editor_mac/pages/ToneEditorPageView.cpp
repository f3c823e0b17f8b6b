#include "pages/ToneEditorPageView.h"

#include "EditorRuntime.h"
#include "PageScaffold.h"
#include "pages/ChannelTabView.h"
#include "pages/MasterTabView.h"
#include "pages/ToneKeyboardView.h"
#include "pages/UserDrumTabView.h"
#include "pages/UserMelodyTabView.h"
#include "pages/UserWaveTabView.h"

#include <QAction>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <array>

namespace orvim {

namespace {

struct DirtyOnlyOption {
    const char* caption;
    const char* help;
    bool tonavelle::DirtyOnlyFlags::*flag;
};

// clang-format off
constexpr std::array<DirtyOnlyOption, 3> dirtyOnlyOptions{{
    {"編集箇所のみ書き出し（ユーザー楽器）",
     "MIDIファイル生成時、ユーザー楽器をデフォルトから変更された番号だけ書き出します。OFFの場合は128個すべてを書き出します。",
     &tonavelle::DirtyOnlyFlags::writesDirtyUserMelodyOnly},
    {"編集箇所のみ書き出し（ユーザードラム）",
     "MIDIファイル生成時、ユーザードラムをデフォルトから変更されたノートだけ書き出します。OFFの場合は128ノートすべてを書き出します。",
     &tonavelle::DirtyOnlyFlags::writesDirtyUserDrumOnly},
    {"編集箇所のみ書き出し（ユーザー波形）",
     "MIDIファイル生成時、ユーザー波形をデフォルトから変更されたスロットだけ書き出します。OFFの場合は4スロットすべてを書き出します。",
     &tonavelle::DirtyOnlyFlags::writesDirtyUserWaveOnly},
}};
// clang-format on

/// Tabs that a click or an arrow key changes. Each change is heard, so that a wheel turned over them leaves them alone.
class ToneTabBar : public QTabBar
{
protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

    void mousePressEvent(QMouseEvent* event) override
    {
        // The other buttons would tell of a click as well.
        if (event->button() == Qt::LeftButton) return QTabBar::mousePressEvent(event);
        event->ignore();
    }
};

} // namespace

ToneEditorPageView::ToneEditorPageView(EditorRuntime& runtime, Dialogs& dialogs, QWidget* parent)
    : QWidget(parent), m_actions(runtime, dialogs), m_tabs(new QStackedWidget),
      m_keyboard(new ToneKeyboardView(runtime.midiOutManager()))
{
    makeTabBar();
    makeFileActions();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabBar);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_keyboard);
    connect(&m_actions.model, &ToneEditorModel::changed, this, [this](ToneEditorParts parts) {
        if (parts & (ToneEditorPart::tab | ToneEditorPart::channel)) showState();
    });
    showState();
}

void ToneEditorPageView::makeTabBar()
{
    m_tabBar = new ToneTabBar;
    m_tabBar->setObjectName(QStringLiteral("toneTabs"));
    m_tabBar->setAccessibleName(tr("音色編集のタブ"));
    m_tabBar->setDrawBase(true);
    m_tabBar->setExpanding(false);
    for (const ToneEditorTab tab : allToneEditorTabs)
        m_tabBar->addTab(caption(tab));
    const auto open = [this](int index) { m_actions.previews.openTab(static_cast<ToneEditorTab>(index)); };
    connect(m_tabBar, &QTabBar::currentChanged, this, open);
    // A click on the open tab opens it anew: a module that was switched off meanwhile gets its preview again.
    connect(m_tabBar, &QTabBar::tabBarClicked, this, [this, open](int index) {
        if (index >= 0 && index == m_tabBar->currentIndex()) open(index);
    });
}

QWidget* ToneEditorPageView::makeTab(ToneEditorTab tab)
{
    switch (tab) {
    case ToneEditorTab::master:
        return new MasterTabView(m_actions);
    case ToneEditorTab::channel:
        return new ChannelTabView(m_actions);
    case ToneEditorTab::userMelody:
        return new UserMelodyTabView(m_actions);
    case ToneEditorTab::userDrum:
        return new UserDrumTabView(m_actions);
    case ToneEditorTab::userWave:
        return new UserWaveTabView(m_actions);
    }
    return nullptr;
}

void ToneEditorPageView::showState()
{
    const ToneEditorState& state = m_actions.state();
    for (const ToneEditorTab tab : state.loadedToneTabs) {
        QWidget*& built = m_builtTabs[tab];
        if (built) continue;
        built = makeTab(tab);
        m_tabs->addWidget(built);
    }
    m_tabs->setCurrentWidget(m_builtTabs.at(state.selectedToneTab));
    const QSignalBlocker silent(m_tabBar);
    m_tabBar->setCurrentIndex(static_cast<int>(state.selectedToneTab));
    m_keyboard->setChannel(state.keyboardChannel());
}

QAction* ToneEditorPageView::makeAction(const QString& text, std::function<void()> act)
{
    auto* const action = new QAction(text, this);
    connect(action, &QAction::triggered, this, std::move(act));
    return action;
}

void ToneEditorPageView::makeFileActions()
{
    m_new = makeAction(tr("新規作成"), [this] { m_actions.files.newToneData(); });
    m_open = makeAction(tr("開く"), [this] { m_actions.files.open(); });
    m_save = makeAction(tr("保存"), [this] { m_actions.files.save(); });
    m_new->setShortcut(QKeySequence::New);
    m_open->setShortcut(QKeySequence::Open);
    m_save->setShortcut(QKeySequence::Save);
    // As actions of the page they answer while it is in view, wherever the focus is.
    addActions({m_new, m_open, m_save});
}

void ToneEditorPageView::fillHeader(EditorPageHeader& header)
{
    fillFileMenu(header);
    fillSettingsMenu(header);
    fillSendMenu(header);
    fillToolbar(header);
}

void ToneEditorPageView::fillFileMenu(EditorPageHeader& header)
{
    QMenu* const menu = header.addMenu(tr("ファイル"));
    menu->addActions({m_new, m_open, m_save});
    menu->addSeparator();
    menu->addAction(makeAction(tr("ユーザー波形のインポート"), [this] { m_actions.files.importWAV(); }));
    menu->addAction(makeAction(tr("ユーザー波形のエクスポート"), [this] { m_actions.files.exportWAV(); }));
}

void ToneEditorPageView::fillSettingsMenu(EditorPageHeader& header)
{
    QMenu* const menu = header.addMenu(tr("設定"));
    menu->setToolTipsVisible(true);
    for (const DirtyOnlyOption& option : dirtyOnlyOptions) {
        QAction* const action = menu->addAction(QString::fromUtf8(option.caption));
        action->setToolTip(QString::fromUtf8(option.help));
        action->setWhatsThis(action->toolTip());
        action->setCheckable(true);
        action->setChecked(m_actions.state().dirtyOnly.*option.flag);
        connect(action, &QAction::toggled, this, [this, flag = option.flag](bool on) {
            m_actions.model.change(ToneEditorPart::options,
                                   [&](ToneEditorState& state) { state.dirtyOnly.*flag = on; });
        });
    }
}

void ToneEditorPageView::fillSendMenu(EditorPageHeader& header)
{
    QMenu* const menu = header.addMenu(tr("送信"));
    menu->addAction(makeAction(tr("全音色データ送信"), [this] { m_actions.sending.sendAll(); }));
    menu->addSeparator();
    for (int slot = 0; slot < tonavelle::UserWaveformBuilder::slotCount; ++slot)
        menu->addAction(
            makeAction(tr("ユーザー波形 %1 送信").arg(slot + 1), [this, slot] { m_actions.waves.send(slot); }));
}

void ToneEditorPageView::fillToolbar(EditorPageHeader& header)
{
    const auto add = [&](const QString& title, const QString& symbol, auto act) {
        connect(header.addToolbarButton(title, symbol), &EditorToolbarButton::clicked, this, act);
    };
    add(tr("新規"), QStringLiteral("doc"), [this] { m_new->trigger(); });
    add(tr("開く"), QStringLiteral("folder"), [this] { m_open->trigger(); });
    add(tr("保存"), QStringLiteral("square.and.arrow.down"), [this] { m_save->trigger(); });
    add(tr("全送信"), QStringLiteral("paperplane"), [this] { m_actions.sending.sendAll(); });
}

} // namespace orvim
