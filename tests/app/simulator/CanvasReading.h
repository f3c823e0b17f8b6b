#pragma once

#include "simulator/DisplayPrimitives.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

namespace orvim::test {

/// What one pixel holds; four zero bytes where nothing was ever painted.
struct PixelBytes {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;

    bool operator==(const PixelBytes&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const PixelBytes& pixel)
{
    return out << "(" << pixel.red << ", " << pixel.green << ", " << pixel.blue << ", " << pixel.alpha << ")";
}

inline constexpr PixelBytes untouched{};

inline constexpr PixelBytes opaque(std::int32_t rgb)
{
    return {rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF, 255};
}

/// The pixel at a place of the screen, counted in the screen's own pixels.
PixelBytes pixelAt(const DisplayCanvas& canvas, int x, int y);

/// Whether every pixel of the rectangle, both corners included, holds exactly that.
testing::AssertionResult isFilled(const DisplayCanvas& canvas, DisplayUnit unit, int x0, int y0, int x1, int y1,
                                  PixelBytes expected);

/// Whether all pixels outside the rectangle are as a new canvas has them.
testing::AssertionResult isUntouchedOutside(const DisplayCanvas& canvas, DisplayUnit unit, int x0, int y0, int x1,
                                            int y1);

/// A rectangle as rows of text: '#' for the foreground, '.' for the background, ' ' for untouched, '?' for anything
/// else and for a logical pixel whose four pixels differ.
std::vector<std::string> textOf(const DisplayCanvas& canvas, DisplayUnit unit, int x, int y, int width, int height,
                                std::int32_t foreground, std::int32_t background);

} // namespace orvim::test
