#include "core/media/SamplingSoundBuilder.h"

#include "core/media/SoundResampling.h"
#include "tests/support/Bytes.h"
#include "tests/support/Thrown.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <random>
#include <vector>

namespace tonavelle::SamplingSoundBuilder {
namespace {

using orvim::test::bytes;
using orvim::test::thrown;
using Error = SamplingSoundError;
using Channels = std::vector<std::vector<float>>;

/// A sound of these samples.
SamplingSoundItem soundOf(const std::vector<int>& samples)
{
    SamplingSoundItem item;
    for (const int sample : samples) {
        item.pcm16LittleEndian.push_back(static_cast<std::uint8_t>(sample));
        item.pcm16LittleEndian.push_back(static_cast<std::uint8_t>(sample >> 8));
    }
    return item;
}

SamplingSoundItem silence(std::size_t sampleCount)
{
    return {std::vector<std::uint8_t>(sampleCount * 2)};
}

Message codesOf(const Message& section)
{
    return {section.begin() + 8, section.end() - 1};
}

TEST(EncodeULaw7Bit, PutsSilenceAt64AndTheExtremesAt1And127)
{
    EXPECT_EQ(encodeULaw7Bit(0), 64);
    EXPECT_EQ(encodeULaw7Bit(32'767), 127);
    EXPECT_EQ(encodeULaw7Bit(-32'768), 1);
}

TEST(EncodeULaw7Bit, RoundsToTheNearestCode)
{
    // 1 is 0.05 steps above the centre; half a step lies between 10 and 11.
    EXPECT_EQ(encodeULaw7Bit(1), 64);
    EXPECT_EQ(encodeULaw7Bit(10), 64);
    EXPECT_EQ(encodeULaw7Bit(11), 65);
    EXPECT_EQ(encodeULaw7Bit(-11), 63);
    EXPECT_EQ(encodeULaw7Bit(16'384), 118);
}

TEST(EncodeULaw7Bit, FollowsTheLawForEverySample)
{
    for (int sample = -32'768; sample <= 32'767; ++sample) {
        const double magnitude = std::log(1 + 127 * std::abs(sample) / 32'768.0) * 63 / 4.852030263919617;
        const double code = std::round(sample < 0 ? -magnitude : magnitude) + 64;
        ASSERT_EQ(encodeULaw7Bit(static_cast<std::int16_t>(sample)), std::min(code, 127.0)) << sample;
    }
}

TEST(DecodeULaw7Bit, LimitsTheExtremes)
{
    EXPECT_EQ(decodeULaw7Bit(127), 32'767);
    EXPECT_EQ(decodeULaw7Bit(1), -32'768);
    EXPECT_EQ(decodeULaw7Bit(0), -32'768);
    EXPECT_EQ(decodeULaw7Bit(64), 0);
}

TEST(DecodeULaw7Bit, TakesTheLowSevenBits)
{
    EXPECT_EQ(decodeULaw7Bit(0x80 | 70), decodeULaw7Bit(70));
    EXPECT_EQ(decodeULaw7Bit(0x80 | 64), 0);
}

TEST(DecodeULaw7Bit, EncodesBackToItsCode)
{
    for (int code = 1; code <= 127; ++code)
        EXPECT_EQ(encodeULaw7Bit(decodeULaw7Bit(static_cast<std::uint8_t>(code))), code);
}

TEST(DecodeULaw7Bit, RoundsToTheNearestSample)
{
    // (2^(7/63) - 1) / 127 x 32,768 is 20.66.
    EXPECT_EQ(decodeULaw7Bit(65), 21);
    EXPECT_EQ(decodeULaw7Bit(63), -21);
}

TEST(SamplingSoundItem, ALastOddByteIsNoSample)
{
    const SamplingSoundItem item{bytes("00 40 7F")};
    EXPECT_EQ(item.sampleCount(), 1u);
    EXPECT_EQ(serializeULawSamples(std::vector{item}, false), (std::vector<std::uint8_t>{118}));
}

TEST(SerializeULawSamples, RunsAllSoundsTogether)
{
    const std::vector items{soundOf({0, 32'767}), soundOf({}), soundOf({-32'768})};
    EXPECT_EQ(serializeULawSamples(items, false), (std::vector<std::uint8_t>{64, 127, 1}));
}

TEST(SerializeULawSamples, GivesEverySampleItsOwnCode)
{
    std::vector<int> samples;
    std::vector<std::uint8_t> codes;
    for (int sample = -32'768; sample <= 32'767; ++sample) {
        samples.push_back(sample);
        codes.push_back(encodeULaw7Bit(static_cast<std::int16_t>(sample)));
    }
    EXPECT_EQ(serializeULawSamples(std::vector{soundOf(samples)}, false), codes);
}

TEST(SerializeULawSamples, TruncatesReducedSamplesTowardZero)
{
    // 20 x 0.56234 is 11.2468, 19 x 0.56234 is 10.68 and truncates to 10, whose code is still that of silence.
    const std::vector items{soundOf({20, 19, -20, -19, 1})};
    EXPECT_EQ(serializeULawSamples(items, true), (std::vector<std::uint8_t>{65, 64, 63, 64, 64}));
    const std::vector loud{soundOf({32'767})};
    EXPECT_EQ(serializeULawSamples(loud, true), (std::vector<std::uint8_t>{encodeULaw7Bit(18'426)}));
}

TEST(BuildSendDataSections, NoItemsGiveOneSectionOfPadCodesAndNoSetting)
{
    const Batch sections = buildSendDataSections({}, false);
    ASSERT_EQ(sections.size(), 1u);
    EXPECT_EQ(codesOf(sections[0]), Message(128, 0x40));
    EXPECT_TRUE(buildSettings({}).empty());
}

TEST(BuildSendDataSections, ASoundOf129SamplesTakesTwoSections)
{
    const std::vector items{soundOf(std::vector<int>(129, 32'767))};
    const Batch sections = buildSendDataSections(items, false);
    ASSERT_EQ(sections.size(), 2u);
    EXPECT_EQ(codesOf(sections[0]), Message(128, 0x7F));
    Message expected(128, 0x40);
    expected[0] = 0x7F;
    EXPECT_EQ(codesOf(sections[1]), expected);
    EXPECT_EQ(Message(sections[1].begin(), sections[1].begin() + 8), bytes("F0 00 48 05 7F 30 00 01"));
}

TEST(BuildSendDataSections, AFullMemoryGives9375Sections)
{
    const std::vector items{silence(1'200'000)};
    const Batch sections = buildSendDataSections(items, false);
    ASSERT_EQ(sections.size(), 9'375u);
    EXPECT_EQ(Message(sections.back().begin(), sections.back().begin() + 8), bytes("F0 00 48 05 7F 30 49 1E"));
    EXPECT_EQ(sections.back().size(), 137u);
}

TEST(BuildSendDataSections, OneSampleTooManyIsRefusedWithTheCount)
{
    const std::vector items{silence(1'200'000), silence(1)};
    EXPECT_EQ(thrown<Error>([&] { buildSendDataSections(items, false); }), Error(Error::tooManySamples, 1'200'001));
}

TEST(SamplingSoundSendData, PutsTheNumberInTwoBytesAndMasksTheCodes)
{
    Message codes(128, 0x01);
    codes[0] = 0xFF;
    const Message section = samplingSoundSendData(9'374, codes);
    EXPECT_EQ(section.size(), 137u);
    EXPECT_EQ(Message(section.begin(), section.begin() + 10), bytes("F0 00 48 05 7F 30 49 1E 7F 01"));
    EXPECT_EQ(section.back(), 0xF7);
}

TEST(SamplingSoundSendData, ChecksTheNumberBeforeTheCodes)
{
    EXPECT_EQ(thrown<Error>([] { samplingSoundSendData(-1, Message(5)); }), Error(Error::invalidSectionNumber, -1));
    EXPECT_EQ(thrown<Error>([] { samplingSoundSendData(0, Message(127)); }),
              Error(Error::invalidSectionSampleCount, 127));
    EXPECT_EQ(thrown<Error>([] { samplingSoundSendData(0, Message(129)); }),
              Error(Error::invalidSectionSampleCount, 129));
}

TEST(BuildSettings, TwoSoundsOf100SamplesStartAt0AndAt100)
{
    const std::vector items{silence(100), silence(100)};
    const Batch settings = buildSettings(items);
    ASSERT_EQ(settings.size(), 2u);
    EXPECT_EQ(settings[0], bytes("F0 00 48 05 7F 31 00 00 00 00 00 00 64 F7"));
    EXPECT_EQ(settings[1], bytes("F0 00 48 05 7F 31 01 00 00 64 00 00 64 F7"));
    EXPECT_EQ(buildSendDataSections(items, false).size(), 2u) << "the second sound begins inside section 0";
}

TEST(BuildSettings, ALastOddByteDoesNotCount)
{
    const std::vector items{SamplingSoundItem{Message(3)}, silence(1)};
    EXPECT_EQ(buildSettings(items).at(1), bytes("F0 00 48 05 7F 31 01 00 00 01 00 00 01 F7"));
}

TEST(BuildSettings, TheThirtyThirdSoundIsRefused)
{
    EXPECT_EQ(buildSettings(std::vector<SamplingSoundItem>(32)).size(), 32u);
    EXPECT_EQ(thrown<Error>([] { buildSettings(std::vector<SamplingSoundItem>(33)); }),
              Error(Error::invalidSoundNumber, 32));
}

TEST(SamplingSoundSetting, PutsStartAndCountInThreeBytesEach)
{
    EXPECT_EQ(samplingSoundSetting(31, 1'000'000, 200'000), bytes("F0 00 48 05 7F 31 1F 3D 04 40 0C 1A 40 F7"));
}

TEST(SamplingSoundSetting, TheRangeMayEndAtTheEndOfTheMemoryAndNotBehindIt)
{
    EXPECT_EQ(thrown<Error>([] { samplingSoundSetting(0, 1'199'999, 1); }), std::nullopt);
    EXPECT_EQ(thrown<Error>([] { samplingSoundSetting(0, 1'199'999, 2); }), Error::invalidAddressRange);
    EXPECT_EQ(thrown<Error>([] { samplingSoundSetting(0, 1'200'000, 0); }), std::nullopt);
    EXPECT_EQ(thrown<Error>([] { samplingSoundSetting(0, -1, 5); }), Error::invalidAddressRange);
    EXPECT_EQ(thrown<Error>([] { samplingSoundSetting(0, 5, -1); }), Error::invalidAddressRange);
    constexpr std::int64_t large = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(thrown<Error>([] { samplingSoundSetting(0, large, large); }), Error::invalidAddressRange);
}

TEST(SamplingSoundSetting, ChecksTheSoundNumberFirst)
{
    EXPECT_EQ(thrown<Error>([] { samplingSoundSetting(32, -1, 0); }), Error(Error::invalidSoundNumber, 32));
}

TEST(PCM16LittleEndian, WritesTheLowByteFirstAndTruncatesTowardZero)
{
    const Channels channels{{0.0f, 0.5f, -0.5f, 1.0f, -1.0f, 2.0f, -2.0f}};
    // 0.5 x 32,767 is 16,383.5; the most negative output is -32,767.
    EXPECT_EQ(pcm16LittleEndian(channels, 24'000, 24'000), bytes("00 00 FF 3F 01 C0 FF 7F 01 80 FF 7F 01 80"));
}

TEST(PCM16LittleEndian, ASampleThatIsNoNumberIsSilent)
{
    const Channels channels{{std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}};
    EXPECT_EQ(pcm16LittleEndian(channels, 24'000, 24'000), bytes("00 00 FF 7F"));
}

TEST(PCM16LittleEndian, AveragesTheChannels)
{
    const Channels channels{{0.5f, 1.0f}, {-0.5f, 0.0f}};
    EXPECT_EQ(pcm16LittleEndian(channels, 24'000, 24'000), bytes("00 00 FF 3F"));
}

TEST(PCM16LittleEndian, LeavesOutChannelsOfAnotherLengthThanTheFirst)
{
    const Channels channels{{0.5f}, {1.0f, 1.0f}, {}, {0.25f}};
    EXPECT_EQ(pcm16LittleEndian(channels, 24'000, 24'000), bytes("FF 2F"));
}

TEST(PCM16LittleEndian, KeepsEverySecondFrameOf48000Hertz)
{
    const Channels channels{{0.0f, 1.0f, 0.5f, 1.0f, -1.0f, 1.0f}};
    EXPECT_EQ(pcm16LittleEndian(channels, 24'000, 48'000), bytes("00 00 FF 3F 01 80"));
}

TEST(PCM16LittleEndian, TakesTheFrameBeforeThePositionAt44100Hertz)
{
    EXPECT_EQ(sourceFrame(1, 100, 24'000, 44'100), 1);
    EXPECT_EQ(sourceFrame(2, 100, 24'000, 44'100), 3);
    EXPECT_EQ(sourceFrame(99, 100, 24'000, 44'100), 99) << "never behind the last frame";
    EXPECT_EQ(outputSampleCount(44'100, 24'000, 44'100), 24'000);
}

TEST(PCM16LittleEndian, RepeatsFramesOfASlowerRate)
{
    const Channels channels{{1.0f, -1.0f}};
    EXPECT_EQ(pcm16LittleEndian(channels, 24'000, 12'000), bytes("FF 7F FF 7F 01 80 01 80"));
}

TEST(PCM16LittleEndian, RoundsTheLengthToTheNearestWithHalvesUp)
{
    EXPECT_EQ(outputSampleCount(1, 24'000, 48'000), 1);
    EXPECT_EQ(outputSampleCount(1, 24'000, 48'001), 0);
    EXPECT_EQ(outputSampleCount(3, 24'000, 48'000), 2);
}

TEST(PCM16LittleEndian, WithNothingToConvertIsEmpty)
{
    const Channels one{{0.5f}};
    EXPECT_TRUE(pcm16LittleEndian(one, 24'000, 0).empty());
    EXPECT_TRUE(pcm16LittleEndian(one, 24'000, -1).empty());
    EXPECT_TRUE(pcm16LittleEndian(one, 24'000, std::numeric_limits<double>::quiet_NaN()).empty());
    EXPECT_TRUE(pcm16LittleEndian(one, 0, 24'000).empty());
    EXPECT_TRUE(pcm16LittleEndian(one, 24'000, 1e9).empty());
    EXPECT_TRUE(pcm16LittleEndian({}, 24'000, 24'000).empty());
    EXPECT_TRUE(pcm16LittleEndian(Channels{{}, {0.5f}}, 24'000, 24'000).empty());
}

TEST(PCM16LittleEndian, MoreThanTwelveHoursAreEmptyAndNothingIsRaised)
{
    const Channels one{{0.5f}};
    for (const double rate : {1e-300, 1e-6, 24'000.0 / 1'036'800'000})
        EXPECT_NO_THROW(EXPECT_TRUE(pcm16LittleEndian(one, 24'000, rate).empty()) << rate);
    EXPECT_EQ(outputSampleCount(1, 24'000, 1e-300), 1'000'000'000'000'000);
}

TEST(SoundResampler, PiecesOfAnySizeGiveTheWholeSound)
{
    const Channels one{{0.0f, 0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f, 0.7f, 0.8f, 0.9f}};
    for (const double rate : {8'000.0, 24'000.0, 44'100.0, 70'000.0}) {
        for (std::size_t size = 1; size <= 10; ++size) {
            Resampler resampler(1, 24'000, rate);
            resampler.add({});
            for (std::size_t start = 0; start < 10; start += size)
                resampler.add(std::span(one[0]).subspan(start, std::min(size, 10 - start)));
            EXPECT_EQ(resampler.frameCount(), 10);
            EXPECT_EQ(resampler.finished(), pcm16LittleEndian(one, 24'000, rate)) << size << " at " << rate;
        }
    }
}

TEST(RestorePCM16LittleEndian, ACountBelowOneIsEmpty)
{
    EXPECT_TRUE(restorePCM16LittleEndian({{0, Message(128, 0x7F)}}, 0, 0).empty());
    EXPECT_TRUE(restorePCM16LittleEndian({{0, Message(128, 0x7F)}}, 0, -5).empty());
}

TEST(RestorePCM16LittleEndian, ReadsAcrossSections)
{
    Message first(128, 0x40);
    first[127] = 0x7F;
    EXPECT_EQ(restorePCM16LittleEndian({{0, first}, {1, Message(128, 0x01)}}, 126, 3), bytes("00 00 FF 7F 00 80"));
}

TEST(RestorePCM16LittleEndian, IsSilentWhereASectionOrItsEndIsMissing)
{
    const SoundSections sections{{0, Message(128, 0x7F)}, {2, Message(1, 0x7F)}};
    const auto pcm = restorePCM16LittleEndian(sections, 127, 132);
    ASSERT_EQ(pcm.size(), 264u);
    EXPECT_EQ(Message(pcm.begin(), pcm.begin() + 4), bytes("FF 7F 00 00"));
    EXPECT_EQ(Message(pcm.begin() + 2 * 128, pcm.begin() + 2 * 131), bytes("00 00 FF 7F 00 00"));
}

TEST(RestorePCM16LittleEndian, GivesTheCodesThatWereSent)
{
    std::mt19937 random(3);
    std::vector<int> samples(1000);
    for (int& sample : samples)
        sample = static_cast<int>(random() % 65'536) - 32'768;
    const std::vector items{soundOf(samples)};
    SoundSections sections;
    for (const Message& section : buildSendDataSections(items, false))
        sections[section[6] << 7 | section[7]] = codesOf(section);
    const std::vector restored{SamplingSoundItem{restorePCM16LittleEndian(sections, 0, 1000)}};
    EXPECT_EQ(serializeULawSamples(restored, false), serializeULawSamples(items, false));
}

} // namespace
} // namespace tonavelle::SamplingSoundBuilder
