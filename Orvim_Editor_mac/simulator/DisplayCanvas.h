#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvim {

/// The module's screen in its own pixels: 320 by 170, four bytes R, G, B, A each, row by row from the top.
/// All bytes are 0 when made; every pixel written is opaque.
class DisplayCanvas
{
public:
    static constexpr int width = 320;
    static constexpr int height = 170;
    static constexpr std::size_t bytesPerRow = width * 4;

    DisplayCanvas() : m_bytes(bytesPerRow * height) {}

    const std::vector<std::uint8_t>& bytes() const { return m_bytes; }
    std::uint8_t* row(int y) { return m_bytes.data() + static_cast<std::size_t>(y) * bytesPerRow; }

private:
    std::vector<std::uint8_t> m_bytes;
};

/// Whether the numbers of a drawing call count the screen's own pixels or the 160 by 85 grid of two by two blocks.
enum class DisplayUnit { logical, physical };

/// Paints the one pixel (x, y) in 0xRRGGBB; outside the canvas nothing happens.
void putPixel(DisplayCanvas& canvas, int x, int y, std::int32_t rgb);

} // namespace orvim
