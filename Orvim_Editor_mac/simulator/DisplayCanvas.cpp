#include "simulator/DisplayCanvas.h"

namespace orvim {

void putPixel(DisplayCanvas& canvas, int x, int y, std::int32_t rgb)
{
    if (x < 0 || x >= DisplayCanvas::width || y < 0 || y >= DisplayCanvas::height) return;
    std::uint8_t* const pixel = canvas.row(y) + static_cast<std::size_t>(x) * 4;
    pixel[0] = static_cast<std::uint8_t>(rgb >> 16);
    pixel[1] = static_cast<std::uint8_t>(rgb >> 8);
    pixel[2] = static_cast<std::uint8_t>(rgb);
    pixel[3] = 0xFF;
}

} // namespace orvim
