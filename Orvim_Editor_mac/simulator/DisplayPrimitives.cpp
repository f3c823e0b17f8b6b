#include "simulator/DisplayPrimitives.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

namespace orvim {

namespace {

/// The half-open part of 0...length that lands on 0...limit when shifted by `start`. In 64 bits nothing overflows.
std::pair<int, int> visibleRange(std::int64_t start, std::int64_t length, std::int64_t limit)
{
    const std::int64_t whole = std::max<std::int64_t>(length, 0);
    const std::int64_t first = std::clamp<std::int64_t>(-start, 0, whole);
    const std::int64_t end = std::clamp<std::int64_t>(limit - start, first, whole);
    return {static_cast<int>(first), static_cast<int>(end)};
}

} // namespace

void putPixel(DisplayCanvas& canvas, int x, int y, std::int32_t rgb)
{
    if (x < 0 || x >= DisplayCanvas::width || y < 0 || y >= DisplayCanvas::height) return;
    canvas.row(y)[static_cast<std::size_t>(x)] = opaquePixel(rgb);
}

void fillRect(DisplayCanvas& canvas, int x0, int y0, int x1, int y1, std::int32_t rgb, DisplayUnit unit)
{
    const auto grid = displayGrid(unit);
    const int left = std::max(std::min(x0, x1), 0);
    const int right = std::min(std::max(x0, x1), grid.width - 1);
    const int top = std::max(std::min(y0, y1), 0);
    const int bottom = std::min(std::max(y0, y1), grid.height - 1);
    if (left > right || top > bottom) return;

    const int scale = DisplayCanvas::width / grid.width;
    const auto firstColumn = static_cast<std::size_t>(left * scale);
    const auto columnCount = static_cast<std::size_t>((right - left + 1) * scale);
    const DisplayPixel pixel = opaquePixel(rgb);
    for (int y = top * scale; y < (bottom + 1) * scale; ++y)
        std::ranges::fill(canvas.row(y).subspan(firstColumn, columnCount), pixel);
}

void drawBitmap(DisplayCanvas& canvas, std::span<const std::uint16_t> pixels, int width, int height, int x, int y,
                DisplayUnit unit)
{
    if (width <= 0 || height <= 0) return;
    const auto rowLength = static_cast<std::size_t>(width);
    if (pixels.size() / rowLength < static_cast<std::size_t>(height)) return;

    const auto area = visibleArea(x, y, width, height, unit);
    if (area.isEmpty()) return;
    std::array<DisplayPixel, DisplayCanvas::width> buffer;
    const auto firstColumn = static_cast<std::size_t>(area.firstColumn);
    const auto visible = std::span(buffer).first(static_cast<std::size_t>(area.endColumn) - firstColumn);
    for (int row = area.firstRow; row < area.endRow; ++row) {
        const auto source = pixels.subspan(static_cast<std::size_t>(row) * rowLength + firstColumn, visible.size());
        std::ranges::transform(source, visible.begin(),
                               [](std::uint16_t value) { return opaquePixel(rgbFromRGB565(value)); });
        copyRow(canvas, visible, x + area.firstColumn, y + row, unit);
    }
}

VisibleArea visibleArea(int x, int y, int width, int height, DisplayUnit unit)
{
    const auto grid = displayGrid(unit);
    const auto [firstColumn, endColumn] = visibleRange(x, width, grid.width);
    const auto [firstRow, endRow] = visibleRange(y, height, grid.height);
    return {firstColumn, endColumn, firstRow, endRow};
}

void copyRow(DisplayCanvas& canvas, std::span<const DisplayPixel> pixels, int x, int y, DisplayUnit unit)
{
    assert(x >= 0 && static_cast<std::size_t>(x) + pixels.size() <= static_cast<std::size_t>(displayGrid(unit).width));
    const auto column = static_cast<std::size_t>(x);
    if (unit == DisplayUnit::physical) {
        std::ranges::copy(pixels, canvas.row(y).subspan(column).begin());
        return;
    }
    const auto upper = canvas.row(2 * y).subspan(2 * column, 2 * pixels.size());
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        upper[2 * i] = pixels[i];
        upper[2 * i + 1] = pixels[i];
    }
    std::ranges::copy(upper, canvas.row(2 * y + 1).subspan(2 * column).begin());
}

} // namespace orvim
