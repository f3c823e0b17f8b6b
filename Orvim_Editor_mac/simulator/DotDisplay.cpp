#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"

#include <cstddef>

namespace orvim {

namespace {

/// The columns of the dots, in logical pixels.
struct DotColumns {
    int firstX;
    int pitch;
    int dotWidth;
};

constexpr DotColumns wideColumns{0, 8, 7};
constexpr DotColumns narrowColumns{64, 4, 3};
constexpr int firstY = 21;
constexpr int rowPitch = 4;
constexpr int dotHeight = 3;

} // namespace

void drawDotDisplay(const DisplayFields& fields, DotDisplayForm form, DisplayCanvas& canvas)
{
    const DotColumns& columns = form == DotDisplayForm::wide ? wideColumns : narrowColumns;
    for (std::size_t row = 0; row < dotGridSize; ++row) {
        const int y = firstY + rowPitch * static_cast<int>(row);
        for (std::size_t column = 0; column < dotGridSize; ++column) {
            const int x = columns.firstX + columns.pitch * static_cast<int>(column);
            fillRect(canvas, x, y, x + columns.dotWidth - 1, y + dotHeight - 1,
                     fields.dotValues[row][column] ? fields.foregroundRGB : fields.backgroundRGB);
        }
    }
}

} // namespace orvim
