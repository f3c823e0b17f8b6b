#include "controls/WaveformGraph.h"

#include "core/tone/UserWaveform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvim::WaveformGraph {

namespace UserWaveformBuilder = tonavelle::UserWaveformBuilder;

namespace {

enum WaveType {
    sine,
    square,
    triangle,
    saw,
    whiteNoise,
    pinkNoise,
    pcm,
    pcmReverse,
    firstUserWave = UserWaveformBuilder::firstWaveType,
    lastUserWave = firstUserWave + UserWaveformBuilder::slotCount - 1,
};

constexpr double pinkKept = 0.732;
constexpr double pinkTaken = 0.268;
constexpr double fullSample = 32767;

double sineAt(int i, int cycle)
{
    return std::sin(2 * std::numbers::pi * i / cycle);
}

double sawAt(int i, int cycle)
{
    return 2.0 * (i % cycle) / cycle - 1;
}

double squareAt(int i, int cycle)
{
    const int shifted = i + cycle / 2;
    return sawAt(shifted >= cycle ? shifted - cycle : shifted, cycle) - sawAt(i, cycle);
}

double triangleAt(int i, int cycle)
{
    const int half = std::max(cycle / 2, 1);
    const int flank = i / half;
    const double rise = 4.0 / cycle * (i - flank * half);
    return flank % 2 == 0 ? rise - 1 : 1 - rise;
}

/// A noise that is the same each time, so that the picture stands still.
double whiteNoiseAt(int i, int)
{
    const double x = std::sin((12.989 * i + 17) * 78.233) * 43758.5453;
    return 2 * (x - std::floor(x)) - 1;
}

std::vector<double> values(double (*at)(int, int), int sampleCount, int phaseCount)
{
    std::vector<double> result(static_cast<std::size_t>(sampleCount) * static_cast<std::size_t>(phaseCount));
    for (int i = 0; double& value : result)
        value = at(i++, sampleCount);
    return result;
}

std::vector<double> pinkened(std::vector<double> noise)
{
    for (double last = 0; double& value : noise)
        value = last = pinkKept * last + pinkTaken * value;
    return noise;
}

std::vector<double> userWave(std::span<const std::int16_t> samples)
{
    std::vector<double> result;
    result.reserve(samples.size());
    for (const std::int16_t sample : samples)
        result.push_back(sample / fullSample);
    return result;
}

void modulate(std::vector<double>& wave, const WaveformGraphParameters& parameters, int sampleCount)
{
    const std::vector<double> modulator = values(sineAt, sampleCount, 1);
    const double dry = (127 - parameters.ringModGain) / 128.0;
    const double wet = parameters.ringModGain / 128.0;
    const double step = parameters.ringModMultiply == 0 ? 1 / 512.0 : (parameters.ringModMultiply + 1) / 32.0;
    double phase = 0;
    for (double& value : wave) {
        const int index = std::clamp(static_cast<int>(phase), 0, sampleCount - 1);
        value *= dry + wet * modulator[static_cast<std::size_t>(index)];
        phase += step;
        if (phase >= sampleCount) phase -= sampleCount;
    }
}

void centre(std::vector<double>& wave)
{
    if (wave.empty()) return;
    const auto [smallest, largest] = std::ranges::minmax(wave);
    const double mean = (smallest + largest) / 2;
    for (double& value : wave)
        value -= mean;
}

} // namespace

std::vector<double> baseWave(int waveType, std::span<const std::int16_t> userSamples, int sampleCount, int phaseCount)
{
    if (waveType == pcm || waveType == pcmReverse || waveType > lastUserWave) return {};
    if (waveType >= firstUserWave && !userSamples.empty()) return userWave(userSamples);
    switch (waveType) {
    case square:
        return values(squareAt, sampleCount, phaseCount);
    case triangle:
        return values(triangleAt, sampleCount, phaseCount);
    case saw:
        return values(sawAt, sampleCount, phaseCount);
    case whiteNoise:
        return values(whiteNoiseAt, sampleCount, phaseCount);
    case pinkNoise:
        return pinkened(values(whiteNoiseAt, sampleCount, phaseCount));
    default:
        return values(sineAt, sampleCount, phaseCount);
    }
}

std::vector<double> wave(const WaveformGraphParameters& parameters, std::span<const std::int16_t> userSamples,
                         int sampleCount, int phaseCount)
{
    std::vector<double> result = baseWave(parameters.waveType, userSamples, sampleCount, phaseCount);
    modulate(result, parameters, sampleCount);
    centre(result);
    return result;
}

std::vector<int> columns(std::span<const double> wave, int width, int height)
{
    std::vector<int> result;
    if (wave.empty()) return result;
    result.reserve(static_cast<std::size_t>(std::max(width, 0)));
    for (int x = 0; x < width; ++x) {
        const std::size_t index = wave.size() * static_cast<std::size_t>(x) / static_cast<std::size_t>(width);
        const double value = wave[std::min(index, wave.size() - 1)];
        const int y = height - 1 - static_cast<int>((value + 1) * (height - 1) / 2);
        result.push_back(std::clamp(y, 0, height - 1));
    }
    return result;
}

} // namespace orvim::WaveformGraph
