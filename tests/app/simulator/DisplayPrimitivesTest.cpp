#include "simulator/DisplayPrimitives.h"

#include "CanvasReading.h"
#include "simulator/BitmapGlyph.h"

#include <algorithm>
#include <array>
#include <climits>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace orvim {
namespace {

using test::isFilled;
using test::isUntouchedOutside;
using test::opaque;
using test::pixelAt;
using test::untouched;

constexpr auto logical = DisplayUnit::logical;
constexpr auto physical = DisplayUnit::physical;

bool areEqual(const DisplayCanvas& a, const DisplayCanvas& b)
{
    return std::ranges::equal(a.bytes(), b.bytes());
}

TEST(DisplayCanvas, IsZeroFilledWhenMade)
{
    const DisplayCanvas canvas;
    EXPECT_EQ(canvas.bytes().size(), 217'600u);
    EXPECT_TRUE(isFilled(canvas, physical, 0, 0, 319, 169, untouched));
}

TEST(DisplayCanvas, HoldsRedGreenBlueAlphaInThisOrder)
{
    DisplayCanvas canvas;
    putPixel(canvas, 1, 2, 0x123456);
    const auto bytes = canvas.bytes();
    EXPECT_EQ(bytes[2 * 1280 + 4], 0x12);
    EXPECT_EQ(bytes[2 * 1280 + 5], 0x34);
    EXPECT_EQ(bytes[2 * 1280 + 6], 0x56);
    EXPECT_EQ(bytes[2 * 1280 + 7], 0xFF);
}

TEST(DisplayColors, RGB565WidensWithoutBitReplication)
{
    EXPECT_EQ(rgbFromRGB565(0xFFFF), 0xF8FCF8);
    EXPECT_EQ(rgbFromRGB565(0x0000), 0x000000);
    EXPECT_EQ(rgbFromRGB565(0x0821), 0x080408);
    EXPECT_EQ(rgbFromRGB565(0xF800), 0xF80000);
    EXPECT_EQ(rgbFromRGB565(0x07E0), 0x00FC00);
    EXPECT_EQ(rgbFromRGB565(0x001F), 0x0000F8);
}

TEST(PutPixel, PaintsOnePhysicalPixelAndNothingOutside)
{
    DisplayCanvas canvas;
    putPixel(canvas, 319, 169, 0xABCDEF);
    EXPECT_EQ(pixelAt(canvas, 319, 169), opaque(0xABCDEF));
    EXPECT_TRUE(isUntouchedOutside(canvas, physical, 319, 169, 319, 169));

    DisplayCanvas empty;
    for (const int far : {INT_MIN, -1, 320, INT_MAX}) {
        putPixel(empty, far, 0, 0xFFFFFF);
        putPixel(empty, 0, far == 320 ? 170 : far, 0xFFFFFF);
    }
    EXPECT_TRUE(areEqual(empty, DisplayCanvas()));
}

TEST(PutPixel, DropsWhatAColourHasAboveItsTwentyFourBits)
{
    DisplayCanvas canvas;
    putPixel(canvas, 0, 0, -1);
    putPixel(canvas, 1, 0, 0x7F010203);
    EXPECT_EQ(pixelAt(canvas, 0, 0), opaque(0xFFFFFF));
    EXPECT_EQ(pixelAt(canvas, 1, 0), opaque(0x010203));
}

TEST(FillRect, LogicalPixelIsABlockOfFour)
{
    DisplayCanvas canvas;
    fillRect(canvas, 7, 9, 7, 9, 0x112233);
    EXPECT_TRUE(isFilled(canvas, physical, 14, 18, 15, 19, opaque(0x112233)));
    EXPECT_TRUE(isUntouchedOutside(canvas, physical, 14, 18, 15, 19));
}

TEST(FillRect, BothCornersAreIncludedAndComeInAnyOrder)
{
    const std::array<std::array<int, 4>, 4> orders{
        {{10, 20, 30, 40}, {30, 40, 10, 20}, {10, 40, 30, 20}, {30, 20, 10, 40}}};
    for (const auto unit : {logical, physical})
        for (const auto& [x0, y0, x1, y1] : orders) {
            DisplayCanvas canvas;
            fillRect(canvas, x0, y0, x1, y1, 0x112233, unit);
            EXPECT_TRUE(isFilled(canvas, unit, 10, 20, 30, 40, opaque(0x112233)));
            EXPECT_TRUE(isUntouchedOutside(canvas, unit, 10, 20, 30, 40));
        }
}

TEST(FillRect, OutsideIsDroppedPixelByPixel)
{
    DisplayCanvas canvas;
    fillRect(canvas, -5, -5, 2, 3, 0x010101);
    fillRect(canvas, 158, 83, 1000, 1000, 0x020202);
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 2, 3, opaque(0x010101)));
    EXPECT_TRUE(isFilled(canvas, logical, 158, 83, 159, 84, opaque(0x020202)));
    EXPECT_EQ(pixelAt(canvas, 6, 0), untouched);
    EXPECT_EQ(pixelAt(canvas, 315, 169), untouched);
}

