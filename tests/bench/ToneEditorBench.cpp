#include "LogWindowView.h"
#include "controls/ADSRGraphView.h"
#include "controls/TickSnappingSlider.h"
#include "controls/WaveformGraphView.h"
#include "pages/ToneEditorPageView.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace orvim {
namespace {

struct Page {
    Page()
    {
        view.resize(1000, 800);
        view.show();
        QApplication::processEvents();
    }

    void open(ToneEditorTab tab)
    {
        view.actions().previews.openTab(tab);
        QApplication::processEvents();
        QApplication::processEvents();
    }

    test::PluggedRuntime plugged;
    test::RecordingDialogs dialogs;
    ToneEditorPageView view{plugged.runtime, dialogs};
};

/// Everything to the module, with the log window open, up to the window's next picture. Goal: under 150 ms.
void sendAll(benchmark::State& state)
{
    Page page;
    LogWindowView log(page.plugged.runtime);
    log.show();
    QApplication::processEvents();
    for (auto _ : state) {
        page.view.actions().sending.sendAll();
        QApplication::processEvents();
        state.PauseTiming();
        page.plugged.system.forgetSent();
        state.ResumeTiming();
    }
}

/// The yardstick: the same messages, handed to the output alone.
void bareSends(benchmark::State& state)
{
    Page page;
    page.view.actions().sending.sendAll();
    const tonavelle::Batch messages = page.plugged.sent();
    test::PluggedRuntime plugged;
    for (auto _ : state) {
        for (const tonavelle::Message& message : messages)
            plugged.system.send(1, 1, message, MIDILane::normal);
        state.PauseTiming();
        plugged.system.forgetSent();
        state.ResumeTiming();
    }
}

/// One step of a slider of the channel tab, to the bytes at the output. Goal: under 100 us at the 99th percentile.
void sliderStep(benchmark::State& state)
{
    Page page;
    page.open(ToneEditorTab::channel);
    auto& slider = *page.view.findChild<TickSnappingSlider*>(QStringLiteral("Attack Time"));
    std::vector<double> microseconds;
    double value = 1;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        slider.choose(value);
        const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - begin;
        microseconds.push_back(took.count());
        state.SetIterationTime(took.count() / 1e6);
        value = value < 127 ? value + 1 : 0;
        QApplication::processEvents();
        page.plugged.system.forgetSent();
    }
    const auto percentile = microseconds.begin() + static_cast<std::ptrdiff_t>(microseconds.size() * 99 / 100);
    std::nth_element(microseconds.begin(), percentile, microseconds.end());
    state.counters["p99_us"] = *percentile;
}

/// The page as it is made at start, with its first tab. Goal: under 60 ms.
void pageConstruction(benchmark::State& state)
{
    test::PluggedRuntime plugged;
    test::RecordingDialogs dialogs;
    for (auto _ : state)
        const ToneEditorPageView page(plugged.runtime, dialogs);
}

/// The first opening of a tab, up to its picture. Goal: under 60 ms.
void firstOpening(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Page page;
        state.ResumeTiming();
        page.open(static_cast<ToneEditorTab>(state.range(0)));
        state.PauseTiming(); // the end of the page is none of it
        page.view.hide();
        state.ResumeTiming();
    }
}

/// Both graphs, drawn anew. Goal: under 1 ms.
void graphs(benchmark::State& state)
{
    WaveformGraphView wave;
    ADSRGraphView envelope;
    wave.setWave({static_cast<int>(state.range(0)), 31, 70}, {});
    envelope.setParameters({10, 20, 90, 12, 30, true});
    QImage screen(300, 100, QImage::Format_RGB32);
    for (auto _ : state) {
        wave.render(&screen, {}, {}, QWidget::RenderFlags());
        envelope.render(&screen, {}, {}, QWidget::RenderFlags());
    }
}

BENCHMARK(bareSends)->Unit(benchmark::kMillisecond);
BENCHMARK(sendAll)->Unit(benchmark::kMillisecond);
BENCHMARK(sliderStep)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2'000);
BENCHMARK(pageConstruction)->Unit(benchmark::kMillisecond);
BENCHMARK(firstOpening)->DenseRange(1, 4)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(graphs)->Arg(0)->Arg(5)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace orvim
