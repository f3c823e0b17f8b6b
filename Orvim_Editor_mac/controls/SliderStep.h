#pragma once

namespace orvim {

/// The closed range of a slider and the grid of steps that starts at its lower end. A step of 0 or less means no grid.
struct SliderRange {
    double lower = 0;
    double upper = 0;
    double step = 1;

    bool operator==(const SliderRange&) const = default;
};

/// The value limited to the range and put on the nearest step, halves away from zero. An upper end that lies off the
/// grid is reached when rounding goes past it. Not-a-number gives the lower end.
double snappedToStep(double value, const SliderRange& range);

/// Where the value lies between the ends, 0...1; 0 for an empty range.
double fractionInRange(double value, const SliderRange& range);

/// How many values the grid holds, both ends counted; 0 where that is no positive finite number.
int tickCount(const SliderRange& range);

} // namespace orvim
