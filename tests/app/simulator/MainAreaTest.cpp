#include "CanvasReading.h"
#include "RenderedScreen.h"
#include "simulator/DisplayText.h"
#include "simulator/EmbeddedResources.h"

#include <algorithm>
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
using test::pixelAt;
using test::rendered;

DisplayFields screen(DisplaySimulatorType type)
{
    auto fields = fieldsInTestColors();
    fields.displayType = type;
    return fields;
}

/// The colour of a logical pixel's upper left quarter.
test::PixelBytes blockAt(const DisplayCanvas& canvas, int x, int y)
{
    return pixelAt(canvas, 2 * x, 2 * y);
}

TEST(MainArea, TheDefaultStateHasAllSixteenDotColumnsLitOneHigh)
{
    DisplayFields fields;
    fields.dotValues.back().fill(true);
    const auto canvas = rendered(fields);
    for (int column = 0; column < 16; ++column) {
        EXPECT_TRUE(isFilled(canvas, logical, 8 * column, 81, 8 * column + 6, 83, opaque(0x8EBCFC)));
        EXPECT_TRUE(isFilled(canvas, logical, 8 * column, 77, 8 * column + 6, 79, opaque(0x213A60)));
    }
}

TEST(DotDisplay, WideDotsAreSevenByThreeEightAndFourApart)
{
    auto fields = screen(DisplaySimulatorType::initial);
    fields.dotValues[0][0] = true;
    fields.dotValues[3][5] = true;
    fields.dotValues[15][15] = true;
    const auto canvas = rendered(fields);
    for (int row = 0; row < 16; ++row)
        for (int column = 0; column < 16; ++column) {
            const bool isLit = fields.dotValues[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            const int x = 8 * column, y = 21 + 4 * row;
            EXPECT_TRUE(isFilled(canvas, logical, x, y, x + 6, y + 2, opaque(isLit ? foreground : background)));
            EXPECT_TRUE(isFilled(canvas, logical, x + 7, y, x + 7, y + 3, opaque(base)));
            EXPECT_TRUE(isFilled(canvas, logical, x, y + 3, x + 7, y + 3, opaque(base)));
        }
    EXPECT_TRUE(isFilled(canvas, logical, 0, 20, 128, 20, opaque(base)));
    EXPECT_TRUE(isFilled(canvas, logical, 128, 20, 128, 84, opaque(base)));
}

TEST(DotDisplay, NarrowDotsAreThreeByThreeFourApartFrom64)
{
    auto fields = screen(DisplaySimulatorType::arbitraryImage);
    fields.dotValues[0][0] = true;
    fields.dotValues[7][9] = true;
    fields.dotValues[15][15] = true;
    const auto canvas = rendered(fields);
    for (int row = 0; row < 16; ++row)
        for (int column = 0; column < 16; ++column) {
            const bool isLit = fields.dotValues[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            const int x = 64 + 4 * column, y = 21 + 4 * row;
            EXPECT_TRUE(isFilled(canvas, logical, x, y, x + 2, y + 2, opaque(isLit ? foreground : background)));
            EXPECT_TRUE(isFilled(canvas, logical, x + 3, y, x + 3, y + 3, opaque(base)));
            EXPECT_TRUE(isFilled(canvas, logical, x, y + 3, x + 3, y + 3, opaque(base)));
        }
}

/// Whether the picture stands at that logical place.
testing::AssertionResult shows(const DisplayCanvas& canvas, std::span<const std::uint16_t> picture, int width, int x,
                               int y)
{
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const int left = x + static_cast<int>(i) % width;
        const int top = y + static_cast<int>(i) / width;
        auto result = isFilled(canvas, logical, left, top, left, top, opaque(rgbFromRGB565(picture[i])));
        if (!result) return result << " at " << left << ", " << top;
    }
    return testing::AssertionSuccess();
}

TEST(Face, EveryPartStandsAtItsPlace)
{
    for (int mouth = 0; mouth < 9; ++mouth) {
        auto fields = screen(DisplaySimulatorType::lipSync);
        fields.eyebrow = mouth % 4;
        fields.eye = mouth % 7;
        fields.mouth = mouth;
        const auto canvas = rendered(fields);
        EXPECT_TRUE(shows(canvas, resources::faceEyebrows[static_cast<std::size_t>(mouth % 4)], 34, 15, 50));
        EXPECT_TRUE(shows(canvas, resources::faceEyes[static_cast<std::size_t>(mouth % 7)], 34, 15, 56));
        EXPECT_TRUE(shows(canvas, resources::faceMouths[static_cast<std::size_t>(mouth)], 12, 26, 73));
        // The base shows above the eyebrows and left of the parts.
        EXPECT_TRUE(shows(canvas, std::span(resources::faceBase).first(64 * 29), 64, 0, 21));
        EXPECT_EQ(blockAt(canvas, 14, 60), opaque(rgbFromRGB565(resources::faceBase[(60 - 21) * 64 + 14])));
        EXPECT_EQ(blockAt(canvas, 49, 60), opaque(rgbFromRGB565(resources::faceBase[(60 - 21) * 64 + 49])));
        EXPECT_EQ(blockAt(canvas, 63, 84), opaque(rgbFromRGB565(resources::faceBase[63 * 64 + 63])));
        EXPECT_TRUE(isFilled(canvas, logical, 64, 21, 66, 23, opaque(background))) << "narrow dots beside it";
    }
}

TEST(Face, IndicesAreLimitedToTheirTables)
{
    const auto face = [](int eyebrow, int eye, int mouth) {
        auto fields = screen(DisplaySimulatorType::lipSync);
        fields.eyebrow = eyebrow;
        fields.eye = eye;
        fields.mouth = mouth;
        const auto canvas = rendered(fields);
        return std::vector(canvas.bytes().begin(), canvas.bytes().end());
    };
    EXPECT_EQ(face(INT_MAX, INT_MAX, INT_MAX), face(3, 6, 8));
    EXPECT_EQ(face(4, 7, 9), face(3, 6, 8));
    EXPECT_EQ(face(INT_MIN, -1, INT_MIN), face(0, 0, 0));
}

TEST(ArbitraryImage, EveryPixelIsABlockFromRow21Down)
{
    auto fields = screen(DisplaySimulatorType::arbitraryImage);
    for (std::size_t i = 0; i < 64 * 64; ++i) {
        fields.arbitraryImageRGB[3 * i] = static_cast<std::uint8_t>(i % 64 * 4);
        fields.arbitraryImageRGB[3 * i + 1] = static_cast<std::uint8_t>(i / 64 * 4);
        fields.arbitraryImageRGB[3 * i + 2] = 0x7F;
    }
    const auto canvas = rendered(fields);
    for (int j = 0; j < 64; ++j)
        for (int i = 0; i < 64; ++i)
            ASSERT_TRUE(isFilled(canvas, logical, i, 21 + j, i, 21 + j, opaque((i * 4) << 16 | (j * 4) << 8 | 0x7F)));
}

TEST(ArbitraryImage, AnyOtherLengthLeavesTheAreaBlack)
{
    for (const std::size_t length : {0u, 1u, 12'287u, 12'289u, 100'000u}) {
        auto fields = screen(DisplaySimulatorType::arbitraryImage);
        fields.arbitraryImageRGB.assign(length, 0xFF);
        const auto canvas = rendered(fields);
        EXPECT_TRUE(isFilled(canvas, logical, 0, 21, 63, 84, opaque(0x000000))) << length;
        EXPECT_TRUE(isFilled(canvas, logical, 64, 21, 66, 23, opaque(background))) << "narrow dots beside it";
    }
}

TEST(Waterfall, ThePictureCovers256ColumnsFromRow41)
{
    const auto canvas = rendered(screen(DisplaySimulatorType::waterfall));
    // Component words, read here by hand at a few places.
    const auto& packed = resources::waterfallScreen;
    for (const int y : {41, 42, 100, 169})
        for (const int group : {0, 17, 63}) {
            const auto at = static_cast<std::size_t>(y * 480 + group * 6);
            const std::array<int, 3> first{packed[at + 1] & 0xF0, (packed[at + 1] & 0x0F) << 4, packed[at] & 0xF0};
            EXPECT_EQ(pixelAt(canvas, group * 4, y), (test::PixelBytes{first[0], first[1], first[2], 255}));
        }
    EXPECT_TRUE(isFilled(canvas, physical, 0, 40, 257, 40, opaque(base))) << "row 40 is the main area's own";
    EXPECT_TRUE(isFilled(canvas, physical, 256, 41, 257, 169, opaque(base)));
    EXPECT_TRUE(isFilled(canvas, physical, 258, 42, 259, 169, opaque(0x4C4C4C))) << "the rule stands beside it";
}

/// Rows of the wave in each of its 128 columns, from the top to the bottom one painted.
constexpr std::array<std::array<int, 2>, 128> waveRows{{
    {51, 51}, {51, 51}, {52, 53}, {54, 55}, {56, 56}, {57, 57}, {56, 56}, {53, 55}, //
    {49, 52}, {45, 48}, {41, 44}, {38, 40}, {37, 37}, {37, 38}, {39, 42}, {43, 47}, //
    {48, 52}, {53, 58}, {59, 62}, {63, 64}, {64, 64}, {62, 63}, {58, 61}, {54, 57}, //
    {50, 53}, {47, 49}, {45, 46}, {44, 44}, {45, 45}, {46, 46}, {47, 48}, {49, 50}, //
    {51, 51}, {50, 50}, {48, 49}, {46, 47}, {45, 45}, {44, 44}, {45, 45}, {46, 48}, //
    {49, 52}, {53, 56}, {57, 60}, {61, 63}, {64, 64}, {63, 64}, {59, 62}, {54, 58}, //
    {49, 53}, {43, 48}, {39, 42}, {37, 38}, {37, 37}, {38, 39}, {40, 43}, {44, 47}, //
    {48, 51}, {52, 54}, {55, 56}, {57, 57}, {56, 56}, {55, 55}, {53, 54}, {51, 52}, //
    {51, 51}, {51, 51}, {52, 53}, {54, 55}, {56, 56}, {57, 57}, {56, 56}, {53, 55}, //
    {49, 52}, {45, 48}, {41, 44}, {38, 40}, {37, 37}, {37, 38}, {39, 42}, {43, 47}, //
    {48, 52}, {53, 58}, {59, 62}, {63, 64}, {64, 64}, {62, 63}, {58, 61}, {54, 57}, //
    {50, 53}, {47, 49}, {45, 46}, {44, 44}, {45, 45}, {46, 46}, {47, 48}, {49, 50}, //
    {51, 51}, {50, 50}, {48, 49}, {46, 47}, {45, 45}, {44, 44}, {45, 45}, {46, 48}, //
    {49, 52}, {53, 56}, {57, 60}, {61, 63}, {64, 64}, {63, 64}, {59, 62}, {54, 58}, //
    {49, 53}, {43, 48}, {39, 42}, {37, 38}, {37, 37}, {38, 39}, {40, 43}, {44, 47}, //
    {48, 51}, {52, 54}, {55, 56}, {57, 57}, {56, 56}, {55, 55}, {53, 54}, {51, 52}, //
}};

TEST(Oscilloscope, TheWaveIsTheSameFigureWhateverTheTrigger)
{
    auto fields = screen(DisplaySimulatorType::oscilloscope);
    fields.oscilloscopeWaveRGB = 0xAA0000;
    fields.oscilloscopeUntriggeredRGB = 0x00AA00;
    for (const bool isTriggered : {false, true}) {
        fields.isOscilloscopeTriggered = isTriggered;
        const auto canvas = rendered(fields);
        for (int x = 0; x < 128; ++x)
            for (int y = 32; y < 85; ++y) {
                const auto [top, bottom] = waveRows[static_cast<std::size_t>(x)];
                const bool isWave = y >= top && y <= bottom;
                const auto expected = isWave ? 0xAA0000 : y == 53 ? 0x00AA00 : base;
                ASSERT_TRUE(isFilled(canvas, logical, x, y, x, y, opaque(expected))) << x << ", " << y;
            }
    }
}

TEST(Oscilloscope, TheZeroLineIsPhysicalRows106And107)
{
    auto fields = screen(DisplaySimulatorType::oscilloscope);
    fields.oscilloscopeUntriggeredRGB = 0x00AA00;
    const auto canvas = rendered(fields);
    EXPECT_TRUE(isFilled(canvas, physical, 0, 106, 3, 107, opaque(0x00AA00)));
    EXPECT_TRUE(isFilled(canvas, physical, 254, 106, 255, 107, opaque(0x00AA00)));
    EXPECT_TRUE(isFilled(canvas, physical, 256, 106, 257, 107, opaque(base)));
}

TEST(Oscilloscope, TheLabelTakesTheWavesColourWhenTriggered)
{
    auto fields = screen(DisplaySimulatorType::oscilloscope);
    fields.oscilloscopeWaveRGB = 0xAA0000;
    fields.oscilloscopeUntriggeredRGB = 0x00AA00;
    for (const bool isTriggered : {false, true}) {
        fields.isOscilloscopeTriggered = isTriggered;
        const std::int32_t labelRGB = isTriggered ? 0xAA0000 : 0x00AA00;
        DisplayCanvas label;
        drawText5(label, 112, 21, "T'D", labelRGB, base);
        EXPECT_EQ(test::textOf(rendered(fields), logical, 112, 21, 15, 10, labelRGB, base),
                  test::textOf(label, logical, 112, 21, 15, 10, labelRGB, base));
    }
}

TEST(Monitor, APartHasItsChannelItsApostropheAndItsName)
{
    auto fields = screen(DisplaySimulatorType::performanceMonitor);
    fields.performanceMonitor.setPart(1, "002:Mine", true, false, 1);
    const auto canvas = rendered(fields);
    DisplayCanvas expected;
    fillRect(expected, 0, 42, 127, 48, background, physical);
    drawText6(expected, 1, 42, "CH01", foreground, background);
    drawText6(expected, 31, 42, "001:Piano 1", foreground, background);
    fillRect(expected, 0, 50, 127, 56, background, physical);
    drawText6(expected, 1, 50, "CH02", foreground, background);
    drawText6(expected, 25, 50, "'", foreground, background);
    drawText6(expected, 31, 50, "002:Mine", foreground, background);
    const auto rowsOf = [](const DisplayCanvas& from, int y) {
        return test::textOf(from, physical, 0, y, 128, 7, foreground, background);
    };
    EXPECT_EQ(rowsOf(canvas, 42), rowsOf(expected, 42));
    EXPECT_EQ(rowsOf(canvas, 50), rowsOf(expected, 50));
    EXPECT_NE(test::textOf(canvas, physical, 25, 50, 6, 7, foreground, background),
              test::textOf(canvas, physical, 25, 42, 6, 7, foreground, background))
        << "the apostrophe of the user bank";
}

TEST(Monitor, SixteenRowsStandEightApartOnTheBaseColour)
{
    const auto canvas = rendered(screen(DisplaySimulatorType::performanceMonitor));
    for (int i = 0; i < 16; ++i) {
        const int top = 42 + 8 * i;
        EXPECT_TRUE(isFilled(canvas, physical, 0, top, 0, top + 6, opaque(background))) << i;
        EXPECT_TRUE(isFilled(canvas, physical, 0, top + 7, 127, top + 7, opaque(base))) << i;
        EXPECT_TRUE(isFilled(canvas, physical, 127, top, 127, top + 6, opaque(background))) << i;
    }
    EXPECT_TRUE(isFilled(canvas, physical, 0, 40, 127, 41, opaque(base)));
}

TEST(Monitor, ThePictureStaysRightOfTheNames)
{
    auto fields = screen(DisplaySimulatorType::performanceMonitor);
    for (auto& part : fields.performanceMonitor.parts)
        part.name.clear();
    const auto canvas = rendered(fields);
    const auto& packed = resources::performanceMonitorScreen;
    for (int y = 41; y < 170; ++y)
        for (int group = 32; group < 64; ++group) {
            const auto at = static_cast<std::size_t>(y * 480 + group * 6);
            const test::PixelBytes first{packed[at + 1] & 0xF0, (packed[at + 1] & 0x0F) << 4, packed[at] & 0xF0, 255};
            ASSERT_EQ(pixelAt(canvas, group * 4, y), first) << group * 4 << ", " << y;
        }
}

TEST(Monitor, ALongNameRunsIntoThePictureAndWrapsAtTheScreensEdge)
{
    auto fields = screen(DisplaySimulatorType::performanceMonitor);
    const std::string name(60, 'M');
    fields.performanceMonitor.parts[3].name = name;
    const auto canvas = rendered(fields);
    DisplayCanvas text;
    drawText6(text, 31, 66, name, foreground, background);
    EXPECT_EQ(test::textOf(canvas, physical, 31, 66, 288, 7, foreground, background),
              test::textOf(text, physical, 31, 66, 288, 7, foreground, background));
    // Twelve characters wrap to the next row, where the next part's band and name cover them all.
    DisplayCanvas next;
    fillRect(next, 0, 74, 127, 80, background, physical);
    drawText6(next, 31, 74, "001:Piano 1", foreground, background);
    EXPECT_EQ(test::textOf(canvas, physical, 31, 74, 97, 7, foreground, background),
              test::textOf(next, physical, 31, 74, 97, 7, foreground, background));
}

TEST(Monitor, AListOfAnyLengthIsDrawnAsFarAsItGoes)
{
    auto fields = screen(DisplaySimulatorType::performanceMonitor);
    fields.performanceMonitor.parts.resize(2);
    const auto two = rendered(fields);
    EXPECT_TRUE(isFilled(two, physical, 0, 50, 0, 56, opaque(background)));
    EXPECT_TRUE(isFilled(two, physical, 0, 58, 127, 169, opaque(base)));
    fields.performanceMonitor.parts.resize(100);
    EXPECT_TRUE(isFilled(rendered(fields), physical, 0, 162, 0, 168, opaque(background)));
}

} // namespace
} // namespace orvim
