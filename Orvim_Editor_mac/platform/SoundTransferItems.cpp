#include "platform/SoundTransferItems.h"

#include "core/media/SamplingSoundBuilder.h"
#include "core/media/SoundResampling.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "platform/MIDIFileLoaders.h"
#include "platform/Phase3FileError.h"

#include <QFile>
#include <QFileInfo>

#include <sndfile.h>

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

/// Whether the module's memory would hold the sound. A few frames at a rate of 1 Hz may ask for any amount of memory.
bool fitsTheModule(std::int64_t frameCount, double sourceRate)
{
    return outputSampleCount(frameCount, sampleRate, sourceRate) <= maxSampleCount;
}

} // namespace

std::optional<std::vector<std::uint8_t>> loadAudioFile(const QString& path)
{
    // Neither a folder nor a pipe is opened: reading one would fail late or never end.
    if (!QFileInfo(path).isFile()) throw Phase3FileError(Phase3FileError::cannotReadAudio);
    SF_INFO info{};
    const SoundFile sound(sf_open(QFile::encodeName(path).constData(), SFM_READ, &info));
    if (!sound || info.channels < 1 || info.samplerate < 1) throw Phase3FileError(Phase3FileError::cannotReadAudio);
    if (!fitsTheModule(info.frames, info.samplerate)) return std::nullopt;
    Resampler resampler(static_cast<std::size_t>(info.channels), sampleRate, info.samplerate);
    std::vector<float> block(static_cast<std::size_t>(blockFrames * info.channels));
    for (;;) {
        const auto count = sf_readf_float(sound.get(), block.data(), blockFrames);
        // A disk that fails gives no frames either, or fewer.
        if (sf_error(sound.get()) != SF_ERR_NO_ERROR) throw Phase3FileError(Phase3FileError::cannotReadAudio);
        if (count < 1) return resampler.finished();
        // The header may have told of fewer frames.
        if (!fitsTheModule(resampler.frameCount() + count, info.samplerate)) return std::nullopt;
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
