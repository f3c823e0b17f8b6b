#pragma once

#include <QStyledItemDelegate>

namespace orvim {

/// The room at the left and right of a cell's text.
constexpr int lyricsCellMargin = 8;

/// Where the cursor goes from a cell: to another one, or out of the table to what stands before or behind it.
enum class CellStep { up, down, left, right, before, behind };

/// A cell with one line of text and some room at its sides.
class TextCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Text that does not fit is shown whole in a tool tip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

/// A cell that is typed in. Return and the arrows commit and leave it upwards or downwards, Tab sidewards, Ctrl+Tab out
/// of the table; Escape gives the edit up.
class TypedCellDelegate : public TextCellDelegate
{
    Q_OBJECT

public:
    enum class Kind { number, text };

    explicit TypedCellDelegate(Kind kind, QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

Q_SIGNALS:
    /// The edit has been committed and the editor closed.
    void left(CellStep step);

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    Kind m_kind;
};

/// The command with the mark of a picker; the view opens the menu that it is picked from.
class CommandCellDelegate : public TextCellDelegate
{
    Q_OBJECT

public:
    using TextCellDelegate::TextCellDelegate;

    QWidget* createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex&) const override { return nullptr; }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// A push button drawn in each row.
class ButtonCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static QRect buttonRect(const QRect& cell);

    /// The cells whose button the pointer is over, and holds down; none where invalid.
    QModelIndex hovered() const { return m_hovered; }
    void setHovered(const QModelIndex& index) { m_hovered = index; }
    void setPressed(const QModelIndex& index) { m_pressed = index; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QPersistentModelIndex m_hovered;
    QPersistentModelIndex m_pressed;
};

} // namespace orvim
