#pragma once

#include "simulator/DisplayFields.h"

#include <array>
#include <span>

namespace orvim {

using BarValues = std::array<int, dotGridSize>; ///< 0...16 each

/// The first 16 of `values`, each limited to 0...16; missing ones at the end are 1.
BarValues normalizedBarValues(std::span<const int> values);

/// One column a bar: as many dots as its value says, from the bottom.
DotGrid dotGridOfBars(const BarValues& values);

} // namespace orvim
