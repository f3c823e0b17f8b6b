#include "pages/DotStroke.h"

#include <cstdlib>

namespace orvim {

std::vector<DotCell> cellsOnLine(DotCell from, DotCell to)
{
    const int dx = std::abs(to.x - from.x);
    const int dy = std::abs(to.y - from.y);
    const int stepX = from.x < to.x ? 1 : -1;
    const int stepY = from.y < to.y ? 1 : -1;
    int error = dx - dy;
    std::vector<DotCell> cells{from};
    for (DotCell cell = from; cell != to;) {
        const int doubledError = 2 * error;
        if (doubledError >= -dy) {
            error -= dy;
            cell.x += stepX;
        }
        if (doubledError <= dx) {
            error += dx;
            cell.y += stepY;
        }
        cells.push_back(cell);
    }
    return cells;
}

bool DotStroke::moveTo(DotCell cell, DotGrid& dots)
{
    bool changed = false;
    for (const DotCell passed : cellsOnLine(m_lastDraggedDot.value_or(cell), cell)) {
        if (!m_draggedDots.insert(passed).second) continue;
        bool& dot = dots[static_cast<std::size_t>(passed.y)][static_cast<std::size_t>(passed.x)];
        dot = !dot;
        changed = true;
    }
    m_lastDraggedDot = cell;
    return changed;
}

void DotStroke::end()
{
    m_draggedDots.clear();
    m_lastDraggedDot.reset();
}

} // namespace orvim
