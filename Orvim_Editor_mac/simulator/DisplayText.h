#pragma once

#include "simulator/DisplayCanvas.h"

#include <cstdint>
#include <string_view>

namespace orvim {

/// Draws each byte of the UTF-8 text as a cell of 8 by 10 logical pixels, 20 cells to the full row.
/// In all three, ink and paper are 0xRRGGBB, a code below 32 is a blank, one above 126 leaves its cell as it was, and
/// the text goes on at its first column one row further down until it would leave the screen's lower edge.
void drawText8(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
               std::int32_t background);

/// Draws the low eight bits of each Unicode scalar as a cell of 5 by 10 logical pixels. The row ends sooner than the
/// screen's width demands, as it does on the module.
void drawText5(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
               std::int32_t background);

/// Draws the low eight bits of each Unicode scalar as a cell of 6 by 7 physical pixels, rows 8 apart.
void drawText6(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
               std::int32_t background);

} // namespace orvim
