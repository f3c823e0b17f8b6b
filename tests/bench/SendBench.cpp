// One send through manager, log and a recording output, with the log window open and full; and its growth from 1,000 to
// 10,000 sends with the line limit on and off. The recording output alone stands beside it.

#include "ApplicationStyle.h"
#include "LogWindowView.h"
#include "tests/app/support/PluggedRuntime.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace orvim {
namespace {

using test::PluggedRuntime;

tonavelle::Message rowMessage()
{
    tonavelle::Message message(137, 0x55);
    message.front() = 0xF0;
    message.back() = 0xF7;
    return message;
}

void fillLog(PluggedRuntime& plugged)
{
    for (int i = 0; i < 300; ++i)
        plugged.runtime.midiOutManager().send(rowMessage(), QStringLiteral("Row"));
    QCoreApplication::processEvents();
    plugged.system.forgetSent();
}

void recordingAlone(benchmark::State& state)
{
    PluggedRuntime plugged;
    const auto message = rowMessage();
    for (auto _ : state)
        benchmark::DoNotOptimize(plugged.system.send(1, 1, message, MIDILane::normal));
}
BENCHMARK(recordingAlone)->Iterations(10'000)->Unit(benchmark::kMicrosecond);

void sendOneRow(benchmark::State& state)
{
    PluggedRuntime plugged;
    LogWindowView log(plugged.runtime);
    log.show();
    fillLog(plugged);
    const auto message = rowMessage();
    const QString label = QStringLiteral("Image Transfer color 64x64");
    for (auto _ : state)
        plugged.runtime.midiOutManager().send(message, label);
    QCoreApplication::processEvents();
}
BENCHMARK(sendOneRow)->Iterations(10'000)->Unit(benchmark::kMicrosecond);

/// Argument 0: how many sends; 1: whether the line limit is on. The refresh of the view behind them counts.
void sendMany(benchmark::State& state)
{
    PluggedRuntime plugged;
    LogWindowView log(plugged.runtime);
    log.show();
    fillLog(plugged);
    plugged.runtime.logStore().setRestrictLineCount(state.range(1) != 0);
    const auto message = rowMessage();
    const QString label = QStringLiteral("Image Transfer color 64x64");
    for (auto _ : state) {
        for (std::int64_t i = 0; i < state.range(0); ++i)
            plugged.runtime.midiOutManager().send(message, label);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(sendMany)->ArgsProduct({{1'000, 10'000}, {1, 0}})->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace orvim

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    orvim::applyApplicationStyle(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
