#include "DisplaySimulatorState.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>
#include <string>

namespace orvim {
namespace {

using Special = DisplaySimulatorSpecialMode;
using Rows = std::vector<std::vector<bool>>;

Rows checkerboard()
{
    Rows rows(16, std::vector<bool>(16));
    for (std::size_t y = 0; y < 16; ++y) {
        for (std::size_t x = 0; x < 16; ++x)
            rows[y][x] = (x + y) % 2 == 1;
    }
    return rows;
}

std::string rowText(const DotGrid& grid, std::size_t y)
{
    std::string text;
    for (const bool lit : grid[y])
        text += lit ? '#' : '.';
    return text;
}

void tickDots(DisplaySimulatorState& state, int count)
{
    for (int i = 0; i < count; ++i)
        state.dotTick();
}

TEST(DisplaySimulatorBars, TwentyValuesAreCutToSixteen)
{
    DisplaySimulatorState state;
    state.applyBars(std::array{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 16, 16, 16});
    EXPECT_EQ(state.fields().barValues, (std::array{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
}

TEST(DisplaySimulatorBars, ThreeValuesAreFilledUpWithOnes)
{
    DisplaySimulatorState state;
    state.applyBars(std::array{5, 6, 7});
    EXPECT_EQ(state.fields().barValues, (std::array{5, 6, 7, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    state.applyBars({});
    EXPECT_EQ(state.fields().barValues, (std::array{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST(DisplaySimulatorBars, ValuesAreLimitedAndLightDotsFromTheBottom)
{
    DisplaySimulatorState state;
    state.setSpecialMode(Special::knob);
    state.applyBars(std::array{0, -5, 99, 2});
    EXPECT_EQ(state.fields().barValues, (std::array{0, 0, 16, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    const auto& grid = state.fields().dotValues;
    EXPECT_EQ(rowText(grid, 15), "..##############");
    EXPECT_EQ(rowText(grid, 14), "..##............");
    for (std::size_t y = 0; y < 14; ++y)
        EXPECT_EQ(rowText(grid, y), "..#.............") << y;
    EXPECT_EQ(state.fields().dotBarValues, grid);
    EXPECT_TRUE(state.fields().showsDotDisplay);
    EXPECT_EQ(state.fields().specialMode, Special::none);
}

TEST(DisplaySimulatorDots, PictureStandsForSeventeenTicksAndYieldsToTheBars)
{
    DisplaySimulatorState state;
    state.applyBars(std::array{4, 4, 4});
    const auto bars = state.fields().dotBarValues;
    state.setSpecialMode(Special::error);
    state.setDotDisplay(checkerboard());
    EXPECT_EQ(rowText(state.fields().dotValues, 0), ".#.#.#.#.#.#.#.#");
    EXPECT_EQ(rowText(state.fields().dotValues, 15), "#.#.#.#.#.#.#.#.");
    EXPECT_EQ(state.fields().dotBarValues, bars);
    EXPECT_TRUE(state.fields().showsDotDisplay);
    EXPECT_EQ(state.fields().specialMode, Special::none);
    EXPECT_TRUE(state.dotbarTimer().isActive());
    tickDots(state, 16);
    EXPECT_NE(state.fields().dotValues, bars);
    tickDots(state, 1);
    EXPECT_EQ(state.fields().dotValues, bars);
    EXPECT_FALSE(state.dotbarTimer().isActive());
}

TEST(DisplaySimulatorDots, AnotherPictureRestartsTheCount)
{
    DisplaySimulatorState state;
    const auto bars = state.fields().dotBarValues;
    state.setDotDisplay(checkerboard());
    tickDots(state, 16);
    state.setDotDisplay(Rows(16, std::vector<bool>(16)));
    tickDots(state, 16);
    EXPECT_EQ(state.fields().dotValues, DotGrid{});
    tickDots(state, 1);
    EXPECT_EQ(state.fields().dotValues, bars);
}

TEST(DisplaySimulatorDots, BarsMovedUnderAPictureAreWhatItYieldsTo)
{
    DisplaySimulatorState state;
    state.setDotDisplay(checkerboard());
    state.applyBars(std::array{16});
    EXPECT_TRUE(state.dotbarTimer().isActive());
    tickDots(state, 17);
    EXPECT_EQ(rowText(state.fields().dotValues, 0), "#...............");
}

TEST(DisplaySimulatorDots, OtherThanSixteenBySixteenIsIgnored)
{
    DisplaySimulatorState state;
    const auto before = state.fields();
    auto ragged = checkerboard();
    ragged[7].push_back(true);
    auto shortRow = checkerboard();
    shortRow[15].pop_back();
    for (const auto& rows : {Rows(), Rows(15, std::vector<bool>(16, true)), Rows(17, std::vector<bool>(16, true)),
                             Rows(16, std::vector<bool>(15, true)), ragged, shortRow}) {
        state.setDotDisplay(rows);
        EXPECT_EQ(state.fields(), before);
        EXPECT_FALSE(state.dotbarTimer().isActive());
    }
}

TEST(DisplaySimulatorDots, TheDotTimerIsPrecise)
{
    const DisplaySimulatorState state;
    EXPECT_EQ(state.dotbarTimer().interval(), 100);
    EXPECT_EQ(state.dotbarTimer().timerType(), Qt::PreciseTimer);
}

TEST(DisplaySimulatorDots, TheDotTimerDeliversSeventeenTicksInRealTime)
{
    DisplaySimulatorState state;
    QElapsedTimer clock;
    clock.start();
    state.setDotDisplay(checkerboard());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !state.dotbarTimer().isActive(); }, 5000));
    EXPECT_GE(clock.elapsed(), 1690);
    EXPECT_EQ(state.fields().dotValues, state.fields().dotBarValues);
}

TEST(DisplaySimulatorDots, ARunningDotTimerIsKept)
{
    DisplaySimulatorState state;
    state.setDotDisplay(checkerboard());
    QTest::qWait(30);
    const int before = state.dotbarTimer().remainingTime();
    state.restartDotTimer();
    EXPECT_LE(state.dotbarTimer().remainingTime(), before);
}

} // namespace
} // namespace orvim
