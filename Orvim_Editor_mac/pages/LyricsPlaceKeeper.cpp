#include "pages/LyricsPlaceKeeper.h"

#include "pages/LyricsPageActions.h"

#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace orvim {

LyricsPlaceKeeper::LyricsPlaceKeeper(QTableView& view, LyricsPageActions& actions)
    : QObject(&view), m_view(view), m_actions(actions)
{
    connect(&actions.table(), &LyricsTableModel::rowsAboutToBeRemoved, this, &LyricsPlaceKeeper::rememberRemoved);
    connect(&actions.table(), &LyricsTableModel::modelAboutToBeReset, this, &LyricsPlaceKeeper::remember);
}

/// Rows go from the last to the first, so that the row of the current cell may be any of them.
void LyricsPlaceKeeper::rememberRemoved(const QModelIndex&, int first, int last)
{
    const int row = m_view.currentIndex().row();
    if (!m_lost && row >= first && row <= last) remember();
}

/// A table that is made anew, for another song or a change in very many places, loses its current cell.
void LyricsPlaceKeeper::remember()
{
    const QModelIndex current = m_view.currentIndex();
    m_lost = {{}, current.isValid() ? current.column() : static_cast<int>(LyricsColumn::text)};
    for (int row = 0; row < current.row(); ++row)
        m_lost->rowsAbove.insert(m_actions.table().row(row).id);
}

void LyricsPlaceKeeper::restore()
{
    const auto lost = std::exchange(m_lost, std::nullopt);
    const auto& rows = m_actions.state().rows;
    if (!lost || rows.empty()) return;
    const auto above =
        std::ranges::count_if(rows, [&](const LyricsTableRow& row) { return lost->rowsAbove.contains(row.id); });
    const int row = std::min(static_cast<int>(above), m_actions.table().rowCount() - 1);
    const int sideward = m_view.horizontalScrollBar()->value();
    m_view.selectionModel()->setCurrentIndex(m_actions.table().index(row, lost->column), QItemSelectionModel::NoUpdate);
    m_view.horizontalScrollBar()->setValue(sideward); // No key asked for the other columns.
}

} // namespace orvim
