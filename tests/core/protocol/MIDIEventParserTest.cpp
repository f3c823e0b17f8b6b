#include "core/protocol/MIDIEventParser.h"

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace tonavelle {
namespace {

using orvim::test::bytes;
using orvim::test::fileWithTrack;
using orvim::test::joined;
using orvim::test::track;

std::vector<ParsedMIDIEvent> eventsOf(std::string_view trackData)
{
    return parseMIDIEvents(fileWithTrack(trackData));
}

/// What an event holds, with its message as a copy.
struct Plain {
    std::int64_t absoluteTick = 0;
    std::int64_t trackIndex = 0;
    std::int64_t order = 0;
    Message message = {};
    std::optional<std::uint8_t> metaType = {};
    std::optional<std::string> text = {};

    bool operator==(const Plain&) const = default;
};

Plain plain(const ParsedMIDIEvent& event)
{
    EXPECT_EQ(event.messageSize(), event.message().size());
    return {event.absoluteTick, event.trackIndex, event.order, event.message(), event.metaType, event.text()};
}

void expectFault(const Message& data)
{
    EXPECT_THROW(parseMIDIEvents(data), MIDIEventParserError);
}

std::vector<Message> messagesOf(const std::vector<ParsedMIDIEvent>& events)
{
    std::vector<Message> messages;
    for (const auto& event : events)
        messages.push_back(event.message());
    return messages;
}

TEST(ParseMIDIEvents, KeepsSysExAndMetaEventsAndDropsChannelMessages)
{
    const auto events = eventsOf("00 90 3C 64 05 F0 03 01 02 F7 05 3C 00 00 FF 51 03 0F 42 40 00 C0 01");
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(plain(events[0]), (Plain{.absoluteTick = 5, .message = bytes("F0 01 02 F7")}));
    EXPECT_EQ(plain(events[1]), (Plain{.absoluteTick = 10, .order = 1, .metaType = std::uint8_t(0x51)}));
}

TEST(ParseMIDIEvents, OnlyTypesOneAndFiveHaveText)
{
    const auto events = eventsOf("00 FF 01 02 82 A0 00 FF 05 03 E3 81 82 00 FF 03 01 41 00 FF 05 01 FF");
    ASSERT_EQ(events.size(), 4u);
    EXPECT_EQ(events[0].text(), "あ");
    EXPECT_EQ(events[1].text(), "あ");
    EXPECT_EQ(events[2].text(), std::nullopt);
    EXPECT_EQ(events[3].text(), std::nullopt) << "neither Shift_JIS nor UTF-8";
    EXPECT_EQ(events[3].metaType, 0x05);
}

TEST(ParseMIDIEvents, ASysExWithoutItsEndStaysAsItStands)
{
    EXPECT_EQ(messagesOf(eventsOf("00 F0 02 01 02 00 F0 00")), (std::vector<Message>{bytes("F0 01 02"), bytes("F0")}));
}

TEST(ParseMIDIEvents, AContinuedSysExLosesItsStatus)
{
    EXPECT_EQ(messagesOf(eventsOf("00 F7 02 01 F7 00 F7 00")), (std::vector<Message>{bytes("01 F7"), {}}));
}

TEST(ParseMIDIEvents, RunningStatusSurvivesSysExAndMetaEvents)
{
    const auto events = eventsOf("00 C0 01 00 F0 01 F7 00 05 00 FF 01 00 00 06 00 F0 01 F7");
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[2].message(), bytes("F0 F7"));
}

TEST(ParseMIDIEvents, ADataByteFirstInATrackIsTakenForAStatus)
{
    // 3C is the status, 64 and 00 its data; then 40 and 64 run on under it.
    EXPECT_EQ(messagesOf(eventsOf("00 3C 64 00 00 40 64 00 F0 01 F7")), std::vector<Message>{bytes("F0 F7")});
    // The status is masked with E0, so that no byte below 80 takes one data byte.
    EXPECT_EQ(messagesOf(eventsOf("00 5F 11 22 00 F0 01 F7")), std::vector<Message>{bytes("F0 F7")});
}

TEST(ParseMIDIEvents, ProgramChangeAndChannelPressureTakeOneByteAndAllOthersTwo)
{
    EXPECT_EQ(messagesOf(eventsOf("00 C0 01 00 DF 01 00 80 01 02 00 E0 01 02 00 F0 01 F7")),
              std::vector<Message>{bytes("F0 F7")});
}

TEST(ParseMIDIEvents, SystemCommonBytesSkipTwo)
{
    EXPECT_EQ(messagesOf(eventsOf("00 F6 01 02 00 F1 01 02 00 F8 01 02 00 F0 01 F7")),
              std::vector<Message>{bytes("F0 F7")});
}

TEST(ParseMIDIEvents, SystemCommonBytesAreNoRunningStatus)
{
    // Behind F6 there is still no running status: 40 is taken for a status and 41 and 42 are its data.
    EXPECT_EQ(messagesOf(eventsOf("00 F6 01 02 00 40 41 42 00 F0 01 F7")), std::vector<Message>{bytes("F0 F7")});
}

TEST(ParseMIDIEvents, TheEndOfTrackIsStoredAndReadingGoesOn)
{
    const auto events = eventsOf("00 FF 2F 00 07 F0 01 F7");
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0].metaType, 0x2F);
    EXPECT_EQ(plain(events[1]), (Plain{.absoluteTick = 7, .order = 1, .message = bytes("F0 F7")}));
}

