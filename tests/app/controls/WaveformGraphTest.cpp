#include "controls/WaveformGraph.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <numbers>

namespace orvim {
namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;
using WaveformGraph::baseWave;
using WaveformGraph::columns;
using WaveformGraph::wave;

constexpr double tiny = 1e-9;

TEST(WaveformGraph, TheSquareIsHighForTheFirstHalfOfEachCycle)
{
    EXPECT_THAT(baseWave(1, {}, 4, 2), ElementsAre(1, 1, -1, -1, 1, 1, -1, -1));
}

TEST(WaveformGraph, TheTriangleRisesAndFallsByHalfCycles)
{
    EXPECT_THAT(baseWave(2, {}, 4, 2), ElementsAre(-1, 0, 1, 0, -1, 0, 1, 0));
}

TEST(WaveformGraph, TheSawRisesOnceACycle)
{
    EXPECT_THAT(baseWave(3, {}, 4, 2), ElementsAre(-1, -0.5, 0, 0.5, -1, -0.5, 0, 0.5));
}

TEST(WaveformGraph, TheSineStandsForAnythingNotListed)
{
    const auto sine = baseWave(0, {}, 4, 1);
    EXPECT_THAT(sine, Pointwise(DoubleNear(tiny), std::vector<double>{0, 1, 0, -1}));
    EXPECT_EQ(baseWave(-1, {}, 4, 1), sine);
}

TEST(WaveformGraph, TheWhiteNoiseIsTheFractionOfAScrambledSine)
{
    const auto noise = baseWave(4, {}, 3, 1);
    const double first = std::sin(17 * 78.233) * 43758.5453;
    EXPECT_NEAR(noise[0], 2 * (first - std::floor(first)) - 1, tiny);
    EXPECT_THAT(noise, Each(testing::AllOf(testing::Ge(-1), testing::Lt(1))));
}

TEST(WaveformGraph, ThePinkNoiseIsTheWhiteOneSmoothed)
{
    const auto white = baseWave(4, {}, 3, 1);
    const auto pink = baseWave(5, {}, 3, 1);
    EXPECT_NEAR(pink[0], 0.268 * white[0], tiny);
    EXPECT_NEAR(pink[1], 0.732 * pink[0] + 0.268 * white[1], tiny);
}

TEST(WaveformGraph, PCMAndUnknownTypesHaveNoPicture)
{
    for (const int type : {6, 7, 12, 127})
        EXPECT_THAT(columns(wave({type, 31, 70}, {}, 64, 1), 256, 64), IsEmpty()) << type;
}

TEST(WaveformGraph, AUserWaveOf1024SamplesIsDrawnAcrossTheWidth)
{
    std::vector<std::int16_t> samples(1'024, -32'767);
    std::fill(samples.begin() + 512, samples.end(), std::int16_t{32'767});
    const auto drawn = columns(wave({8, 0, 0}, samples, 2'048, 1), 256, 64);
    ASSERT_EQ(drawn.size(), 256U);
    EXPECT_GT(drawn[0], 60);
    EXPECT_EQ(drawn[127], drawn[0]);
    EXPECT_LT(drawn[128], 3);
    EXPECT_EQ(drawn[255], drawn[128]);
}

TEST(WaveformGraph, AUserWaveWithoutSamplesIsDrawnAsTheSine)
{
    for (const int type : {8, 11})
        EXPECT_EQ(baseWave(type, {}, 64, 1), baseWave(0, {}, 64, 1));
}

TEST(WaveformGraph, ARingModulationGainOfZeroLeavesThePlainWave)
{
    auto plain = baseWave(3, {}, 8, 1);
    for (double& value : plain)
        value = value * 127 / 128 - (-1 + 0.75) / 2 * 127 / 128;
    EXPECT_THAT(wave({3, 31, 0}, {}, 8, 1), Pointwise(DoubleNear(tiny), plain));
}

TEST(WaveformGraph, RingModulationStepsThroughTheSineByItsMultiply)
{
    // A multiply of 31 steps one sample a value: the flat wave of a user slot comes out as the sine itself.
    const std::vector<std::int16_t> flat(4, 32'767);
    const auto modulated = wave({8, 31, 64}, flat, 4, 1);
    EXPECT_THAT(modulated, Pointwise(DoubleNear(tiny), std::vector<double>{0, 0.5, 0, -0.5}));
    // One of 127 steps four samples, a whole cycle of four.
    EXPECT_THAT(wave({8, 127, 64}, flat, 4, 1), Each(DoubleNear(0, tiny)));
    // One of 0 hardly moves.
    EXPECT_THAT(wave({8, 0, 64}, flat, 4, 1), Each(DoubleNear(0, tiny)));
}

TEST(WaveformGraph, TheCurveIsCentred)
{
    const auto drawn = wave({5, 20, 90}, {}, 200, 2);
    const auto [low, high] = std::ranges::minmax(drawn);
    EXPECT_NEAR(low, -high, tiny);
}

TEST(WaveformGraph, ColumnsMapTheFullRangeToTheHeight)
{
    const std::vector<double> values{1, 0, -1, 5, -5};
    EXPECT_THAT(columns(values, 5, 65), ElementsAre(0, 32, 64, 0, 64));
}

TEST(WaveformGraph, WorksWithAnyPositiveCounts)
{
    for (const int samples : {1, 2, 3, 7})
        for (const int phases : {1, 5})
            for (int type = 0; type <= 5; ++type)
                for (const int multiply : {0, 127})
                    EXPECT_EQ(columns(wave({type, multiply, 127}, {}, samples, phases), 10, 8).size(), 10U);
}

} // namespace
} // namespace orvim
