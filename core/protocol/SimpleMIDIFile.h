#pragma once

#include "core/protocol/EventBytes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tonavelle {

/// One event at its place in a track. What it is stands in `message` alone, so that nothing can contradict it.
struct SimpleMIDITimedEvent {
    std::int64_t absoluteTime = 0; ///< ticks from the start of the track
    /// The whole event: status and data of a channel message, F0 ... F7 of a System Exclusive one, or FF, type,
    /// variable-length size and data of a meta event.
    EventBytes message = {};

    /// The meta event's type; absent for all other events.
    std::optional<std::uint8_t> metaType() const;
    /// The meta event's data without type and size; empty for all other events.
    std::span<const std::uint8_t> metaData() const;
    /// The meta event's data as UTF-8 text, read as Shift_JIS or else as UTF-8; absent when they are neither, and for
    /// all other events. Decoded at each call.
    std::optional<std::string> text() const;

    bool operator==(const SimpleMIDITimedEvent&) const = default;
};

struct SimpleMIDITrack {
    std::vector<SimpleMIDITimedEvent> events; ///< in file order

    bool operator==(const SimpleMIDITrack&) const = default;
};

/// A Standard MIDI File in memory.
struct SimpleMIDIFile {
    std::uint16_t format = 0;
    std::uint16_t ticksPerQuarterNote = 480;
    std::vector<SimpleMIDITrack> tracks; ///< in file order

    bool operator==(const SimpleMIDIFile&) const = default;
};

/// An event placed by its distance from the one before.
struct MIDITrackEvent {
    std::int64_t deltaTime = 0; ///< ticks since the previous event; a negative value counts as 0
    EventBytes message = {};    ///< as in SimpleMIDITimedEvent

    bool operator==(const MIDITrackEvent&) const = default;
};

} // namespace tonavelle
