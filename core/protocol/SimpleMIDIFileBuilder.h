#pragma once

#include "core/protocol/SimpleMIDIFile.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace tonavelle {

/// Turns events into the bytes of a Standard MIDI File. Nothing is refused or repaired: messages go out as they are,
/// without running status, and every track is closed by an end-of-track event of its own.
namespace SimpleMIDIFileBuilder {

/// One to four bytes of seven bits each. A negative value counts as 0; bits above the lowest 28 are dropped.
std::vector<std::uint8_t> variableLengthQuantity(std::int64_t value);

std::array<std::uint8_t, 4> encodeUInt32BigEndian(std::uint32_t value);

/// The file's bytes, each track sorted by time with its order kept among events of one tick; negative times count as 0.
/// 65,536 tracks or more, or a track above 4,294,967,295 bytes, stop the program.
std::vector<std::uint8_t> file(std::uint16_t format, std::uint16_t ticksPerQuarterNote,
                               std::span<const SimpleMIDITrack> tracks);

/// A file of format 1: a track of `defaultTempoEvent` and `events`, and an empty one.
std::vector<std::uint8_t> wpfStyleSequence(std::span<const SimpleMIDITimedEvent> events,
                                           std::uint16_t ticksPerQuarterNote);

/// A file of format 0 with `events` in list order. A message that begins with F7 is copied as it stands here.
std::vector<std::uint8_t> singleTrack(std::span<const MIDITrackEvent> events, std::uint16_t ticksPerQuarterNote);

/// 1,000,000 microseconds per quarter note at tick 0, so that 480 ticks of 480 a quarter note are one second.
SimpleMIDITimedEvent defaultTempoEvent();

} // namespace SimpleMIDIFileBuilder

} // namespace tonavelle
