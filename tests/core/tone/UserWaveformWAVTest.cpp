#include "core/tone/UserWaveformBuilder.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using namespace UserWaveformBuilder;
using orvim::test::bytes;
using File = std::vector<std::uint8_t>;

File joined(std::initializer_list<File> parts)
{
    File file;
    for (const File& part : parts)
        file.insert(file.end(), part.begin(), part.end());
    return file;
}

const File riff = bytes("52 49 46 46 FF FF FF FF 57 41 56 45");
const File monoFormat = bytes("66 6D 74 20 10 00 00 00 01 00 01 00 80 BB 00 00 00 77 01 00 02 00 10 00");

/// A "data" chunk of these samples.
File dataChunk(const std::vector<std::int16_t>& samples)
{
    const std::size_t size = samples.size() * 2;
    File chunk = bytes("64 61 74 61");
    for (const unsigned shift : {0u, 8u, 16u, 24u})
        chunk.push_back(static_cast<std::uint8_t>(size >> shift));
    for (const std::int16_t sample : samples) {
        chunk.push_back(static_cast<std::uint8_t>(sample));
        chunk.push_back(static_cast<std::uint8_t>(sample >> 8));
    }
    return chunk;
}

/// Distinct samples over most of the range.
std::vector<std::int16_t> ramp(std::size_t count)
{
    std::vector<std::int16_t> samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = static_cast<std::int16_t>(static_cast<int>(i * 60'000 / count) - 30'000);
    return samples;
}

void expectRefused(const File& file)
{
    try {
        samplesFromWAVData(file);
        FAIL() << "no error";
    } catch (const UserWaveformError& error) {
        EXPECT_EQ(error.kind(), UserWaveformError::Kind::invalidSampleCount);
        EXPECT_STREQ(error.what(), "サンプル数が不正");
    }
}

File withFormat(const char* hex)
{
    return joined({riff, bytes(hex), dataChunk(ramp(2048))});
}

TEST(WAVData, IsAMonoFileOfFixedLayout)
{
    UserWaveform waveform = flat();
    waveform[0] = 0x1234;
    waveform[2047] = -2;
    const File file = wavData(waveform, 48000);
    ASSERT_EQ(file.size(), 4140u);
    EXPECT_EQ(File(file.begin(), file.begin() + 46), bytes("52 49 46 46 24 10 00 00 57 41 56 45"
                                                           "66 6D 74 20 10 00 00 00 01 00 01 00"
                                                           "80 BB 00 00 00 77 01 00 02 00 10 00"
                                                           "64 61 74 61 00 10 00 00 34 12"));
    EXPECT_EQ(File(file.end() - 4, file.end()), bytes("00 00 FE FF"));
}

TEST(WAVData, FailsUnlessThereAre2048Samples)
{
    EXPECT_THROW(wavData(UserWaveform(2047), 48000), UserWaveformError);
    EXPECT_THROW(wavData(UserWaveform(2049), 48000), UserWaveformError);
}

TEST(WAVData, ReadsBackAsItWasWritten)
{
    EXPECT_EQ(samplesFromWAVData(wavData(ramp(2048), 48000)), ramp(2048));
    EXPECT_EQ(samplesFromWAVData(wavData(triangle(), 8000)), triangle());
}

TEST(SamplesFromWAVData, SkipsAnOddChunkWithItsPadByte)
{
    const File list = bytes("4C 49 53 54 05 00 00 00 01 02 03 04 05 00");
    EXPECT_EQ(samplesFromWAVData(joined({riff, list, monoFormat, list, dataChunk(ramp(2048))})), ramp(2048));
}

TEST(SamplesFromWAVData, RefusesAnythingButMono16BitPCM)
{
    const char* tail = " 80 BB 00 00 00 77 01 00 02 00 10 00";
    expectRefused(withFormat((std::string("66 6D 74 20 10 00 00 00 01 00 02 00") + tail).c_str()));
    expectRefused(withFormat((std::string("66 6D 74 20 10 00 00 00 03 00 01 00") + tail).c_str()));
    expectRefused(withFormat((std::string("66 6D 74 20 10 00 00 00 FE FF 01 00") + tail).c_str()));
    expectRefused(withFormat("66 6D 74 20 10 00 00 00 01 00 01 00 80 BB 00 00 00 77 01 00 01 00 08 00"));
    expectRefused(joined({riff, dataChunk(ramp(2048))}));
}

TEST(SamplesFromWAVData, RefusesAFileWithoutData)
{
    expectRefused(joined({riff, monoFormat, bytes("4C 49 53 54 04 00 00 00 00 00 00 00")}));
    expectRefused(joined({riff, monoFormat, dataChunk({})}));
    expectRefused(joined({riff, monoFormat, bytes("64 61 74 61 01 00 00 00 7F 00")}));
}

TEST(SamplesFromWAVData, RefusesAForeignOrShortHead)
{
    const File good = wavData(sine(), 48000);
    for (const std::size_t position : {0u, 3u, 8u, 11u}) {
        File file = good;
        file[position] ^= 0x20;
        expectRefused(file);
    }
    expectRefused({});
    expectRefused(File(good.begin(), good.begin() + 43));
}

TEST(SamplesFromWAVData, RefusesAFileCutAnywhere)
{
    const File good = wavData(sine(), 48000);
    for (std::size_t size = 0; size < good.size(); ++size)
        ASSERT_THROW(samplesFromWAVData(std::span(good).first(size)), UserWaveformError) << size;
}

TEST(SamplesFromWAVData, RefusesAChunkThatEndsPastTheFileWhateverItIs)
{
    expectRefused(joined({riff, monoFormat, dataChunk(ramp(2048)), bytes("4C 49 53 54 01 00 00 00")}));
    expectRefused(joined({riff, monoFormat, dataChunk(ramp(2048)), bytes("4C 49 53 54 FF FF FF FF 00")}));
}

TEST(SamplesFromWAVData, WalksAMegabyteOfEmptyChunks)
{
    const File empty = bytes("4C 49 53 54 00 00 00 00");
    File chunks;
    while (chunks.size() < 1'200'000)
        chunks.insert(chunks.end(), empty.begin(), empty.end());
    EXPECT_EQ(samplesFromWAVData(joined({riff, monoFormat, chunks, dataChunk(ramp(2048))})), ramp(2048));
    expectRefused(joined({riff, monoFormat, chunks}));
}

TEST(SamplesFromWAVData, AMegabyteOfDataFillsNoMoreThanTheWaveform)
{
    const UserWaveform samples = samplesFromWAVData(joined({riff, monoFormat, dataChunk(ramp(600'000))}));
    ASSERT_EQ(samples.size(), 2048u);
    EXPECT_EQ(samples.front(), -30'000);
    EXPECT_EQ(samples.back(), ramp(600'000).back());
}

TEST(SamplesFromWAVData, DoesNotLookAtFewerThanEightBytesAtTheEnd)
{
    const File rest = bytes("4C 49 53 54 FF FF FF");
    EXPECT_EQ(samplesFromWAVData(joined({riff, monoFormat, dataChunk(ramp(2048)), rest})), ramp(2048));
}

TEST(SamplesFromWAVData, DoesNotNeedThePadByteOfTheLastChunk)
{
    File odd = dataChunk(ramp(2048));
    odd[4] = 0x01; // 4,097 bytes
    odd.push_back(0x55);
    EXPECT_EQ(samplesFromWAVData(joined({riff, monoFormat, odd})), ramp(2048));
}

TEST(SamplesFromWAVData, TheLastGoodFormatAndTheLastDataCount)
{
    const File stereo = bytes("66 6D 74 20 10 00 00 00 01 00 02 00 80 BB 00 00 00 77 01 00 02 00 10 00");
    const File shortFormat = bytes("66 6D 74 20 0E 00 00 00 01 00 02 00 80 BB 00 00 00 77 01 00 02 00");
    EXPECT_EQ(samplesFromWAVData(
                  joined({riff, stereo, dataChunk(ramp(100)), monoFormat, dataChunk(ramp(2048)), shortFormat})),
              ramp(2048));
    expectRefused(joined({riff, monoFormat, dataChunk(ramp(2048)), stereo}));
}

TEST(SamplesFromWAVData, OneSampleFillsTheWaveform)
{
    EXPECT_EQ(samplesFromWAVData(joined({riff, monoFormat, dataChunk({-1234})})), UserWaveform(2048, -1234));
}

TEST(SamplesFromWAVData, StretchesHalfAsManySamplesAndKeepsTheEnds)
{
    const std::vector<std::int16_t> half = ramp(1024);
    const UserWaveform samples = samplesFromWAVData(joined({riff, monoFormat, dataChunk(half)}));
    ASSERT_EQ(samples.size(), 2048u);
    EXPECT_EQ(samples.front(), half.front());
    EXPECT_EQ(samples.back(), half.back());
}

TEST(SamplesFromWAVData, StretchesTwoSamplesToALine)
{
    const UserWaveform samples = samplesFromWAVData(joined({riff, monoFormat, dataChunk({0, 2047})}));
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_EQ(samples[i], static_cast<std::int16_t>(i));
}

TEST(SamplesFromWAVData, ShrinksByTakingThePlacesThatItsPointsFallOn)
{
    std::vector<std::int16_t> samples(4095, 0); // Twice as many intervals: every second sample is taken.
    samples[2] = 77;
    samples[3] = 1000;
    const UserWaveform result = samplesFromWAVData(joined({riff, monoFormat, dataChunk(samples)}));
    EXPECT_EQ(result[1], 77);
    EXPECT_EQ(result[2], 0);
}

} // namespace
} // namespace tonavelle
