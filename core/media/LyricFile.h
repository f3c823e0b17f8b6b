#pragma once

#include "core/media/LyricsCommand.h"
#include "core/protocol/SimpleMIDIFile.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tonavelle {

/// One row of a lyrics table. The bar and the ticks are the user's and may be any numbers.
struct LyricsRow {
    std::int64_t bar = 0;   ///< from 0
    std::int64_t ticks = 0; ///< within the bar
    std::int64_t trackIndex = 0;
    LyricsCommand command = LyricsCommand::addUpper;
    std::string text = {}; ///< UTF-8; empty for a delete command

    bool operator==(const LyricsRow&) const = default;
};

/// Ticks of a bar where no file says otherwise: four quarter notes of 480.
inline constexpr std::int64_t defaultLyricsTicksPerBar = 1'920;

/// Four quarter notes of the file, whatever its metre; 0 in a file whose quarter note has no ticks.
std::int64_t lyricsTicksPerBar(const SimpleMIDIFile& file);

/// The rows that a song's commands, lyrics and marked texts give, by bar, then ticks, then place in the file. A bar of
/// 0 ticks counts as 1 here.
std::vector<LyricsRow> readLyricRows(const SimpleMIDIFile& file);

/// A file's bytes with the rows as commands: `opened` with all that lyric rows may have come from taken out, the rest
/// kept, or else a new file. `addJapaneseModeOn` puts the Japanese display command at tick 240. `ticksPerBar`: from 0.
std::vector<std::uint8_t> buildLyricFile(std::span<const LyricsRow> rows, bool addJapaneseModeOn,
                                         std::optional<SimpleMIDIFile> opened, std::int64_t ticksPerBar);

} // namespace tonavelle
