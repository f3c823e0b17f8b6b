#pragma once

#include <QString>
#include <QUuid>

#include <cstdint>
#include <optional>
#include <vector>

namespace orvim {

/// One row of the sound page's list.
struct SoundTransferItem {
    QUuid id;
    int soundNumber = 0; ///< the row's place in the list
    QString filePath;
    std::vector<std::uint8_t> pcm16LittleEndian; ///< mono, 24,000 samples a second
};

/// A sound file as 16-bit samples, low byte first, mono, 24,000 a second: the channels' mean at the nearest earlier
/// frame. Empty for a file without frames; absent for a sound longer than the module's whole memory, which is not read.
/// Throws Phase3FileError::cannotReadAudio.
std::optional<std::vector<std::uint8_t>> loadAudioFile(const QString& path);

/// The sounds of an exported file, from number 0 to the highest that it holds. Throws as parseMIDIEvents does.
std::vector<SoundTransferItem> readSoundItemsFromMIDIFile(const QString& path);

} // namespace orvim
