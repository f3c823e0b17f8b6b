#include "CanvasReading.h"
#include "simulator/RenderDisplay.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::isFilled;
using test::opaque;

constexpr auto logical = DisplayUnit::logical;

DisplayCanvas pianoRoll()
{
    DisplayFields fields;
    fields.displayType = DisplaySimulatorType::pianoRoll;
    fields.baseRGB = 0x778899;
    DisplayCanvas canvas;
    renderDisplay(fields, canvas);
    return canvas;
}

TEST(PianoRoll, ElevenTilesOfKeysReachColumn131)
{
    // The three rows of the tile in 0xRRGGBB: d6ba, 2945, ffff; d6ba, 0, ffff; b5b6, ffff, e71c in RGB565.
    constexpr std::int32_t c = 0xD0D4D0, d = 0x282828, w = 0xF8FCF8, z = 0x000000, b = 0xB0B4B0, g = 0xE0E0E0;
    constexpr std::array<std::array<std::int32_t, 12>, 3> tile{{
        {c, d, w, d, w, c, d, w, d, w, d, w},
        {c, z, w, z, w, c, z, w, z, w, z, w},
        {b, w, g, w, g, b, w, g, w, g, w, g},
    }};
    const auto canvas = pianoRoll();
    constexpr std::array<int, 9> marked{60, 63, 67, 21, 23, 26, 120, 122, 125};
    for (int x = 0; x < 132; ++x) {
        if (std::ranges::find(marked, x) != marked.end()) continue;
        for (int row = 0; row < 3; ++row)
            EXPECT_TRUE(isFilled(canvas, logical, x, 21 + row, x, 21 + row,
                                 opaque(tile[static_cast<std::size_t>(row)][static_cast<std::size_t>(x % 12)])))
                << x << ", " << row;
    }
    EXPECT_TRUE(isFilled(canvas, logical, 0, 20, 128, 20, opaque(0x778899)));
    EXPECT_TRUE(isFilled(canvas, logical, 129, 24, 129, 84, opaque(0x4C4C4C))) << "the rule below the last tile";
    EXPECT_TRUE(isFilled(canvas, logical, 128, 24, 128, 84, opaque(0x778899)));
}

TEST(PianoRoll, MarksTheKeyOfEveryNoteColumn)
{
    constexpr std::array<std::array<int, 2>, 9> bottoms{{{60, 22},
                                                         {63, 23},
                                                         {67, 22},
                                                         {21, 22},
                                                         {23, 23}, //
                                                         {26, 22},
                                                         {120, 22},
                                                         {122, 22},
                                                         {125, 22}}};
    const auto canvas = pianoRoll();
    for (const auto& [x, bottom] : bottoms) {
        EXPECT_TRUE(isFilled(canvas, logical, x, 21, x, bottom, opaque(0xF80000))) << x;
        if (bottom == 22) {
            EXPECT_FALSE(isFilled(canvas, logical, x, 23, x, 23, opaque(0xF80000))) << x;
        }
    }
}

TEST(PianoRoll, NotesStandInTheirColumnsOnTheRowLines)
{
    // The roll below the keys as a plain picture made point by point.
    std::array<std::array<std::int32_t, 128>, 85> expected{};
    const auto column = [&](int x, int top, int bottom, std::int32_t rgb) {
        for (int y = top; y <= bottom; ++y)
            expected[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = rgb;
    };
    for (int x = 0; x <= 127; ++x)
        for (const int y : {28, 43, 58, 73})
            column(x, y, y, 0x303030);
    for (const int x : {60, 63, 67}) {
        column(x, 24, 70, 0x00BCF8);
        column(x, 72, 73, 0x00BCF8);
        column(x, 75, 76, 0x00BCF8);
        column(x, 78, 79, 0x00BCF8);
        column(x, 81, 82, 0x00BCF8);
    }
    for (const int x : {21, 23, 26}) {
        column(x, 24, 32, 0xF868B0);
        column(x, 42, 50, 0xF868B0);
        column(x, 60, 68, 0xF868B0);
        column(x, 78, 84, 0xF868B0);
    }
    for (const int x : {120, 122, 125})
        for (int y = 24; y <= 84; ++y)
            column(x - std::abs(y - 42), y, y, 0x00FC00);

    const auto canvas = pianoRoll();
    for (int y = 24; y < 85; ++y)
        for (int x = 0; x < 128; ++x)
            ASSERT_TRUE(isFilled(canvas, logical, x, y, x, y,
                                 opaque(expected[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)])))
                << x << ", " << y;
}

} // namespace
} // namespace orvim
