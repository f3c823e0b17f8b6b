#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"
#include "simulator/EmbeddedResources.h"
#include "simulator/PackedPicture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace orvim {

namespace {

constexpr int pictureTop = 21;
constexpr int pictureSize = 64;

/// The entry of a table at an index that is limited to the table.
template <typename Table>
const auto& entry(const Table& table, int index)
{
    return table[static_cast<std::size_t>(std::clamp(index, 0, static_cast<int>(table.size()) - 1))];
}

} // namespace

void drawFace(const DisplayFields& fields, DisplayCanvas& canvas)
{
    drawBitmap(canvas, resources::faceBase, pictureSize, pictureSize, 0, pictureTop);
    drawBitmap(canvas, entry(resources::faceEyebrows, fields.eyebrow), 34, 6, 15, 50);
    drawBitmap(canvas, entry(resources::faceEyes, fields.eye), 34, 13, 15, 56);
    drawBitmap(canvas, entry(resources::faceMouths, fields.mouth), 12, 9, 26, 73);
}

void drawArbitraryImage(const DisplayFields& fields, DisplayCanvas& canvas)
{
    constexpr std::size_t bytesPerPixel = 3;
    const std::span<const std::uint8_t> bytes(fields.arbitraryImageRGB);
    if (bytes.size() != arbitraryImageByteCount) {
        fillRect(canvas, 0, pictureTop, pictureSize - 1, pictureTop + pictureSize - 1, 0);
        return;
    }
    std::array<DisplayPixel, pictureSize> pixels;
    for (int row = 0; row < pictureSize; ++row) {
        const auto source = bytes.subspan(static_cast<std::size_t>(row) * pictureSize * bytesPerPixel);
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = opaquePixel(source[3 * i], source[3 * i + 1], source[3 * i + 2]);
        copyRow(canvas, pixels, 0, pictureTop + row, DisplayUnit::logical);
    }
}

void drawWaterfall(DisplayCanvas& canvas)
{
    static const PackedPicture picture(resources::waterfallScreen);
    fillRect(canvas, 0, 21, 63, 84, 0);
    drawPacked(canvas, picture, PackedPictureArea::region);
}

} // namespace orvim
