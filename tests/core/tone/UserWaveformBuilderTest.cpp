#include "core/tone/UserWaveformBuilder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using namespace UserWaveformBuilder;

UserWaveform alternating(std::int16_t first, std::int16_t second)
{
    UserWaveform samples(sampleCount, second);
    samples[0] = first;
    return samples;
}

/// A waveform with every kind of sample, the ends of the range included.
UserWaveform varied()
{
    UserWaveform samples(sampleCount);
    std::uint32_t state = 1;
    for (std::int16_t& sample : samples) {
        state = state * 1'664'525 + 1'013'904'223;
        sample = static_cast<std::int16_t>(state >> 16);
    }
    samples[7] = -32768;
    samples[8] = 32767;
    return samples;
}

TEST(UserWaveformError, CarriesTheWordsForTheUser)
{
    EXPECT_STREQ(UserWaveformError::formula("式エラー").what(), "式エラー");
    EXPECT_STREQ(UserWaveformError::invalidSampleCount().what(), "サンプル数が不正");
    EXPECT_STREQ(UserWaveformError::invalidSlot().what(), "スロット番号が不正");
    EXPECT_STREQ(UserWaveformError::invalidSection().what(), "区画番号が不正");
}

TEST(UserWaveformShapes, SineIsCutTowardsZero)
{
    const UserWaveform samples = sine();
    ASSERT_EQ(samples.size(), 2048u);
    EXPECT_EQ(samples[0], 0);
    EXPECT_EQ(samples[1], 100); // 100.53
    EXPECT_EQ(samples[512], 32767);
    EXPECT_EQ(samples[1536], -32767);
    EXPECT_EQ(samples[2047], -100);
}

TEST(UserWaveformShapes, SawRisesOverTheWholeRange)
{
    const UserWaveform samples = saw();
    ASSERT_EQ(samples.size(), 2048u);
    EXPECT_EQ(samples[0], -32768);
    EXPECT_EQ(samples[1], -32736);
    EXPECT_EQ(samples[1024], 16); // 32783.5076 - 32768
    EXPECT_EQ(samples[2047], 32767);
    EXPECT_TRUE(std::ranges::is_sorted(samples));
}

TEST(UserWaveformShapes, SquareIsHighInItsFirstHalf)
{
    const UserWaveform samples = square();
    ASSERT_EQ(samples.size(), 2048u);
    EXPECT_EQ(std::ranges::count(samples, 32767), 1024);
    EXPECT_EQ(samples[1023], 32767);
    EXPECT_EQ(samples[1024], -32768);
    EXPECT_EQ(samples[2047], -32768);
}

TEST(UserWaveformShapes, TriangleRisesAndFalls)
{
    const UserWaveform samples = triangle();
    ASSERT_EQ(samples.size(), 2048u);
    EXPECT_EQ(samples[0], -32768);
    EXPECT_EQ(samples[1], -32704);
    EXPECT_EQ(samples[512], 0); // 32767.5 is rounded to the even 32768
    EXPECT_EQ(samples[1023], 32703);
    EXPECT_EQ(samples[1024], 32767);
    EXPECT_EQ(samples[1536], -1);
    EXPECT_EQ(samples[2047], -32704);
}

TEST(UserWaveformShapes, FlatIsSilence)
{
    EXPECT_EQ(flat(), UserWaveform(2048, 0));
}

TEST(UserWaveformShapes, EveryButtonRunsItsFormula)
{
    EXPECT_EQ(samplesForButton(UserWaveformButtonPreset::sine), samplesFromFormula("sin(t)"));
    EXPECT_EQ(samplesForButton(UserWaveformButtonPreset::saw), samplesFromFormula("saw(t)"));
    EXPECT_EQ(samplesForButton(UserWaveformButtonPreset::square), samplesFromFormula("squ(t)"));
    EXPECT_EQ(samplesForButton(UserWaveformButtonPreset::triangle), samplesFromFormula("tri(t)"));
    EXPECT_EQ(samplesForButton(UserWaveformButtonPreset::flat), flat());
}

TEST(UserWaveformShapes, TheSineOfTheFormulaIsNotTheStockSine)
{
    EXPECT_NE(samplesForButton(UserWaveformButtonPreset::sine), sine());
}

TEST(UserWaveformShapes, AFormulaThatFailsFailsWithItsWord)
{
    try {
        samplesFromFormula("sin t");
        FAIL() << "no error";
    } catch (const UserWaveformError& error) {
        EXPECT_EQ(error.kind(), UserWaveformError::Kind::formula);
        EXPECT_STREQ(error.what(), "未対応の変数");
    }
}

TEST(Normalized, SilenceAndAnEmptyListStayAsTheyAre)
{
    EXPECT_EQ(normalized(flat()), flat());
    EXPECT_EQ(normalized({}), UserWaveform{});
}

TEST(Normalized, ScalesTheLargestAbsoluteValueToItsOwnSide)
{
    const UserWaveform samples = normalized(alternating(100, -200));
    EXPECT_EQ(samples[0], 16384); // 16383.5 rounded to even
    EXPECT_EQ(samples[1], -32767);
    EXPECT_EQ(normalized(alternating(0, -32768))[1], -32767);
}

TEST(NormalizedWithOffset, AFullRangeStaysWithinItsEnds)
{
    const UserWaveform samples = normalizedWithOffset(alternating(-32768, 32767));
    EXPECT_EQ(samples[0], -32767);
    EXPECT_EQ(samples[1], 32767);
}

TEST(NormalizedWithOffset, AnOffsetSignalIsCentred)
{
    const UserWaveform samples = normalizedWithOffset(alternating(1000, 3000));
    EXPECT_EQ(samples[0], -32767);
    EXPECT_EQ(samples[1], 32767);
}

TEST(NormalizedWithOffset, AConstantStaysAsItIs)
{
    EXPECT_EQ(normalizedWithOffset(UserWaveform(sampleCount, 1234)), UserWaveform(sampleCount, 1234));
    EXPECT_EQ(normalizedWithOffset({}), UserWaveform{});
}

TEST(Inverted, TwiceGivesTheSameButForTheLowestSample)
{
    UserWaveform expected = varied();
    std::ranges::replace(expected, std::int16_t{-32768}, std::int16_t{-32767});
    EXPECT_EQ(inverted(inverted(varied())), expected);
    EXPECT_EQ(inverted(varied())[7], 32767);
    EXPECT_EQ(inverted(varied())[8], -32767);
}

TEST(Absolute, HasNoNegativeSample)
{
    const UserWaveform samples = absolute(alternating(-32768, -5));
    EXPECT_EQ(samples[0], 32767);
    EXPECT_EQ(samples[1], 5);
    EXPECT_EQ(absolute(alternating(32767, 0)), alternating(32767, 0));
}

} // namespace
} // namespace tonavelle
