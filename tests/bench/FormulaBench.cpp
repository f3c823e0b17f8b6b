// The formulas that are offered to the user, read and evaluated, beside the same expressions compiled into the program.

#include "core/tone/FormulaParser.h"
#include "core/tone/UserWaveformBuilder.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>

namespace {

using tonavelle::UserWaveform;

constexpr double pi = std::numbers::pi;

double phase(double x)
{
    const double p = std::fmod(x, 2 * pi);
    return p < 0 ? p + 2 * pi : p;
}

double saw(double x)
{
    return 2 * phase(x) / (2 * pi) - 1;
}

double squ(double x)
{
    return phase(x) < pi ? 1 : -1;
}

double tri(double x)
{
    const double p = phase(x);
    return p < pi ? 2 * p / pi - 1 : 1 - 2 * (p - pi) / pi;
}

double first(double t)
{
    return std::pow((t - pi) / pi, 3);
}

double second(double t)
{
    return std::sin(7 * t) * saw(t);
}

double third(double t)
{
    return std::abs((squ(t) / 2 + 0.5) * tri(2 * t + pi / 2)) - std::abs((-squ(t) / 2 + 0.5) * std::sin(2 * t));
}

template <double (*expression)(double)>
UserWaveform compiledSamples()
{
    UserWaveform samples(2048);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double value = expression(static_cast<double>(i) * 2 * pi * (1.0 / 2048));
        const double limited = std::fmin(std::fmax(value, -1), 1);
        samples[i] = static_cast<std::int16_t>(std::rint(limited * (limited < 0 ? 32768 : 32767)));
    }
    return samples;
}

void evaluated(benchmark::State& state)
{
    const auto formula = tonavelle::UserWaveformBuilder::formulaSamples[static_cast<std::size_t>(state.range(0))];
    for (auto _ : state)
        benchmark::DoNotOptimize(tonavelle::evaluateFormula(formula));
}

template <double (*expression)(double)>
void compiled(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(compiledSamples<expression>());
}

BENCHMARK(evaluated)->Arg(0);
BENCHMARK(compiled<first>);
BENCHMARK(evaluated)->Arg(1);
BENCHMARK(compiled<second>);
BENCHMARK(evaluated)->Arg(2);
BENCHMARK(compiled<third>);

} // namespace
