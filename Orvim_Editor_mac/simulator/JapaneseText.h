#pragma once

#include "simulator/DisplayCanvas.h"
#include "simulator/FontX2Font.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace orvim {

/// The two fonts of a Japanese row: one by Shift_JIS code, one by single bytes.
struct JapaneseFonts {
    FontX2Font fullWidth;
    FontX2Font halfWidth;
};

/// The fonts that are built into the program.
const JapaneseFonts& builtInJapaneseFonts();

/// Draws Shift_JIS bytes from the logical pixel (x, y) to the right, ink and paper 0xRRGGBB, whole cells; no wrapping.
/// A full-width code that the font lacks is drawn as a full-width question mark. Returns where the pen ends.
std::int64_t drawShiftJIS(DisplayCanvas& canvas, const JapaneseFonts& fonts, std::int64_t x, int y,
                          std::span<const std::uint8_t> bytes, std::int32_t foreground, std::int32_t background);

/// Draws a row of UTF-8 text with the built-in fonts; nothing of it if Shift_JIS lacks any of its characters.
void drawJapanese(DisplayCanvas& canvas, int x, int y, std::string_view text, std::int32_t foreground,
                  std::int32_t background);

} // namespace orvim