TEST(FillRect, FarAwayCornersNeitherOverflowNorPaint)
{
    DisplayCanvas canvas;
    fillRect(canvas, INT_MAX, 0, INT_MAX, 84, 0xFFFFFF);
    fillRect(canvas, INT_MIN, INT_MIN, -1, INT_MAX, 0xFFFFFF);
    fillRect(canvas, 0, 85, 159, INT_MAX, 0xFFFFFF);
    EXPECT_TRUE(areEqual(canvas, DisplayCanvas()));
    fillRect(canvas, INT_MAX, INT_MAX, INT_MIN, INT_MIN, 0x333333);
    EXPECT_TRUE(isFilled(canvas, physical, 0, 0, 319, 169, opaque(0x333333)));
}

TEST(DrawBitmap, DrawsRowByRowInEitherUnit)
{
    const std::vector<std::uint16_t> pixels{0xF800, 0x07E0, 0x001F, 0xFFFF, 0x0000, 0x0821};
    for (const auto unit : {logical, physical}) {
        DisplayCanvas canvas;
        drawBitmap(canvas, pixels, 3, 2, 5, 6, unit);
        EXPECT_TRUE(isFilled(canvas, unit, 5, 6, 5, 6, opaque(0xF80000)));
        EXPECT_TRUE(isFilled(canvas, unit, 6, 6, 6, 6, opaque(0x00FC00)));
        EXPECT_TRUE(isFilled(canvas, unit, 7, 6, 7, 6, opaque(0x0000F8)));
        EXPECT_TRUE(isFilled(canvas, unit, 5, 7, 5, 7, opaque(0xF8FCF8)));
        EXPECT_TRUE(isFilled(canvas, unit, 6, 7, 6, 7, opaque(0x000000)));
        EXPECT_TRUE(isFilled(canvas, unit, 7, 7, 7, 7, opaque(0x080408)));
        EXPECT_TRUE(isUntouchedOutside(canvas, unit, 5, 6, 7, 7));
    }
}

TEST(DrawBitmap, DrawsNothingWhenAPixelIsMissing)
{
    DisplayCanvas canvas;
    drawBitmap(canvas, std::vector<std::uint16_t>(63, 0xFFFF), 8, 8, 0, 0);
    drawBitmap(canvas, {}, 1, 1, 0, 0);
    drawBitmap(canvas, std::vector<std::uint16_t>(64, 0xFFFF), INT_MAX, INT_MAX, 0, 0);
    EXPECT_TRUE(areEqual(canvas, DisplayCanvas()));
}

TEST(DrawBitmap, LeavesPixelsThatAreTooManyAside)
{
    DisplayCanvas canvas;
    drawBitmap(canvas, std::vector<std::uint16_t>(65, 0xFFFF), 8, 8, 0, 0);
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 7, 7, opaque(0xF8FCF8)));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 0, 0, 7, 7));
}

TEST(DrawBitmap, DrawsNothingOfNoOrNegativeSize)
{
    DisplayCanvas canvas;
    const std::vector<std::uint16_t> pixels(64, 0xFFFF);
    for (const int size : {INT_MIN, -1, 0}) {
        drawBitmap(canvas, pixels, size, 8, 0, 0);
        drawBitmap(canvas, pixels, 8, size, 0, 0);
    }
    EXPECT_TRUE(areEqual(canvas, DisplayCanvas()));
}

