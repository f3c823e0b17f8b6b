#include "CanvasReading.h"
#include "RenderedScreen.h"
#include "simulator/DisplayText.h"
#include "simulator/JapaneseText.h"

#include <gtest/gtest.h>
#include <string>

namespace orvim {
namespace {

using test::isFilled;
using test::logical;
using test::opaque;
using test::rendered;
using test::textOf;

constexpr std::int32_t ink = 0x8EBCFC;
constexpr std::int32_t paper = 0x213A60;

DisplayFields withText(std::string text)
{
    DisplayFields fields;
    fields.asciiText = std::move(text);
    fields.showsUSB = false;
    return fields;
}

std::vector<std::string> headerOf(const DisplayCanvas& canvas)
{
    return textOf(canvas, logical, 0, 0, 160, 20, ink, paper);
}

/// The header as two texts of 20 characters that are drawn row by row.
std::vector<std::string> twoRows(std::string_view upper, std::string_view lower)
{
    DisplayCanvas canvas;
    drawText8(canvas, 0, 0, upper, ink, paper);
    drawText8(canvas, 0, 10, lower, ink, paper);
    return headerOf(canvas);
}

TEST(Header, TheBannerStandsInTwoRowsOfTwenty)
{
    EXPECT_EQ(headerOf(rendered(withText(displayBanner))), twoRows("    [Tonavelle]     ", "- MIDI Synthesizer -"));
}

TEST(Header, OfFortyFiveCharactersTheFirstFortyAreShown)
{
    EXPECT_EQ(headerOf(rendered(withText("ABCDEFGHIJKLMNOPQRSTabcdefghijklmnopqrst12345"))),
              twoRows("ABCDEFGHIJKLMNOPQRST", "abcdefghijklmnopqrst"));
}

TEST(Header, FiveCharactersAreFollowedByBlanks)
{
    EXPECT_EQ(headerOf(rendered(withText("Hello"))), twoRows("Hello               ", "                    "));
    EXPECT_EQ(headerOf(rendered(withText(""))), twoRows("                    ", "                    "));
}

TEST(Header, CharactersAreCountedAsScalarsAndDrawnAsBytes)
{
    // Each é is one of the forty characters and two empty cells.
    EXPECT_EQ(headerOf(rendered(withText("ééééé" + std::string(35, 'A')))),
              twoRows("          AAAAAAAAAA", std::string(20, 'A')));

    // Twenty of them are forty cells, so that twenty letters come third and fall on the main area, which covers them;
    // beside it the top row of their cells remains. The letter after them is the 41st character.
    std::string text;
    for (int i = 0; i < 20; ++i)
        text += "é";
    const auto canvas = rendered(withText(text + std::string(20, 'A') + "#"));
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 159, 19, opaque(paper)));
    EXPECT_TRUE(isFilled(canvas, logical, 0, 20, 128, 20, opaque(0x000000)));
    EXPECT_TRUE(isFilled(canvas, logical, 129, 20, 159, 20, opaque(paper)));
    EXPECT_TRUE(isFilled(canvas, logical, 158, 31, 159, 31, opaque(0x000000))) << "no fourth row";
}

TEST(Header, TheUSBMarkIsAReversedUOverTheLastCharacter)
{
    DisplayFields fields;
    fields.asciiText = std::string(40, '#');
    const auto marked = rendered(fields);
    fields.showsUSB = false;
    const auto plain = rendered(fields);

    EXPECT_TRUE(isFilled(marked, logical, 152, 0, 152, 9, opaque(ink)));
    DisplayCanvas letter;
    drawText5(letter, 0, 0, "U", paper, ink);
    EXPECT_EQ(textOf(marked, logical, 153, 0, 5, 10, ink, paper), textOf(letter, logical, 0, 0, 5, 10, ink, paper));
    EXPECT_EQ(textOf(marked, logical, 0, 0, 152, 20, ink, paper), textOf(plain, logical, 0, 0, 152, 20, ink, paper));
    EXPECT_EQ(textOf(marked, logical, 158, 0, 2, 10, ink, paper), textOf(plain, logical, 158, 0, 2, 10, ink, paper))
        << "the mark covers columns 152 to 157 only";
    EXPECT_EQ(textOf(marked, logical, 152, 10, 8, 10, ink, paper), textOf(plain, logical, 152, 10, 8, 10, ink, paper));
}

TEST(Header, WithoutTheUSBMarkTheTextStandsWhole)
{
    const std::string row(20, '#');
    EXPECT_EQ(headerOf(rendered(withText(row + row))), twoRows(row, row));
}

TEST(Header, JapaneseRowsStandAtZeroAndTenWithoutUSBMark)
{
    DisplayFields fields;
    fields.isJapaneseMode = true;
    fields.japaneseUpper = "こんにちは";
    fields.japaneseLower = "ﾃｽﾄ 123";
    DisplayCanvas expected;
    fillRect(expected, 0, 0, 159, 19, paper);
    drawJapanese(expected, 0, 0, "こんにちは", ink, paper);
    drawJapanese(expected, 0, 10, "ﾃｽﾄ 123", ink, paper);
    EXPECT_EQ(headerOf(rendered(fields)), headerOf(expected));
}

TEST(Header, AnEmptyJapaneseUpperLeavesRowOneAsPlainHeaderBackground)
{
    DisplayFields fields;
    fields.isJapaneseMode = true;
    fields.japaneseLower = "下";
    const auto canvas = rendered(fields);
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 159, 9, opaque(paper)));
    EXPECT_FALSE(isFilled(canvas, logical, 0, 10, 9, 19, opaque(paper)));
}

TEST(Header, AJapaneseRowOutsideShiftJISStaysUndrawnWhileItsBackgroundStays)
{
    DisplayFields fields;
    fields.isJapaneseMode = true;
    fields.japaneseUpper = "歌😀";
    fields.japaneseLower = "歌";
    const auto canvas = rendered(fields);
    EXPECT_TRUE(isFilled(canvas, logical, 0, 0, 159, 9, opaque(paper)));
    EXPECT_FALSE(isFilled(canvas, logical, 0, 10, 9, 19, opaque(paper)));
}

} // namespace
} // namespace orvim
