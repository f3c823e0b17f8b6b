#pragma once

#include "platform/MIDISystem.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace orvim {

/// One message on its way; shared, so that a queue can be emptied while its first message is being written.
struct QueuedMessage {
    std::vector<std::uint8_t> bytes;
    MIDILane lane = MIDILane::normal;
};
using QueuedMessageRef = std::shared_ptr<const QueuedMessage>;

/// The whole messages that wait for one destination, in two lanes.
class LaneQueue
{
public:
    void push(QueuedMessageRef message);
    /// The message to write next: the oldest realtime one, else the oldest normal one, else null.
    QueuedMessageRef front() const;
    /// Takes out a message that `front` gave; does nothing when the queue was emptied meanwhile.
    void remove(const QueuedMessageRef& message);
    void clear();

    bool isEmpty() const { return realtime.empty() && normal.empty(); }
    bool hasNormal() const { return !normal.empty(); }
    /// Bytes that wait on the normal lane.
    std::size_t normalBytes() const { return waitingBytes; }

private:
    std::deque<QueuedMessageRef> realtime;
    std::deque<QueuedMessageRef> normal;
    std::size_t waitingBytes = 0;
};

} // namespace orvim
