#include "pages/LyricsTableView.h"

#include "controls/DropHint.h"
#include "pages/LyricsPageActions.h"
#include "pages/LyricsPlaceKeeper.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethod>
#include <QMenu>
#include <QProxyStyle>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace orvim {

namespace {

constexpr int rowPadding = 14;
constexpr int numberWidthInDigits = 11;
constexpr int commandPadding = 48;
constexpr int buttonPadding = 44;
constexpr int leastTextWidth = 200;
constexpr int hintMargin = 12;

/// Puts the titles of the columns where the cells' texts stand.
class TitleStyle : public QProxyStyle
{
public:
    TitleStyle() : QProxyStyle(QApplication::style()->name()) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        return metric == PM_HeaderMargin ? lyricsCellMargin : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

LyricsColumn columnOf(const QModelIndex& index)
{
    return static_cast<LyricsColumn>(index.column());
}

} // namespace

LyricsTableView::LyricsTableView(LyricsPageActions& actions, QWidget* parent)
    : QTableView(parent), m_actions(actions), m_place(new LyricsPlaceKeeper(*this, actions))
{
    setModel(&actions.table());
    setUpCells();
    setFrameShape(QFrame::NoFrame);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setMouseTracking(true);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    auto* const titleStyle = new TitleStyle;
    titleStyle->setParent(this);
    horizontalHeader()->setStyle(titleStyle);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &LyricsTableView::fitTextColumn);

    m_dropHint = new DropHint(tr("ここにMIDIファイルを\nドラッグして下さい"), this);

    fitSizesToFont();
    connect(&actions, &LyricsPageActions::listChanged, this, &LyricsTableView::showList);
    connect(&actions, &LyricsPageActions::rowsAdded, this, &LyricsTableView::goToAddedRows);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &LyricsTableView::placeDropHint);
    showList();
}

void LyricsTableView::setUpCells()
{
    const auto addTyped = [this](LyricsColumn column, TypedCellDelegate::Kind kind) {
        auto* const cells = new TypedCellDelegate(kind, this);
        connect(cells, &TypedCellDelegate::left, this, &LyricsTableView::step);
        setItemDelegateForColumn(static_cast<int>(column), cells);
    };
    addTyped(LyricsColumn::bar, TypedCellDelegate::Kind::number);
    addTyped(LyricsColumn::ticks, TypedCellDelegate::Kind::number);
    addTyped(LyricsColumn::text, TypedCellDelegate::Kind::text);
    setItemDelegateForColumn(static_cast<int>(LyricsColumn::command), new CommandCellDelegate(this));
    m_buttons = new ButtonCellDelegate(this);
    setItemDelegateForColumn(static_cast<int>(LyricsColumn::preview), m_buttons);
}

void LyricsTableView::fitSizesToFont()
{
    const QFontMetrics metrics = fontMetrics();
    verticalHeader()->setDefaultSectionSize(metrics.height() + rowPadding);
    const int numberWidth = metrics.horizontalAdvance(QString(numberWidthInDigits, QLatin1Char('0')));
    const auto setWidth = [this](LyricsColumn column, int width) { setColumnWidth(static_cast<int>(column), width); };
    setWidth(LyricsColumn::bar, numberWidth);
    setWidth(LyricsColumn::ticks, numberWidth);
    setWidth(LyricsColumn::command, metrics.horizontalAdvance(QStringLiteral("ADD_HI")) + commandPadding);
    setWidth(LyricsColumn::preview, metrics.horizontalAdvance(QStringLiteral("プレビュー")) + buttonPadding);
    fitTextColumn();
}

/// The text takes what the others leave; where that is little, the table scrolls sidewards.
void LyricsTableView::fitTextColumn()
{
    constexpr int text = static_cast<int>(LyricsColumn::text);
    const int others = horizontalHeader()->length() - columnWidth(text);
    setColumnWidth(text, std::max(leastTextWidth, viewport()->width() - others));
}

void LyricsTableView::commitEditing()
{
    QWidget* const editor = indexWidget(currentIndex());
    if (!editor) return;
    QGuiApplication::inputMethod()->commit();
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void LyricsTableView::showList()
{
    showSelection();
    m_place->restore();
    m_dropHint->setVisible(!m_actions.state().hasOpenedMIDI);
    updateGeometries();
}

void LyricsTableView::showSelection()
{
    const auto& ids = m_actions.state().selectedRowIDs;
    const auto& table = m_actions.table();
    QItemSelection rows;
    int first = -1;
    for (int row = 0; row <= table.rowCount(); ++row) {
        const bool isSelected = row < table.rowCount() && ids.contains(table.row(row).id);
        if (isSelected && first < 0) first = row;
        if (isSelected || first < 0) continue;
        rows.append({table.cell(first, LyricsColumn::bar), table.cell(row - 1, LyricsColumn::preview)});
        first = -1;
    }
    // Clearing before choosing: the difference of two selections of many pieces would take long to find.
    selectionModel()->clearSelection();
    selectionModel()->select(rows, QItemSelectionModel::Select);
}

/// The first of the new rows is where the user goes on.
void LyricsTableView::goToAddedRows()
{
    const auto& ids = m_actions.state().selectedRowIDs;
    const auto& rows = m_actions.state().rows;
    const auto first = std::ranges::find_if(rows, [&](const LyricsTableRow& row) { return ids.contains(row.id); });
    if (first == rows.end()) return; // behind rows of another song
    const int column = currentIndex().isValid() ? currentIndex().column() : static_cast<int>(LyricsColumn::text);
    const QModelIndex current = model()->index(static_cast<int>(first - rows.begin()), column);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    scrollTo(current);
}

void LyricsTableView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    if (m_actions.isBusy()) return; // The rows change under the selection.
    QSet<LyricsRowID> ids;
    for (const auto& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            ids.insert(m_actions.table().row(row).id);
    }
    m_actions.setSelectedRowIDs(ids);
}

void LyricsTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    followInputMethod();
}

void LyricsTableView::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    followInputMethod();
}

/// Only lyrics are written through an input method; elsewhere its first key would be lost.
void LyricsTableView::followInputMethod()
{
    setAttribute(Qt::WA_InputMethodEnabled, currentIndex().isValid() && columnOf(currentIndex()) == LyricsColumn::text);
}

void LyricsTableView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) return copyCell();
    const bool isBare = !(event->modifiers() & ~Qt::KeypadModifier);
    switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        // What an edited cell leaves of its own keys comes here.
        if (!isBare || state() == EditingState) break;
        if (!event->isAutoRepeat()) m_actions.deleteSelected();
        return;
    case Qt::Key_Insert:
        if (!isBare) break;
        commitEditing();
        if (!event->isAutoRepeat()) m_actions.insert();
        return;
    case Qt::Key_F2:
        if (currentIndex().isValid() && columnOf(currentIndex()) == LyricsColumn::preview) return; // It edits nothing.
        [[fallthrough]];
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat() && activateCell()) return;
        break;
    case Qt::Key_Space:
        if (pressSpace(*event)) return;
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        if (stepByTab(*event)) return;
        break;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

/// The cell's text whole, as it would be edited.
void LyricsTableView::copyCell()
{
    const QModelIndex index = currentIndex();
    if (!index.isValid() || columnOf(index) == LyricsColumn::preview) return;
    const auto role = columnOf(index) == LyricsColumn::command ? Qt::DisplayRole : Qt::EditRole;
    QGuiApplication::clipboard()->setText(index.data(role).toString());
}

/// Space presses what can be pressed, Ctrl+Space puts the row into the selection or takes it out; else it is typed.
bool LyricsTableView::pressSpace(const QKeyEvent& event)
{
    const QModelIndex index = currentIndex();
    if (!index.isValid()) return false;
    const bool isChoice = event.modifiers() & Qt::ControlModifier;
    const bool isTyped = columnOf(index) != LyricsColumn::command && columnOf(index) != LyricsColumn::preview;
    if (isTyped && !isChoice) return false;
    if (event.isAutoRepeat()) return true;
    if (isChoice)
        selectionModel()->select(index, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    else
        activateCell();
    return true;
}

/// What Return does where nothing is being typed.
bool LyricsTableView::activateCell()
{
    const QModelIndex index = currentIndex();
    if (!index.isValid()) return false;
    switch (columnOf(index)) {
    case LyricsColumn::command:
        pickCommand(index);
        return true;
    case LyricsColumn::preview:
        preview(index);
        return true;
    default:
        return edit(index, AllEditTriggers, nullptr);
    }
}

/// Tab runs through the cells and leaves the table at its ends, Ctrl+Tab at once.
bool LyricsTableView::stepByTab(QKeyEvent& event)
{
    const bool isForward = event.key() == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier);
    if (event.modifiers() & Qt::ControlModifier) return QAbstractScrollArea::focusNextPrevChild(isForward);
    const QModelIndex end =
        isForward ? model()->index(model()->rowCount() - 1, model()->columnCount() - 1) : model()->index(0, 0);
    if (currentIndex() != end && currentIndex().isValid()) return false;
    event.ignore();
    return true;
}

