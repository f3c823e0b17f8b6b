#pragma once

#include <QListView>

#include <optional>

class QStringListModel;

namespace orvim {

class HeldKey;

/// A list whose rows are chosen and played: a row sounds while it is held with the pointer, or, for the chosen row,
/// while the space bar is down. Whatever takes the row away from under the hand ends it.
class PreviewPatchListView : public QListView
{
    Q_OBJECT

public:
    explicit PreviewPatchListView(QWidget* parent = nullptr);

    QStringList items() const;
    /// Rows that stay the same keep their place; the selection is kept.
    void setItems(const QStringList& items);
    int selectedIndex() const;
    /// The program's side, silent; the row is scrolled into view.
    void setSelectedIndex(int index);
    std::optional<int> pressedIndex() const { return m_pressedIndex; }

    /// In pixels; follows the font.
    int rowHeight() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has chosen a row.
    void rowSelected(int index);
    /// The row was chosen without being held, as the arrow keys do. Follows `rowSelected`.
    void rowReached(int index);
    /// A row is held, and has been let go.
    void rowPressed(int index);
    void rowReleased();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    /// What holds a row: each lets go of its own alone.
    enum class Hand { pointer, key };

    void hold(int index, Hand hand);
    void letGo();
    void letGo(Hand hand);

    QStringListModel* m_items = nullptr;
    HeldKey* m_spaceBar = nullptr;
    std::optional<int> m_pressedIndex;
    Hand m_hand = Hand::pointer; ///< of the row that is held, or was last
    bool m_isInPress = false;    ///< the pointer chooses a row that it is about to hold
    bool m_isFollowing = false;  ///< the program moves the selection, nobody chooses
};

} // namespace orvim