/// The plain way to do what the primitives do by rows: every pixel for itself.
void putBlock(DisplayCanvas& canvas, std::int64_t x, std::int64_t y, std::int32_t rgb, DisplayUnit unit)
{
    const std::int64_t scale = unit == logical ? 2 : 1;
    for (std::int64_t row = y * scale; row < (y + 1) * scale; ++row)
        for (std::int64_t column = x * scale; column < (x + 1) * scale; ++column)
            putPixel(canvas, static_cast<int>(column), static_cast<int>(row), rgb);
}

struct RandomPlaces {
    std::mt19937 source{20260711};

    int operator()(int from, int to) { return std::uniform_int_distribution<int>(from, to)(source); }
    DisplayUnit unit() { return (*this)(0, 1) == 0 ? logical : physical; }
};

TEST(Primitives, FillTheSamePixelsAsThePlainWayAnywhere)
{
    RandomPlaces random;
    for (int i = 0; i < 200; ++i) {
        const auto unit = random.unit();
        const int x0 = random(-60, 380), y0 = random(-60, 230), x1 = random(-60, 380), y1 = random(-60, 230);
        DisplayCanvas fast;
        fillRect(fast, x0, y0, x1, y1, i, unit);
        DisplayCanvas plain;
        for (int y = std::min(y0, y1); y <= std::max(y0, y1); ++y)
            for (int x = std::min(x0, x1); x <= std::max(x0, x1); ++x)
                putBlock(plain, x, y, i, unit);
        ASSERT_TRUE(areEqual(fast, plain)) << x0 << " " << y0 << " " << x1 << " " << y1;
    }
}

TEST(Primitives, DrawTheSameBitmapAsThePlainWayAnywhere)
{
    RandomPlaces random;
    std::vector<std::uint16_t> pixels(64 * 64);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint16_t>(i * 13);
    for (int i = 0; i < 200; ++i) {
        const auto unit = random.unit();
        const int width = random(1, 64), height = random(1, 64), x = random(-80, 340), y = random(-80, 190);
        DisplayCanvas fast;
        drawBitmap(fast, pixels, width, height, x, y, unit);
        DisplayCanvas plain;
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column)
                putBlock(plain, x + column, y + row,
                         rgbFromRGB565(pixels[static_cast<std::size_t>(row * width + column)]), unit);
        ASSERT_TRUE(areEqual(fast, plain)) << width << " by " << height << " at " << x << ", " << y;
    }
}

TEST(Primitives, DrawTheSameGlyphAsThePlainWayAnywhere)
{
    RandomPlaces random;
    std::vector<std::uint8_t> bits(32 * 40);
    for (auto& byte : bits)
        byte = static_cast<std::uint8_t>(random(0, 255));
    for (int i = 0; i < 300; ++i) {
        const auto unit = random.unit();
        const int width = random(0, 255), height = random(0, 40), x = random(-260, 340), y = random(-50, 190);
        const auto bytesPerRow = static_cast<std::size_t>(width + 7) / 8;
        DisplayCanvas fast;
        drawGlyph(fast, {bits, width, height, bytesPerRow, 0}, x, y, 0xFF0000, 0x00FF00, unit);
        DisplayCanvas plain;
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column) {
                const auto byte =
                    bits[static_cast<std::size_t>(row) * bytesPerRow + static_cast<std::size_t>(column / 8)];
                const bool isInk = (byte >> (7 - column % 8) & 1) != 0;
                putBlock(plain, x + column, y + row, isInk ? 0xFF0000 : 0x00FF00, unit);
            }
        ASSERT_TRUE(areEqual(fast, plain)) << width << " by " << height << " at " << x << ", " << y;
    }
}

TEST(Primitives, TakeAnyPlaceWithoutPaintingOrOverflowing)
{
    DisplayCanvas canvas;
    const std::vector<std::uint16_t> pixels(64, 0xFFFF);
    const std::vector<std::uint8_t> bits(10, 0xFF);
    for (const auto unit : {logical, physical})
        for (const int far : {INT_MIN, INT_MIN + 1, -1000, 1000, INT_MAX - 1, INT_MAX}) {
            drawBitmap(canvas, pixels, 8, 8, far, 0, unit);
            drawBitmap(canvas, pixels, 8, 8, 0, far, unit);
            drawGlyph(canvas, {bits, 8, 10, 1, 0}, far, 0, 1, 2, unit);
            drawGlyph(canvas, {bits, 8, 10, 1, 0}, 0, far, 1, 2, unit);
        }
    EXPECT_TRUE(areEqual(canvas, DisplayCanvas()));
}

} // namespace
} // namespace orvim
