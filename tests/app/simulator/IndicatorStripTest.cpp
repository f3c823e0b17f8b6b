#include "CanvasReading.h"
#include "RenderedScreen.h"
#include "simulator/DisplayText.h"
#include "simulator/LevelMeterColors.h"

#include <array>
#include <climits>
#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::background;
using test::base;
using test::fieldsInTestColors;
using test::foreground;
using test::isFilled;
using test::logical;
using test::opaque;
using test::physical;
using test::rendered;
using test::textOf;

DisplayFields stripFields(DisplaySimulatorColorMode mode, int left, int right)
{
    auto fields = fieldsInTestColors();
    fields.colorMode = mode;
    fields.leftLevel = left;
    fields.rightLevel = right;
    return fields;
}

/// Whether logical row `y` of the left meter has that colour over its twelve columns, and no wider.
testing::AssertionResult leftRowIs(const DisplayCanvas& canvas, int y, std::int32_t rgb)
{
    if (auto result = isFilled(canvas, logical, 132, y, 143, y, opaque(rgb)); !result) return result;
    if (auto result = isFilled(canvas, logical, 130, y, 131, y, opaque(base)); !result) return result;
    return isFilled(canvas, logical, 144, y, 145, y, opaque(base));
}

testing::AssertionResult rightRowIs(const DisplayCanvas& canvas, int y, std::int32_t rgb)
{
    if (auto result = isFilled(canvas, logical, 146, y, 157, y, opaque(rgb)); !result) return result;
    return isFilled(canvas, logical, 158, y, 159, y, opaque(base));
}

TEST(MeterColors, BrightRunsFromRedOverYellowToGreen)
{
    constexpr std::array<std::uint16_t, 13> top{0xF800, 0xF800, 0xF800, 0xF9C0, 0xFB60, 0xFCA0, 0xFDA0,
                                                0xFE40, 0xFEE0, 0xFF40, 0xFF80, 0xFFA0, 0xFFC0};
    constexpr std::array<std::uint16_t, 13> middle{0xE7E0, 0xC7E0, 0xAFE0, 0x97E0, 0x87E0, 0x77E0, 0x67E0,
                                                   0x57E0, 0x4FE0, 0x3FE0, 0x37E0, 0x2FE0, 0x27E0};
    std::vector<std::uint16_t> expected(top.begin(), top.end());
    expected.insert(expected.end(), 8, 0xFFE0);
    expected.insert(expected.end(), middle.begin(), middle.end());
    expected.insert(expected.end(), 2, 0x1FE0);
    expected.insert(expected.end(), 2, 0x17E0);
    expected.insert(expected.end(), 3, 0x0FE0);
    expected.insert(expected.end(), 23, 0x07E0);
    EXPECT_EQ(std::vector(meterBrightTable.begin(), meterBrightTable.end()), expected);
}

TEST(MeterColors, DarkRunsTheSameWay)
{
    std::vector<std::uint16_t> expected{0x2000, 0x2000, 0x2000, 0x2040, 0x2080, 0x20A0, 0x20C0, 0x20E0};
    expected.insert(expected.end(), 2, 0x2100);
    expected.insert(expected.end(), 12, 0x2120);
    expected.insert(expected.end(), 2, 0x1920);
    expected.insert(expected.end(), 3, 0x1120);
    expected.insert(expected.end(), 5, 0x0920);
    expected.insert(expected.end(), 32, 0x0120);
    EXPECT_EQ(std::vector(meterDarkTable.begin(), meterDarkTable.end()), expected);
}

TEST(IndicatorStrip, TheRuleIsTwoPhysicalPixelsWideFromRow42Down)
{
    const auto canvas = rendered(stripFields(DisplaySimulatorColorMode::standard, 0, 0));
    EXPECT_TRUE(isFilled(canvas, physical, 258, 42, 259, 169, opaque(0x4C4C4C)));
    EXPECT_TRUE(isFilled(canvas, physical, 258, 40, 259, 41, opaque(base)));
    EXPECT_TRUE(isFilled(canvas, physical, 260, 40, 263, 169, opaque(base)));
    EXPECT_TRUE(isFilled(canvas, physical, 256, 40, 257, 169, opaque(base)));
}

TEST(IndicatorStrip, LevelZeroOrOneDrawsNoBarButTheWellsAndTheBaseRowRemain)
{
    for (const int level : {INT_MIN, -1, 0, 1}) {
        const auto canvas = rendered(stripFields(DisplaySimulatorColorMode::standard, level, level));
        // Entries 11, 12 and 62 of the dark table, and entry 63 of the bright one.
        for (const auto& rowIs : {leftRowIs, rightRowIs}) {
            EXPECT_TRUE(rowIs(canvas, 32, 0x002400 | 0x200000));
            EXPECT_TRUE(rowIs(canvas, 43, 0x182400));
            EXPECT_TRUE(rowIs(canvas, 45, 0x102400));
            EXPECT_TRUE(rowIs(canvas, 48, 0x082400));
            EXPECT_TRUE(rowIs(canvas, 53, 0x002400));
            EXPECT_TRUE(rowIs(canvas, 83, 0x002400));
            EXPECT_TRUE(rowIs(canvas, 84, 0x00FC00));
        }
    }
}

TEST(IndicatorStrip, Level63HasItsTopAtRow33)
{
    for (const int level : {63, 64, INT_MAX}) {
        const auto canvas = rendered(stripFields(DisplaySimulatorColorMode::gs, level, 0));
        EXPECT_TRUE(leftRowIs(canvas, 32, 0xD85C08)) << level;
        EXPECT_TRUE(leftRowIs(canvas, 33, foreground)) << level;
        EXPECT_TRUE(rightRowIs(canvas, 33, 0xD85C08)) << "each channel has its own level";
    }
}

