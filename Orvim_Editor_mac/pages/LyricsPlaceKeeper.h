#pragma once

#include "pages/LyricsPageState.h"

#include <QObject>

#include <optional>

class QModelIndex;
class QTableView;

namespace orvim {

class LyricsPageActions;

/// Keeps the place of the table's current cell where its row goes, or all rows, so that the keys go on there.
class LyricsPlaceKeeper : public QObject
{
public:
    /// To be made before the view gets its model: the view's selection moves the current cell off a row that goes, and
    /// this must hear of it first. Lives with the view; the actions must outlive both.
    LyricsPlaceKeeper(QTableView& view, LyricsPageActions& actions);

    /// Once the rows have changed: goes back to the place if it was lost. Behind the rows that stood above and are
    /// still there: in another song, in its first row.
    void restore();

private:
    struct Place {
        QSet<LyricsRowID> rowsAbove;
        int column = 0;
    };

    void rememberRemoved(const QModelIndex& parent, int first, int last);
    void remember();

    QTableView& m_view;
    LyricsPageActions& m_actions;
    std::optional<Place> m_lost;
};

} // namespace orvim
