#pragma once

#include <compare>
#include <optional>

namespace orvim {

/// A cell of the 16 by 16 dot grid; (0, 0) is the top left one.
struct DotCell {
    int x = 0;
    int y = 0;

    auto operator<=>(const DotCell&) const = default;
};

/// The drawing of the grid: cells of 14 by 7, 2 apart, inside a margin of 5, wider than tall like the module's dots.
namespace DotGridGeometry {

inline constexpr int margin = 5;
inline constexpr int cellWidth = 14;
inline constexpr int cellHeight = 7;
inline constexpr int gap = 2;
inline constexpr int pitchX = cellWidth + gap;
inline constexpr int pitchY = cellHeight + gap;

/// The cell at a point of the grid's own coordinates, gaps included; nothing outside the 16 by 16 cells.
std::optional<DotCell> cellAt(double x, double y);

} // namespace DotGridGeometry

} // namespace orvim
