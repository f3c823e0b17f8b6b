#include "core/media/ImageTransferBuilder.h"

#include "tests/support/Bytes.h"
#include "tests/support/Thrown.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <random>
#include <vector>

namespace tonavelle::ImageTransferBuilder {
namespace {

using orvim::test::bytes;
using orvim::test::thrown;
using Picture = std::vector<std::uint8_t>;
using Error = ImageTransferError;

Picture filled(std::int64_t pixelCount, std::uint8_t value)
{
    return Picture(static_cast<std::size_t>(pixelCount) * bytesPerPixel, value);
}

Picture randomPicture(std::size_t byteCount)
{
    std::mt19937 random(1);
    Picture picture(byteCount);
    for (auto& byte : picture)
        byte = static_cast<std::uint8_t>(random());
    return picture;
}

Picture pixelAt(const Picture& picture, int x, int y)
{
    const auto first = picture.begin() + (y * width + x) * std::ptrdiff_t(bytesPerPixel);
    return {first, first + std::ptrdiff_t(bytesPerPixel)};
}

/// The smallest rectangle that holds every pixel that is not black, as left, top, width, height.
std::vector<int> drawnRectangle(const Picture& picture)
{
    int left = width, top = height, right = -1, bottom = -1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (pixelAt(picture, x, y) == bytes("00 00 00")) continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    return {left, top, right - left + 1, bottom - top + 1};
}

using Rectangle = std::vector<int>;

TEST(RGB64x64AspectFit, A64By64ImagePassesThrough)
{
    const Picture picture = randomPicture(rgbByteCount);
    EXPECT_EQ(rgb64x64AspectFit(64, 64, picture), picture);
}

TEST(RGB64x64AspectFit, A1By1ImageIsOnePixelAt31And31)
{
    const Picture fitted = rgb64x64AspectFit(1, 1, bytes("12 34 56"));
    EXPECT_EQ(pixelAt(fitted, 31, 31), bytes("12 34 56"));
    EXPECT_EQ(drawnRectangle(fitted), (Rectangle{31, 31, 1, 1}));
}

TEST(RGB64x64AspectFit, A128By32ImageBecomes64By16WithATopMarginOf24)
{
    EXPECT_EQ(drawnRectangle(rgb64x64AspectFit(128, 32, filled(128 * 32, 0xFF))), (Rectangle{0, 24, 64, 16}));
}

TEST(RGB64x64AspectFit, A3By200ImageBecomesOnePixelWide)
{
    EXPECT_EQ(drawnRectangle(rgb64x64AspectFit(3, 200, filled(3 * 200, 0xFF))), (Rectangle{31, 0, 1, 64}));
}

TEST(RGB64x64AspectFit, ASideThatRoundsToNothingStillHasOnePixel)
{
    EXPECT_EQ(drawnRectangle(rgb64x64AspectFit(1, 1000, filled(1000, 0xFF))), (Rectangle{31, 0, 1, 64}));
    EXPECT_EQ(drawnRectangle(rgb64x64AspectFit(1000, 1, filled(1000, 0xFF))), (Rectangle{0, 31, 64, 1}));
}

TEST(RGB64x64AspectFit, ASmallImageIsNotEnlargedAndAnOddRestFallsToTheRightAndTheBottom)
{
    EXPECT_EQ(drawnRectangle(rgb64x64AspectFit(5, 7, filled(35, 0xFF))), (Rectangle{29, 28, 5, 7}));
}

TEST(RGB64x64AspectFit, TakesTheNearestEarlierSourcePixel)
{
    Picture wide;
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            for (const int value : {x, y, 7})
                wide.push_back(static_cast<std::uint8_t>(value));
        }
    }
    const Picture fitted = rgb64x64AspectFit(128, 128, wide);
    EXPECT_EQ(pixelAt(fitted, 1, 2), bytes("02 04 07"));
    EXPECT_EQ(pixelAt(fitted, 63, 63), bytes("7E 7E 07"));
}

TEST(RGB64x64AspectFit, SidesBelowOneAndWrongSizesAreRefusedWithTheSizeFound)
{
    const Error twelve(Error::invalidRGBBufferSize, 12);
    const Picture four(12);
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(0, 4, four); }), twelve);
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(4, 0, four); }), twelve);
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(-2, -2, four); }), twelve);
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(2, 3, four); }), twelve);
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(3, 1, four); }), twelve);
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(2, 2, four); }), std::nullopt);
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(2, 2, Picture(13)); }), Error(Error::invalidRGBBufferSize, 13));
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(1, 1, Picture()); }), Error(Error::invalidRGBBufferSize, 0));
}