TEST(IndicatorStrip, TheBarsTopFollowsTheIntegerPartOfItsLevel)
{
    // 2 * 52 / 64 = 1.6; 20 * 52 / 64 = 16.25; 53 * 52 / 64 = 43.06.
    for (const auto& [level, top] : {std::array{2, 83}, std::array{20, 68}, std::array{32, 58}, std::array{53, 41}}) {
        const auto canvas = rendered(stripFields(DisplaySimulatorColorMode::xg, 0, level));
        EXPECT_TRUE(rightRowIs(canvas, top - 1, 0x68BC18)) << level;
        for (int y = top; y <= 84; ++y)
            EXPECT_TRUE(rightRowIs(canvas, y, foreground)) << level;
        EXPECT_TRUE(leftRowIs(canvas, 83, 0x68BC18));
    }
}

TEST(IndicatorStrip, InStandardABarIsYellowAtItsTopAndGreenBelow)
{
    const auto canvas = rendered(stripFields(DisplaySimulatorColorMode::standard, 63, 63));
    EXPECT_TRUE(leftRowIs(canvas, 32, 0x202400));
    EXPECT_TRUE(leftRowIs(canvas, 33, 0xF8F800)) << "entry 12 of the bright table; the red ones are above the wells";
    EXPECT_TRUE(leftRowIs(canvas, 34, 0xF8FC00));
    EXPECT_TRUE(leftRowIs(canvas, 41, 0xF8FC00));
    EXPECT_TRUE(leftRowIs(canvas, 42, 0xE0FC00));
    EXPECT_TRUE(leftRowIs(canvas, 54, 0x20FC00));
    EXPECT_TRUE(leftRowIs(canvas, 62, 0x00FC00));
    EXPECT_TRUE(leftRowIs(canvas, 83, 0x00FC00));
    EXPECT_TRUE(rightRowIs(canvas, 33, 0xF8F800));
}

TEST(IndicatorStrip, InGSTheBarIsTheForegroundOnWellsOfTheModesOwnColour)
{
    auto fields = stripFields(DisplaySimulatorColorMode::gs, 20, 53);
    fields.foregroundRGB = 0x000000;
    const auto canvas = rendered(fields);
    EXPECT_TRUE(leftRowIs(canvas, 67, 0xD85C08)) << "0xDAE1";
    EXPECT_TRUE(leftRowIs(canvas, 68, 0x000000));
    EXPECT_TRUE(leftRowIs(canvas, 84, 0x000000));
}

TEST(IndicatorStrip, InGM2AndUserTheWellsAreTheBackground)
{
    for (const auto mode : {DisplaySimulatorColorMode::gm2, DisplaySimulatorColorMode::user}) {
        const auto canvas = rendered(stripFields(mode, 0, 20));
        EXPECT_TRUE(isFilled(canvas, logical, 132, 32, 143, 83, opaque(background)));
        EXPECT_TRUE(leftRowIs(canvas, 84, foreground));
        EXPECT_TRUE(rightRowIs(canvas, 67, background));
        EXPECT_TRUE(rightRowIs(canvas, 68, foreground));
    }
}

/// The logical rows 20 to 31 right of the rule.
std::vector<std::string> aboveMeters(const DisplayCanvas& canvas)
{
    return textOf(canvas, logical, 130, 20, 30, 12, foreground, base);
}

std::vector<std::string> labelled(const char* text, bool isWarning)
{
    DisplayCanvas canvas;
    fillRect(canvas, 130, 20, 159, 31, base);
    if (isWarning) fillRect(canvas, 132, 21, 157, 31, foreground);
    drawText5(canvas, 133, 21, text, isWarning ? base : foreground, isWarning ? foreground : base);
    return aboveMeters(canvas);
}

TEST(IndicatorStrip, TheVoiceCountStandsAboveTheMeters)
{
    auto fields = stripFields(DisplaySimulatorColorMode::standard, 0, 0);
    EXPECT_EQ(aboveMeters(rendered(fields)), labelled("24/60", false));
    fields.voiceCount = 5;
    EXPECT_EQ(aboveMeters(rendered(fields)), labelled("05/60", false));
    fields.voiceCount = 60;
    EXPECT_EQ(aboveMeters(rendered(fields)), labelled("60/60", false));
}

TEST(IndicatorStrip, OverAndClipStandReversedInPlaceOfTheCount)
{
    auto fields = stripFields(DisplaySimulatorColorMode::standard, 0, 0);
    fields.subDisplay = DisplaySimulatorSubDisplay::over;
    EXPECT_EQ(aboveMeters(rendered(fields)), labelled("OVER!", true));
    fields.subDisplay = DisplaySimulatorSubDisplay::clip;
    EXPECT_EQ(aboveMeters(rendered(fields)), labelled("CLIP!", true));
}

TEST(IndicatorStrip, ALongCountWrapsOverTheMeters)
{
    auto fields = stripFields(DisplaySimulatorColorMode::standard, 63, 63);
    fields.voiceCount = INT_MIN;
    const auto canvas = rendered(fields);
    DisplayCanvas text;
    drawText5(text, 133, 21, "-2147483648/60", foreground, base);
    EXPECT_EQ(textOf(canvas, logical, 133, 21, 25, 20, foreground, base),
              textOf(text, logical, 133, 21, 25, 20, foreground, base));
}

} // namespace
} // namespace orvim
