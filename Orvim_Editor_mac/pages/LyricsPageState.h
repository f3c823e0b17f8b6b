#pragma once

#include "core/media/LyricFile.h"

#include <QSet>
#include <QString>

#include <cstdint>
#include <vector>

namespace orvim {

/// A row's identity: a running number, given once in a run and never again.
using LyricsRowID = std::uint64_t;

struct LyricsTableRow {
    LyricsRowID id = 0;
    tonavelle::LyricsRow lyrics;

    bool operator==(const LyricsTableRow&) const = default;
};

/// What stands in the lyrics page.
struct LyricsPageState {
    std::vector<LyricsTableRow> rows; ///< changed through LyricsTableModel alone, which tells the views
    QSet<LyricsRowID> selectedRowIDs; ///< ids of rows that are gone select nothing
    bool addJapaneseModeOn = true;    ///< saving adds the Japanese display command
    QString openedMIDIPath;
    bool hasOpenedMIDI = false;
    std::int64_t lyricsTicksPerBar = tonavelle::defaultLyricsTicksPerBar;
};

} // namespace orvim
