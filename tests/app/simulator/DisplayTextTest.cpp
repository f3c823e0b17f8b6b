#include "simulator/DisplayText.h"

#include "CanvasReading.h"

#include <algorithm>
#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace orvim {
namespace {

using test::isFilled;
using test::isUntouchedOutside;
using test::opaque;
using test::textOf;
using test::untouched;
using testing::ElementsAre;

constexpr auto logical = DisplayUnit::logical;
constexpr auto physical = DisplayUnit::physical;
constexpr std::int32_t ink = 0xFFFFFF;
constexpr std::int32_t paper = 0x0000FF;

using DrawText = void (*)(DisplayCanvas&, int, int, std::string_view, std::int32_t, std::int32_t);

DisplayCanvas drawn(DrawText draw, int x, int y, std::string_view text)
{
    DisplayCanvas canvas;
    draw(canvas, x, y, text, ink, paper);
    return canvas;
}

TEST(DrawText8, TheLetterAIsEightByTenLogicalPixels)
{
    const auto canvas = drawn(drawText8, 3, 4, "A");
    EXPECT_THAT(textOf(canvas, logical, 3, 4, 8, 10, ink, paper),
                ElementsAre("........", //
                            "..####..", //
                            ".#....#.", //
                            ".#....#.", //
                            ".#....#.", //
                            ".######.", //
                            ".#....#.", //
                            ".#....#.", //
                            "........", //
                            "........"));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 3, 4, 10, 13));
}

TEST(DrawText5, TheLetterAIsFiveByTenLogicalPixels)
{
    const auto canvas = drawn(drawText5, 3, 4, "A");
    EXPECT_THAT(textOf(canvas, logical, 3, 4, 5, 10, ink, paper),
                ElementsAre(".....", //
                            ".##..", //
                            "#..#.", //
                            "#..#.", //
                            "#..#.", //
                            "####.", //
                            "#..#.", //
                            "#..#.", //
                            "#..#.", //
                            "#..#."));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 3, 4, 7, 13));
}

TEST(DrawText6, TheLetterAIsSixBySevenPhysicalPixels)
{
    const auto canvas = drawn(drawText6, 3, 5, "A");
    EXPECT_THAT(textOf(canvas, physical, 3, 5, 6, 7, ink, paper),
                ElementsAre(".####.", //
                            "#...#.", //
                            "#...#.", //
                            "#...#.", //
                            "#####.", //
                            "#...#.", //
                            "#...#."));
    EXPECT_TRUE(isUntouchedOutside(canvas, physical, 3, 5, 8, 11)) << "the eighth stored row is not drawn";
}

TEST(DrawText, ByteTenDrawsABlankCell)
{
    EXPECT_TRUE(isFilled(drawn(drawText8, 0, 0, "\n"), logical, 0, 0, 7, 9, opaque(paper)));
    EXPECT_TRUE(isFilled(drawn(drawText5, 0, 0, "\n"), logical, 0, 0, 4, 9, opaque(paper)));
    EXPECT_TRUE(isFilled(drawn(drawText6, 0, 0, "\n"), physical, 0, 0, 5, 6, opaque(paper)));
    const auto canvas = drawn(drawText8, 0, 0, std::string_view("\0", 1));
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 7, 9, opaque(paper))) << "a zero byte is a cell like others";
}

TEST(DrawText, Byte127LeavesItsCellAsItWasYetThePenMovesOn)
{
    const auto eight = drawn(drawText8, 0, 0, "\x7F ");
    EXPECT_TRUE(isUntouchedOutside(eight, logical, 8, 0, 15, 9));
    EXPECT_TRUE(isFilled(eight, logical, 8, 0, 15, 9, opaque(paper)));
    const auto five = drawn(drawText5, 0, 0, "\x7F ");
    EXPECT_TRUE(isUntouchedOutside(five, logical, 5, 0, 9, 9));
    EXPECT_TRUE(isFilled(five, logical, 5, 0, 9, 9, opaque(paper)));
    const auto six = drawn(drawText6, 0, 0, "\x7F ");
    EXPECT_TRUE(isUntouchedOutside(six, physical, 6, 0, 11, 6));
    EXPECT_TRUE(isFilled(six, physical, 6, 0, 11, 6, opaque(paper)));
}

TEST(DrawText8, WalksTheBytesOfUTF8OneCellEach)
{
    const auto canvas = drawn(drawText8, 0, 0, "あ ");
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 24, 0, 31, 9));
    EXPECT_TRUE(isFilled(canvas, logical, 24, 0, 31, 9, opaque(paper)));
}

TEST(DrawText5And6, TakeTheLowEightBitsOfAScalar)
{
    // U+3042 ends in 0x42, the code of B; U+1F642 too.
    const std::string_view text = "あ🙂";
    EXPECT_TRUE(std::ranges::equal(drawn(drawText5, 0, 0, text).bytes(), drawn(drawText5, 0, 0, "BB").bytes()));
    EXPECT_TRUE(std::ranges::equal(drawn(drawText6, 0, 0, text).bytes(), drawn(drawText6, 0, 0, "BB").bytes()));
}

TEST(DrawText5And6, AnIllFormedByteTakesACellAndLeavesItAsItWas)
{
    const auto canvas = drawn(drawText5, 0, 0, "\xFF ");
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 5, 0, 9, 9));
    EXPECT_TRUE(isFilled(canvas, logical, 5, 0, 9, 9, opaque(paper)));
}

