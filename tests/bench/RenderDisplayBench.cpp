#include "simulator/RenderDisplay.h"

#include <benchmark/benchmark.h>
#include <cstring>

namespace orvim {
namespace {

/// The yardstick: one copy of the canvas's bytes.
void copyOfTheCanvas(benchmark::State& state)
{
    const DisplayCanvas from;
    DisplayCanvas to;
    for (auto _ : state) {
        std::memcpy(to.row(0).data(), from.bytes().data(), from.bytes().size());
        benchmark::DoNotOptimize(to.row(0).data());
        benchmark::ClobberMemory();
    }
}

DisplayFields defaultState()
{
    DisplayFields fields;
    fields.dotValues.back().fill(true);
    return fields;
}

/// Two full Japanese rows, full bars and full meters on that screen.
DisplayFields busyState(DisplaySimulatorType type)
{
    DisplayFields fields;
    fields.displayType = type;
    fields.isJapaneseMode = true;
    fields.japaneseUpper = "漢字仮名交じり文の表示速度測定中";
    fields.japaneseLower = "ﾊﾝｶｸｶﾅﾓｼﾞﾚﾂﾉﾋｮｳｼﾞｿｸﾄﾞｿｸﾃｲﾁｭｳ0123";
    fields.leftLevel = 63;
    fields.rightLevel = 63;
    for (auto& row : fields.dotValues)
        row.fill(true);
    return fields;
}

/// The state's picture into a canvas that is there, `fresh` false, or into one made for it, as the views do.
void render(benchmark::State& state, const DisplayFields& fields, bool fresh)
{
    DisplayCanvas kept;
    for (auto _ : state) {
        if (fresh) kept = DisplayCanvas();
        renderDisplay(fields, kept);
        benchmark::DoNotOptimize(kept.row(0).data());
        benchmark::ClobberMemory();
    }
}

DisplayFields errorState()
{
    DisplayFields fields;
    fields.specialMode = DisplaySimulatorSpecialMode::error;
    return fields;
}

BENCHMARK(copyOfTheCanvas);
BENCHMARK_CAPTURE(render, defaultState, defaultState(), false);
BENCHMARK_CAPTURE(render, defaultStateFresh, defaultState(), true);
BENCHMARK_CAPTURE(render, initialBusy, busyState(DisplaySimulatorType::initial), false);
BENCHMARK_CAPTURE(render, lipSyncBusy, busyState(DisplaySimulatorType::lipSync), false);
BENCHMARK_CAPTURE(render, pianoRollBusy, busyState(DisplaySimulatorType::pianoRoll), false);
BENCHMARK_CAPTURE(render, oscilloscopeBusy, busyState(DisplaySimulatorType::oscilloscope), false);
BENCHMARK_CAPTURE(render, imageBusy, busyState(DisplaySimulatorType::arbitraryImage), false);
BENCHMARK_CAPTURE(render, monitorBusy, busyState(DisplaySimulatorType::performanceMonitor), false);
BENCHMARK_CAPTURE(render, waterfallBusy, busyState(DisplaySimulatorType::waterfall), false);
BENCHMARK_CAPTURE(render, error, errorState(), false);

} // namespace
} // namespace orvim
