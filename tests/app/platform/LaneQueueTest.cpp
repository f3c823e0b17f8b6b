#include "platform/LaneQueue.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

QueuedMessageRef message(std::vector<std::uint8_t> bytes, MIDILane lane)
{
    return std::make_shared<const QueuedMessage>(QueuedMessage{std::move(bytes), lane});
}

TEST(LaneQueue, GivesRealtimeMessagesFirstAndEachLaneInOrder)
{
    const auto slow1 = message({1}, MIDILane::normal);
    const auto slow2 = message({2}, MIDILane::normal);
    const auto fast1 = message({3}, MIDILane::realtime);
    const auto fast2 = message({4}, MIDILane::realtime);
    LaneQueue queue;
    for (const auto& one : {slow1, fast1, slow2, fast2}) {
        queue.push(one);
    }
    for (const auto& expected : {fast1, fast2, slow1, slow2}) {
        EXPECT_EQ(queue.front(), expected);
        queue.remove(expected);
    }
    EXPECT_EQ(queue.front(), nullptr);
    EXPECT_TRUE(queue.isEmpty());
}

TEST(LaneQueue, CountsTheBytesOfTheNormalLane)
{
    const auto slow = message({1, 2, 3}, MIDILane::normal);
    LaneQueue queue;
    queue.push(slow);
    queue.push(message({4, 5}, MIDILane::realtime));
    EXPECT_EQ(queue.normalBytes(), 3u);
    queue.remove(slow);
    EXPECT_EQ(queue.normalBytes(), 0u);
    EXPECT_FALSE(queue.hasNormal());
}

TEST(LaneQueue, RemovingAMessageThatWasClearedTakesNoOther)
{
    const auto first = message({1}, MIDILane::normal);
    const auto second = message({2}, MIDILane::normal);
    LaneQueue queue;
    queue.push(first);
    queue.clear();
    queue.push(second);
    queue.remove(first);
    EXPECT_EQ(queue.front(), second);
    EXPECT_EQ(queue.normalBytes(), 1u);
}

} // namespace
} // namespace orvim