void LyricsTableView::step(CellStep step)
{
    const QModelIndex from = currentIndex();
    QModelIndex to;
    switch (step) {
    case CellStep::up:
    case CellStep::down:
        to = from.siblingAtRow(from.row() + (step == CellStep::down ? 1 : -1));
        break;
    case CellStep::right:
        to = from.siblingAtColumn(from.column() + 1); // Behind each typed cell is another.
        break;
    case CellStep::left:
        to = from.column() > 0 ? from.siblingAtColumn(from.column() - 1)
                               : from.sibling(from.row() - 1, lyricsColumnCount - 1);
        if (!to.isValid()) QAbstractScrollArea::focusNextPrevChild(false);
        break;
    case CellStep::before:
    case CellStep::behind:
        QAbstractScrollArea::focusNextPrevChild(step == CellStep::behind);
        break;
    }
    if (to.isValid())
        selectionModel()->setCurrentIndex(to, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void LyricsTableView::preview(const QModelIndex& index)
{
    m_actions.preview(m_actions.table().row(index.row()).id);
}

void LyricsTableView::pickCommand(const QModelIndex& index)
{
    scrollTo(index);
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("commandPicker"));
    auto* const choices = new QActionGroup(menu);
    const int chosen = index.data(Qt::EditRole).toInt();
    for (int number = 0; const auto& names : tonavelle::lyricsCommandNames) {
        QAction* const action =
            menu->addAction(QString::fromLatin1(names.label.data(), static_cast<qsizetype>(names.label.size())), this,
                            [this, cell = QPersistentModelIndex(index), number] { model()->setData(cell, number); });
        action->setCheckable(true);
        action->setChecked(number == chosen);
        choices->addAction(action);
        ++number;
    }
    const QRect cell = visualRect(index);
    menu->setMinimumWidth(cell.width());
    menu->setActiveAction(menu->actions().at(chosen));
    menu->popup(viewport()->mapToGlobal(cell.bottomLeft()));
}

QModelIndex LyricsTableView::buttonAt(QPoint position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || columnOf(index) != LyricsColumn::preview) return {};
    return ButtonCellDelegate::buttonRect(visualRect(index)).contains(position) ? index : QModelIndex();
}

void LyricsTableView::hoverButton(const QModelIndex& index)
{
    m_buttons->setHovered(index);
    m_buttons->setPressed(m_heldButton.isValid() && index == m_heldButton ? index : QModelIndex());
    viewport()->update();
}

void LyricsTableView::pressButton(const QModelIndex& index)
{
    m_heldButton = index;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    hoverButton(index);
}

void LyricsTableView::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    m_pressedCommand = QModelIndex();
    if (event->button() != Qt::LeftButton) {
        // The context menu is for the row under the pointer, whatever is selected.
        if (index.isValid()) selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        return;
    }
    const QModelIndex button = buttonAt(position);
    if (button.isValid()) return pressButton(button);
    QTableView::mousePressEvent(event);
    const bool isChoice = index.isValid() && columnOf(index) == LyricsColumn::command && !event->modifiers();
    if (isChoice) m_pressedCommand = index;
}

void LyricsTableView::mouseMoveEvent(QMouseEvent* event)
{
    const QModelIndex button = buttonAt(event->position().toPoint());
    if (m_buttons->hovered() != button) hoverButton(button);
    if (!m_heldButton.isValid()) QTableView::mouseMoveEvent(event);
}

void LyricsTableView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    const QPoint position = event->position().toPoint();
    const QPersistentModelIndex held = std::exchange(m_heldButton, {});
    const QPersistentModelIndex command = std::exchange(m_pressedCommand, {});
    if (held.isValid()) {
        hoverButton(buttonAt(position));
        if (buttonAt(position) == held) preview(held);
        return;
    }
    QTableView::mouseReleaseEvent(event);
    if (command.isValid() && indexAt(position) == command) pickCommand(command);
}

void LyricsTableView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex button = buttonAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && button.isValid()) return pressButton(button);
    QTableView::mouseDoubleClickEvent(event);
}

void LyricsTableView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    commitEditing();
    if (isByKey) scrollTo(index);
    const LyricsRowID id = m_actions.table().row(index.row()).id;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("挿入"), this, [this, id] { m_actions.insertBehind(id); });
    menu->addAction(tr("削除"), this, [this, id] { m_actions.deleteRow(id); });
    menu->popup(isByKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

bool LyricsTableView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave) hoverButton({});
    return QTableView::viewportEvent(event);
}

void LyricsTableView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitTextColumn();
    placeDropHint();
}

/// Leaves room for the hint below the last row.
void LyricsTableView::updateGeometries()
{
    QTableView::updateGeometries();
    if (!m_dropHint) return;
    const int hintRoom = m_dropHint->isHidden() ? 0 : m_dropHint->sizeHint().height() + 2 * hintMargin;
    if (const int length = verticalHeader()->length(); hintRoom > 0 && length > 0)
        verticalScrollBar()->setMaximum(std::max(0, length + hintRoom - viewport()->height()));
    placeDropHint();
}

/// In the middle, or below the last row where the rows reach so far. It lies beside the viewport, whose children scroll
/// sidewards too, and is seen only over the viewport.
void LyricsTableView::placeDropHint()
{
    const QRect area = viewport()->geometry();
    QRect hint(QPoint(), m_dropHint->sizeHint());
    hint.moveCenter(area.center());
    const int rowsEnd = area.top() + verticalHeader()->length() - verticalScrollBar()->value();
    hint.moveTop(std::max(hint.top(), rowsEnd + hintMargin));
    m_dropHint->setGeometry(hint);
    m_dropHint->setMask(area.translated(-hint.topLeft()));
}

void LyricsTableView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_dropHint) fitSizesToFont();
}

} // namespace orvim
