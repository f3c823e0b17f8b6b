#include "simulator/BitmapGlyph.h"

#include <array>
#include <cassert>

namespace orvim {

void drawGlyph(DisplayCanvas& canvas, const BitmapGlyph& glyph, int x, int y, std::int32_t foreground,
               std::int32_t background, DisplayUnit unit)
{
    assert(glyph.height <= 0 || glyph.rows.size() >= static_cast<std::size_t>(glyph.height) * glyph.bytesPerRow);
    const auto area = visibleArea(x, y, glyph.width, glyph.height, unit);
    if (area.isEmpty()) return;

    const DisplayPixel ink = opaquePixel(foreground);
    const DisplayPixel paper = opaquePixel(background);
    std::array<DisplayPixel, DisplayCanvas::width> buffer;
    const auto visible = std::span(buffer).first(static_cast<std::size_t>(area.endColumn - area.firstColumn));
    const auto firstBit = static_cast<std::size_t>(glyph.unusedHighBits + area.firstColumn);
    for (int row = area.firstRow; row < area.endRow; ++row) {
        const auto bits = glyph.rows.subspan(static_cast<std::size_t>(row) * glyph.bytesPerRow, glyph.bytesPerRow);
        for (std::size_t i = 0; i < visible.size(); ++i) {
            const std::size_t bit = firstBit + i;
            visible[i] = (bits[bit / 8] << bit % 8 & 0x80) != 0 ? ink : paper;
        }
        copyRow(canvas, visible, x + area.firstColumn, y + row, unit);
    }
}

} // namespace orvim
