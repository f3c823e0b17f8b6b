#include "CanvasReading.h"

namespace orvim::test {

namespace {

int scaleOf(DisplayUnit unit)
{
    return unit == DisplayUnit::logical ? 2 : 1;
}

char symbolOf(const DisplayCanvas& canvas, int x, int y, std::int32_t foreground, std::int32_t background)
{
    const PixelBytes pixel = pixelAt(canvas, x, y);
    if (pixel == opaque(foreground)) return '#';
    if (pixel == opaque(background)) return '.';
    return pixel == untouched ? ' ' : '?';
}

} // namespace

PixelBytes pixelAt(const DisplayCanvas& canvas, int x, int y)
{
    const auto bytes = canvas.bytes().subspan(static_cast<std::size_t>(y) * 1280 + static_cast<std::size_t>(x) * 4, 4);
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

testing::AssertionResult isFilled(const DisplayCanvas& canvas, DisplayUnit unit, int x0, int y0, int x1, int y1,
                                  PixelBytes expected)
{
    const int scale = scaleOf(unit);
    for (int y = y0 * scale; y < (y1 + 1) * scale; ++y)
        for (int x = x0 * scale; x < (x1 + 1) * scale; ++x)
            if (const auto pixel = pixelAt(canvas, x, y); pixel != expected)
                return testing::AssertionFailure()
                       << "physical pixel " << x << ", " << y << " is " << pixel << " instead of " << expected;
    return testing::AssertionSuccess();
}

testing::AssertionResult isUntouchedOutside(const DisplayCanvas& canvas, DisplayUnit unit, int x0, int y0, int x1,
                                            int y1)
{
    const int scale = scaleOf(unit);
    for (int y = 0; y < 170; ++y)
        for (int x = 0; x < 320; ++x) {
            const bool isInside = x >= x0 * scale && x < (x1 + 1) * scale && y >= y0 * scale && y < (y1 + 1) * scale;
            if (!isInside && pixelAt(canvas, x, y) != untouched)
                return testing::AssertionFailure() << "physical pixel " << x << ", " << y << " was painted";
        }
    return testing::AssertionSuccess();
}

std::vector<std::string> textOf(const DisplayCanvas& canvas, DisplayUnit unit, int x, int y, int width, int height,
                                std::int32_t foreground, std::int32_t background)
{
    const int scale = scaleOf(unit);
    std::vector<std::string> rows;
    for (int row = 0; row < height; ++row) {
        std::string text;
        for (int column = 0; column < width; ++column) {
            const int left = (x + column) * scale;
            const int top = (y + row) * scale;
            const char symbol = symbolOf(canvas, left, top, foreground, background);
            const bool isUniform = isFilled(canvas, DisplayUnit::physical, left, top, left + scale - 1, top + scale - 1,
                                            pixelAt(canvas, left, top));
            text += isUniform ? symbol : '?';
        }
        rows.push_back(text);
    }
    return rows;
}

} // namespace orvim::test
