// Every coding, rate and number of channels of a WAV file, written by libsndfile.

#include "core/media/SamplingSoundBuilder.h"
#include "platform/Phase3FileError.h"
#include "platform/SoundTransferItems.h"
#include "tests/app/support/WaveFile.h"

#include <QTemporaryDir>

#include <sndfile.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace orvim {
namespace {

struct Coding {
    const char* name = "";
    int format = 0;
    double tolerance = 0; ///< of full scale, as a mean over the squares
    int mostChannels = 6;
};

std::ostream& operator<<(std::ostream& stream, const Coding& coding)
{
    return stream << coding.name;
}

class SoundFormats : public testing::TestWithParam<Coding>
{
protected:
    static double amplitude(int channel) { return 0.2 + 0.1 * channel; }

    /// A channel's sine of 440 Hz.
    static double sample(int channel, double seconds)
    {
        return amplitude(channel) * std::sin(2 * std::numbers::pi * 440 * seconds);
    }

    void write(int rate, int channels, int frames) const
    {
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = channels;
        info.format = GetParam().format;
        SNDFILE* const file = sf_open(path.toUtf8().constData(), SFM_WRITE, &info);
        ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
        std::vector<double> samples;
        for (int i = 0; i < frames; ++i)
            for (int channel = 0; channel < channels; ++channel)
                samples.push_back(sample(channel, static_cast<double>(i) / rate));
        EXPECT_EQ(sf_writef_double(file, samples.data(), frames), frames);
        sf_close(file);
    }

    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("音.wav"));
};

TEST_P(SoundFormats, EveryRateAndNumberOfChannelsIsRead)
{
    for (const int rate : {8'000, 11'025, 24'000, 44'100, 48'000, 96'000, 192'000}) {
        for (const int channels : {1, 2, 3, 6}) {
            if (channels > GetParam().mostChannels) continue;
            const int frames = rate / 10;
            write(rate, channels, frames);
            const auto pcm = loadAudioFile(path).value();
            const auto length = static_cast<std::size_t>(std::lround(24'000.0 * frames / rate));
            const bool fillsItsLastBlock = GetParam().mostChannels == 2;
            ASSERT_TRUE(pcm.size() == length * 2 || (fillsItsLastBlock && pcm.size() > length * 2)) << pcm.size();
            double squares = 0;
            for (std::size_t i = 0; i < length; ++i) {
                const double seconds = std::floor(static_cast<double>(i) * rate / 24'000) / rate;
                double mean = 0;
                for (int channel = 0; channel < channels; ++channel)
                    mean += sample(channel, seconds) / channels;
                const auto stored = static_cast<std::int16_t>(pcm[2 * i] | pcm[2 * i + 1] << 8);
                squares += (stored / 32'767.0 - mean) * (stored / 32'767.0 - mean);
            }
            EXPECT_LE(std::sqrt(squares / static_cast<double>(length)), GetParam().tolerance)
                << rate << " Hz, " << channels << " channels";
        }
    }
}

TEST_P(SoundFormats, EveryBeginningOfAFileIsReadOrRefused)
{
    write(24'000, 1, 100);
    const QByteArray whole = content();
    const auto wholePCM = loadAudioFile(path).value();
    int refused = 0;
    for (qsizetype size = 0; size < whole.size(); ++size) {
        test::writeFile(path, whole.left(size));
        try {
            EXPECT_LE(loadAudioFile(path).value().size(), wholePCM.size()) << size;
        } catch (const Phase3FileError& error) {
            EXPECT_EQ(error, Phase3FileError::cannotReadAudio);
            ++refused;
        }
    }
    EXPECT_GE(refused, 36) << "without a whole format there is no sound";
}

constexpr double exact = 0.0001;

INSTANTIATE_TEST_SUITE_P(WAV, SoundFormats,
                         testing::Values(Coding{"8 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 0.009},
                                         Coding{"16 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_16, exact},
                                         Coding{"24 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_24, exact},
                                         Coding{"32 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_32, exact},
                                         Coding{"float", SF_FORMAT_WAV | SF_FORMAT_FLOAT, exact},
                                         Coding{"double", SF_FORMAT_WAV | SF_FORMAT_DOUBLE, exact},
                                         Coding{"A-law", SF_FORMAT_WAV | SF_FORMAT_ALAW, 0.02},
                                         Coding{"mu-law", SF_FORMAT_WAV | SF_FORMAT_ULAW, 0.02},
                                         Coding{"IMA ADPCM", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM, 0.05, 2},
                                         Coding{"MS ADPCM", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM, 0.05, 2},
                                         Coding{"extensible 8 bits", SF_FORMAT_WAVEX | SF_FORMAT_PCM_U8, 0.009},
                                         Coding{"extensible 16 bits", SF_FORMAT_WAVEX | SF_FORMAT_PCM_16, exact},
                                         Coding{"extensible 24 bits", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, exact},
                                         Coding{"extensible float", SF_FORMAT_WAVEX | SF_FORMAT_FLOAT, exact},
                                         Coding{"extensible A-law", SF_FORMAT_WAVEX | SF_FORMAT_ALAW, 0.02}));

} // namespace
} // namespace orvim
