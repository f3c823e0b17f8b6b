#pragma once

#include <QListWidget>
#include <QUrl>
#include <QUuid>

class QLabel;

namespace orvim {

class TransferListActions;
class TransferListRow;
struct TransferRow;

/// The rows of a page of transfers: takes dropped files at all times, runs and deletes by key, deletes by context menu.
class TransferListView : public QListWidget
{
    Q_OBJECT

public:
    /// The actions must outlive the view.
    explicit TransferListView(TransferListActions& actions, QWidget* parent = nullptr);

    /// The item whose row this is; null for any other object.
    QListWidgetItem* itemOf(const QObject* row) const;

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
    TransferListRow& rowAt(int index) const;
    const QListWidgetItem* focusedItem() const;
    void runFocused(const QKeyEvent& event);
    void showDropTarget(bool isOver);
    void showList();
    void addRow(const TransferRow& shown);
    void removeRow(int index);
    void goTo(int index);
    void showSelection();
    void tellSelection();
    void showSelectionColors();

    TransferListActions& m_actions;
    QLabel* m_dropHint = nullptr;
    bool m_isDropTarget = false;
};

} // namespace orvim
