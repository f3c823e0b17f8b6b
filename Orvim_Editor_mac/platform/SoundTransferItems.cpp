#include "platform/SoundTransferItems.h"

#include "core/media/SamplingSoundBuilder.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "platform/MIDIFileLoaders.h"
#include "platform/Phase3FileError.h"

#include <QFile>
#include <QFileInfo>

#include <sndfile.h>

#include <limits>
#include <memory>
#include <span>

namespace orvim {

namespace {

using namespace tonavelle::SamplingSoundBuilder;

constexpr sf_count_t blockFrames = 4'096;

struct CloseSound {
    void operator()(SNDFILE* sound) const { sf_close(sound); }
};

using SoundFile = std::unique_ptr<SNDFILE, CloseSound>;

/// Makes samples of 24,000 Hz from frames as they come, so that a long file is never held in memory as a whole.
class Resampler
{
public:
    Resampler(int channelCount, double sourceRate)
        : m_channelCount(static_cast<std::size_t>(channelCount)), m_sourceRate(sourceRate)
    {
    }

    /// Whether the module's memory would hold the sound with that many frames more. A few frames at a rate of 1 Hz may
    /// ask for any amount of memory, so this is to be asked before they are added.
    bool hasRoomFor(std::int64_t frameCount) const
    {
        return outputSampleCount(m_frameCount + frameCount, sampleRate, m_sourceRate) <= maxSampleCount;
    }

    /// The next frames, one sample a channel each.
    void add(std::span<const float> frames)
    {
        const auto count = static_cast<std::int64_t>(frames.size() / m_channelCount);
        if (count == 0) return;
        for (;;) {
            const auto frame = sourceFrame(m_sampleCount, unlimited, sampleRate, m_sourceRate) - m_frameCount;
            if (frame >= count) break;
            append(meanSample(frames.subspan(static_cast<std::size_t>(frame) * m_channelCount, m_channelCount)));
        }
        m_lastSample = meanSample(frames.last(m_channelCount));
        m_frameCount += count;
    }

    std::vector<std::uint8_t> finished()
    {
        const auto length = outputSampleCount(m_frameCount, sampleRate, m_sourceRate);
        while (m_sampleCount < length)
            append(m_lastSample);
        m_pcm.resize(static_cast<std::size_t>(length) * 2);
        return std::move(m_pcm);
    }

private:
    static constexpr auto unlimited = std::numeric_limits<std::int64_t>::max();

    std::int16_t meanSample(std::span<const float> frame) const
    {
        float sum = 0;
        for (const float sample : frame)
            sum += sample;
        return pcm16Sample(sum / static_cast<float>(m_channelCount));
    }

    void append(std::int16_t sample)
    {
        const auto bits = static_cast<std::uint16_t>(sample);
        m_pcm.push_back(static_cast<std::uint8_t>(bits & 0xFF));
        m_pcm.push_back(static_cast<std::uint8_t>(bits >> 8));
        ++m_sampleCount;
    }

    std::size_t m_channelCount;
    double m_sourceRate;
    std::int64_t m_frameCount = 0;  ///< frames added
    std::int64_t m_sampleCount = 0; ///< samples made
    std::int16_t m_lastSample = 0;  ///< of the last frame added
    std::vector<std::uint8_t> m_pcm;
};

} // namespace

std::optional<std::vector<std::uint8_t>> loadAudioFile(const QString& path)
{
    // Neither a folder nor a pipe is opened: reading one would fail late or never end.
    if (!QFileInfo(path).isFile()) throw Phase3FileError(Phase3FileError::cannotReadAudio);
    SF_INFO info{};
    const SoundFile sound(sf_open(QFile::encodeName(path).constData(), SFM_READ, &info));
    if (!sound || info.channels < 1 || info.samplerate < 1) throw Phase3FileError(Phase3FileError::cannotReadAudio);
    Resampler resampler(info.channels, info.samplerate);
    if (!resampler.hasRoomFor(info.frames)) return std::nullopt;
    std::vector<float> block(static_cast<std::size_t>(blockFrames * info.channels));
    for (;;) {
        const auto count = sf_readf_float(sound.get(), block.data(), blockFrames);
        // A disk that fails gives no frames either, or fewer.
        if (sf_error(sound.get()) != SF_ERR_NO_ERROR) throw Phase3FileError(Phase3FileError::cannotReadAudio);
        if (count < 1) return resampler.finished();
        // The header may have told of fewer frames.
        if (!resampler.hasRoomFor(count)) return std::nullopt;
        resampler.add(std::span(block).first(static_cast<std::size_t>(count * info.channels)));
    }
}

std::vector<SoundTransferItem> readSoundItemsFromMIDIFile(const QString& path)
{
    std::vector<SoundTransferItem> items;
    for (auto& sound : tonavelle::TransferMIDIFileBuilder::restoreSounds(parseMIDIEvents(path))) {
        const int soundNumber = static_cast<int>(items.size());
        const QString source = QStringLiteral("MIDI Import: sound %1").arg(soundNumber, 2, 10, QLatin1Char('0'));
        items.push_back({QUuid::createUuid(), soundNumber, source, std::move(sound.pcm16LittleEndian)});
    }
    return items;
}

} // namespace orvim
