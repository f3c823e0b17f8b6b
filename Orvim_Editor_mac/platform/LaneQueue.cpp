#include "platform/LaneQueue.h"

#include <utility>

namespace orvim {

void LaneQueue::push(QueuedMessageRef message)
{
    if (message->lane == MIDILane::realtime) {
        realtime.push_back(std::move(message));
        return;
    }
    waitingBytes += message->bytes.size();
    normal.push_back(std::move(message));
}

QueuedMessageRef LaneQueue::front() const
{
    if (!realtime.empty()) return realtime.front();
    if (!normal.empty()) return normal.front();
    return nullptr;
}

void LaneQueue::remove(const QueuedMessageRef& message)
{
    std::deque<QueuedMessageRef>& lane = message->lane == MIDILane::realtime ? realtime : normal;
    if (lane.empty() || lane.front() != message) return;
    if (message->lane == MIDILane::normal) waitingBytes -= message->bytes.size();
    lane.pop_front();
}

void LaneQueue::clear()
{
    realtime.clear();
    normal.clear();
    waitingBytes = 0;
}

} // namespace orvim
