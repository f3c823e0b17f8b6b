#include "core/tone/WaveformDrawing.h"

#include <algorithm>
#include <cmath>

namespace tonavelle::WaveformDrawing {

namespace {

constexpr int lastIndex = static_cast<int>(UserWaveformBuilder::sampleCount) - 1;
constexpr double smallest = -32768;
constexpr double largest = 32767;
constexpr double range = largest - smallest;

/// The distance from the first to the last pixel of an extent, at least 1.
double span(double extent)
{
    return std::max(extent - 1, 1.0);
}

/// Ties away from zero, other than in the rest of the waveform arithmetic.
std::int16_t roundedSample(double value)
{
    return static_cast<std::int16_t>(std::clamp(std::round(value), smallest, largest));
}

int roundedIndex(double value)
{
    return static_cast<int>(std::clamp(std::round(value), 0.0, double{lastIndex}));
}

} // namespace

Point pointAt(double x, double fromTop, Size size)
{
    const double width = span(size.width);
    const double height = span(size.height);
    const double index = std::clamp(x, 0.0, width) * lastIndex / width;
    const double value = (1 - std::clamp(fromTop, 0.0, height) / height) * range + smallest;
    return {roundedIndex(index), roundedSample(value)};
}

bool drawTo(UserWaveform& samples, std::optional<Point> last, Point point)
{
    if (samples.size() != UserWaveformBuilder::sampleCount) return false;
    const Point from = last.value_or(point);
    if (from.index == point.index) {
        samples[static_cast<std::size_t>(point.index)] = point.value;
        return true;
    }
    const double rise = point.value - from.value;
    const int run = point.index - from.index;
    const auto [first, end] = std::minmax(from.index, point.index);
    for (int i = first; i <= end; ++i)
        samples[static_cast<std::size_t>(i)] = roundedSample(from.value + rise * (i - from.index) / run);
    return true;
}

double gridX(int index, double width)
{
    return span(width) * index / lastIndex;
}

int indexAtColumn(int x, double width)
{
    return roundedIndex(x * lastIndex / span(width));
}

double heightOf(std::int16_t sample, double height)
{
    return (sample - smallest) / range * span(height);
}

} // namespace tonavelle::WaveformDrawing
