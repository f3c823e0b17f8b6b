#include "core/protocol/EventBytes.h"

#include "tests/support/Bytes.h"

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <numeric>
#include <optional>
#include <vector>

namespace tonavelle {
namespace {

using orvim::test::bytes;

Message countingBytes(std::size_t count)
{
    Message message(count);
    std::iota(message.begin(), message.end(), std::uint8_t(1));
    return message;
}

Message copyOf(const EventBytes& eventBytes)
{
    return {eventBytes.begin(), eventBytes.end()};
}

TEST(EventBytes, TakesEightBytesOfMemory)
{
    EXPECT_EQ(sizeof(EventBytes), 8u);
}

TEST(EventBytes, IsEmptyWhenMade)
{
    const EventBytes empty;
    EXPECT_TRUE(empty.empty());
    EXPECT_EQ(empty.size(), 0u);
    EXPECT_EQ(empty, Message());
}

TEST(EventBytes, HoldsMessagesOfEveryLengthAroundItsInlineRoom)
{
    for (std::size_t count = 0; count <= 300; ++count) {
        const Message message = countingBytes(count);
        const EventBytes eventBytes = message;
        EXPECT_EQ(copyOf(eventBytes), message);
        EXPECT_EQ(eventBytes.size(), count);
        EXPECT_EQ(eventBytes.isInline(), count <= 7);
        EXPECT_EQ(eventBytes.empty(), count == 0);
    }
}

TEST(EventBytes, IsMadeOfAListOfBytesAndSeenAsASpan)
{
    const EventBytes noteOn{0x90, 0x3C, 0x64};
    const std::span<const std::uint8_t> view = noteOn;
    EXPECT_EQ(Message(view.begin(), view.end()), bytes("90 3C 64"));
    EXPECT_EQ(noteOn[1], 0x3C);
}

TEST(EventBytes, EqualityLooksAtTheBytesAndNotAtTheirPlace)
{
    for (const std::size_t count : {3u, 7u, 8u, 137u}) {
        const EventBytes one = countingBytes(count);
        const EventBytes same = countingBytes(count);
        Message other = countingBytes(count);
        other.back() ^= 0x40;
        EXPECT_EQ(one, same) << count;
        EXPECT_NE(one, EventBytes(other)) << count;
        EXPECT_NE(one, EventBytes(countingBytes(count + 1))) << count;
    }
}

TEST(EventBytes, CopiesOutliveWhatTheyWereCopiedFrom)
{
    for (const std::size_t count : {3u, 137u}) {
        std::optional<EventBytes> original(countingBytes(count));
        const EventBytes copy = *original;
        EventBytes assigned{0xFF};
        assigned = *original;
        original.reset();
        EXPECT_EQ(copy, countingBytes(count));
        EXPECT_EQ(assigned, countingBytes(count));
    }
}

TEST(EventBytes, AMovedFromObjectIsEmpty)
{
    EventBytes source = countingBytes(137);
    const EventBytes target = std::move(source);
    EXPECT_EQ(target, countingBytes(137));
    EXPECT_TRUE(source.empty()); // NOLINT(bugprone-use-after-move): that is what is tested
}

TEST(EventBytes, AssigningAnObjectToItselfKeepsItsBytes)
{
    EventBytes eventBytes = countingBytes(137);
    const EventBytes& itself = eventBytes;
    eventBytes = itself;
    EXPECT_EQ(eventBytes, countingBytes(137));
}

TEST(EventByteArena, JoinsThreePieces)
{
    EventByteArena arena;
    EXPECT_EQ(arena.join(bytes("F0"), bytes("01 02"), bytes("F7")), bytes("F0 01 02 F7"));
    EXPECT_EQ(arena.join(bytes("F0"), bytes("01 02 03 04 05 06"), bytes("F7")), bytes("F0 01 02 03 04 05 06 F7"));
    EXPECT_EQ(arena.join({}, {}, {}), Message());
}

TEST(EventByteArena, MessagesOutliveItAndEachOther)
{
    std::vector<EventBytes> messages;
    {
        EventByteArena arena;
        for (std::size_t count = 0; count < 2000; ++count)
            messages.push_back(arena.join({}, countingBytes(count), {}));
        for (std::size_t i = 0; i < messages.size(); i += 2)
            messages[i] = EventBytes();
    }
    for (std::size_t i = 1; i < messages.size(); i += 2)
        ASSERT_EQ(messages[i], countingBytes(i));
}

TEST(EventByteArena, HoldsAMessageLargerThanItsBlocks)
{
    EventByteArena arena;
    const EventBytes before = arena.join({}, countingBytes(100), {});
    const EventBytes large = arena.join(bytes("F0"), countingBytes(1'000'000), bytes("F7"));
    const EventBytes after = arena.join({}, countingBytes(100), {});
    EXPECT_EQ(large.size(), 1'000'002u);
    EXPECT_EQ(large[1'000'001], 0xF7);
    EXPECT_EQ(before, after);
}

} // namespace
} // namespace tonavelle
