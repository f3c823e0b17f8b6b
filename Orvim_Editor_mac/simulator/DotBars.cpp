#include "simulator/DotBars.h"

#include <algorithm>

namespace orvim {

BarValues normalizedBarValues(std::span<const int> values)
{
    BarValues result;
    result.fill(1);
    const auto count = std::min(values.size(), result.size());
    for (std::size_t i = 0; i < count; ++i)
        result[i] = std::clamp(values[i], 0, static_cast<int>(dotGridSize));
    return result;
}

DotGrid dotGridOfBars(const BarValues& values)
{
    DotGrid grid{};
    for (std::size_t column = 0; column < dotGridSize; ++column) {
        for (int dot = 0; dot < values[column]; ++dot) {
            grid[dotGridSize - 1 - static_cast<std::size_t>(dot)][column] = true;
        }
    }
    return grid;
}

} // namespace orvim
