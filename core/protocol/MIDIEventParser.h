#pragma once

#include "core/protocol/Message.h"

#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tonavelle {

/// A System Exclusive or meta event of any track of a file.
struct ParsedMIDIEvent {
    std::int64_t absoluteTick = 0; ///< from the start of the track
    std::int64_t trackIndex = 0;   ///< from 0
    std::int64_t order = 0;        ///< running number of the kept events over all tracks of the file
    Message message = {};          ///< empty for a meta event
    std::optional<std::uint8_t> metaType = std::nullopt;
    std::optional<std::string> text = std::nullopt; ///< UTF-8, of meta types 1 and 5 only

    bool operator==(const ParsedMIDIEvent&) const = default;
};

/// The bytes are no Standard MIDI File, or end too early.
class MIDIEventParserError : public std::exception
{
public:
    const char* what() const noexcept override { return "MIDIEventParserError"; }
};

/// Fishes the System Exclusive and meta events out of a Standard MIDI File, all tracks merged by time, then track, then
/// order. Looser than SimpleMIDIFileReader on purpose: lengths of the header and of tracks are not checked, reads are
/// bounded by the file alone, and an end-of-track event ends nothing. Throws MIDIEventParserError.
std::vector<ParsedMIDIEvent> parseMIDIEvents(std::span<const std::uint8_t> data);

} // namespace tonavelle
