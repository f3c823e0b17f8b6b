#pragma once

#include "simulator/DisplayPrimitives.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace orvim {

/// One character as bits: every row begins at a byte of its own, a set bit is ink, the leftmost pixel is the highest
/// bit in use.
struct BitmapGlyph {
    std::span<const std::uint8_t> rows; ///< at least height times bytesPerRow
    int width;
    int height;
    std::size_t bytesPerRow;
    int unusedHighBits; ///< bits of a row's first byte to the left of the leftmost pixel
};

/// Paints the whole cell at (x, y), ink in the first colour and the rest in the second; clipped to the canvas.
void drawGlyph(DisplayCanvas& canvas, const BitmapGlyph& glyph, int x, int y, std::int32_t foreground,
               std::int32_t background, DisplayUnit unit);

} // namespace orvim
