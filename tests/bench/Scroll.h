#pragma once

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace orvim::test {

/// Each step shows other rows, as a wheel or a dragged scroll bar does; `slowest_ms` is the worst picture of all.
inline void scroll(benchmark::State& state, QAbstractScrollArea& rows)
{
    double slowest = 0;
    int value = 0;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        value = (value + 977) % rows.verticalScrollBar()->maximum();
        rows.verticalScrollBar()->setValue(value);
        QApplication::processEvents();
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(took.count());
        slowest = std::max(slowest, took.count() * 1'000);
    }
    state.counters["slowest_ms"] = slowest;
}

} // namespace orvim::test
