#include "StatusLogBar.h"

#include "MIDIOutManager.h"
#include "controls/ElidedLabel.h"
#include "controls/IconLabel.h"
#include "controls/OncePerTurn.h"
#include "controls/PageScrollArea.h"
#include "controls/SymbolIcon.h"
#include "controls/ThemeColors.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace orvim {

namespace {

constexpr int pickerWidth = 220;
constexpr int progressWidth = 180;
constexpr int progressSteps = 1000;
constexpr int statusIconSize = 18;
constexpr int reloadIconSize = 18;

} // namespace

StatusLogBar::StatusLogBar(MIDIOutManager& manager, QWidget* parent) : QWidget(parent), m_manager(manager)
{
    makeWidgets();
    connectManager();
    showDestinations();
    showStatus();
    showProgress();
}

void StatusLogBar::makeWidgets()
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 6);
    layout->setSpacing(8);

    auto* const caption = new QLabel(tr("MIDI Out デバイス："), this);
    layout->addWidget(caption);

    m_destinationPicker = new QComboBox(this);
    scrollPageUnlessFocused(*m_destinationPicker);
    m_destinationPicker->setObjectName(QStringLiteral("destinationPicker"));
    m_destinationPicker->setAccessibleName(tr("MIDI Out デバイス："));
    m_destinationPicker->setFixedWidth(pickerWidth);
    m_destinationPicker->setToolTip(
        tr("MIDI出力先を選択します。通常は「Tonavelle_mini」または「MIDIOUT2 (Tonavelle_mini)」を選択して下さい。"));
    caption->setBuddy(m_destinationPicker);
    layout->addWidget(m_destinationPicker);

    auto* const reload = new QToolButton(this);
    reload->setObjectName(QStringLiteral("reloadDestinations"));
    reload->setIcon(symbolIcon(QStringLiteral("arrow.clockwise")));
    reload->setIconSize({reloadIconSize, reloadIconSize});
    reload->setAutoRaise(true);
    reload->setFocusPolicy(Qt::StrongFocus);
    reload->setShortcut(QKeySequence(Qt::Key_F5));
    reload->setToolTip(tr("MIDI OUT一覧を更新"));
    reload->setAccessibleName(tr("MIDI OUT一覧を更新"));
    layout->addWidget(reload);
    connect(reload, &QToolButton::clicked, this, &StatusLogBar::reloadDestinations);

    m_statusIcon = new IconLabel(statusIconSize, this);
    m_statusIcon->setObjectName(QStringLiteral("statusIcon"));
    layout->addWidget(m_statusIcon);

    m_statusText = new ElidedLabel(this);
    m_statusText->setObjectName(QStringLiteral("statusMessage"));
    layout->addWidget(m_statusText, 1);

    m_progressBar = new QProgressBar(this);
    m_progressBar->setObjectName(QStringLiteral("progress"));
    m_progressBar->setAccessibleName(tr("送信の進み具合"));
    m_progressBar->setFixedWidth(progressWidth);
    m_progressBar->setRange(0, progressSteps);
    m_progressBar->setTextVisible(false);
    layout->addWidget(m_progressBar);
}

void StatusLogBar::connectManager()
{
    m_statusRefresh = new OncePerTurn(this, [this] {
        showStatus();
        showProgress();
    });
    connect(&m_manager, &MIDIOutManager::statusChanged, m_statusRefresh, &OncePerTurn::request);
    connect(&m_manager, &MIDIOutManager::progressChanged, m_statusRefresh, &OncePerTurn::request);
    connect(&m_manager, &MIDIOutManager::destinationsChanged, this, &StatusLogBar::showDestinations);
    connect(&m_manager, &MIDIOutManager::selectedDestinationChanged, this, &StatusLogBar::showSelection);
    connect(m_destinationPicker, &QComboBox::activated, this, &StatusLogBar::choose);
}

void StatusLogBar::reloadDestinations()
{
    m_manager.refreshDestinations();
    // Who reloads the list wants another try, also on a module that has stopped taking data.
    m_manager.setSelectedDestinationID(m_manager.selectedDestinationID());
}

void StatusLogBar::choose(int index)
{
    const QVariant id = m_destinationPicker->itemData(index);
    m_manager.setSelectedDestinationID(id.isValid() ? std::optional(id.value<MIDIEndpointRef>()) : std::nullopt);
}

void StatusLogBar::showDestinations()
{
    const QSignalBlocker blocker(m_destinationPicker);
    m_destinationPicker->clear();
    m_destinationPicker->addItem(tr("未選択"));
    for (const auto& destination : m_manager.destinations())
        m_destinationPicker->addItem(destination.name, destination.id);
    showSelection();
}

void StatusLogBar::showSelection()
{
    const QSignalBlocker blocker(m_destinationPicker);
    const auto id = m_manager.selectedDestinationID();
    const int index = id ? m_destinationPicker->findData(*id) : 0;
    m_destinationPicker->setCurrentIndex(std::max(index, 0));
}

void StatusLogBar::showStatus()
{
    const bool isError = m_manager.lastErrorMessage().has_value();
    const QColor iconColor = isError ? errorColor(palette()) : successColor(palette());
    const QString symbol = isError ? QStringLiteral("exclamationmark.triangle") : QStringLiteral("checkmark.circle");
    m_statusIcon->setIcon(symbolIcon(symbol, iconColor));
    m_statusIcon->setAccessibleName(isError ? tr("エラー") : tr("正常"));
    m_statusText->setText(m_manager.statusMessage());
    m_statusText->setTextColor(isError ? errorColor(palette()) : QColor());
}

void StatusLogBar::showProgress()
{
    const auto fraction = m_manager.progressFraction();
    m_progressBar->setVisible(fraction.has_value());
    if (fraction) m_progressBar->setValue(static_cast<int>(std::lround(*fraction * progressSteps)));
}

void StatusLogBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_statusText) showStatus();
}

} // namespace orvim
