#include "simulator/WindowPlacement.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

const QRect screen(0, 0, 1920, 1080);

TEST(WindowPlacement, TopRightIsALittleInsideTheScreen)
{
    EXPECT_EQ(topRightPlace({320, 170}, screen), QPoint(1920 - 16 - 320, 16));
    EXPECT_EQ(topRightPlace({320, 170}, QRect(1920, 30, 800, 600)), QPoint(1920 + 800 - 16 - 320, 46));
}

TEST(WindowPlacement, AWindowWiderThanTheScreenStartsAtItsLeft)
{
    EXPECT_EQ(topRightPlace({960, 510}, QRect(100, 0, 800, 600)), QPoint(100, 16));
}

TEST(WindowPlacement, AWindowIsWithinReachWhereFortyPixelsOfItShow)
{
    EXPECT_TRUE(isWithinReach({0, 0, 320, 170}, {screen}));
    EXPECT_TRUE(isWithinReach({1880, 0, 320, 170}, {screen}));
    EXPECT_FALSE(isWithinReach({1881, 0, 320, 170}, {screen}));
    EXPECT_TRUE(isWithinReach({-280, -130, 320, 170}, {screen}));
    EXPECT_FALSE(isWithinReach({-281, -130, 320, 170}, {screen}));
    EXPECT_FALSE(isWithinReach({0, 5000, 320, 170}, {screen}));
}

TEST(WindowPlacement, AnyScreenWillDo)
{
    EXPECT_TRUE(isWithinReach({2000, 0, 320, 170}, {screen, QRect(1920, 0, 800, 600)}));
    EXPECT_FALSE(isWithinReach({0, 0, 320, 170}, {}));
}

} // namespace
} // namespace orvim
