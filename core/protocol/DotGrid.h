#pragma once

#include <array>
#include <cstddef>

namespace tonavelle {

inline constexpr std::size_t dotGridSize = 16;

/// A whole picture of the module's dot display, row by row; row 0 is the top.
using DotGrid = std::array<std::array<bool, dotGridSize>, dotGridSize>;

} // namespace tonavelle
