#include "pages/TransferListView.h"

#include "controls/DropHint.h"
#include "controls/ElidedLabel.h"
#include "pages/TransferListActions.h"
#include "platform/InputHold.h"

#include <QApplication>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>

namespace orvim {

namespace {

constexpr int rowMargin = 8;
constexpr int rowSpacing = 12;
constexpr int dropFrameWidth = 2;
constexpr int itemIDRole = Qt::UserRole;

/// A small picture in its own pixels, also where the screen has finer ones.
class PicturePreview : public QWidget
{
public:
    explicit PicturePreview(const QImage& picture) : m_picture(picture)
    {
        setObjectName(QStringLiteral("preview"));
        setFixedSize(picture.size());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter.drawImage(rect(), m_picture);
    }

private:
    QImage m_picture;
};

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

QString numberText(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
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
    showList();
}

QUuid TransferListView::id(const QListWidgetItem* item) const
{
    return item->data(itemIDRole).toUuid();
}

/// Rows before the first change keep their widgets, so that adding a file costs one row.
void TransferListView::showList()
{
    {
        const QSignalBlocker blocker(this);
        int same = 0;
        while (same < count() && same < m_actions.itemCount() && id(item(same)) == m_actions.row(same).id)
            ++same;
        while (count() > same)
            delete takeItem(count() - 1);
        for (int i = same; i < m_actions.itemCount(); ++i)
            addRow(i);
        showSelection();
    }
    showSelectionColors();
    m_dropHint->setVisible(count() == 0);
}

void TransferListView::addRow(int index)
{
    const TransferRow shown = m_actions.row(index);
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(rowMargin, rowMargin / 2, rowMargin, rowMargin / 2);
    layout->setSpacing(rowSpacing);
    layout->addWidget(new QLabel(numberText(shown.number)));
    if (!shown.preview.isNull()) layout->addWidget(new PicturePreview(shown.preview));
    auto* const path = new ElidedLabel;
    path->setElideMode(Qt::ElideMiddle); // The file's name tells the rows apart.
    path->setText(shown.filePath);
    layout->addWidget(path, 1);
    if (!shown.detail.isEmpty()) layout->addWidget(new QLabel(shown.detail));
    auto* const button = new QPushButton(QString::fromUtf8(m_actions.words().runOnModule));
    button->setObjectName(button->text());
    button->setAccessibleDescription(numberText(shown.number) + QLatin1Char(' ') + shown.filePath);
    connect(button, &QPushButton::clicked, this, [this, id = shown.id] { m_actions.runOnModule(id); });
    layout->addWidget(button);

    auto* const listItem = new QListWidgetItem(this);
    listItem->setData(itemIDRole, shown.id);
    listItem->setData(Qt::AccessibleTextRole, button->accessibleDescription());
    listItem->setSizeHint({0, row->sizeHint().height()});
    setItemWidget(listItem, row);
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
        itemWidget(item(i))->setPalette(colors);
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
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) return m_actions.deleteSelected();
    QListWidget::keyPressEvent(event);
}

/// The row whose button has the focus, else the current one.
const QListWidgetItem* TransferListView::focusedItem() const
{
    for (int i = 0; i < count(); ++i)
        if (itemWidget(item(i))->isAncestorOf(QApplication::focusWidget())) return item(i);
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
