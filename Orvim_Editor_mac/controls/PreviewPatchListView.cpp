#include "controls/PreviewPatchListView.h"

#include "controls/HeldKey.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStringListModel>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace orvim {

namespace {

constexpr int usualWidth = 210;
constexpr int leastRowHeight = 24;
constexpr int rowPadding = 8; ///< above and below the text of a row, together
constexpr int markWidth = 4;

/// Rows of one height; the held one carries a mark and a tint.
class RowDelegate : public QStyledItemDelegate
{
public:
    explicit RowDelegate(PreviewPatchListView& list) : QStyledItemDelegate(&list), m_list(list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {1, m_list.rowHeight()}; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        // The selection stays as it is seen with the focus: it is what the page's controls edit.
        QStyleOptionViewItem row = option;
        row.state |= QStyle::State_Active;
        QStyledItemDelegate::paint(painter, row, index);
        if (m_list.pressedIndex() != index.row()) return;
        const bool isSelected = row.state & QStyle::State_Selected;
        const QColor mark = m_list.palette().color(isSelected ? QPalette::HighlightedText : QPalette::Highlight);
        painter->fillRect(QRect(row.rect.topLeft(), QSize(markWidth, row.rect.height())), mark);
        QColor tint = mark;
        tint.setAlphaF(0.18F);
        painter->fillRect(row.rect, tint);
    }

private:
    PreviewPatchListView& m_list;
};

} // namespace

PreviewPatchListView::PreviewPatchListView(QWidget* parent) : QListView(parent), m_items(new QStringListModel(this))
{
    const auto holdSelected = [this] {
        if (!m_pressedIndex && currentIndex().isValid()) hold(selectedIndex(), Hand::key);
    };
    m_spaceBar = new HeldKey(this, holdSelected, [this] { letGo(Hand::key); });
    setModel(m_items);
    setItemDelegate(new RowDelegate(*this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
}

QStringList PreviewPatchListView::items() const
{
    return m_items->stringList();
}

void PreviewPatchListView::setItems(const QStringList& items)
{
    if (items.size() != m_items->rowCount()) {
        const int index = selectedIndex();
        const QScopedValueRollback following(m_isFollowing, true);
        m_items->setStringList(items);
        return setSelectedIndex(index);
    }
    for (int row = 0; const QString& item : items) {
        const QModelIndex index = m_items->index(row++);
        if (index.data().toString() != item) m_items->setData(index, item);
    }
}

int PreviewPatchListView::selectedIndex() const
{
    return currentIndex().row();
}

void PreviewPatchListView::setSelectedIndex(int index)
{
    const QModelIndex row = m_items->index(index);
    if (!row.isValid() || (row == currentIndex() && selectionModel()->isSelected(row))) return;
    const QScopedValueRollback following(m_isFollowing, true);
    setCurrentIndex(row);
    scrollTo(row);
}

int PreviewPatchListView::rowHeight() const
{
    return std::max(leastRowHeight, fontMetrics().height() + rowPadding);
}

QSize PreviewPatchListView::sizeHint() const
{
    return {usualWidth, rowHeight() * 8};
}

QItemSelectionModel::SelectionFlags PreviewPatchListView::selectionCommand(const QModelIndex& index,
                                                                           const QEvent*) const
{
    // One row is always the marked one; a modifier key takes no mark away.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void PreviewPatchListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    if (m_isFollowing || !current.isValid()) return;
    Q_EMIT rowSelected(current.row());
    if (!m_isInPress) Q_EMIT rowReached(current.row());
}

void PreviewPatchListView::hold(int index, Hand hand)
{
    letGo();
    m_hand = hand;
    m_pressedIndex = index;
    viewport()->update();
    Q_EMIT rowPressed(index);
}

void PreviewPatchListView::letGo()
{
    if (!std::exchange(m_pressedIndex, std::nullopt)) return;
    viewport()->update();
    Q_EMIT rowReleased();
}

void PreviewPatchListView::letGo(Hand hand)
{
    if (hand == m_hand) letGo();
}

void PreviewPatchListView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    {
        const QScopedValueRollback pressing(m_isInPress, true);
        QListView::mousePressEvent(event);
    }
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid()) hold(index.row(), Hand::pointer);
}

void PreviewPatchListView::mouseMoveEvent(QMouseEvent*)
{
    // The row under the first press is the one that sounds; a drag over others does not choose them.
}

void PreviewPatchListView::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) letGo(Hand::pointer);
}

void PreviewPatchListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second of two quick presses plays as the first did.
    mousePressEvent(event);
}

void PreviewPatchListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) return QListView::keyPressEvent(event);
    m_spaceBar->press(*event);
}

void PreviewPatchListView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) return QListView::keyReleaseEvent(event);
    m_spaceBar->release(*event);
}

void PreviewPatchListView::focusOutEvent(QFocusEvent* event)
{
    QListView::focusOutEvent(event);
    letGo();
}

void PreviewPatchListView::hideEvent(QHideEvent* event)
{
    QListView::hideEvent(event);
    letGo();
}

void PreviewPatchListView::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    // What the controls beside the list edit stays in sight in a lower window.
    scrollTo(currentIndex());
}

} // namespace orvim
