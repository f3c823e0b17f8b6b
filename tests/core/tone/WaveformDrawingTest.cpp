#include "core/tone/WaveformDrawing.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using namespace WaveformDrawing;

constexpr Size surface{2048, 65536}; // One unit for each index and each value.

UserWaveform silence()
{
    return UserWaveform(2048, 0);
}

TEST(WaveformDrawing, APointerMapsToIndexAndValue)
{
    EXPECT_EQ(pointAt(0, 0, surface), (Point{0, 32767}));
    EXPECT_EQ(pointAt(2047, 65535, surface), (Point{2047, -32768}));
    EXPECT_EQ(pointAt(100, 32767, surface), (Point{100, 0}));
    EXPECT_EQ(pointAt(256, 50, {513, 101}), (Point{1024, -1})); // index 1023.5, value -0.5
}

TEST(WaveformDrawing, HalvesRoundAwayFromZero)
{
    // In the middle of three rows the value is -0.5; in the middle of three columns the index is 1023.5.
    EXPECT_EQ(pointAt(1, 1, {3, 3}), (Point{1024, -1}));
}

TEST(WaveformDrawing, APointerOutsideIsLimitedToTheSurface)
{
    EXPECT_EQ(pointAt(-50, -50, surface), (Point{0, 32767}));
    EXPECT_EQ(pointAt(1e9, 1e9, surface), (Point{2047, -32768}));
}

TEST(WaveformDrawing, ASurfaceWithoutSizeCountsAsOneUnit)
{
    EXPECT_EQ(pointAt(1, 1, {0, 0}), (Point{2047, -32768}));
    EXPECT_EQ(pointAt(0, 0, {1, 1}), (Point{0, 32767}));
}

TEST(WaveformDrawing, TheFirstPointOfADragWritesOneSample)
{
    UserWaveform samples = silence();
    UserWaveform expected = silence();
    expected[100] = 500;
    EXPECT_TRUE(drawTo(samples, std::nullopt, {100, 500}));
    EXPECT_EQ(samples, expected);
}

TEST(WaveformDrawing, DraggingBackFrom100To90RewritesAllBetween)
{
    UserWaveform samples(2048, 7);
    EXPECT_TRUE(drawTo(samples, Point{100, 1000}, {90, 0}));
    UserWaveform expected(2048, 7);
    for (std::size_t i = 90; i <= 100; ++i)
        expected[i] = static_cast<std::int16_t>((i - 90) * 100);
    EXPECT_EQ(samples, expected);
}

TEST(WaveformDrawing, ASpanRoundsHalvesAwayFromZero)
{
    UserWaveform samples = silence();
    drawTo(samples, Point{0, 0}, {2, -1});
    EXPECT_EQ(samples[1], -1);
    drawTo(samples, Point{0, 0}, {2, 1});
    EXPECT_EQ(samples[1], 1);
    EXPECT_EQ(samples[2], 1);
}

TEST(WaveformDrawing, TheWholeRangeFitsInOneSpan)
{
    UserWaveform samples = silence();
    drawTo(samples, Point{0, -32768}, {2047, 32767});
    EXPECT_EQ(samples[0], -32768);
    EXPECT_EQ(samples[1], -32736);
    EXPECT_EQ(samples[2047], 32767);
}

TEST(WaveformDrawing, APointAtTheSameIndexWritesTheNewValueAlone)
{
    UserWaveform samples = silence();
    drawTo(samples, Point{5, 100}, {5, -100});
    UserWaveform expected = silence();
    expected[5] = -100;
    EXPECT_EQ(samples, expected);
}

TEST(WaveformDrawing, AWaveformOfAnotherLengthIsRefused)
{
    UserWaveform samples(1024, 3);
    EXPECT_FALSE(drawTo(samples, std::nullopt, {0, 100}));
    EXPECT_EQ(samples, UserWaveform(1024, 3));
}

TEST(WaveformDrawing, TheGridEndsOnePixelBeyondTheLastSample)
{
    EXPECT_DOUBLE_EQ(gridX(0, 2048), 0);
    EXPECT_DOUBLE_EQ(gridX(256, 2048), 256);
    EXPECT_DOUBLE_EQ(gridX(2048, 2048), 2048);
    EXPECT_DOUBLE_EQ(gridX(2047, 0), 1);
}

TEST(WaveformDrawing, AColumnShowsItsNearestSample)
{
    EXPECT_EQ(indexAtColumn(0, 600), 0);
    EXPECT_EQ(indexAtColumn(1, 600), 3); // 3.417
    EXPECT_EQ(indexAtColumn(599, 600), 2047);
    EXPECT_EQ(indexAtColumn(600, 600), 2047);
}

TEST(WaveformDrawing, ASampleStandsAtItsHeightFromTheBottom)
{
    EXPECT_DOUBLE_EQ(heightOf(-32768, 101), 0);
    EXPECT_DOUBLE_EQ(heightOf(32767, 101), 100);
    EXPECT_DOUBLE_EQ(heightOf(0, 65536), 32768);
}

} // namespace
} // namespace tonavelle
