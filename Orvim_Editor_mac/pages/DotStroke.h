#pragma once

#include "controls/DotGridGeometry.h"
#include "simulator/DisplayFields.h"

#include <optional>
#include <set>
#include <vector>

namespace orvim {

/// The cells of the straight line between two cells, both ends included, by Bresenham's algorithm.
std::vector<DotCell> cellsOnLine(DotCell from, DotCell to);

/// One stroke over the grid, from press to release. It toggles each cell once, however often it passes over it.
class DotStroke
{
public:
    /// Leads the stroke to `cell` and inverts the cells on the way that it has not touched yet; true if there were any.
    bool moveTo(DotCell cell, DotGrid& dots);
    void end();

private:
    std::set<DotCell> m_draggedDots;
    std::optional<DotCell> m_lastDraggedDot; ///< where the stroke stood at the last event inside the grid
};

} // namespace orvim
