#include "simulator/PackedPicture.h"

#include "CanvasReading.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace orvim {
namespace {

using test::isFilled;
using test::opaque;
using test::pixelAt;
using test::untouched;

constexpr auto physical = DisplayUnit::physical;

/// A picture of which every row is filled with one colour: 0x0RGB is the row's number.
std::vector<std::uint8_t> numberedRows()
{
    std::vector<std::uint8_t> packed;
    for (unsigned row = 0; row < 170; ++row)
        for (unsigned i = 0; i < 80; ++i) {
            // Four pixels 0RGB 0RGB 0RGB 0RGB make three words RGBR GBRG BRGB.
            const unsigned r = row >> 8 & 15, g = row >> 4 & 15, b = row & 15;
            for (const auto& [n0, n1, n2, n3] :
                 {std::array{r, g, b, r}, std::array{g, b, r, g}, std::array{b, r, g, b}}) {
                packed.push_back(static_cast<std::uint8_t>(n2 << 4 | n3));
                packed.push_back(static_cast<std::uint8_t>(n0 << 4 | n1));
            }
        }
    return packed;
}

std::int32_t colorOfRow(int row)
{
    return (row >> 4 & 15) << 12 | (row & 15) << 4;
}

TEST(PackedPicture, ComponentsComeFromLittleEndianWordsHighestNibbleFirst)
{
    std::vector<std::uint8_t> packed(480 * 170);
    // Words 0x1234 0x5678 0x9ABC: pixels 123 456 789 ABC.
    packed[0] = 0x34;
    packed[1] = 0x12;
    packed[2] = 0x78;
    packed[3] = 0x56;
    packed[4] = 0xBC;
    packed[5] = 0x9A;
    DisplayCanvas canvas;
    drawPacked(canvas, PackedPicture(packed), PackedPictureArea::whole);
    EXPECT_EQ(pixelAt(canvas, 0, 0), opaque(0x102030));
    EXPECT_EQ(pixelAt(canvas, 1, 0), opaque(0x405060));
    EXPECT_EQ(pixelAt(canvas, 2, 0), opaque(0x708090));
    EXPECT_EQ(pixelAt(canvas, 3, 0), opaque(0xA0B0C0));
    EXPECT_EQ(pixelAt(canvas, 4, 0), opaque(0x000000));
}

TEST(PackedPicture, WholeFillsTheScreenFromRowZero)
{
    DisplayCanvas canvas;
    drawPacked(canvas, PackedPicture(numberedRows()), PackedPictureArea::whole);
    for (int row = 0; row < 170; ++row)
        EXPECT_TRUE(isFilled(canvas, physical, 0, row, 319, row, opaque(colorOfRow(row))));
}

TEST(PackedPicture, RegionIs256ColumnsFromRow41OfBothPictureAndScreen)
{
    DisplayCanvas canvas;
    drawPacked(canvas, PackedPicture(numberedRows()), PackedPictureArea::region);
    EXPECT_TRUE(isFilled(canvas, physical, 0, 0, 319, 40, untouched));
    for (int row = 41; row < 170; ++row)
        EXPECT_TRUE(isFilled(canvas, physical, 0, row, 255, row, opaque(colorOfRow(row))));
    EXPECT_TRUE(isFilled(canvas, physical, 256, 41, 319, 169, untouched));
}

TEST(PackedPicture, RowsPastTheScreenAreDropped)
{
    auto packed = numberedRows();
    packed.insert(packed.end(), 480 * 3, 0xFF);
    EXPECT_EQ(PackedPicture(packed).rowCount(), 170);
}

TEST(PackedPicture, DrawsTheWholeRowsThatATruncatedPictureHolds)
{
    auto packed = numberedRows();
    packed.resize(480 * 50 - 1);
    DisplayCanvas canvas;
    drawPacked(canvas, PackedPicture(packed), PackedPictureArea::region);
    EXPECT_TRUE(isFilled(canvas, physical, 0, 48, 255, 48, opaque(colorOfRow(48))));
    EXPECT_TRUE(isFilled(canvas, physical, 0, 49, 319, 169, untouched));
    DisplayCanvas empty;
    drawPacked(empty, PackedPicture({}), PackedPictureArea::whole);
    EXPECT_TRUE(isFilled(empty, physical, 0, 0, 319, 169, untouched));
}

} // namespace
} // namespace orvim
