#include "platform/AreaAverage.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

using Color = std::array<int, 3>;

/// A source of one colour a pixel, given as 0xAARRGGBB.
struct Source {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    PixelView view() const
    {
        return {static_cast<double>(width), static_cast<double>(height),
                reinterpret_cast<const std::uint8_t*>(pixels.data()), static_cast<std::size_t>(width) * 4};
    }
};

Source filled(int width, int height, std::uint32_t pixel)
{
    return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), pixel)};
}

Color colorAt(const std::vector<std::uint8_t>& picture, int x, int y)
{
    const auto i = static_cast<std::size_t>((y * 64 + x) * 3);
    return {picture.at(i), picture.at(i + 1), picture.at(i + 2)};
}

std::vector<std::uint8_t> fitted(const Source& source)
{
    return areaAveraged(source.view(), aspectFit(source.width, source.height));
}

TEST(AspectFit, ShrinksCentresAndDoesNotRound)
{
    const auto wide = aspectFit(128, 32);
    EXPECT_EQ(wide.width, 64);
    EXPECT_EQ(wide.height, 16);
    EXPECT_EQ(wide.top, 24);
    const auto thin = aspectFit(3, 200);
    EXPECT_DOUBLE_EQ(thin.width, 0.96);
    EXPECT_DOUBLE_EQ(thin.left, 31.52);
    EXPECT_DOUBLE_EQ(thin.height, 64);
}

TEST(AspectFit, NeverEnlarges)
{
    const auto one = aspectFit(1, 1);
    EXPECT_EQ(one.width, 1);
    EXPECT_EQ(one.left, 31.5);
}

TEST(AreaAveraged, A64By64PicturePassesThrough)
{
    Source source = filled(64, 64, 0);
    std::uint32_t value = 1;
    for (auto& pixel : source.pixels)
        pixel = 0xFF000000 | (value = value * 1'664'525 + 1'013'904'223) >> 8;
    const auto picture = fitted(source);
    ASSERT_EQ(picture.size(), 12'288u);
    for (int i = 0; i < 64 * 64; ++i) {
        const std::uint32_t pixel = source.pixels[static_cast<std::size_t>(i)];
        const Color expected{static_cast<int>(pixel >> 16 & 0xFF), static_cast<int>(pixel >> 8 & 0xFF),
                             static_cast<int>(pixel & 0xFF)};
        ASSERT_EQ(colorAt(picture, i % 64, i / 64), expected) << i;
    }
}

TEST(AreaAveraged, EachPixelIsTheMeanOfWhatItCovers)
{
    Source source = filled(128, 128, 0xFF000000);
    source.pixels[0] = 0xFFFF0000;
    source.pixels[1] = 0xFF00FF00;
    source.pixels[128] = 0xFF0000FF;
    source.pixels[129] = 0xFFFFFFFF;
    const auto picture = fitted(source);
    EXPECT_EQ(colorAt(picture, 0, 0), (Color{128, 128, 128}));
    EXPECT_EQ(colorAt(picture, 1, 0), (Color{0, 0, 0}));
}

TEST(AreaAveraged, A128By32PictureLeavesBlackAboveAndBelow)
{
    const auto picture = fitted(filled(128, 32, 0xFFFFFFFF));
    EXPECT_EQ(colorAt(picture, 0, 23), (Color{0, 0, 0}));
    EXPECT_EQ(colorAt(picture, 0, 24), (Color{255, 255, 255}));
    EXPECT_EQ(colorAt(picture, 63, 39), (Color{255, 255, 255}));
    EXPECT_EQ(colorAt(picture, 63, 40), (Color{0, 0, 0}));
}

TEST(AreaAveraged, APixelBetweenTwoPlacesIsSharedByThem)
{
    const auto picture = fitted(filled(1, 2, 0xFFC86400));
    EXPECT_EQ(colorAt(picture, 31, 31), (Color{100, 50, 0}));
    EXPECT_EQ(colorAt(picture, 32, 32), (Color{100, 50, 0}));
    EXPECT_EQ(colorAt(picture, 30, 31), (Color{0, 0, 0}));
    EXPECT_EQ(colorAt(picture, 31, 33), (Color{0, 0, 0}));
}

/// The same mean the slow way: every source pixel's share of every pixel, in double.
TEST(AreaAveraged, AgreesWithTheExactMeanForAnySize)
{
    for (const auto& [width, height] : {std::pair{301, 200}, {97, 641}, {65, 64}, {640, 63}}) {
        Source source = filled(width, height, 0);
        std::uint32_t value = 7;
        for (auto& pixel : source.pixels)
            pixel = 0xFF000000 | (value = value * 1'664'525 + 1'013'904'223) >> 8;
        const auto drawn = aspectFit(width, height);
        const auto picture = areaAveraged(source.view(), drawn);
        const double pitchX = drawn.width / width;
        const double pitchY = drawn.height / height;
        for (const auto& [x, y] : {std::pair{0, 0}, {31, 31}, {32, 20}, {63, 40}, {63, 63}, {20, 32}}) {
            double red = 0;
            for (int j = 0; j < height; ++j) {
                const double top = drawn.top + j * pitchY;
                const double sharedY = std::min(y + 1.0, top + pitchY) - std::max<double>(y, top);
                for (int i = 0; i < width && sharedY > 0; ++i) {
                    const double left = drawn.left + i * pitchX;
                    const double sharedX = std::min(x + 1.0, left + pitchX) - std::max<double>(x, left);
                    if (sharedX > 0)
                        red +=
                            sharedX * sharedY * (source.pixels[static_cast<std::size_t>(j * width + i)] >> 16 & 0xFF);
                }
            }
            EXPECT_NEAR(colorAt(picture, x, y)[0], red, 0.51) << width << "x" << height << " at " << x << "," << y;
        }
    }
}

} // namespace
} // namespace orvim
