#include "simulator/PackedPicture.h"

#include <algorithm>

namespace orvim {

namespace {

constexpr std::size_t pixelsPerRow = DisplayCanvas::width;
constexpr int regionFirstRow = 41;
constexpr std::size_t regionColumns = 256;

/// The component at that position of a row's stream, as eight bits of which the low four are zero.
std::uint8_t component(std::span<const std::uint8_t> packedRow, std::size_t position)
{
    const std::size_t word = position / 4;
    const bool isInUpperByte = position % 4 < 2;
    const std::uint8_t byte = packedRow[word * 2 + (isInUpperByte ? 1 : 0)];
    const bool isHighNibble = position % 2 == 0;
    return static_cast<std::uint8_t>(isHighNibble ? byte & 0xF0 : byte << 4);
}

} // namespace

PackedPicture::PackedPicture(std::span<const std::uint8_t> packed)
{
    const auto rows = std::min<std::size_t>(packed.size() / packedBytesPerRow, DisplayCanvas::height);
    m_pixels.reserve(rows * pixelsPerRow);
    for (std::size_t y = 0; y < rows; ++y) {
        const auto packedRow = packed.subspan(y * packedBytesPerRow, packedBytesPerRow);
        for (std::size_t x = 0; x < pixelsPerRow; ++x)
            m_pixels.push_back(opaquePixel(component(packedRow, x * 3), component(packedRow, x * 3 + 1),
                                           component(packedRow, x * 3 + 2)));
    }
}

int PackedPicture::rowCount() const
{
    return static_cast<int>(m_pixels.size() / pixelsPerRow);
}

std::span<const DisplayPixel> PackedPicture::row(int y) const
{
    return std::span(m_pixels).subspan(static_cast<std::size_t>(y) * pixelsPerRow, pixelsPerRow);
}

void drawPacked(DisplayCanvas& canvas, const PackedPicture& picture, PackedPictureArea area)
{
    const bool isWhole = area == PackedPictureArea::whole;
    const std::size_t columns = isWhole ? pixelsPerRow : regionColumns;
    for (int y = isWhole ? 0 : regionFirstRow; y < picture.rowCount(); ++y)
        std::ranges::copy(picture.row(y).first(columns), canvas.row(y).begin());
}

} // namespace orvim
