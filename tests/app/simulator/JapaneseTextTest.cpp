#include "simulator/JapaneseText.h"

#include "CanvasReading.h"
#include "simulator/EmbeddedResources.h"
#include "tests/support/Bytes.h"

#include <algorithm>
#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace orvim {
namespace {

using test::bytes;
using test::isFilled;
using test::isUntouchedOutside;
using test::opaque;
using test::textOf;
using test::untouched;
using testing::ElementsAre;

constexpr auto logical = DisplayUnit::logical;
constexpr std::int32_t ink = 0xFFFFFF;
constexpr std::int32_t paper = 0x0000FF;

DisplayCanvas drawn(std::string_view text, int x = 0, int y = 0)
{
    DisplayCanvas canvas;
    drawJapanese(canvas, x, y, text, ink, paper);
    return canvas;
}

DisplayCanvas walked(std::string_view hex, const JapaneseFonts& fonts = builtInJapaneseFonts())
{
    DisplayCanvas canvas;
    drawShiftJIS(canvas, fonts, 0, 0, bytes(hex), ink, paper);
    return canvas;
}

bool areEqual(const DisplayCanvas& a, const DisplayCanvas& b)
{
    return std::ranges::equal(a.bytes(), b.bytes());
}

TEST(JapaneseText, Byte41DrawsTheHalfWidthA)
{
    const auto canvas = walked("41");
    EXPECT_THAT(textOf(canvas, logical, 0, 0, 5, 10, ink, paper),
                ElementsAre(".....", //
                            ".....", //
                            ".##..", //
                            "#..#.", //
                            "#..#.", //
                            "####.", //
                            "#..#.", //
                            "#..#.", //
                            "#..#.", //
                            "....."));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 0, 0, 4, 9)) << "5 pixels wide";
}

TEST(JapaneseText, Code82A0DrawsHiraganaTenPixelsWide)
{
    const auto canvas = walked("82 A0");
    EXPECT_THAT(textOf(canvas, logical, 0, 0, 10, 10, ink, paper),
                ElementsAre("...#......", //
                            "...#......", //
                            "#########.", //
                            "...#......", //
                            "..#####...", //
                            ".##..#.#..", //
                            "#.#.#...#.", //
                            "#.#.#...#.", //
                            ".###...#..", //
                            ".....##..."));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 0, 0, 9, 9));
    EXPECT_TRUE(areEqual(drawn("あ"), canvas));
}

TEST(JapaneseText, ACodeBetweenBlocksIsDrawnAsTheFullWidthQuestionMark)
{
    EXPECT_TRUE(areEqual(walked("81 7F"), walked("81 48")));
    EXPECT_TRUE(areEqual(drawn("？"), walked("81 48")));
    EXPECT_TRUE(areEqual(drawn("\uE000"), walked("81 48"))) << "the user-defined area has codes and no glyphs";
}

TEST(JapaneseText, WithoutAQuestionMarkAMissingCodeLeavesThePenWhereItIs)
{
    // One block, 8140 only, of 10 by 1 pixels.
    const auto full = bytes("46 4F 4E 54 58 32 20 20 20 20 20 20 20 20 0A 01 01 01 40 81 40 81 FF C0");
    const JapaneseFonts fonts{FontX2Font(full), FontX2Font(resources::mplhn10x)};
    const auto canvas = walked("81 41 81 40", fonts);
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 9, 0, opaque(ink)));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 0, 0, 9, 0));
}

TEST(JapaneseText, EmptyFontsDrawNothing)
{
    const JapaneseFonts empty{FontX2Font({}), FontX2Font({})};
    EXPECT_TRUE(areEqual(walked("41 82 A0 B1 81", empty), DisplayCanvas()));
}

TEST(JapaneseText, LeadBytesAreThoseOf81To9FAndE0ToFC)
{
    // Each takes the following byte along: ten pixels of a glyph or its question mark, not five and a half-width A.
    for (int lead = 0x81; lead <= 0xFC; ++lead) {
        const bool isLead = lead <= 0x9F || lead >= 0xE0;
        const std::vector<std::uint8_t> pair{static_cast<std::uint8_t>(lead), 0x41};
        DisplayCanvas canvas;
        EXPECT_EQ(drawShiftJIS(canvas, builtInJapaneseFonts(), 0, 0, pair, ink, paper), 10) << lead;
        const bool secondIsA =
            textOf(canvas, logical, 5, 0, 5, 10, ink, paper) == textOf(walked("41"), logical, 0, 0, 5, 10, ink, paper);
        EXPECT_EQ(secondIsA, !isLead) << lead;
    }
}

