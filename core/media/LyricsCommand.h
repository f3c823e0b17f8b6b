#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tonavelle {

/// What a row of lyrics does on the module's screen, by its number.
enum class LyricsCommand : std::uint8_t {
    addUpper = 0,    ///< appends text to the upper row
    addLower = 1,    ///< appends text to the lower row
    deleteBoth = 2,  ///< clears both rows
    deleteUpper = 3, ///< clears the upper row
    deleteLower = 4, ///< clears the lower row
};

struct LyricsCommandNames {
    std::string_view keyword; ///< at the start of a lyric or text event
    std::string_view label;   ///< in the table
};

/// By the command's number.
inline constexpr std::array<LyricsCommandNames, 5> lyricsCommandNames{{
    {"$ADD_HI$", "ADD_HI"},
    {"$ADD_LO$", "ADD_LO"},
    {"$DEL_HL$", "DEL_HL"},
    {"$DEL_HI$", "DEL_HI"},
    {"$DEL_LO$", "DEL_LO"},
}};

inline constexpr bool isAddCommand(LyricsCommand command)
{
    return command == LyricsCommand::addUpper || command == LyricsCommand::addLower;
}

} // namespace tonavelle
