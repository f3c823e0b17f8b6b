#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvim {

/// Pixels of four bytes, blue, green, red and alpha, the colours premultiplied; rows from the top. Of the last column
/// and the last row a part may lie outside of the picture, which then ends at the fraction.
struct PixelView {
    double width = 0;
    double height = 0;
    const std::uint8_t* bytes = nullptr;
    std::size_t bytesPerLine = 0;
};

/// The rectangle that a picture of this size fills, in fractions of pixels of the 64 by 64 picture.
struct DrawnRectangle {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// Shrunk to fit, never enlarged, centred, and not rounded. Both sides are 1 or more.
DrawnRectangle aspectFit(int width, int height);

/// 64 by 64 pixels of red, green and blue: the source drawn into the rectangle on black. Each pixel is the exact mean
/// of what covers it, its uncovered part counting as black.
std::vector<std::uint8_t> areaAveraged(const PixelView& source, const DrawnRectangle& drawn);

} // namespace orvim
