#include "simulator/EmbeddedResources.h"

#include "tests/support/Bytes.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace orvim::resources {
namespace {

using test::bytes;
using testing::ElementsAreArray;

TEST(EmbeddedResources, CapitalAHasTheRowsOfTheModule)
{
    EXPECT_THAT(asciiFont8x10['A' - 32], ElementsAreArray(bytes("00 3C 42 42 42 7E 42 42 00 00")));
    EXPECT_THAT(asciiFont5x10['A' - 32], ElementsAreArray(bytes("00 0C 12 12 12 1E 12 12 12 12")));
    EXPECT_THAT(asciiFont6x7['A' - 32], ElementsAreArray(bytes("1E 22 22 22 3E 22 22 00")));
}

TEST(EmbeddedResources, FullWidthFontIsTheWholeFile)
{
    ASSERT_EQ(mplzn10x.size(), 139'690u);
    EXPECT_THAT(mplzn10x.first(30), ElementsAreArray(bytes("46 4F 4E 54 58 32 20 20 20 20 20 20 20 20 0A 0A 01 5D "
                                                           "40 81 7E 81 80 81 AC 81 B8 81 BF 81")));
}

TEST(EmbeddedResources, HalfWidthFontIsTheWholeFile)
{
    ASSERT_EQ(mplhn10x.size(), 2'577u);
    EXPECT_THAT(mplhn10x.first(17), ElementsAreArray(bytes("46 4F 4E 54 58 32 4D 2B 47 6F 74 68 69 63 05 0A 00")));
    EXPECT_THAT(mplhn10x.subspan(17 + 'A' * 10, 10), ElementsAreArray(bytes("00 00 60 90 90 F0 90 90 90 00")));
}

TEST(EmbeddedResources, EyebrowsEyesAndMouthsAllDiffer)
{
    const auto differ = [](auto pictures) {
        std::ranges::sort(pictures);
        return std::ranges::adjacent_find(pictures) == pictures.end();
    };
    EXPECT_TRUE(differ(faceEyebrows));
    EXPECT_TRUE(differ(faceEyes));
    EXPECT_TRUE(differ(faceMouths));
}

TEST(EmbeddedResources, NoPictureIsOfOneColour)
{
    const auto isDrawn = [](const auto& picture) {
        return std::ranges::any_of(picture, [&](auto value) { return value != picture.front(); });
    };
    EXPECT_TRUE(isDrawn(faceBase));
    EXPECT_TRUE(isDrawn(startingArtLeft));
    EXPECT_TRUE(isDrawn(startingArtRight));
    EXPECT_TRUE(isDrawn(firmwareUpdateScreen));
    EXPECT_TRUE(isDrawn(performanceMonitorScreen));
    EXPECT_TRUE(isDrawn(waterfallScreen));
}

} // namespace
} // namespace orvim::resources
