// Shift_JIS in both directions beside the C library's converter, over lyrics and over plain ASCII.

#include "core/text/ShiftJIS.h"
#include "tests/support/Iconv.h"

#include <benchmark/benchmark.h>
#include <iconv.h>
#include <stdexcept>

namespace {

std::string repeated(std::string_view part)
{
    std::string text;
    while (text.size() < 200'000)
        text += part;
    return text;
}

std::string sample(std::int64_t kind)
{
    return kind == 0 ? repeated("春のうららの隅田川、のぼりくだりの船人が ｶﾞﾝﾊﾞﾚ la la la\n")
                     : repeated("The quick brown fox jumps over the lazy dog.\n");
}

void countBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void decodeOurs(benchmark::State& state)
{
    const auto encoded = *tonavelle::encodeShiftJIS(sample(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(tonavelle::decodeShiftJIS(encoded));
    countBytes(state, encoded.size());
}

void decodeSystem(benchmark::State& state)
{
    const auto encoded = *tonavelle::encodeShiftJIS(sample(state.range(0)));
    const std::vector<char> text(encoded.begin(), encoded.end());
    std::vector<char> room(text.size() * 3);
    orvim::test::Iconv converter("UTF-8", "CP932");
    for (auto _ : state)
        benchmark::DoNotOptimize(converter.convert(text, room));
    countBytes(state, encoded.size());
}

void encodeOurs(benchmark::State& state)
{
    const std::string text = sample(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(tonavelle::encodeShiftJIS(text));
    countBytes(state, text.size());
}

void encodeSystem(benchmark::State& state)
{
    const std::string text = sample(state.range(0));
    std::vector<char> room(text.size());
    orvim::test::Iconv converter("CP932", "UTF-8");
    for (auto _ : state)
        benchmark::DoNotOptimize(converter.convert(text, room));
    countBytes(state, text.size());
}

BENCHMARK(decodeOurs)->ArgName("ascii")->Arg(0)->Arg(1);
BENCHMARK(decodeSystem)->ArgName("ascii")->Arg(0)->Arg(1);
BENCHMARK(encodeOurs)->ArgName("ascii")->Arg(0)->Arg(1);
BENCHMARK(encodeSystem)->ArgName("ascii")->Arg(0)->Arg(1);

} // namespace
