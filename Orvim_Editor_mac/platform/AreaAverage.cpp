#include "platform/AreaAverage.h"

#include "core/media/ImageTransferBuilder.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace orvim {

namespace {

constexpr int side = tonavelle::ImageTransferBuilder::width;
constexpr std::size_t sourceChannels = 4; ///< blue, green, red and alpha as the bytes lie
constexpr std::size_t pictureChannels = 3;

/// The source pixels that one pixel of the result covers in one direction, and how much of it each makes up: the inner
/// ones the same, the first and the last what their cut leaves of them.
struct Coverage {
    std::size_t first = 0;
    std::size_t count = 0;
    float firstWeight = 0;
    float innerWeight = 0;
    float lastWeight = 0;

    float weight(std::size_t i) const
    {
        if (i == 0) return firstWeight;
        return i + 1 == count ? lastWeight : innerWeight;
    }
};

using Coverages = std::array<Coverage, side>;

Coverage coverage(int position, double sourceLength, double start, double length)
{
    const double sourcePerPixel = sourceLength / length;
    const double from = std::clamp((position - start) * sourcePerPixel, 0.0, sourceLength);
    const double to = std::clamp((position + 1 - start) * sourcePerPixel, 0.0, sourceLength);
    const double first = std::floor(from);
    const double end = std::ceil(to);
    if (!(from < to)) return {};
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(end - first),
            static_cast<float>((std::min(to, first + 1) - from) / sourcePerPixel),
            static_cast<float>(1 / sourcePerPixel), static_cast<float>((to - (end - 1)) / sourcePerPixel)};
}

Coverages coverages(double sourceLength, double start, double length)
{
    Coverages result;
    for (int i = 0; i < side; ++i)
        result[static_cast<std::size_t>(i)] = coverage(i, sourceLength, start, length);
    return result;
}

void addLine(std::span<float> sums, const std::uint8_t* line, float weight)
{
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] += weight * static_cast<float>(line[i]);
}

std::array<float, sourceChannels> meanColor(std::span<const float> sums, const Coverage& column)
{
    std::array<float, sourceChannels> color{};
    const float* pixel = sums.data() + column.first * sourceChannels;
    const auto add = [&](float weight) {
        for (std::size_t channel = 0; channel < sourceChannels; ++channel)
            color[channel] += weight * pixel[channel];
        pixel += sourceChannels;
    };
    if (column.count > 0) add(column.firstWeight);
    for (std::size_t i = 2; i < column.count; ++i)
        add(column.innerWeight);
    if (column.count > 1) add(column.lastWeight);
    return color;
}

std::uint8_t roundedByte(float value)
{
    return static_cast<std::uint8_t>(std::min(value + 0.5f, 255.0f));
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
    std::uint8_t* result = picture.data();
    std::vector<float> sums(static_cast<std::size_t>(std::ceil(source.width)) * sourceChannels);
    for (const Coverage& covered : lines) {
        // Lines first, as many values stand side by side in them.
        std::ranges::fill(sums, 0.0f);
        for (std::size_t i = 0; i < covered.count; ++i)
            addLine(sums, source.bytes + (covered.first + i) * source.bytesPerLine, covered.weight(i));
        for (const Coverage& column : columns) {
            const auto color = meanColor(sums, column);
            for (std::size_t channel = 0; channel < pictureChannels; ++channel)
                result[channel] = roundedByte(color[pictureChannels - 1 - channel]);
            result += pictureChannels;
        }
    }
    return picture;
}

} // namespace orvim
