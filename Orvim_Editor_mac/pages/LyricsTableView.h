#pragma once

#include "pages/LyricsCellDelegates.h"

#include <QTableView>

class QLabel;

namespace orvim {

class LyricsPageActions;
class LyricsPlaceKeeper;

/// The rows of lyrics. Cells are edited by a double click, F2, Return or typing, commands picked from a menu, rows
/// tried by their button; Insert adds rows, Delete removes the selected ones. Nothing is made per row, so that long
/// songs stay quick.
class LyricsTableView : public QTableView
{
    Q_OBJECT

public:
    /// The actions must outlive the view.
    explicit LyricsTableView(LyricsPageActions& actions, QWidget* parent = nullptr);

    /// Takes over what is being typed, and closes its editor.
    void commitEditing();

    /// Letters are typed into cells; they choose no rows.
    void keyboardSearch(const QString&) override {}

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void setUpCells();
    void fitSizesToFont();
    void fitTextColumn();
    void placeDropHint();
    void showList();
    void showSelection();
    void goToAddedRows();
    void copyCell();
    bool pressSpace(const QKeyEvent& event);
    bool activateCell();
    bool stepByTab(QKeyEvent& event);
    void step(CellStep step);
    void preview(const QModelIndex& index);
    void pickCommand(const QModelIndex& index);
    /// The cell of the preview button that lies there; invalid where there is none.
    QModelIndex buttonAt(QPoint position) const;
    void hoverButton(const QModelIndex& index);
    void pressButton(const QModelIndex& index);
    void followInputMethod();

    LyricsPageActions& m_actions;
    LyricsPlaceKeeper* m_place;
    ButtonCellDelegate* m_buttons = nullptr;
    QLabel* m_dropHint = nullptr;
    QPersistentModelIndex m_heldButton; ///< the one that took the press of the pointer
    QPersistentModelIndex m_pressedCommand;
};

} // namespace orvim
