#pragma once

#include "core/protocol/Message.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tonavelle {

/// A System Exclusive or meta event of any track of a file. Its bytes stay where they stand in one copy of the file,
/// which all its events share: events may reach beyond their tracks and overlap, and as copies of their own the bytes
/// of a small damaged file would fill all memory.
struct ParsedMIDIEvent {
    std::int64_t absoluteTick = 0; ///< from the start of the track
    std::int64_t trackIndex = 0;   ///< from 0
    std::int64_t order = 0;        ///< running number of the kept events over all tracks of the file
    std::uint8_t status = 0;       ///< F0, F7 for a continued System Exclusive event, FF for a meta event
    std::optional<std::uint8_t> metaType = std::nullopt; ///< of a meta event only
    std::span<const std::uint8_t> data = {};             ///< what stands behind the event's size
    std::shared_ptr<const Message> file = nullptr;       ///< holds `data`

    /// How many bytes `message` copies.
    std::size_t messageSize() const;
    /// F0 and the data, or the data alone where the event continues another; empty for a meta event. Copied at each
    /// call.
    Message message() const;
    /// UTF-8, of meta types 1 and 5 only, and only where the data are text. Decoded at each call.
    std::optional<std::string> text() const;
};

/// The bytes are no Standard MIDI File, or end too early.
class MIDIEventParserError : public std::exception
{
public:
    const char* what() const noexcept override { return "MIDIEventParserError"; }
};

/// Fishes the System Exclusive and meta events out of a Standard MIDI File, all tracks merged by time, then track, then
/// order. Looser than SimpleMIDIFileReader on purpose: lengths of the header and of tracks are not checked, reads are
/// bounded by the file alone, and an end-of-track event ends nothing. Time and memory grow with the size of the data,
/// whatever they hold. Throws MIDIEventParserError.
std::vector<ParsedMIDIEvent> parseMIDIEvents(std::span<const std::uint8_t> data);

} // namespace tonavelle
