#include "DisplaySimulatorState.h"
#include "simulator/DisplayCanvas.h"
#include "simulator/DisplayPicture.h"
#include "simulator/DisplaySimulatorPreviewView.h"
#include "simulator/RenderDisplay.h"

#include <QApplication>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace orvim {
namespace {

QImage screenOf(int scale)
{
    return QImage(DisplayCanvas::width * scale, DisplayCanvas::height * scale, QImage::Format_RGB32);
}

/// The yardstick: the finished picture stretched once by nearest neighbour.
void plainDrawImage(benchmark::State& state)
{
    auto screen = screenOf(static_cast<int>(state.range(0)));
    DisplayCanvas canvas;
    renderDisplay(DisplayFields(), canvas);
    const auto picture = pictureOf(canvas);
    for (auto _ : state) {
        QPainter painter(&screen);
        painter.drawImage(screen.rect(), picture);
    }
}

/// What a repaint of the window costs.
void repaint(benchmark::State& state)
{
    const int scale = static_cast<int>(state.range(0));
    auto screen = screenOf(scale);
    DisplaySimulatorState simulator;
    DisplaySimulatorPreviewView view(simulator);
    view.setFixedSize(screen.size());
    view.show();
    QApplication::processEvents();
    for (auto _ : state)
        view.render(&screen, {}, {}, QWidget::RenderFlags());
}

/// One tick of the blinking face, from the state's change to the pixels, as it comes 14 times a second.
void blinkTick(benchmark::State& state)
{
    DisplaySimulatorState simulator;
    DisplaySimulatorPreviewView view(simulator);
    view.setFixedSize(screenOf(static_cast<int>(state.range(0))).size());
    view.show();
    simulator.setFaceBlinking(true);
    QApplication::processEvents();
    for (auto _ : state) {
        simulator.blinkTick();
        QApplication::processEvents();
    }
}

BENCHMARK(plainDrawImage)->Arg(2)->Arg(3);
BENCHMARK(repaint)->Arg(2)->Arg(3);
BENCHMARK(blinkTick)->Arg(3);

} // namespace
} // namespace orvim
