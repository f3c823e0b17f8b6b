#include "pages/TransferListView.h"

#include "controls/DropHint.h"
#include "pages/TransferListAccessibility.h"
#include "pages/TransferListActions.h"
#include "pages/TransferListRow.h"
#include "platform/InputHold.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace orvim {

namespace {

constexpr int dropFrameWidth = 2;
constexpr int itemIDRole = Qt::UserRole;

/// False where the event brings no files.
bool acceptFiles(QDropEvent& event)
{
    if (!event.mimeData()->hasUrls()) {
        event.ignore();
        return false;
    }
    // The files stay where they are, whatever the other program offers.
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return true;
}

} // namespace

TransferListView::TransferListView(TransferListActions& actions, QWidget* parent)
    : QListWidget(parent), m_actions(actions)
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setAcceptDrops(true);
    // The actions let a drop wait while messages leave.
    InputHold::takeDropsAtAllTimes(*viewport());
    setFrameShape(QFrame::NoFrame);

    m_dropHint = new DropHint(QString::fromUtf8(actions.words().dropHint), viewport());
    m_dropHint->setWordWrap(true);
    auto* const middle = new QVBoxLayout(viewport());
    middle->addWidget(m_dropHint);

    connect(&actions, &TransferListActions::listChanged, this, &TransferListView::showList);
    connect(this, &QListWidget::itemSelectionChanged, this, &TransferListView::tellSelection);
    makeAccessible(*this);
    showList();
}

QUuid TransferListView::id(const QListWidgetItem* item) const
{
    return item->data(itemIDRole).toUuid();
}

TransferListRow& TransferListView::rowAt(int index) const
{
    return static_cast<TransferListRow&>(*itemWidget(item(index)));
}

QListWidgetItem* TransferListView::itemOf(const QObject* row) const
{
    for (int i = 0; i < count(); ++i)
        if (itemWidget(item(i)) == row) return item(i);
    return nullptr;
}

/// Rows that stay keep their widgets, so that adding a file costs one row and a button keeps the focus.
void TransferListView::showList()
{
    {
        const QSignalBlocker blocker(this);
        for (int i = 0; i < m_actions.itemCount(); ++i) {
            const TransferRow shown = m_actions.row(i);
            while (i < count() && id(item(i)) != shown.id)
                removeRow(i);
            if (i < count())
                rowAt(i).showNumber(shown.number);
            else
                addRow(shown);
        }
        while (count() > m_actions.itemCount())
            removeRow(count() - 1);
        if (hasFocus() && !currentItem()) goTo(0);
        showSelection();
    }
    showSelectionColors();
    m_dropHint->setVisible(count() == 0);
}

void TransferListView::addRow(const TransferRow& shown)
{
    auto* const row = new TransferListRow(shown, QString::fromUtf8(m_actions.words().runOnModule), viewport());
    connect(&row->button(), &QPushButton::clicked, this, [this, id = shown.id] { m_actions.runOnModule(id); });
    connect(row, &TransferListRow::buttonReached, this, [this, row] { scrollToItem(itemOf(row)); });
    // A widget that comes later would be behind everything in the window.
    QWidget* const before = count() > 0 ? &rowAt(count() - 1).button() : static_cast<QWidget*>(this);
    setTabOrder(before, &row->button());

    auto* const listItem = new QListWidgetItem(this);
    listItem->setData(itemIDRole, shown.id);
    listItem->setSizeHint({0, row->sizeHint().height()});
    setItemWidget(listItem, row);
}

/// The focus of the row's button stays in the list, and the row that takes its place becomes the current one.
void TransferListView::removeRow(int index)
{
    // The window may be inactive, behind the question whether to clear the list, and gets its focus back later.
    const bool hasFocusInside = rowAt(index).isAncestorOf(window()->focusWidget());
    const bool isPlace = hasFocusInside || index == currentRow();
    if (hasFocusInside) setFocus();
    delete takeItem(index);
    if (isPlace) goTo(std::min(index, count() - 1));
}

void TransferListView::goTo(int index)
{
    setCurrentRow(index, QItemSelectionModel::NoUpdate);
}

void TransferListView::showSelection()
{
    for (int i = 0; i < count(); ++i)
        item(i)->setSelected(m_actions.selectedItemIDs().contains(id(item(i))));
}

void TransferListView::tellSelection()
{
    QSet<QUuid> ids;
    for (const QListWidgetItem* const item : selectedItems())
        ids.insert(id(item));
    m_actions.setSelectedItemIDs(ids);
    showSelectionColors();
}

void TransferListView::showSelectionColors()
{
    for (int i = 0; i < count(); ++i) {
        QPalette colors = palette();
        if (item(i)->isSelected()) {
            for (const auto role : {QPalette::WindowText, QPalette::Text})
                colors.setBrush(role, colors.highlightedText());
        }
        rowAt(i).setPalette(colors);
    }
}

void TransferListView::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) showSelectionColors();
}

void TransferListView::dragEnterEvent(QDragEnterEvent* event)
{
    showDropTarget(acceptFiles(*event));
}

void TransferListView::dragMoveEvent(QDragMoveEvent* event)
{
    acceptFiles(*event);
}

void TransferListView::dragLeaveEvent(QDragLeaveEvent*)
{
    showDropTarget(false);
}

void TransferListView::dropEvent(QDropEvent* event)
{
    showDropTarget(false);
    if (!acceptFiles(*event)) return;
    // The other program waits for the end of the drop, so the files are taken in behind it.
    QMetaObject::invokeMethod(
        this, [this, urls = event->mimeData()->urls()] { m_actions.addDropped(urls); }, Qt::QueuedConnection);
}

void TransferListView::showDropTarget(bool isOver)
{
    if (m_isDropTarget == isOver) return;
    m_isDropTarget = isOver;
    viewport()->update();
}

void TransferListView::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    if (!m_isDropTarget) return;
    QPainter painter(viewport());
    painter.setPen(
        QPen(palette().color(QPalette::Highlight), dropFrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    constexpr int inset = dropFrameWidth / 2;
    painter.drawRect(viewport()->rect().adjusted(inset, inset, -inset, -inset));
}

void TransferListView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return m_actions.deleteSelected();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return runFocused(*event);
    default:
        QListWidget::keyPressEvent(event);
    }
}

/// A key that is held down sends once: a picture takes seconds.
void TransferListView::runFocused(const QKeyEvent& event)
{
    const QListWidgetItem* const row = focusedItem();
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (row && isPlain && !event.isAutoRepeat()) m_actions.runOnModule(id(row));
}

/// The row whose button has the focus, else the current one.
const QListWidgetItem* TransferListView::focusedItem() const
{
    for (int i = 0; i < count(); ++i)
        if (rowAt(i).button().hasFocus()) return item(i);
    return currentItem();
}

void TransferListView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QListWidgetItem* const row = isByKey ? focusedItem() : itemAt(event->pos());
    if (!row) return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("削除"), this, [this, id = id(row)] { m_actions.deleteOne(id); });
    menu->popup(isByKey ? viewport()->mapToGlobal(visualItemRect(row).center()) : event->globalPos());
}

} // namespace orvim
