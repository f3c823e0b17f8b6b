#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"
#include "simulator/DisplayText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace orvim {

namespace {

constexpr int waveColumns = 128;
constexpr int waveCentre = 51;
constexpr int waveBottom = 70;

/// The height of the demonstration wave at a column; it is the same at every drawing.
int waveY(int x)
{
    constexpr double pi = std::numbers::pi;
    const double height = std::sin(x * 4 * pi / waveColumns) * std::sin(x * 16 * pi / waveColumns) * 15 + waveCentre;
    return std::min(static_cast<int>(height), waveBottom);
}

void plot(DisplayCanvas& canvas, int x, int y, std::int32_t rgb)
{
    fillRect(canvas, x, y, x, y, rgb);
}

/// Bresenham's line, both ends included, from left to right. Both errors are tested on the one doubled error of the
/// step, which decides where the steps of a steep line fall.
void drawLine(DisplayCanvas& canvas, int x0, int y0, int x1, int y1, std::int32_t rgb)
{
    const int dx = x1 - x0;
    const int dy = std::abs(y1 - y0);
    const int stepY = y0 < y1 ? 1 : -1;
    int error = dx - dy;
    plot(canvas, x0, y0, rgb);
    while (x0 != x1 || y0 != y1) {
        const int doubledError = 2 * error;
        if (doubledError >= -dy) {
            error -= dy;
            ++x0;
        }
        if (doubledError <= dx) {
            error += dx;
            y0 += stepY;
        }
        plot(canvas, x0, y0, rgb);
    }
}

} // namespace

void drawOscilloscope(const DisplayFields& fields, DisplayCanvas& canvas)
{
    fillRect(canvas, 0, 21, 127, 84, fields.baseRGB);
    fillRect(canvas, 0, 106, 255, 107, fields.oscilloscopeUntriggeredRGB, DisplayUnit::physical);
    const auto labelRGB =
        fields.isOscilloscopeTriggered ? fields.oscilloscopeWaveRGB : fields.oscilloscopeUntriggeredRGB;
    drawText5(canvas, 112, 21, "T'D", labelRGB, fields.baseRGB);

    int previousY = waveCentre;
    for (int x = 1; x < waveColumns; ++x) {
        const int y = waveY(x);
        drawLine(canvas, x - 1, previousY, x, y, fields.oscilloscopeWaveRGB);
        previousY = y;
    }
}

} // namespace orvim
