#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"
#include "simulator/DisplayText.h"
#include "simulator/EmbeddedResources.h"
#include "simulator/PackedPicture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace orvim {

namespace {

constexpr int partCount = 16;
constexpr int firstPartTop = 42;
constexpr int partPitch = 8;

/// The row of one part, numbered from 0, in physical pixels.
void drawPart(const DisplayFields& fields, int index, DisplayCanvas& canvas)
{
    const auto& part = fields.performanceMonitor.parts[static_cast<std::size_t>(index)];
    const int top = firstPartTop + partPitch * index;
    const auto draw = [&](int x, std::string_view text) {
        drawText6(canvas, x, top, text, fields.foregroundRGB, fields.backgroundRGB);
    };
    std::array<char, 16> channel;
    std::snprintf(channel.data(), channel.size(), "CH%02d", index + 1);

    fillRect(canvas, 0, top, 127, top + 6, fields.backgroundRGB, DisplayUnit::physical);
    draw(1, channel.data());
    if (part.isUserBank) draw(25, "'");
    draw(31, part.name);
}

} // namespace

void drawPerformanceMonitor(const DisplayFields& fields, DisplayCanvas& canvas)
{
    static const PackedPicture picture(resources::performanceMonitorScreen);
    fillRect(canvas, 0, 21, 63, 84, 0);
    drawPacked(canvas, picture, PackedPictureArea::region);
    // The parts take the place of the left half of the picture.
    fillRect(canvas, 0, 20, 63, 84, fields.baseRGB);
    const auto held = static_cast<int>(std::min<std::size_t>(fields.performanceMonitor.parts.size(), partCount));
    for (int i = 0; i < held; ++i)
        drawPart(fields, i, canvas);
}

} // namespace orvim
