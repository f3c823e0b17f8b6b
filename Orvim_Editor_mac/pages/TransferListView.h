#pragma once

#include <QListWidget>
#include <QUrl>
#include <QUuid>

class QLabel;

namespace orvim {

class TransferListActions;

/// The rows of a page of transfers: takes dropped files at all times, deletes by key and by context menu.
class TransferListView : public QListWidget
{
    Q_OBJECT

public:
    /// The actions must outlive the view.
    explicit TransferListView(TransferListActions& actions, QWidget* parent = nullptr);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QUuid id(const QListWidgetItem* item) const;
    const QListWidgetItem* focusedItem() const;
    void showDropTarget(bool isOver);
    void showList();
    void addRow(int index);
    void showSelection();
    void tellSelection();
    void showSelectionColors();

    TransferListActions& m_actions;
    QLabel* m_dropHint = nullptr;
    bool m_isDropTarget = false;
};

} // namespace orvim