TEST(ParseMIDIEvents, ATrackWithoutEndOfTrackReads)
{
    EXPECT_EQ(eventsOf("00 F0 01 F7").size(), 1u);
    EXPECT_TRUE(eventsOf("").empty());
}

TEST(ParseMIDIEvents, MergesTheTracksByTickThenTrackThenOrder)
{
    const auto events =
        parseMIDIEvents(joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"),
                                track("05 F0 02 01 F7 00 F0 02 02 F7"), track("00 F0 02 03 F7 05 F0 02 04 F7")}));
    ASSERT_EQ(events.size(), 4u);
    EXPECT_EQ(plain(events[0]), (Plain{0, 1, 2, bytes("F0 03 F7"), {}, {}}));
    EXPECT_EQ(plain(events[1]), (Plain{5, 0, 0, bytes("F0 01 F7"), {}, {}}));
    EXPECT_EQ(plain(events[2]), (Plain{5, 0, 1, bytes("F0 02 F7"), {}, {}}));
    EXPECT_EQ(plain(events[3]), (Plain{5, 1, 3, bytes("F0 04 F7"), {}, {}}));
}

TEST(ParseMIDIEvents, AHeaderLengthOfEightSkipsTwoBytes)
{
    EXPECT_EQ(parseMIDIEvents(joined({bytes("4D 54 68 64 00 00 00 08 00 01 00 01 01 E0 AA BB"), track("00 F0 01 F7")}))
                  .size(),
              1u);
}

TEST(ParseMIDIEvents, AHeaderLengthOfFiveIsAccepted)
{
    // The track then begins one byte earlier, in the division's low byte.
    EXPECT_EQ(parseMIDIEvents(joined({bytes("4D 54 68 64 00 00 00 05 00 01 00 01 01"), track("00 F0 01 F7")})).size(),
              1u);
}

TEST(ParseMIDIEvents, WithoutTracksTheListIsEmpty)
{
    EXPECT_TRUE(parseMIDIEvents(bytes("4D 54 68 64 FF FF FF FF 00 01 00 00 01 E0")).empty());
}

