#include "core/media/ImageTransferBuilder.h"

#include "core/protocol/SysExBuilder.h"

#include <algorithm>
#include <cmath>

namespace tonavelle::ImageTransferBuilder {

namespace {

/// Whether `byteCount` is width x height x 3, found by division, for the product may exceed any integer.
bool isPictureSize(std::int64_t sourceWidth, std::int64_t sourceHeight, std::size_t byteCount)
{
    if (sourceWidth < 1 || sourceHeight < 1 || byteCount % bytesPerPixel != 0) return false;
    const auto pixelCount = static_cast<std::int64_t>(byteCount / bytesPerPixel);
    return pixelCount % sourceWidth == 0 && pixelCount / sourceWidth == sourceHeight;
}

/// One side of a picture fitted into the square.
struct FittedSide {
    std::int64_t sourceSize;
    double scale;
    int drawnSize;
    int margin;

    FittedSide(std::int64_t size, double fittedScale)
        : sourceSize(size), scale(fittedScale),
          drawnSize(std::max(1, static_cast<int>(std::lround(fittedScale * static_cast<double>(size))))),
          margin((width - drawnSize) / 2)
    {
    }

    std::size_t source(int drawn) const
    {
        return static_cast<std::size_t>(std::min(static_cast<std::int64_t>(drawn / scale), sourceSize - 1));
    }
};

} // namespace

std::vector<std::uint8_t> rgb64x64AspectFit(std::int64_t sourceWidth, std::int64_t sourceHeight,
                                            std::span<const std::uint8_t> rgb)
{
    if (!isPictureSize(sourceWidth, sourceHeight, rgb.size()))
        throw ImageTransferError(ImageTransferError::invalidRGBBufferSize, static_cast<std::int64_t>(rgb.size()));
    const double scale =
        std::min({width / static_cast<double>(sourceWidth), height / static_cast<double>(sourceHeight), 1.0});
    const FittedSide across(sourceWidth, scale);
    const FittedSide down(sourceHeight, scale);
    std::vector<std::uint8_t> picture(rgbByteCount);
    for (int y = 0; y < down.drawnSize; ++y) {
        const std::size_t sourceRow = down.source(y) * static_cast<std::size_t>(sourceWidth);
        const auto targetRow = static_cast<std::size_t>((down.margin + y) * width + across.margin);
        for (int x = 0; x < across.drawnSize; ++x) {
            const auto pixel = rgb.subspan((sourceRow + across.source(x)) * bytesPerPixel, bytesPerPixel);
            const std::size_t target = (targetRow + static_cast<std::size_t>(x)) * bytesPerPixel;
            std::ranges::copy(pixel, picture.begin() + static_cast<std::ptrdiff_t>(target));
        }
    }
    return picture;
}

Batch imageTransferRows(std::uint8_t screenNumber, std::span<const std::uint8_t> rgb888)
{
    if (screenNumber >= screenCount) throw ImageTransferError(ImageTransferError::invalidScreenNumber, screenNumber);
    if (rgb888.size() != rgbByteCount)
        throw ImageTransferError(ImageTransferError::invalidRGBBufferSize, static_cast<std::int64_t>(rgb888.size()));
    Batch rows;
    rows.reserve(height);
    std::array<std::uint8_t, 2 + rowByteCount> parameters;
    parameters[0] = screenNumber;
    auto pixel = rgb888.begin();
    for (std::uint8_t y = 0; y < height; ++y) {
        parameters[1] = y;
        for (std::size_t i = 2; i < parameters.size(); i += 2, pixel += bytesPerPixel) {
            const std::uint16_t packed = rgb455Value(pixel[0], pixel[1], pixel[2]);
            parameters[i] = static_cast<std::uint8_t>(packed >> 7);
            parameters[i + 1] = packed & 0x7F;
        }
        rows.push_back(SysExBuilder::frame(Command::imageRow, parameters));
    }
    return rows;
}

std::uint16_t rgb455Value(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return static_cast<std::uint16_t>((red >> 4) << 10 | (green >> 3) << 5 | blue >> 3);
}

std::array<std::uint8_t, bytesPerPixel> rgb888Pixel(std::uint16_t rgb455)
{
    const int red = rgb455 >> 10 & 0xF;
    const int green = rgb455 >> 5 & 0x1F;
    const int blue = rgb455 & 0x1F;
    return {static_cast<std::uint8_t>(red * 16 + red), static_cast<std::uint8_t>(green * 8 + green / 4),
            static_cast<std::uint8_t>(blue * 8 + blue / 4)};
}

} // namespace tonavelle::ImageTransferBuilder
