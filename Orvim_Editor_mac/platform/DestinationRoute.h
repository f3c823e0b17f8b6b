#pragma once

#include "platform/MIDISystem.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace orvim {

/// What a look at a destination found.
struct RouteLook {
    MIDIStatus status = 0;      ///< anything but 0: the destination is gone, or can never take such a message
    bool hasRoom = false;       ///< the message fits now, and nothing of it would be lost
    bool isDrained = false;     ///< everything that was written has left this machine
    std::uint64_t progress = 0; ///< changes when the receiver has taken something

    bool operator==(const RouteLook&) const = default;
};

/// The way to one destination. It belongs to one thread; only creating it may happen on another.
class DestinationRoute
{
public:
    DestinationRoute() = default;
    DestinationRoute(const DestinationRoute&) = delete;
    DestinationRoute& operator=(const DestinationRoute&) = delete;
    /// May take many seconds while the receiver holds back what was written.
    virtual ~DestinationRoute() = default;

    /// Connects to the destination. May be called again after a failure.
    virtual MIDIStatus open() = 0;
    /// Asks for room for a message of `length` bytes.
    virtual RouteLook look(std::size_t length) = 0;
    /// Writes a whole message; to be called only when there is room for it. -EAGAIN: the room was gone again.
    virtual MIDIStatus write(std::span<const std::uint8_t> message) = 0;
    /// Makes the driver look at what it was given once more, without any effect on the wire.
    virtual void nudge() = 0;
};

} // namespace orvim
