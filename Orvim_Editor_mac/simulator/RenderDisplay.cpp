#include "simulator/RenderDisplay.h"

#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"

namespace orvim {

namespace {

void drawMainArea(const DisplayFields& fields, DisplayCanvas& canvas)
{
    fillRect(canvas, 0, 20, 128, 84, fields.baseRGB);
    switch (fields.displayType) {
    case DisplaySimulatorType::initial:
        drawDotDisplay(fields, DotDisplayForm::wide, canvas);
        break;
    case DisplaySimulatorType::lipSync:
        drawFace(fields, canvas);
        drawDotDisplay(fields, DotDisplayForm::narrow, canvas);
        break;
    case DisplaySimulatorType::pianoRoll:
        drawPianoRoll(canvas);
        break;
    case DisplaySimulatorType::oscilloscope:
        drawOscilloscope(fields, canvas);
        break;
    case DisplaySimulatorType::arbitraryImage:
        drawArbitraryImage(fields, canvas);
        drawDotDisplay(fields, DotDisplayForm::narrow, canvas);
        break;
    case DisplaySimulatorType::performanceMonitor:
        drawPerformanceMonitor(fields, canvas);
        break;
    case DisplaySimulatorType::waterfall:
        drawWaterfall(canvas);
        break;
    }
}

} // namespace

void renderDisplay(const DisplayFields& fields, DisplayCanvas& canvas)
{
    fillRect(canvas, 0, 0, 159, 19, fields.backgroundRGB);
    fillRect(canvas, 0, 20, 159, 84, fields.baseRGB);
    if (fields.specialMode != DisplaySimulatorSpecialMode::none) {
        drawSpecialScreen(fields, canvas);
        return;
    }
    drawHeader(fields, canvas);
    drawIndicatorStrip(fields, canvas);
    drawMainArea(fields, canvas);
}

} // namespace orvim
