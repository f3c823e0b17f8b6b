#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"
#include "simulator/DisplayText.h"
#include "simulator/LevelMeterColors.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace orvim {

namespace {

using MeterColors = std::array<std::int32_t, 64>;

constexpr MeterColors rgbColors(const std::array<std::uint16_t, 64>& table)
{
    MeterColors colors{};
    for (std::size_t i = 0; i < table.size(); ++i)
        colors[i] = rgbFromRGB565(table[i]);
    return colors;
}

constexpr MeterColors brightColors = rgbColors(meterBrightTable);
constexpr MeterColors darkColors = rgbColors(meterDarkTable);

constexpr std::int32_t ruleRGB = 0x4C4C4C;
constexpr std::int32_t gsWellRGB = rgbFromRGB565(0xDAE1);
constexpr std::int32_t xgWellRGB = rgbFromRGB565(0x6DE3);

constexpr int leftMeterX = 132;
constexpr int rightMeterX = 146;
constexpr int meterWidth = 12;
constexpr int wellTop = 32;
constexpr int meterBase = 84;
constexpr int meterHeight = 52;
constexpr int tableTop = 21; ///< the logical row of a colour table's first entry
constexpr int maxLevel = 63;
constexpr int smallestShownLevel = 2;
constexpr int maxVoices = 60;

void fillMeterRow(DisplayCanvas& canvas, int x, int y, std::int32_t rgb)
{
    fillRect(canvas, x, y, x + meterWidth - 1, y, rgb);
}

std::int32_t tableColor(const MeterColors& colors, int y)
{
    return colors[static_cast<std::size_t>(y - tableTop)];
}

std::int32_t wellColor(const DisplayFields& fields, int y)
{
    switch (fields.colorMode) {
    case DisplaySimulatorColorMode::standard:
        return tableColor(darkColors, y);
    case DisplaySimulatorColorMode::gs:
        return gsWellRGB;
    case DisplaySimulatorColorMode::xg:
        return xgWellRGB;
    case DisplaySimulatorColorMode::gm2:
    case DisplaySimulatorColorMode::user:
        break;
    }
    return fields.backgroundRGB;
}

std::int32_t barColor(const DisplayFields& fields, int y)
{
    const bool isStandard = fields.colorMode == DisplaySimulatorColorMode::standard;
    return isStandard ? tableColor(brightColors, y) : fields.foregroundRGB;
}

/// One meter: the well, the bar of the level in it, and the row below that is always lit.
void drawMeter(const DisplayFields& fields, int level, int x, DisplayCanvas& canvas)
{
    const int barHeight = level < smallestShownLevel ? 0 : std::min(level, maxLevel) * meterHeight / (maxLevel + 1);
    const int barTop = meterBase - barHeight;
    for (int y = wellTop; y < meterBase; ++y)
        fillMeterRow(canvas, x, y, y < barTop ? wellColor(fields, y) : barColor(fields, y));
    fillMeterRow(canvas, x, meterBase, barColor(fields, meterBase));
}

void drawWarning(const DisplayFields& fields, const char* text, DisplayCanvas& canvas)
{
    fillRect(canvas, 132, 21, 157, 31, fields.foregroundRGB);
    drawText5(canvas, 133, 21, text, fields.baseRGB, fields.foregroundRGB);
}

void drawVoiceCount(const DisplayFields& fields, DisplayCanvas& canvas)
{
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%02d/%02d", fields.voiceCount, maxVoices);
    drawText5(canvas, 133, 21, text.data(), fields.foregroundRGB, fields.baseRGB);
}

} // namespace

void drawIndicatorStrip(const DisplayFields& fields, DisplayCanvas& canvas)
{
    fillRect(canvas, 258, 42, 259, 169, ruleRGB, DisplayUnit::physical);
    drawMeter(fields, fields.leftLevel, leftMeterX, canvas);
    drawMeter(fields, fields.rightLevel, rightMeterX, canvas);
    switch (fields.subDisplay) {
    case DisplaySimulatorSubDisplay::none:
        drawVoiceCount(fields, canvas);
        break;
    case DisplaySimulatorSubDisplay::over:
        drawWarning(fields, "OVER!", canvas);
        break;
    case DisplaySimulatorSubDisplay::clip:
        drawWarning(fields, "CLIP!", canvas);
        break;
    }
}

} // namespace orvim
