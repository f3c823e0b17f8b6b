#pragma once

#include <array>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orvim {

/// One pixel of the screen; its four bytes in memory are R, G, B, A.
using DisplayPixel = std::uint32_t;

constexpr DisplayPixel opaquePixel(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return std::bit_cast<DisplayPixel>(std::array<std::uint8_t, 4>{red, green, blue, 0xFF});
}

/// The pixel of the colour 0xRRGGBB; bits above these 24 are dropped.
constexpr DisplayPixel opaquePixel(std::int32_t rgb)
{
    return opaquePixel(static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                       static_cast<std::uint8_t>(rgb));
}

/// The colour 0xRRGGBB of an RGB565 value. The low bits stay zero, so that full white is 0xF8FCF8.
constexpr std::int32_t rgbFromRGB565(std::uint16_t value)
{
    const std::int32_t red = (value >> 11 & 0x1F) << 3;
    const std::int32_t green = (value >> 5 & 0x3F) << 2;
    const std::int32_t blue = (value & 0x1F) << 3;
    return red << 16 | green << 8 | blue;
}

/// The module's screen in its own pixels: 320 by 170, four bytes R, G, B, A each, row by row from the top.
/// All bytes are 0 when made; every pixel written is opaque.
class DisplayCanvas
{
public:
    static constexpr int width = 320;
    static constexpr int height = 170;
    static constexpr std::size_t bytesPerRow = width * sizeof(DisplayPixel);

    DisplayCanvas() : m_pixels(static_cast<std::size_t>(width) * height) {}

    std::span<const std::uint8_t> bytes() const
    {
        return {reinterpret_cast<const std::uint8_t*>(m_pixels.data()), m_pixels.size() * sizeof(DisplayPixel)};
    }

    /// The pixels of row `y`, which must be 0...169.
    std::span<DisplayPixel, width> row(int y)
    {
        assert(y >= 0 && y < height);
        return std::span<DisplayPixel, width>(m_pixels.data() + static_cast<std::size_t>(y) * width, width);
    }

private:
    std::vector<DisplayPixel> m_pixels;
};

} // namespace orvim
