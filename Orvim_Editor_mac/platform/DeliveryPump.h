#pragma once

#include "platform/DestinationRoute.h"
#include "platform/StallWatch.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>

namespace orvim {

/// The times by which a destination is served.
struct DeliveryTimes {
    StallLimits stall;
    std::chrono::microseconds firstPause = std::chrono::microseconds(100); ///< between two looks; grows by half
    std::chrono::microseconds longestPause = std::chrono::milliseconds(2);
    std::chrono::microseconds openPause = std::chrono::milliseconds(10);
    /// A device that was plugged in a moment ago is listed before everything of it is there.
    std::chrono::microseconds openPatience = std::chrono::milliseconds(500);
};

/// Brings messages over a route, one step at a time: connect, wait for room, write; after the last one wait until the
/// receiver has taken everything. It neither sleeps nor asks for the time, so that its caller may be a thread or a
/// test.
class DeliveryPump
{
public:
    using TimePoint = StallWatch::TimePoint;

    struct Step {
        enum class Kind { done, pause, failed };
        Kind kind = Kind::done;
        std::chrono::microseconds pause{}; ///< how long to wait before the next step
        MIDIStatus status = 0;             ///< why it failed

        bool operator==(const Step&) const = default;
    };

    explicit DeliveryPump(DestinationRoute& destinationRoute, const DeliveryTimes& deliveryTimes = {});

    /// Connects ahead of the first message; a failure shows when there is a message.
    void connect();
    /// One step towards writing `message`; done: it is written.
    Step advance(std::span<const std::uint8_t> message, TimePoint now);
    /// One step towards an empty ring; done: the receiver has everything.
    Step drain(TimePoint now);
    /// Something was written that the receiver may not have taken yet.
    bool hasUndrained() const { return undrained; }

private:
    Step stepToOpen(TimePoint now);
    Step stepToMove(std::uint64_t progress, TimePoint now);
    Step pauseLonger();
    void moved();

    DestinationRoute& route;
    DeliveryTimes times;
    StallWatch stallWatch;
    std::chrono::microseconds nextPause;
    std::optional<TimePoint> firstOpenFailure;
    bool connected = false;
    bool undrained = false;
};

} // namespace orvim
