#pragma once

#include "platform/DestinationRoute.h"
#include "platform/SequencerClient.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace orvim {

/// Knows how much a receiver behind a destination can take.
class RoomSource
{
public:
    RoomSource() = default;
    RoomSource(const RoomSource&) = delete;
    RoomSource& operator=(const RoomSource&) = delete;
    virtual ~RoomSource() = default;

    /// Absent when somebody has cut the subscription to the destination.
    virtual std::optional<RouteLook> look(std::size_t length) = 0;
    /// Bytes ever written to the receiver by anybody, where that can be known.
    virtual std::optional<std::uint64_t> bytesWritten() const { return std::nullopt; }
    /// A driver works through a ring, and may want to be told again that there is something in it.
    virtual bool isHardware() const { return false; }
};

/// The receivers behind a destination: the device or program itself, or, for a port that only passes on, all that
/// listen to it. `status` says why there are none.
std::vector<std::unique_ptr<RoomSource>> makeRoomSources(SequencerClient& sequencer, SequencerAddress destination,
                                                         MIDIStatus& status);

} // namespace orvim