TEST(DrawText8, TwentyCellsFillARowAndTheNextIsTenLower)
{
    const auto row = drawn(drawText8, 0, 0, std::string(20, ' '));
    EXPECT_TRUE(isFilled(row, logical, 0, 0, 159, 9, opaque(paper)));
    EXPECT_TRUE(isUntouchedOutside(row, logical, 0, 0, 159, 9));
    const auto wrapped = drawn(drawText8, 0, 0, std::string(21, ' '));
    EXPECT_TRUE(isFilled(wrapped, logical, 0, 10, 7, 19, opaque(paper)));
    EXPECT_TRUE(isFilled(wrapped, logical, 8, 10, 159, 84, untouched));
}

TEST(DrawText8, WrapsToItsStartWhenThePenPlusEightIs161)
{
    // From 152 the first cell ends at 159; from 153 it would not, and every cell takes a row of its own.
    EXPECT_TRUE(isUntouchedOutside(drawn(drawText8, 152, 0, " "), logical, 152, 0, 159, 9));
    const auto canvas = drawn(drawText8, 145, 30, "   ");
    EXPECT_TRUE(isFilled(canvas, logical, 145, 30, 152, 59, opaque(paper)));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 145, 30, 152, 59));
    EXPECT_TRUE(isUntouchedOutside(drawn(drawText8, 153, 0, " "), logical, 153, 10, 159, 19));
}

TEST(DrawText5, WrapsWhenThePenPlusEightIs164)
{
    // A cell may begin at 155, although one at 155 is the last that the screen has room for anyway.
    EXPECT_TRUE(isUntouchedOutside(drawn(drawText5, 155, 0, " "), logical, 155, 0, 159, 9));
    EXPECT_TRUE(isUntouchedOutside(drawn(drawText5, 156, 0, " "), logical, 156, 10, 159, 19));
    const auto canvas = drawn(drawText5, 0, 0, std::string(33, ' '));
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 159, 9, opaque(paper)));
    EXPECT_TRUE(isFilled(canvas, logical, 0, 10, 4, 19, opaque(paper)));
    EXPECT_TRUE(isFilled(canvas, logical, 5, 10, 159, 84, untouched));
    const auto fromThree = drawn(drawText5, 133, 21, std::string(6, ' '));
    EXPECT_TRUE(isFilled(fromThree, logical, 133, 21, 157, 30, opaque(paper)));
    EXPECT_TRUE(isFilled(fromThree, logical, 133, 31, 137, 40, opaque(paper)));
    EXPECT_TRUE(isFilled(fromThree, logical, 158, 21, 159, 84, untouched));
}

TEST(DrawText6, WrapsWhenThePenPlusSixIs321AndTheNextRowIsEightLower)
{
    EXPECT_TRUE(isUntouchedOutside(drawn(drawText6, 314, 0, " "), physical, 314, 0, 319, 6));
    EXPECT_TRUE(isUntouchedOutside(drawn(drawText6, 315, 0, " "), physical, 315, 8, 319, 14));
    const auto canvas = drawn(drawText6, 31, 42, std::string(49, ' '));
    EXPECT_TRUE(isFilled(canvas, physical, 31, 42, 318, 48, opaque(paper))) << "48 cells fit";
    EXPECT_TRUE(isFilled(canvas, physical, 31, 50, 36, 56, opaque(paper)));
    EXPECT_TRUE(isFilled(canvas, physical, 0, 49, 319, 49, untouched));
}

TEST(DrawText, StopsAtTheLowerEdge)
{
    EXPECT_TRUE(isUntouchedOutside(drawn(drawText8, 0, 75, std::string(25, ' ')), logical, 0, 75, 159, 84));
    EXPECT_TRUE(isFilled(drawn(drawText8, 0, 75, " "), logical, 0, 75, 7, 84, opaque(paper)));
    EXPECT_TRUE(isFilled(drawn(drawText8, 0, 76, " "), logical, 0, 0, 159, 84, untouched));
    EXPECT_TRUE(isFilled(drawn(drawText5, 0, 75, " "), logical, 0, 75, 4, 84, opaque(paper)));
    EXPECT_TRUE(isFilled(drawn(drawText5, 0, 76, " "), logical, 0, 0, 159, 84, untouched));
    EXPECT_TRUE(isFilled(drawn(drawText6, 0, 162, " "), physical, 0, 162, 5, 168, opaque(paper)));
    EXPECT_TRUE(isFilled(drawn(drawText6, 0, 163, " "), physical, 0, 0, 319, 169, untouched));
}

TEST(DrawText, TakesAnyPlaceAndLength)
{
    const std::string text(10'000, 'x');
    for (const DrawText draw : {drawText8, drawText5, drawText6})
        for (const int x : {INT_MIN, -3, 0, 319, INT_MAX})
            for (const int y : {INT_MIN, -3, 169, INT_MAX})
                drawn(draw, x, y, text);
    EXPECT_TRUE(isFilled(drawn(drawText8, INT_MAX, 0, text), logical, 0, 0, 159, 84, untouched));
    const auto left = drawn(drawText8, -3, 0, " ");
    EXPECT_TRUE(isFilled(left, logical, 0, 0, 4, 9, opaque(paper))) << "a cell over the edge is clipped";
    EXPECT_TRUE(isUntouchedOutside(left, logical, 0, 0, 4, 9));
}

} // namespace
} // namespace orvim
