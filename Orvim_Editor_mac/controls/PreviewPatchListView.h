#pragma once

#include <QListView>

#include <optional>

class QStringListModel;

namespace orvim {

/// A list whose rows are chosen and played: a row sounds while it is held with the pointer, or, for the chosen row,
/// while the space bar is down. Whatever takes the row away from under the hand ends it.
class PreviewPatchListView : public QListView
{
    Q_OBJECT

public:
    explicit PreviewPatchListView(QWidget* parent = nullptr);

    static constexpr int rowHeight = 24;

    QStringList items() const;
    /// Rows that stay the same keep their place; the selection is kept.
    void setItems(const QStringList& items);
    int selectedIndex() const;
    /// The program's side, silent; the row is scrolled into view.
    void setSelectedIndex(int index);
    std::optional<int> pressedIndex() const { return m_pressedIndex; }

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has chosen a row.
    void rowSelected(int index);
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
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void hold(int index);
    void letGo();

    QStringListModel* m_items = nullptr;
    std::optional<int> m_pressedIndex;
    bool m_isFollowing = false; ///< the program moves the selection, nobody chooses
};

} // namespace orvim
