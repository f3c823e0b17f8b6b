#include "controls/SliderStep.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace orvim {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(SliderStep, StepOfOneRoundsHalvesUpAndLimits)
{
    const SliderRange range{0, 127, 1};
    EXPECT_EQ(snappedToStep(63.5, range), 64);
    EXPECT_EQ(snappedToStep(63.4, range), 63);
    EXPECT_EQ(snappedToStep(-3, range), 0);
    EXPECT_EQ(snappedToStep(127.4, range), 127);
    EXPECT_EQ(snappedToStep(1e300, range), 127);
}

TEST(SliderStep, GridStartsAtTheLowerEnd)
{
    const SliderRange range{1, 12, 4};
    EXPECT_EQ(snappedToStep(1, range), 1);
    EXPECT_EQ(snappedToStep(2.9, range), 1);
    EXPECT_EQ(snappedToStep(3, range), 5);
    EXPECT_EQ(snappedToStep(8, range), 9);
    EXPECT_EQ(snappedToStep(10, range), 9);
    EXPECT_EQ(snappedToStep(11.5, range), 12);
    EXPECT_EQ(snappedToStep(12, range), 12);
}

TEST(SliderStep, HalvesAreMeasuredFromTheLowerEnd)
{
    const SliderRange range{-64, 63, 1};
    EXPECT_EQ(snappedToStep(-0.5, range), 0);
    EXPECT_EQ(snappedToStep(-63.5, range), -63);
    EXPECT_EQ(snappedToStep(0.5, range), 1);
}

TEST(SliderStep, UpperEndOffTheGridIsReachedOnlyByRoundingPastIt)
{
    const SliderRange range{0, 10, 4};
    EXPECT_EQ(snappedToStep(9.9, range), 8);
    EXPECT_EQ(snappedToStep(10, range), 10) << "10 rounds to 12";
}

TEST(SliderStep, StepOfZeroOrLessOnlyLimits)
{
    EXPECT_EQ(snappedToStep(3.3, {0, 10, 0}), 3.3);
    EXPECT_EQ(snappedToStep(3.3, {0, 10, -1}), 3.3);
    EXPECT_EQ(snappedToStep(11, {0, 10, 0}), 10);
    EXPECT_EQ(snappedToStep(-1, {0, 10, -1}), 0);
}

TEST(SliderStep, OddNumbersStayInTheRange)
{
    EXPECT_EQ(snappedToStep(std::nan(""), {2, 10, 1}), 2);
    EXPECT_EQ(snappedToStep(infinity, {2, 10, 1}), 10);
    EXPECT_EQ(snappedToStep(-infinity, {2, 10, 1}), 2);
    EXPECT_EQ(snappedToStep(5, {7, 7, 1}), 7);
}

TEST(SliderStep, FractionIsZeroWhereTheRangeIsEmpty)
{
    EXPECT_EQ(fractionInRange(32, {0, 128, 1}), 0.25);
    EXPECT_EQ(fractionInRange(-64, {-64, 64, 1}), 0);
    EXPECT_EQ(fractionInRange(64, {-64, 64, 1}), 1);
    EXPECT_EQ(fractionInRange(7, {7, 7, 1}), 0);
    EXPECT_EQ(fractionInRange(7, {8, 7, 1}), 0);
}

TEST(SliderStep, TicksAreCountedWithBothEnds)
{
    EXPECT_EQ(tickCount({0, 16, 1}), 17);
    EXPECT_EQ(tickCount({0, 127, 1}), 128);
    EXPECT_EQ(tickCount({1, 12, 4}), 3);
    EXPECT_EQ(tickCount({5, 5, 1}), 1);
}

TEST(SliderStep, NoTicksWhereTheirNumberIsNotPositiveAndFinite)
{
    EXPECT_EQ(tickCount({0, 16, 0}), 0);
    EXPECT_EQ(tickCount({0, 0, 0}), 0);
    EXPECT_EQ(tickCount({0, 16, -1}), 0);
    EXPECT_EQ(tickCount({16, 0, 1}), 0);
}

} // namespace
} // namespace orvim