TEST(JapaneseText, SingleByteKatakanaIsHalfWidth)
{
    EXPECT_TRUE(isUntouchedOutside(walked("B1"), logical, 0, 0, 4, 9));
    EXPECT_TRUE(areEqual(drawn("ｱ"), walked("B1")));
    EXPECT_FALSE(areEqual(walked("B1"), walked("20")));
}

TEST(JapaneseText, ALeadByteAtTheVeryEndIsDropped)
{
    EXPECT_TRUE(areEqual(walked("41 82"), walked("41")));
    EXPECT_TRUE(areEqual(walked("FC"), DisplayCanvas()));
}

TEST(JapaneseText, ACharacterOutsideShiftJISLeavesTheWholeRowUndrawn)
{
    EXPECT_TRUE(areEqual(drawn("あ😀"), DisplayCanvas()));
    EXPECT_TRUE(areEqual(drawn("é"), DisplayCanvas()));
    EXPECT_TRUE(areEqual(drawn(std::string(500, 'A') + "😀"), DisplayCanvas())) << "also far beyond the right edge";
    EXPECT_TRUE(areEqual(drawn("あ\xFF"), DisplayCanvas())) << "and what is no UTF-8";
    EXPECT_TRUE(areEqual(drawn(""), DisplayCanvas()));
}

TEST(JapaneseText, BothSpellingsOfTheWaveDashAndItsLikeAreTaken)
{
    EXPECT_TRUE(areEqual(drawn("〜−‖"), drawn("～－∥")));
    EXPECT_TRUE(areEqual(drawn("〜−‖"), walked("81 60 81 7C 81 61")));
}

TEST(JapaneseText, ControlCodesAreBlank)
{
    for (int code = 0; code < 0x20; ++code) {
        const auto canvas = drawn(std::string(1, static_cast<char>(code)));
        EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 4, 9, opaque(paper))) << code;
        EXPECT_TRUE(isUntouchedOutside(canvas, logical, 0, 0, 4, 9)) << code;
    }
}

TEST(JapaneseText, DoesNotWrapAndIsClippedAtTheRightEdge)
{
    const auto canvas = drawn("A" + std::string(60, 'B'), 3, 10);
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 3, 10, 159, 19));
    EXPECT_EQ(textOf(canvas, logical, 158, 10, 2, 10, ink, paper), textOf(drawn("B"), logical, 0, 0, 2, 10, ink, paper))
        << "the last cell begins at 158 and shows two of its columns";
}

TEST(JapaneseText, HalfAndFullWidthStandSideBySide)
{
    const auto canvas = drawn("Aあｱ亜");
    EXPECT_EQ(textOf(canvas, logical, 0, 0, 5, 10, ink, paper), textOf(drawn("A"), logical, 0, 0, 5, 10, ink, paper));
    EXPECT_EQ(textOf(canvas, logical, 5, 0, 10, 10, ink, paper),
              textOf(drawn("あ"), logical, 0, 0, 10, 10, ink, paper));
    EXPECT_EQ(textOf(canvas, logical, 15, 0, 5, 10, ink, paper), textOf(drawn("ｱ"), logical, 0, 0, 5, 10, ink, paper));
    EXPECT_EQ(textOf(canvas, logical, 20, 0, 10, 10, ink, paper),
              textOf(drawn("亜"), logical, 0, 0, 10, 10, ink, paper));
    EXPECT_TRUE(isUntouchedOutside(canvas, logical, 0, 0, 29, 9));
}

TEST(JapaneseText, TakesAnyPlace)
{
    for (const int x : {INT_MIN, -7, 155, INT_MAX})
        for (const int y : {INT_MIN, -7, 80, INT_MAX})
            drawn("あいうAｱ", x, y);
    EXPECT_TRUE(areEqual(drawn("あ", INT_MAX, 0), DisplayCanvas()));
    EXPECT_TRUE(isFilled(drawn("　", -7, 80), logical, 0, 80, 2, 84, opaque(paper)));
}

TEST(JapaneseText, EveryPrefixOfAFontDrawsWithoutHarm)
{
    const auto whole = resources::mplhn10x;
    for (std::size_t length = 0; length < whole.size(); length += 7) {
        const std::vector<std::uint8_t> part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const JapaneseFonts fonts{FontX2Font(part), FontX2Font(part)};
        DisplayCanvas canvas;
        const auto end = drawShiftJIS(canvas, fonts, 0, 0, bytes("00 41 FF 82 A0 DF"), ink, paper);
        EXPECT_LE(end, 20) << length;
    }
}

} // namespace
} // namespace orvim
