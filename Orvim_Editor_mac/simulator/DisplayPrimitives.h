#pragma once

#include "simulator/DisplayCanvas.h"

#include <cstdint>
#include <span>

namespace orvim {

/// Whether the numbers of a drawing call count the screen's own pixels or the 160 by 85 grid of two by two blocks.
enum class DisplayUnit { logical, physical };

/// The size of the whole screen, counted in a unit.
struct DisplayGrid {
    int width;
    int height;
};

constexpr DisplayGrid displayGrid(DisplayUnit unit)
{
    constexpr int blockSize = 2;
    if (unit == DisplayUnit::physical) return {DisplayCanvas::width, DisplayCanvas::height};
    return {DisplayCanvas::width / blockSize, DisplayCanvas::height / blockSize};
}

/// Paints the one physical pixel (x, y) in 0xRRGGBB; outside the canvas nothing happens.
void putPixel(DisplayCanvas& canvas, int x, int y, std::int32_t rgb);

/// Fills the rectangle with 0xRRGGBB, both corners included and given in any order; clipped to the canvas.
void fillRect(DisplayCanvas& canvas, int x0, int y0, int x1, int y1, std::int32_t rgb,
              DisplayUnit unit = DisplayUnit::logical);

/// Draws RGB565 pixels, row by row, with their top left corner at (x, y); clipped to the canvas.
/// Nothing is drawn if there are fewer than width times height of them.
void drawBitmap(DisplayCanvas& canvas, std::span<const std::uint16_t> pixels, int width, int height, int x, int y,
                DisplayUnit unit = DisplayUnit::logical);

/// The columns and rows of an item that lie on the canvas, counted from the item's own corner; ends are excluded.
struct VisibleArea {
    int firstColumn;
    int endColumn;
    int firstRow;
    int endRow;

    bool isEmpty() const { return firstColumn >= endColumn || firstRow >= endRow; }
};

/// What of an item of that size at (x, y) lies on the canvas; any numbers will do.
VisibleArea visibleArea(int x, int y, int width, int height, DisplayUnit unit);

/// Copies one row of pixels to (x, y), as blocks if the unit is logical. The whole row must lie on the canvas.
void copyRow(DisplayCanvas& canvas, std::span<const DisplayPixel> pixels, int x, int y, DisplayUnit unit);

} // namespace orvim
