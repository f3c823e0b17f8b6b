#pragma once

#include "core/protocol/Message.h"
#include "core/tone/ToneRecords.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tonavelle::ToneDataMIDIFileBuilder {

inline constexpr std::uint16_t ticksPerQuarterNote = 480;

/// Ticks between the starts of two channels, whose set-ups overlap in time.
inline constexpr int channelInterval = 30;

/// The tone data file: a Standard MIDI File that sets the module up when a sequencer plays it. Of `channels` at most
/// the first 16 are written; `userMessages` follow one a tick behind the master settings.
std::vector<std::uint8_t> fileData(const MasterToneParameters& master, std::span<const ChannelToneParameters> channels,
                                   std::span<const Message> userMessages);

} // namespace tonavelle::ToneDataMIDIFileBuilder
