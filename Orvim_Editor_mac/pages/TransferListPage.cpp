#include "pages/TransferListPage.h"

#include "PageScaffold.h"
#include "pages/TransferListActions.h"
#include "pages/TransferListView.h"

#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

namespace orvim {

namespace {

constexpr int counterMargin = 14;

} // namespace

TransferListPage::TransferListPage(std::unique_ptr<TransferListActions> actions, QWidget* parent)
    : QWidget(parent), m_actions(std::move(actions))
{
    m_counter = new QLabel;
    m_counter->setObjectName(QStringLiteral("counter"));
    m_counter->setContentsMargins(counterMargin, counterMargin / 2, counterMargin, counterMargin / 2);
    m_counter->setWordWrap(true);
    m_list = new TransferListView(*m_actions);
    m_list->setObjectName(QStringLiteral("transferList"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_counter);
    layout->addWidget(m_list, 1);

    const auto showCounter = [this] {
        m_counter->setText(m_actions->headerText());
        m_list->setAccessibleName(m_counter->text()); // The counter above is the list's only caption.
    };
    connect(m_actions.get(), &TransferListActions::listChanged, this, showCounter);
    showCounter();
}

TransferListPage::~TransferListPage()
{
    // The list looks at the actions to its end.
    delete m_list;
}

void TransferListPage::fillHeader(EditorPageHeader& header)
{
    fillFileMenu(header);
    fillSettingsMenu(header);
    fillToolbar(header);
}

void TransferListPage::fillFileMenu(EditorPageHeader& header)
{
    const auto& words = m_actions->words();
    QMenu* const menu = header.addMenu(tr("ファイル"));
    menu->addAction(tr("クリア"), QKeySequence(Qt::CTRL | Qt::Key_N), m_actions.get(), &TransferListActions::clear);
    menu->addAction(QString::fromUtf8(words.addFromMenu), QKeySequence(Qt::CTRL | Qt::Key_O), m_actions.get(),
                    &TransferListActions::addByPanel);
    menu->addAction(tr("MIDIを書き出し"), QKeySequence(Qt::CTRL | Qt::Key_S), m_actions.get(),
                    &TransferListActions::exportMIDI);
    menu->addAction(QString::fromUtf8(words.restoreFromMenu), m_actions.get(), &TransferListActions::restoreFromMIDI);
}

void TransferListPage::fillSettingsMenu(EditorPageHeader& header)
{
    QMenu* const menu = header.addMenu(tr("設定"));
    for (const auto& option : m_actions->options()) {
        QAction* const action = menu->addAction(QString::fromUtf8(option.title));
        action->setCheckable(true);
        action->setChecked(*option.value);
        connect(action, &QAction::toggled, m_actions.get(), [value = option.value](bool on) { *value = on; });
    }
}

void TransferListPage::fillToolbar(EditorPageHeader& header)
{
    const auto& words = m_actions->words();
    connect(header.addToolbarButton(tr("クリア"), QStringLiteral("doc")), &EditorToolbarButton::clicked,
            m_actions.get(), &TransferListActions::clear);
    connect(header.addToolbarButton(QString::fromUtf8(words.addFromToolbar), QString::fromUtf8(words.addSymbol)),
            &EditorToolbarButton::clicked, m_actions.get(), &TransferListActions::addByPanel);
    connect(header.addToolbarButton(tr("書き出し"), QStringLiteral("square.and.arrow.down")),
            &EditorToolbarButton::clicked, m_actions.get(), &TransferListActions::exportMIDI);
}

} // namespace orvim
