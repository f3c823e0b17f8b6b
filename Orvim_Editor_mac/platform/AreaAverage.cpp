#include "platform/AreaAverage.h"

#include "core/media/ImageTransferBuilder.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace orvim {

namespace {

constexpr int side = tonavelle::ImageTransferBuilder::width;
constexpr int channelCount = 3;

/// The source pixels that one pixel of the result covers in one direction, and how much of it each makes up.
struct Coverage {
    int first = 0;
    std::vector<float> weights;
};

using Coverages = std::array<Coverage, side>;
using ColorRow = std::array<float, side * channelCount>; ///< red, green and blue a pixel

Coverage coverage(int position, int sourceLength, double start, double length)
{
    const double sourcePerPixel = sourceLength / length;
    const double from = std::clamp((position - start) * sourcePerPixel, 0.0, static_cast<double>(sourceLength));
    const double to = std::clamp((position + 1 - start) * sourcePerPixel, 0.0, static_cast<double>(sourceLength));
    Coverage result;
    result.first = static_cast<int>(from);
    for (int i = result.first; i < to; ++i) {
        const double overlap = std::min<double>(to, i + 1) - std::max<double>(from, i);
        result.weights.push_back(static_cast<float>(overlap / sourcePerPixel));
    }
    return result;
}

Coverages coverages(int sourceLength, double start, double length)
{
    Coverages result;
    for (int i = 0; i < side; ++i)
        result[static_cast<std::size_t>(i)] = coverage(i, sourceLength, start, length);
    return result;
}

ColorRow shrunkRow(const std::uint8_t* line, const Coverages& columns)
{
    ColorRow row{};
    for (std::size_t x = 0; x < columns.size(); ++x) {
        float red = 0;
        float green = 0;
        float blue = 0;
        const std::uint8_t* pixelBytes = line + static_cast<std::size_t>(columns[x].first) * sizeof(std::uint32_t);
        for (const float weight : columns[x].weights) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, pixelBytes, sizeof pixel);
            pixelBytes += sizeof pixel;
            red += weight * static_cast<float>(pixel >> 16 & 0xFF);
            green += weight * static_cast<float>(pixel >> 8 & 0xFF);
            blue += weight * static_cast<float>(pixel & 0xFF);
        }
        row[x * channelCount] = red;
        row[x * channelCount + 1] = green;
        row[x * channelCount + 2] = blue;
    }
    return row;
}

std::uint8_t roundedByte(float value)
{
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

} // namespace

DrawnRectangle aspectFit(int width, int height)
{
    const double scale = std::min({static_cast<double>(side) / width, static_cast<double>(side) / height, 1.0});
    const double drawnWidth = width * scale;
    const double drawnHeight = height * scale;
    return {(side - drawnWidth) * 0.5, (side - drawnHeight) * 0.5, drawnWidth, drawnHeight};
}

std::vector<std::uint8_t> areaAveraged(const PixelView& source, const DrawnRectangle& drawn)
{
    const Coverages columns = coverages(source.width, drawn.left, drawn.width);
    const Coverages lines = coverages(source.height, drawn.top, drawn.height);
    std::vector<std::uint8_t> picture(tonavelle::ImageTransferBuilder::rgbByteCount);
    // Two neighbours share at most one line of the source, which is kept from the one to the next.
    int keptLine = -1;
    ColorRow kept{};
    for (std::size_t y = 0; y < lines.size(); ++y) {
        ColorRow sum{};
        int line = lines[y].first;
        for (const float weight : lines[y].weights) {
            if (line != keptLine) {
                kept = shrunkRow(source.bytes + static_cast<std::size_t>(line) * source.bytesPerLine, columns);
                keptLine = line;
            }
            for (std::size_t i = 0; i < sum.size(); ++i)
                sum[i] += weight * kept[i];
            ++line;
        }
        std::ranges::transform(sum, picture.begin() + static_cast<std::ptrdiff_t>(y * sum.size()), roundedByte);
    }
    return picture;
}

} // namespace orvim
