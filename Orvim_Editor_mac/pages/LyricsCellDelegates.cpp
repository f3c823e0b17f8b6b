#include "pages/LyricsCellDelegates.h"

#include "pages/LyricsTableModel.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QToolTip>

#include <optional>

namespace orvim {

namespace {

constexpr int editorMargin = 3; // with the frame of the field as much as a cell has
constexpr int pickerMarkSize = 10;
constexpr int buttonMargin = 3;

std::optional<CellStep> stepOf(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return event.modifiers() & Qt::ShiftModifier ? CellStep::up : CellStep::down;
    case Qt::Key_Down:
        return CellStep::down;
    case Qt::Key_Up:
        return CellStep::up;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        const bool isForward = event.key() == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier);
        if (event.modifiers() & Qt::ControlModifier) return isForward ? CellStep::behind : CellStep::before;
        return isForward ? CellStep::right : CellStep::left;
    }
    default:
        return std::nullopt;
    }
}

const QStyle& styleOf(const QStyleOptionViewItem& option)
{
    return *option.widget->style();
}

} // namespace

void TextCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QRect room = cell.rect.adjusted(lyricsCellMargin, 0, -lyricsCellMargin, 0);
    const QString text = cell.fontMetrics.elidedText(cell.text, Qt::ElideRight, room.width());
    cell.text.clear();
    styleOf(cell).drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    const bool isSelected = cell.state & QStyle::State_Selected;
    styleOf(cell).drawItemText(painter, room, static_cast<int>(cell.displayAlignment) | Qt::TextSingleLine,
                               cell.palette, true, text, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

bool TextCellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                 const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString shown = index.data().toString();
    const QString text = index.data(Qt::ToolTipRole).toString();
    const bool fits = shown.size() == text.size() &&
                      view->fontMetrics().horizontalAdvance(shown) <= option.rect.width() - 2 * lyricsCellMargin;
    // As rich text the tip breaks into lines.
    const QString whole = QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
    QToolTip::showText(event->globalPos(), fits ? QString() : whole, view);
    return true;
}

TypedCellDelegate::TypedCellDelegate(Kind kind, QObject* parent) : TextCellDelegate(parent), m_kind(kind) {}

QWidget* TypedCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    auto* const editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("lyricsCellEditor"));
    editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    editor->setTextMargins(editorMargin, 0, editorMargin, 0);
    // A file that is dropped here is for the page.
    editor->setAcceptDrops(false);
    if (m_kind == Kind::number) {
        static const QRegularExpression signAndDigits(QStringLiteral("[+\\-＋－\u2212]?[0-9０-９]+"));
        editor->setAlignment(Qt::AlignRight);
        editor->setValidator(new QRegularExpressionValidator(signAndDigits, editor));
    }
    return editor;
}

void TypedCellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                             const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}

void TypedCellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    // What was not touched stays as it is, down to signs that an editor cannot hold.
    const auto* const field = static_cast<QLineEdit*>(editor);
    if (field->isModified()) model->setData(index, field->text());
}

bool TypedCellDelegate::eventFilter(QObject* editor, QEvent* event)
{
    const auto step =
        event->type() == QEvent::KeyPress ? stepOf(*static_cast<QKeyEvent*>(event)) : std::optional<CellStep>();
    if (!step) return TextCellDelegate::eventFilter(editor, event);
    auto* const field = static_cast<QWidget*>(editor);
    Q_EMIT commitData(field);
    Q_EMIT closeEditor(field, NoHint);
    Q_EMIT left(*step);
    return true;
}

void TypedCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    TextCellDelegate::initStyleOption(option, index);
    if (m_kind != Kind::text) return;
    const auto command = index.siblingAtColumn(static_cast<int>(LyricsColumn::command)).data(Qt::EditRole).toInt();
    if (isAddCommand(static_cast<tonavelle::LyricsCommand>(command))) return;
    // A command that clears a row sends no text.
    option->palette.setBrush(QPalette::Text, option->palette.placeholderText());
}

void CommandCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    TextCellDelegate::paint(painter, option, index);
    QStyleOption mark;
    mark.initFrom(option.widget);
    mark.state = option.state;
    mark.rect = QRect(0, 0, pickerMarkSize, pickerMarkSize);
    mark.rect.moveCenter(option.rect.center());
    mark.rect.moveRight(option.rect.right() - lyricsCellMargin);
    if (option.state & QStyle::State_Selected)
        mark.palette.setBrush(QPalette::WindowText, option.palette.highlightedText());
    styleOf(option).drawPrimitive(QStyle::PE_IndicatorArrowDown, &mark, painter, option.widget);
}

QRect ButtonCellDelegate::buttonRect(const QRect& cell)
{
    return cell.adjusted(2 * buttonMargin, buttonMargin, -2 * buttonMargin, -buttonMargin);
}

void ButtonCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem ground = option;
    initStyleOption(&ground, index);
    ground.text.clear();
    styleOf(option).drawControl(QStyle::CE_ItemViewItem, &ground, painter, option.widget);

    QStyleOptionButton button;
    button.initFrom(option.widget);
    button.rect = buttonRect(option.rect);
    button.text = index.data().toString();
    button.state = QStyle::State_Enabled | (option.state & (QStyle::State_HasFocus | QStyle::State_Active));
    button.state |= index == m_pressed ? QStyle::State_Sunken : QStyle::State_Raised;
    if (index == m_hovered) button.state |= QStyle::State_MouseOver;
    styleOf(option).drawControl(QStyle::CE_PushButton, &button, painter, option.widget);
}

} // namespace orvim
