#include "platform/SoundTransferItems.h"

#include "core/media/SoundResampling.h"
#include "platform/Phase3FileError.h"
#include "tests/app/support/WaveFile.h"
#include "tests/support/Bytes.h"
#include "tests/support/Thrown.h"

#include <QTemporaryDir>

#include <bit>
#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;
using test::thrown;
using test::WaveCoding;
using test::waveFile;
using test::WaveFormat;

class SoundFiles : public testing::Test
{
protected:
    QString written(const QByteArray& content)
    {
        const QString path = folder.filePath(QStringLiteral("音 1.wav"));
        test::writeFile(path, content);
        return path;
    }

    std::vector<std::uint8_t> loaded(const QByteArray& content) { return loadAudioFile(written(content)).value(); }

    std::optional<Phase3FileError> errorOf(const QByteArray& content)
    {
        return thrown<Phase3FileError>([&] { loaded(content); });
    }

    QTemporaryDir folder;
};

TEST_F(SoundFiles, SixteenBitSamplesLoseAtMostOneStep)
{
    EXPECT_EQ(loaded(waveFile({0, 16384, -32768, 32767})), bytes("00 00 FF 3F 01 80 FE 7F"));
}

TEST_F(SoundFiles, EveryWidthIsRead)
{
    EXPECT_EQ(loaded(waveFile({WaveCoding::pcm, 1, 24'000, 8}, QByteArray::fromHex("80C040"))),
              bytes("00 00 FF 3F 01 C0"));
    EXPECT_EQ(loaded(waveFile({WaveCoding::pcm, 1, 24'000, 24}, QByteArray::fromHex("0000400000C0"))),
              bytes("FF 3F 01 C0"));
    EXPECT_EQ(loaded(waveFile({WaveCoding::pcm, 1, 24'000, 32}, QByteArray::fromHex("00000040000000C0"))),
              bytes("FF 3F 01 C0"));
    EXPECT_EQ(loaded(waveFile({WaveCoding::floatingPoint, 1, 24'000, 32}, QByteArray::fromHex("0000003F000000C0"))),
              bytes("FF 3F 01 80"))
        << "0.5 and -2";
    EXPECT_EQ(loaded(waveFile({WaveCoding::floatingPoint, 1, 24'000, 64}, QByteArray::fromHex("000000000000E03F"))),
              bytes("FF 3F"));
    EXPECT_EQ(loaded(waveFile({WaveCoding::aLaw, 1, 24'000, 8}, QByteArray::fromHex("D5D5"))).size(), 4u);
    EXPECT_EQ(loaded(waveFile({WaveCoding::muLaw, 1, 24'000, 8}, QByteArray::fromHex("FFFF"))), bytes("00 00 00 00"));
}

TEST_F(SoundFiles, ChannelsAreAveraged)
{
    EXPECT_EQ(loaded(waveFile({WaveCoding::floatingPoint, 2, 24'000, 32}, QByteArray::fromHex("0000003F00000000"))),
              bytes("FF 1F"))
        << "0.5 and 0 give 0.25";
}

TEST_F(SoundFiles, At48000HertzEverySecondFrameIsKept)
{
    QByteArray data;
    for (const std::int16_t sample : std::vector<std::int16_t>{256, 512, 768, 1024})
        test::putLittleEndian(data, sample);
    EXPECT_EQ(loaded(waveFile({WaveCoding::pcm, 1, 48'000, 16}, data)), bytes("FF 00 FF 02"));
}

/// Reads across the loader's blocks and compares with the rule, applied to the whole sound in memory.
TEST_F(SoundFiles, AnyRateAndChannelCountGiveWhatTheWholeSoundGives)
{
    using namespace tonavelle::SamplingSoundBuilder;
    for (const auto& [rate, channels] : {std::pair{44'100, 2}, {8'000, 1}, {96'000, 6}, {24'000, 3}, {11'025, 2}}) {
        constexpr int frameCount = 20'001;
        std::vector<float> sums(frameCount);
        QByteArray data;
        for (int i = 0; i < frameCount; ++i) {
            for (int channel = 0; channel < channels; ++channel) {
                const float sample = static_cast<float>((i * 7'919 + channel * i) % 20'011) / 25'000 - 0.4f;
                sums[static_cast<std::size_t>(i)] += sample;
                test::putLittleEndian(data, std::bit_cast<std::uint32_t>(sample));
            }
        }
        QByteArray expected;
        for (std::int64_t i = 0; i < outputSampleCount(frameCount, 24'000, rate); ++i) {
            const auto frame = static_cast<std::size_t>(sourceFrame(i, frameCount, 24'000, rate));
            test::putLittleEndian(expected, pcm16Sample(sums[frame] / static_cast<float>(channels)));
        }
        const WaveFormat format{WaveCoding::floatingPoint, static_cast<std::uint16_t>(channels),
                                static_cast<std::uint32_t>(rate), 32};
        EXPECT_EQ(loaded(waveFile(format, data)), std::vector<std::uint8_t>(expected.begin(), expected.end()))
            << rate << " Hz, " << channels << " channels";
    }
}

TEST_F(SoundFiles, AFileWithoutFramesIsAnEmptySound)
{
    EXPECT_EQ(loaded(waveFile(std::vector<std::int16_t>())), bytes(""));
}

TEST_F(SoundFiles, ATruncatedFileGivesWhatItHolds)
{
    EXPECT_EQ(loaded(waveFile({256, 512, 768}).chopped(2)), bytes("FF 00 FF 01"));
}

TEST_F(SoundFiles, AFileThatDeclaresAHugeLengthGivesWhatItHolds)
{
    QByteArray file = waveFile({256, 512});
    file.replace(40, 4, QByteArray::fromHex("F0FFFF7F"));
    EXPECT_EQ(loaded(file), bytes("FF 00 FF 01"));
}

TEST_F(SoundFiles, WhatIsNoSoundIsRefused)
{
    EXPECT_EQ(errorOf({}), Phase3FileError::cannotReadAudio) << "empty";
    EXPECT_EQ(errorOf("this is no sound at all, whatever its name says"), Phase3FileError::cannotReadAudio);
    EXPECT_EQ(errorOf(waveFile({1, 2}).left(20)), Phase3FileError::cannotReadAudio) << "truncated";
    QByteArray corrupt = waveFile({1, 2});
    corrupt.replace(20, 2, QByteArray::fromHex("7777"));
    EXPECT_EQ(errorOf(corrupt), Phase3FileError::cannotReadAudio) << "an unknown coding";
    EXPECT_EQ(thrown<Phase3FileError>([&] { loadAudioFile(folder.path()); }), Phase3FileError::cannotReadAudio);
    EXPECT_EQ(thrown<Phase3FileError>([] { loadAudioFile(QStringLiteral("/dev/zero")); }),
              Phase3FileError::cannotReadAudio);
}

TEST_F(SoundFiles, WhatIsNoNumberIsSilenceAndTheEndlessIsLimited)
{
    // Not a number, endless, endless below zero, 3e38.
    const QByteArray hostile = QByteArray::fromHex("0000C07F"
                                                   "0000807F"
                                                   "000080FF"
                                                   "99B3617F");
    EXPECT_EQ(loaded(waveFile({WaveCoding::floatingPoint, 1, 24'000, 32}, hostile)), bytes("00 00 FF 7F 01 80 FF 7F"));
    EXPECT_EQ(loaded(waveFile({WaveCoding::floatingPoint, 2, 24'000, 32}, hostile)), bytes("00 00 01 80"))
        << "no number and endless, then endless below zero and 3e38";
}

TEST_F(SoundFiles, AHeaderWithoutChannelsRateOrBitsIsRefused)
{
    const QByteArray data(100, '\0');
    EXPECT_EQ(errorOf(waveFile({WaveCoding::pcm, 0, 24'000, 16}, data)), Phase3FileError::cannotReadAudio);
    EXPECT_EQ(errorOf(waveFile({WaveCoding::pcm, 1, 0, 16}, data)), Phase3FileError::cannotReadAudio);
    EXPECT_EQ(errorOf(waveFile({WaveCoding::pcm, 1, 24'000, 0}, data)), Phase3FileError::cannotReadAudio);
    EXPECT_EQ(errorOf(waveFile({WaveCoding::pcm, 0xFFFF, 24'000, 16}, data)), Phase3FileError::cannotReadAudio);
}

TEST_F(SoundFiles, ARateOfAllOnesGivesASoundOfNothing)
{
    const auto error = errorOf(waveFile({WaveCoding::pcm, 1, 0xFFFFFFFF, 16}, QByteArray(100, '\0')));
    EXPECT_EQ(error, Phase3FileError::cannotReadAudio) << "below zero where it is signed";
    EXPECT_EQ(loaded(waveFile({WaveCoding::pcm, 1, 0x7FFFFFFF, 16}, QByteArray(100, '\0'))), bytes(""));
}

TEST_F(SoundFiles, ASoundLongerThanTheModulesMemoryIsAbsent)
{
    const auto isAbsent = [&](std::uint32_t rate, int frames) {
        const WaveFormat format{WaveCoding::pcm, 1, rate, 8};
        return !loadAudioFile(written(waveFile(format, QByteArray(frames, '\x80')))).has_value();
    };
    EXPECT_FALSE(isAbsent(24'000, 1'200'000));
    EXPECT_TRUE(isAbsent(24'000, 1'200'001));
    EXPECT_FALSE(isAbsent(1, 50));
    EXPECT_TRUE(isAbsent(1, 51));
    EXPECT_TRUE(isAbsent(1, 10'800)) << "three hours";
    EXPECT_TRUE(isAbsent(1, 200'000));
}

} // namespace
} // namespace orvim
