#pragma once

#include "simulator/DisplayCanvas.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orvim {

/// What of a packed screen picture is drawn: all of it, or its main area, the first 256 columns from row 41 down.
enum class PackedPictureArea { whole, region };

/// A picture of the screen, unpacked once from 12 bits a pixel: 480 bytes a row, 16-bit little-endian words read from
/// the highest four bits down as R, G, B, R, G, B and so on, four bits each.
class PackedPicture
{
public:
    static constexpr std::size_t packedBytesPerRow = 480;

    /// Rows that the bytes do not hold to their end, and rows past the screen's last, are left out.
    explicit PackedPicture(std::span<const std::uint8_t> packed);

    int rowCount() const;
    /// The 320 pixels of row `y`, which must be below rowCount().
    std::span<const DisplayPixel> row(int y) const;

private:
    std::vector<DisplayPixel> m_pixels;
};

void drawPacked(DisplayCanvas& canvas, const PackedPicture& picture, PackedPictureArea area);

} // namespace orvim
