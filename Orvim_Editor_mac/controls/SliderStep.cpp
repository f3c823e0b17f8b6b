#include "controls/SliderStep.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvim {

double snappedToStep(double value, const SliderRange& range)
{
    if (std::isnan(value)) return range.lower;
    const double limited = std::max(range.lower, std::min(value, range.upper));
    if (!(range.step > 0)) return limited;
    const double onGrid = range.lower + range.step * std::round((limited - range.lower) / range.step);
    return std::min(std::max(onGrid, range.lower), range.upper);
}

double fractionInRange(double value, const SliderRange& range)
{
    if (!(range.upper > range.lower)) return 0;
    return (value - range.lower) / (range.upper - range.lower);
}

int tickCount(const SliderRange& range)
{
    const double count = (range.upper - range.lower) / range.step + 1;
    if (!std::isfinite(count) || count <= 0) return 0;
    return static_cast<int>(std::min(count, double{std::numeric_limits<int>::max()}));
}

} // namespace orvim