TEST(RGB64x64AspectFit, SidesWhoseProductOverflowsAreRefused)
{
    constexpr std::int64_t large = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(large, large, Picture(3)); }),
              Error(Error::invalidRGBBufferSize, 3));
    EXPECT_EQ(thrown<Error>([&] { rgb64x64AspectFit(std::int64_t(1) << 32, std::int64_t(1) << 32, Picture()); }),
              Error(Error::invalidRGBBufferSize, 0));
}

TEST(ImageTransferRows, EveryMessageIs137BytesAndTheRowsRunInOrder)
{
    const Batch rows = imageTransferRows(31, randomPicture(rgbByteCount));
    ASSERT_EQ(rows.size(), 64u);
    for (std::size_t y = 0; y < rows.size(); ++y) {
        EXPECT_EQ(rows[y].size(), 137u);
        EXPECT_EQ(Message(rows[y].begin(), rows[y].begin() + 7), bytes("F0 00 48 05 7F 20 1F"));
        EXPECT_EQ(rows[y][7], y);
        EXPECT_EQ(rows[y].back(), 0xF7);
    }
}

TEST(ImageTransferRows, PixelsStandFromTheLeftOfTheirRow)
{
    Picture picture(rgbByteCount);
    std::ranges::copy(bytes("FF FF FF FF 00 00 00 FF 00 00 00 FF"), picture.begin() + 2 * width * 3);
    const Batch rows = imageTransferRows(0, picture);
    EXPECT_EQ(Message(rows[2].begin(), rows[2].begin() + 18),
              bytes("F0 00 48 05 7F 20 00 02 7F 7F 78 00 07 60 00 1F 00 00"));
    EXPECT_EQ(Message(rows[1].begin() + 8, rows[1].begin() + 12), bytes("00 00 00 00"));
}

TEST(ImageTransferRows, Screen32IsRefusedEvenIfTheBufferIsWrongToo)
{
    EXPECT_EQ(thrown<Error>([] { imageTransferRows(32, Picture(5)); }), Error(Error::invalidScreenNumber, 32));
    EXPECT_EQ(thrown<Error>([] { imageTransferRows(255, Picture(rgbByteCount)); }),
              Error(Error::invalidScreenNumber, 255));
    EXPECT_EQ(thrown<Error>([] { imageTransferRows(31, Picture(12'287)); }),
              Error(Error::invalidRGBBufferSize, 12'287));
    EXPECT_EQ(thrown<Error>([] { imageTransferRows(31, Picture(12'289)); }),
              Error(Error::invalidRGBBufferSize, 12'289));
}

TEST(ImageTransferRows, PixelBytesNeverHaveTheirTopBitSet)
{
    for (const Picture& picture : {randomPicture(rgbByteCount), Picture(rgbByteCount, 0xFF)}) {
        for (const Message& row : imageTransferRows(5, picture)) {
            EXPECT_TRUE(std::all_of(row.begin() + 1, row.end() - 1, [](std::uint8_t byte) { return byte < 0x80; }));
        }
    }
}

TEST(RGB455Value, CutsTheLowBitsOff)
{
    EXPECT_EQ(rgb455Value(0xFF, 0xFF, 0xFF), 0x7F << 7 | 0x7F);
    EXPECT_EQ(rgb455Value(0x00, 0x00, 0x00), 0);
    EXPECT_EQ(rgb455Value(0xFF, 0x00, 0x00), 0x78 << 7 | 0x00);
    EXPECT_EQ(rgb455Value(0x00, 0xFF, 0x00), 0x07 << 7 | 0x60);
    EXPECT_EQ(rgb455Value(0x00, 0x00, 0xFF), 0x00 << 7 | 0x1F);
    EXPECT_EQ(rgb455Value(0x0F, 0x07, 0x07), 0);
}

TEST(RGB888Pixel, AGreyOf88WidensTo88InRedAnd8CInGreenAndBlue)
{
    const std::array<std::uint8_t, 3> expected{0x88, 0x8C, 0x8C};
    EXPECT_EQ(rgb888Pixel(rgb455Value(0x88, 0x88, 0x88)), expected);
}

TEST(RGB888Pixel, PackingAWidenedPixelGivesThePackedPixelBack)
{
    for (int packed = 0; packed < 1 << 14; ++packed) {
        const auto pixel = rgb888Pixel(static_cast<std::uint16_t>(packed));
        ASSERT_EQ(rgb455Value(pixel[0], pixel[1], pixel[2]), packed);
    }
}

TEST(ImageTransferError, EqualityLooksAtCaseAndValue)
{
    EXPECT_EQ(Error(Error::invalidScreenNumber, 32), Error(Error::invalidScreenNumber, 32));
    EXPECT_FALSE(Error(Error::invalidScreenNumber, 32) == Error(Error::invalidScreenNumber, 33));
    EXPECT_FALSE(Error(Error::invalidScreenNumber, 32) == Error(Error::invalidRGBBufferSize, 32));
}

} // namespace
} // namespace tonavelle::ImageTransferBuilder
