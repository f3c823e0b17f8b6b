#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace orvim {

/// A wave and what ring modulation makes of it.
struct WaveformGraphParameters {
    int waveType = 0;        ///< 0...11
    int ringModMultiply = 0; ///< 0...127
    int ringModGain = 0;     ///< 0...127

    bool operator==(const WaveformGraphParameters&) const = default;
};

/// The arithmetic of the waveform graph. Any positive sample and phase counts will do.
namespace WaveformGraph {

/// The wave before modulation, `sampleCount` values a cycle for `phaseCount` cycles, or as many values as there are
/// user samples where the type is a user wave. Empty for a type that has no picture.
std::vector<double> baseWave(int waveType, std::span<const std::int16_t> userSamples, int sampleCount, int phaseCount);

/// The wave as the graph shows it: modulated by a sine and centred between its largest and smallest value.
std::vector<double> wave(const WaveformGraphParameters& parameters, std::span<const std::int16_t> userSamples,
                         int sampleCount, int phaseCount);

/// The height of the curve from the top, 0...`height` - 1, in each of `width` columns; empty for an empty wave.
std::vector<int> columns(std::span<const double> wave, int width, int height);

} // namespace WaveformGraph

} // namespace orvim
