#include "core/tone/UserWaveformBuilder.h"

#include "core/tone/FormulaParser.h"
#include "core/tone/SampleRounding.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tonavelle::UserWaveformBuilder {

namespace {

constexpr int half = static_cast<int>(sampleCount) / 2;
constexpr double sawStep = 32.01514411333659;  // 65535 / 2047
constexpr double triangleStep = 63.9990234375; // 65535 / 1024
constexpr double largest = 32767;
constexpr double smallest = -32768;

/// The waveform whose sample at each index is `shape` of it.
template <typename Shape>
UserWaveform shaped(Shape shape)
{
    UserWaveform samples(sampleCount);
    for (std::size_t i = 0; i < sampleCount; ++i)
        samples[i] = shape(static_cast<int>(i));
    return samples;
}

/// The waveform whose samples are `change` of those of another.
template <typename Change>
UserWaveform changed(std::span<const std::int16_t> waveform, Change change)
{
    UserWaveform samples(waveform.size());
    std::ranges::transform(waveform, samples.begin(), change);
    return samples;
}

UserWaveform copied(std::span<const std::int16_t> waveform)
{
    return {waveform.begin(), waveform.end()};
}

std::int16_t clamped(int value)
{
    return static_cast<std::int16_t>(std::clamp(value, -32768, 32767));
}

} // namespace

UserWaveform sine()
{
    return shaped([](int i) {
        return static_cast<std::int16_t>(std::sin(i * 2 * std::numbers::pi * (1.0 / sampleCount)) * largest);
    });
}

UserWaveform saw()
{
    return shaped([](int i) { return nearestSample(std::nearbyint(i * sawStep) + smallest); });
}

UserWaveform square()
{
    return shaped([](int i) { return clamped(i < half ? 32767 : -32768); });
}

UserWaveform triangle()
{
    return shaped([](int i) {
        return i < half ? nearestSample(std::nearbyint(i * triangleStep) + smallest)
                        : nearestSample(largest - std::nearbyint((i - half) * triangleStep));
    });
}

UserWaveform flat()
{
    return UserWaveform(sampleCount, 0);
}

UserWaveform samplesForButton(UserWaveformButtonPreset preset)
{
    return evaluateFormula(buttonFormulas[static_cast<std::size_t>(preset)]);
}

UserWaveform samplesFromFormula(std::string_view formula)
{
    return evaluateFormula(formula);
}

UserWaveform normalized(std::span<const std::int16_t> waveform)
{
    int peak = 0;
    for (const std::int16_t sample : waveform)
        peak = std::max(peak, std::abs(int{sample}));
    if (peak == 0) return copied(waveform);
    const double factor = largest / peak;
    return changed(waveform, [factor](std::int16_t sample) { return nearestSample(sample * factor); });
}

UserWaveform normalizedWithOffset(std::span<const std::int16_t> waveform)
{
    if (waveform.empty()) return {};
    const auto [lowest, highest] = std::ranges::minmax(waveform);
    const double middle = (highest + lowest) / 2.0;
    const double peak = std::max(highest - middle, middle - lowest);
    if (!(peak > 0)) return copied(waveform);
    const double factor = largest / peak;
    return changed(waveform, [=](std::int16_t sample) { return nearestSample((sample - middle) * factor); });
}

UserWaveform inverted(std::span<const std::int16_t> waveform)
{
    return changed(waveform, [](std::int16_t sample) { return clamped(-sample); });
}

UserWaveform absolute(std::span<const std::int16_t> waveform)
{
    return changed(waveform, [](std::int16_t sample) { return clamped(std::abs(int{sample})); });
}

} // namespace tonavelle::UserWaveformBuilder