TEST(ParseMIDIEvents, WrongTagsAreFaults)
{
    expectFault(bytes("4D 54 68 65 00 00 00 06 00 01 00 00 01 E0"));
    expectFault(joined(
        {bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0"), bytes("58 46 49 48 00 00 00 00"), track("00 FF 2F 00")}));
    expectFault({});
}

TEST(ParseMIDIEvents, AMissingTrackIsAFault)
{
    expectFault(joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"), track("00 FF 2F 00")}));
    expectFault(bytes("4D 54 68 64 00 00 00 06 00 01 FF FF 01 E0"));
    expectFault(bytes("4D 54 68 64 FF FF FF FF 00 01 00 01 01 E0"));
}

TEST(ParseMIDIEvents, AFifthByteOfAQuantityIsAFault)
{
    expectFault(fileWithTrack("FF FF FF FF 7F C0 01"));
    expectFault(fileWithTrack("00 F0 80 80 80 80 00"));
}

TEST(ParseMIDIEvents, ATrackThatEndsBehindTheFileIsAFault)
{
    expectFault(bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B FF FF FF FF 00 F0 01 F7"));
}

TEST(ParseMIDIEvents, AnEventMayReachBeyondItsTrack)
{
    // The SysEx takes its last byte from behind the track's declared end, and the next track begins at that end.
    const auto events = parseMIDIEvents(bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 "
                                              "4D 54 72 6B 00 00 00 04 00 F0 02 01 F7"));
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].message(), bytes("F0 01 F7"));
}

TEST(ParseMIDIEvents, AChannelMessageCutByTheEndOfTheFileOnlyMovesThePosition)
{
    EXPECT_TRUE(eventsOf("00 90").empty());
    expectFault(bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B 00 00 00 05 00 90"));
}

TEST(ParseMIDIEvents, SysExOf127And128And129BytesReadWhole)
{
    for (const std::size_t count : {127u, 128u, 129u}) {
        Message sysEx(count + 1, 0x22);
        sysEx.front() = 0xF0;
        const std::vector<SimpleMIDITimedEvent> events{{3, sysEx}};
        const auto parsed = parseMIDIEvents(SimpleMIDIFileBuilder::wpfStyleSequence(events, 480));
        const auto found = std::ranges::find(parsed, sysEx, &ParsedMIDIEvent::message);
        EXPECT_NE(found, parsed.end()) << count;
    }
}

TEST(ParseMIDIEvents, EveryPrefixOfAGoodFileIsAFault)
{
    const Message whole =
        joined({bytes("4D 54 68 64 00 00 00 08 00 01 00 02 01 E0 00 00"),
                track("00 FF 51 03 0F 42 40 00 F0 05 00 48 05 7F F7 83 60 F7 02 01 02 00 FF 05 02 82 A0 00 FF 2F 00"),
                track("00 C0 01 00 90 3C 64 60 3C 00 00 F2 01 02 00 E0 00 40 00 FF 2F 00")});
    EXPECT_EQ(parseMIDIEvents(whole).size(), 6u);
    for (std::size_t size = 0; size < whole.size(); ++size)
        expectFault(Message(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
}

/// `trackCount` tracks of five bytes, each one SysEx event whose data run to the end of the file.
Message overlappingTracks(std::size_t trackCount)
{
    constexpr std::size_t chunkSize = 13;
    Message file = bytes("4D 54 68 64 00 00 00 06 00 01 00 00 01 E0");
    file[10] = static_cast<std::uint8_t>(trackCount >> 8);
    file[11] = static_cast<std::uint8_t>(trackCount);
    for (std::size_t left = trackCount; left-- > 0;) {
        const std::size_t size = left * chunkSize;
        const Message chunk =
            joined({bytes("4D 54 72 6B 00 00 00 05 00 F0"),
                    {static_cast<std::uint8_t>(0x80 | size >> 14), static_cast<std::uint8_t>(0x80 | (size >> 7 & 0x7F)),
                     static_cast<std::uint8_t>(size & 0x7F)}});
        file.insert(file.end(), chunk.begin(), chunk.end());
    }
    return file;
}

TEST(ParseMIDIEvents, OverlappingEventsShareTheBytesOfTheFile)
{
    const auto events = parseMIDIEvents(overlappingTracks(3));
    EXPECT_EQ(messagesOf(events),
              (std::vector<Message>{bytes("F0 4D 54 72 6B 00 00 00 05 00 F0 80 80 0D "
                                          "4D 54 72 6B 00 00 00 05 00 F0 80 80 00"),
                                    bytes("F0 4D 54 72 6B 00 00 00 05 00 F0 80 80 00"), bytes("F0")}));
    EXPECT_EQ(events[0].file, events[2].file);
    EXPECT_EQ(events[0].data.data() + 13, events[1].data.data());
}

TEST(ParseMIDIEvents, AsManyOverlappingTracksAsAHeaderDeclaresTakeOneCopyOfTheFile)
{
    const Message file = overlappingTracks(65'535);
    const auto events = parseMIDIEvents(file);
    ASSERT_EQ(events.size(), 65'535u);
    std::size_t byteCount = 0;
    for (const auto& event : events) {
        byteCount += event.messageSize();
        EXPECT_EQ(event.file, events[0].file);
    }
    EXPECT_EQ(*events[0].file, file);
    EXPECT_GT(byteCount, 27'000'000'000u) << "what copies would take";
}

TEST(ParseMIDIEvents, AMegabyteOfEmptyEventsTakesNoMoreThanOneEventForThreeBytes)
{
    const auto length = SimpleMIDIFileBuilder::encodeUInt32BigEndian(1'200'000);
    for (const char* hex : {"00 F0 00", "00 FF 01 00"}) {
        const Message event = bytes(hex);
        Message file =
            joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B"), {length.begin(), length.end()}});
        const std::size_t headSize = file.size();
        while (file.size() < headSize + 1'200'000)
            file.insert(file.end(), event.begin(), event.end());
        const auto events = parseMIDIEvents(file);
        EXPECT_EQ(events.size(), 1'200'000 / event.size());
        EXPECT_EQ(events.back().file->size(), file.size());
        EXPECT_TRUE(events.back().data.empty());
    }
}

TEST(ParseMIDIEvents, AMegabyteOfGarbageIsReadOrRejected)
{
    std::mt19937 random(1);
    for (int round = 0; round < 4; ++round) {
        Message garbage(1'000'000);
        for (auto& byte : garbage)
            byte = static_cast<std::uint8_t>(random() >> (24 + round));
        expectFault(garbage);
        const auto length = SimpleMIDIFileBuilder::encodeUInt32BigEndian(2'000'000);
        expectFault(joined(
            {bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B"), {length.begin(), length.end()}, garbage}));
    }
}

} // namespace
} // namespace tonavelle
