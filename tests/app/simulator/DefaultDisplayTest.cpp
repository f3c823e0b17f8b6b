#include "CanvasReading.h"
#include "DisplaySimulatorState.h"
#include "simulator/DisplayText.h"
#include "simulator/RenderDisplay.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::isFilled;
using test::opaque;
using test::textOf;

constexpr auto logical = DisplayUnit::logical;
constexpr std::int32_t ink = 0x8EBCFC;
constexpr std::int32_t paper = 0x213A60;
constexpr std::int32_t base = 0x000000;

/// The screen as it is when the program starts.
DisplayCanvas defaultDisplay()
{
    const DisplaySimulatorState state;
    DisplayCanvas canvas;
    renderDisplay(state.fields(), canvas);
    return canvas;
}

TEST(DefaultDisplay, HeaderHasTheBannerInTwoRowsAndAReversedUAtTheEndOfTheFirst)
{
    DisplayCanvas expected;
    drawText8(expected, 0, 0, "    [Tonavelle]     ", ink, paper);
    drawText8(expected, 0, 10, "- MIDI Synthesizer -", ink, paper);
    fillRect(expected, 152, 0, 157, 9, ink);
    drawText5(expected, 153, 0, "U", paper, ink);
    EXPECT_EQ(textOf(defaultDisplay(), logical, 0, 0, 160, 20, ink, paper),
              textOf(expected, logical, 0, 0, 160, 20, ink, paper));
}

TEST(DefaultDisplay, MetersStandAt20And53)
{
    const auto canvas = defaultDisplay();
    // Entries 47 and 20 of the dark table just above the bars, and of the bright one below: 20 * 52 / 64 = 16 rows and
    // 53 * 52 / 64 = 43 rows over the base row.
    EXPECT_TRUE(isFilled(canvas, logical, 132, 67, 143, 67, opaque(0x002400)));
    EXPECT_TRUE(isFilled(canvas, logical, 132, 68, 143, 84, opaque(0x00FC00)));
    EXPECT_TRUE(isFilled(canvas, logical, 146, 40, 157, 40, opaque(0x202400)));
    EXPECT_TRUE(isFilled(canvas, logical, 146, 41, 157, 41, opaque(0xF8FC00)));
    EXPECT_TRUE(isFilled(canvas, logical, 146, 84, 157, 84, opaque(0x00FC00)));
}

TEST(DefaultDisplay, TheCountIs24Of60)
{
    DisplayCanvas expected;
    fillRect(expected, 130, 20, 159, 31, base);
    drawText5(expected, 133, 21, "24/60", ink, base);
    EXPECT_EQ(textOf(defaultDisplay(), logical, 130, 20, 30, 12, ink, base),
              textOf(expected, logical, 130, 20, 30, 12, ink, base));
}

TEST(DefaultDisplay, AllSixteenDotColumnsAreLitOneHigh)
{
    const auto canvas = defaultDisplay();
    for (int column = 0; column < 16; ++column) {
        const int x = 8 * column;
        EXPECT_TRUE(isFilled(canvas, logical, x, 81, x + 6, 83, opaque(ink))) << column;
        for (int row = 0; row < 15; ++row)
            EXPECT_TRUE(isFilled(canvas, logical, x, 21 + 4 * row, x + 6, 23 + 4 * row, opaque(paper))) << column;
    }
}

} // namespace
} // namespace orvim
