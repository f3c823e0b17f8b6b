#include "controls/DotGridGeometry.h"

#include "core/protocol/DotGrid.h"

#include <cmath>

namespace orvim {

namespace {

/// The place on one axis, cut towards zero: a point up to one pitch before the first cell still counts as the first.
std::optional<int> indexAt(double position, int pitch)
{
    const double index = std::trunc((position - DotGridGeometry::margin) / pitch);
    if (!(index >= 0 && index < static_cast<double>(tonavelle::dotGridSize))) return std::nullopt;
    return static_cast<int>(index);
}

} // namespace

std::optional<DotCell> DotGridGeometry::cellAt(double x, double y)
{
    const auto column = indexAt(x, pitchX);
    const auto row = indexAt(y, pitchY);
    if (!column || !row) return std::nullopt;
    return DotCell{*column, *row};
}

} // namespace orvim
