#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tonavelle {

/// The 16-bit sample nearest to `value`, ties to even.
inline std::int16_t nearestSample(double value)
{
    return static_cast<std::int16_t>(std::clamp(std::nearbyint(value), -32768.0, 32767.0));
}

} // namespace tonavelle
