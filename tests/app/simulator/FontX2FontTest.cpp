#include "simulator/FontX2Font.h"

#include "simulator/EmbeddedResources.h"
#include "tests/support/Bytes.h"

#include <array>
#include <gtest/gtest.h>

namespace orvim {
namespace {

using tonavelle::Message;

/// A half-width font of 5 by 2 pixels with the glyphs of the codes 0 and 1.
Message twoHalfWidthGlyphs()
{
    return test::bytes("46 4F 4E 54 58 32 20 20 20 20 20 20 20 20 05 02 00 "
                       "F8 08 "
                       "10 20");
}

/// A full-width font of 10 by 1 pixels with the blocks 8140-8141 and 8148-8149.
Message fourFullWidthGlyphs()
{
    return test::bytes("46 4F 4E 54 58 32 20 20 20 20 20 20 20 20 0A 01 01 02 "
                       "40 81 41 81 48 81 49 81 "
                       "FF C0 80 00 00 40 12 34");
}

TEST(FontX2Font, AHalfWidthGlyphStandsAtItsCodeTimesItsSize)
{
    const auto file = twoHalfWidthGlyphs();
    const FontX2Font font(file);
    EXPECT_EQ(font.glyphOffset(0), 17u);
    EXPECT_EQ(font.glyphOffset(1), 19u);
    const auto glyph = font.glyph(1);
    ASSERT_TRUE(glyph);
    EXPECT_EQ(glyph->width, 5);
    EXPECT_EQ(glyph->height, 2);
    EXPECT_EQ(glyph->bytesPerRow, 1u);
    EXPECT_EQ(Message(glyph->rows.begin(), glyph->rows.end()), test::bytes("10 20"));
}

TEST(FontX2Font, AFullWidthGlyphIsFoundByCountingTheBlocksBefore)
{
    const auto file = fourFullWidthGlyphs();
    const FontX2Font font(file);
    EXPECT_EQ(font.glyphOffset(0x8140), 26u);
    EXPECT_EQ(font.glyphOffset(0x8141), 28u);
    EXPECT_EQ(font.glyphOffset(0x8148), 30u);
    EXPECT_EQ(font.glyphOffset(0x8149), 32u);
    EXPECT_EQ(font.glyphOffset(0x813F), std::nullopt);
    EXPECT_EQ(font.glyphOffset(0x8142), std::nullopt);
    EXPECT_EQ(font.glyphOffset(0x814A), std::nullopt);
    const auto glyph = font.glyph(0x8149);
    ASSERT_TRUE(glyph);
    EXPECT_EQ(glyph->bytesPerRow, 2u);
    EXPECT_EQ(Message(glyph->rows.begin(), glyph->rows.end()), test::bytes("12 34"));
}

TEST(FontX2Font, AHalfWidthFontHasNoCodeAbove255)
{
    EXPECT_EQ(FontX2Font(resources::mplhn10x).glyphOffset(255), 2567u);
    EXPECT_EQ(FontX2Font(resources::mplhn10x).glyphOffset(256), std::nullopt);
}

TEST(FontX2Font, AFontOfFewerThanNineteenBytesHasNoGlyphs)
{
    // One byte a glyph, so that the one of code 0 would lie inside the 18 bytes.
    auto file = twoHalfWidthGlyphs();
    file[15] = 1;
    file.resize(19);
    EXPECT_EQ(FontX2Font(file).glyphOffset(0), 17u);
    file.resize(18);
    EXPECT_EQ(FontX2Font(file).glyphOffset(0), std::nullopt);
    EXPECT_EQ(FontX2Font({}).glyphOffset(0), std::nullopt);
}

TEST(FontX2Font, AGlyphThatWouldRunPastTheEndIsMissing)
{
    auto half = twoHalfWidthGlyphs();
    half.pop_back();
    EXPECT_EQ(FontX2Font(half).glyphOffset(0), 17u);
    EXPECT_EQ(FontX2Font(half).glyphOffset(1), std::nullopt);
    auto full = fourFullWidthGlyphs();
    full.pop_back();
    EXPECT_EQ(FontX2Font(full).glyphOffset(0x8148), 30u);
    EXPECT_EQ(FontX2Font(full).glyphOffset(0x8149), std::nullopt);
}

TEST(FontX2Font, EveryPrefixOfAFontOnlyLosesGlyphs)
{
    constexpr std::array<std::uint16_t, 7> codes{0x0000, 0x0001, 0x8140, 0x8141, 0x8148, 0x8149, 0xFFFF};
    for (const auto& whole : {twoHalfWidthGlyphs(), fourFullWidthGlyphs()})
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const Message part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            for (const std::uint16_t code : codes) {
                const auto offset = FontX2Font(part).glyphOffset(code);
                EXPECT_TRUE(!offset || offset == FontX2Font(whole).glyphOffset(code)) << code;
            }
            EXPECT_EQ(FontX2Font(part).glyphOffset(0x8149), std::nullopt);
        }
}

TEST(FontX2Font, ABlockThatEndsBeforeItBeginsHoldsNothing)
{
    auto file = fourFullWidthGlyphs();
    file[20] = 0x3F; // the first block becomes 8140-813F
    EXPECT_EQ(FontX2Font(file).glyphOffset(0x8140), std::nullopt);
    EXPECT_EQ(FontX2Font(file).glyphOffset(0x8148), 26u);
}

TEST(BuiltInFonts, AreAsLongAsTheirGlyphsAsk)
{
    EXPECT_EQ(resources::mplzn10x.size(), 139'690u);
    EXPECT_EQ(resources::mplhn10x.size(), 2'577u);
    const FontX2Font font(resources::mplzn10x);
    EXPECT_EQ(font.glyphOffset(0x8140), 390u) << "after 18 bytes and 93 blocks of four";
    EXPECT_EQ(font.glyphOffset(0x817E), 1'630u);
    EXPECT_EQ(font.glyphOffset(0x817F), std::nullopt);
    EXPECT_EQ(font.glyphOffset(0x8180), 1'650u);
    EXPECT_EQ(font.glyphOffset(0x82A0), 4'590u);
    EXPECT_EQ(font.glyphOffset(0xEAA6), 139'670u) << "the last of 6,965 glyphs";
}

} // namespace
} // namespace orvim
