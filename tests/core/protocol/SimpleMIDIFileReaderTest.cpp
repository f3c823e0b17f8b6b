#include "core/protocol/SimpleMIDIFileReader.h"

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"
#include "tests/support/Thrown.h"

#include <cstddef>
#include <gmock/gmock.h>
#include <optional>
#include <random>
#include <vector>

namespace tonavelle {
namespace {

using orvim::test::bytes;
using orvim::test::fileWithTrack;
using orvim::test::joined;
using orvim::test::thrown;
using orvim::test::track;
using testing::ElementsAre;
using Error = SimpleMIDIFileReaderError;

/// The error that reading ends with, or nothing.
std::optional<Error> readError(const Message& data)
{
    return thrown<Error>([&] { SimpleMIDIFileReader::read(data); });
}

std::vector<SimpleMIDITimedEvent> eventsOf(std::string_view trackData)
{
    return SimpleMIDIFileReader::read(fileWithTrack(trackData)).tracks.at(0).events;
}

std::optional<Error> trackError(std::string_view trackData)
{
    return readError(fileWithTrack(trackData));
}

TEST(SimpleMIDIFileReader, ReadsFormatTicksAndTracksInFileOrder)
{
    const auto file = SimpleMIDIFileReader::read(
        joined({bytes("4D 54 68 64 00 00 00 06 12 34 00 02 03 C0"), track("00 C0 01 00 FF 2F 00"), track("05 C1 02")}));
    EXPECT_EQ(file.format, 0x1234);
    EXPECT_EQ(file.ticksPerQuarterNote, 960);
    ASSERT_EQ(file.tracks.size(), 2u);
    EXPECT_THAT(file.tracks[0].events, ElementsAre(SimpleMIDITimedEvent{0, {0xC0, 0x01}}));
    EXPECT_THAT(file.tracks[1].events, ElementsAre(SimpleMIDITimedEvent{5, {0xC1, 0x02}}));
}

TEST(SimpleMIDIFileReader, ATimeCodeDivisionReadsAs480Ticks)
{
    const auto file =
        SimpleMIDIFileReader::read(joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 01 E7 28"), track("00 FF 2F 00")}));
    EXPECT_EQ(file.ticksPerQuarterNote, 480);
}

TEST(SimpleMIDIFileReader, ADivisionOfZeroIsKept)
{
    EXPECT_EQ(SimpleMIDIFileReader::read(bytes("4D 54 68 64 00 00 00 06 00 00 00 00 00 00")).ticksPerQuarterNote, 0);
}

TEST(SimpleMIDIFileReader, AHeaderLengthOfEightSkipsTwoBytes)
{
    const auto file = SimpleMIDIFileReader::read(
        joined({bytes("4D 54 68 64 00 00 00 08 00 01 00 01 01 E0 AA BB"), track("00 C0 01")}));
    EXPECT_THAT(file.tracks.at(0).events, ElementsAre(SimpleMIDITimedEvent{0, {0xC0, 0x01}}));
}

TEST(SimpleMIDIFileReader, AHeaderLengthOfFiveIsInvalid)
{
    EXPECT_EQ(readError(joined({bytes("4D 54 68 64 00 00 00 05 00 01 00 01 01"), track("00 FF 2F 00")})),
              Error::invalidHeader);
}

TEST(SimpleMIDIFileReader, AnotherFirstTagIsUnexpected)
{
    EXPECT_EQ(readError(bytes("4D 54 68 65 00 00 00 06 00 01 00 00 01 E0")), Error::unexpectedBytes);
    EXPECT_EQ(readError(bytes("52 49 46 46")), Error::unexpectedBytes);
    EXPECT_EQ(readError(bytes("4D 54 68")), Error::unexpectedEndOfFile);
    EXPECT_EQ(readError({}), Error::unexpectedEndOfFile);
}

TEST(SimpleMIDIFileReader, WithoutTracksTheRestOfTheFileIsIgnored)
{
    const auto file = SimpleMIDIFileReader::read(bytes("4D 54 68 64 00 00 00 06 00 01 00 00 01 E0 12 34"));
    EXPECT_TRUE(file.tracks.empty());
}

TEST(SimpleMIDIFileReader, BytesBehindTheLastTrackAreIgnored)
{
    EXPECT_EQ(readError(joined({fileWithTrack("00 FF 2F 00"), bytes("4D 54")})), std::nullopt);
}

TEST(SimpleMIDIFileReader, AnUnknownChunkWhereATrackIsExpectedIsUnexpected)
{
    EXPECT_EQ(readError(joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0"), bytes("58 46 49 48 00 00 00 00"),
                                track("00 FF 2F 00")})),
              Error::unexpectedBytes);
}

TEST(SimpleMIDIFileReader, TwoDeclaredTracksButOneInTheFileEndTooEarly)
{
    EXPECT_EQ(readError(joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"), track("00 FF 2F 00")})),
              Error::unexpectedEndOfFile);
}

TEST(SimpleMIDIFileReader, ATrackWithoutEndOfTrackReads)
{
    EXPECT_THAT(eventsOf("00 90 3C 64"), ElementsAre(SimpleMIDITimedEvent{0, {0x90, 0x3C, 0x64}}));
    EXPECT_TRUE(eventsOf("").empty());
}

TEST(SimpleMIDIFileReader, BytesBehindTheEndOfTrackAreIgnored)
{
    EXPECT_THAT(eventsOf("00 C0 01 00 FF 2F 00 00 C0 02 FF FF FF FF FF"),
                ElementsAre(SimpleMIDITimedEvent{0, {0xC0, 0x01}}));
}

TEST(SimpleMIDIFileReader, TheDataOfTheEndOfTrackMustStillBeThere)
{
    EXPECT_EQ(trackError("00 FF 2F 05"), Error::unexpectedEndOfFile);
    EXPECT_TRUE(eventsOf("00 FF 2F 02 AA BB").empty());
}

TEST(SimpleMIDIFileReader, DeltasAddUp)
{
    EXPECT_THAT(eventsOf("83 60 C0 01 FF FF FF 7F C0 02"),
                ElementsAre(SimpleMIDITimedEvent{480, {0xC0, 0x01}}, SimpleMIDITimedEvent{268'435'935, {0xC0, 0x02}}));
}

TEST(SimpleMIDIFileReader, TimesPassThirtyTwoBits)
{
    Message data;
    for (int i = 0; i < 20; ++i)
        data = joined({data, bytes("FF FF FF 7F F6")});
    const auto length = SimpleMIDIFileBuilder::encodeUInt32BigEndian(static_cast<std::uint32_t>(data.size()));
    const auto file = SimpleMIDIFileReader::read(
        joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B"), {length.begin(), length.end()}, data}));
    EXPECT_EQ(file.tracks[0].events.back().absoluteTime, 20 * std::int64_t(268'435'455));
}

TEST(SimpleMIDIFileReader, AFifthByteOfAQuantityIsUnexpected)
{
    EXPECT_EQ(trackError("FF FF FF FF 7F C0 01"), Error::unexpectedBytes);
    EXPECT_EQ(trackError("80 80 80 80"), Error::unexpectedBytes);
    EXPECT_EQ(trackError("80 80 80"), Error::unexpectedEndOfFile);
    EXPECT_EQ(trackError("00 F0 80 80 80 80 00"), Error::unexpectedBytes);
    EXPECT_EQ(trackError("00 FF 01 80 80 80 80 00"), Error::unexpectedBytes);
}

TEST(SimpleMIDIFileReader, ADeltaWithoutAStatusEndsTooEarly)
{
    EXPECT_EQ(trackError("00"), Error::unexpectedEndOfFile);
}

TEST(SimpleMIDIFileReader, RunningStatusIsExpanded)
{
    EXPECT_THAT(eventsOf("00 91 3C 64 01 3C 00 01 C2 05 01 06"),
                ElementsAre(SimpleMIDITimedEvent{0, {0x91, 0x3C, 0x64}}, SimpleMIDITimedEvent{1, {0x91, 0x3C, 0x00}},
                            SimpleMIDITimedEvent{2, {0xC2, 0x05}}, SimpleMIDITimedEvent{3, {0xC2, 0x06}}));
}

TEST(SimpleMIDIFileReader, EveryChannelStatusTakesItsDataBytes)
{
    EXPECT_THAT(eventsOf("00 80 01 02 00 9F 01 02 00 A0 01 02 00 B0 01 02 00 CF 01 00 D0 01 00 E0 01 02"),
                ElementsAre(SimpleMIDITimedEvent{0, {0x80, 0x01, 0x02}}, SimpleMIDITimedEvent{0, {0x9F, 0x01, 0x02}},
                            SimpleMIDITimedEvent{0, {0xA0, 0x01, 0x02}}, SimpleMIDITimedEvent{0, {0xB0, 0x01, 0x02}},
                            SimpleMIDITimedEvent{0, {0xCF, 0x01}}, SimpleMIDITimedEvent{0, {0xD0, 0x01}},
                            SimpleMIDITimedEvent{0, {0xE0, 0x01, 0x02}}));
}

TEST(SimpleMIDIFileReader, RunningStatusSurvivesAMetaEvent)
{
    EXPECT_THAT(eventsOf("00 90 3C 64 00 FF 01 00 00 40 64"),
                ElementsAre(SimpleMIDITimedEvent{0, {0x90, 0x3C, 0x64}}, SimpleMIDITimedEvent{0, {0xFF, 0x01, 0x00}},
                            SimpleMIDITimedEvent{0, {0x90, 0x40, 0x64}}));
}

TEST(SimpleMIDIFileReader, RunningStatusEndsAtASysExAndAtASystemCommonMessage)
{
    EXPECT_EQ(trackError("00 90 3C 64 00 F0 01 F7 00 40 64"), Error::missingRunningStatus);
    EXPECT_EQ(trackError("00 90 3C 64 00 F7 01 F7 00 40 64"), Error::missingRunningStatus);
    EXPECT_EQ(trackError("00 90 3C 64 00 F8 00 40 64"), Error::missingRunningStatus);
}

TEST(SimpleMIDIFileReader, ADataByteFirstInATrackMissesItsRunningStatus)
{
    EXPECT_EQ(trackError("00 3C 64"), Error::missingRunningStatus);
    const auto twoTracks =
        joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"), track("00 90 3C 64"), track("00 3C 64")});
    EXPECT_EQ(readError(twoTracks), Error::missingRunningStatus) << "a status does not run on into the next track";
}

TEST(SimpleMIDIFileReader, SystemCommonMessagesTakeTheirDataBytes)
{
    EXPECT_THAT(eventsOf("00 F1 01 00 F2 01 02 00 F3 01 00 F4 00 F5 00 F6 00 F8 00 FE"),
                ElementsAre(SimpleMIDITimedEvent{0, {0xF1, 0x01}}, SimpleMIDITimedEvent{0, {0xF2, 0x01, 0x02}},
                            SimpleMIDITimedEvent{0, {0xF3, 0x01}}, SimpleMIDITimedEvent{0, {0xF4}},
                            SimpleMIDITimedEvent{0, {0xF5}}, SimpleMIDITimedEvent{0, {0xF6}},
                            SimpleMIDITimedEvent{0, {0xF8}}, SimpleMIDITimedEvent{0, {0xFE}}));
}

TEST(SimpleMIDIFileReader, ASysExWithoutItsEndGetsOne)
{
    EXPECT_THAT(eventsOf("00 F0 02 01 02 00 F0 02 01 F7 00 F0 00"),
                ElementsAre(SimpleMIDITimedEvent{0, {0xF0, 0x01, 0x02, 0xF7}},
                            SimpleMIDITimedEvent{0, {0xF0, 0x01, 0xF7}}, SimpleMIDITimedEvent{0, {0xF0, 0xF7}}));
}

TEST(SimpleMIDIFileReader, AContinuedSysExStaysAsItIs)
{
    EXPECT_THAT(eventsOf("00 F7 02 01 02 00 F7 00"),
                ElementsAre(SimpleMIDITimedEvent{0, {0xF7, 0x01, 0x02}}, SimpleMIDITimedEvent{0, {0xF7}}));
}

TEST(SimpleMIDIFileReader, SysExOf127And128And129BytesReadWhole)
{
    for (const std::size_t count : {127u, 128u, 129u}) {
        Message sysEx(count + 1, 0x22);
        sysEx.front() = 0xF0;
        sysEx.back() = 0xF7;
        const std::vector<SimpleMIDITimedEvent> events{{3, sysEx}};
        const auto file = SimpleMIDIFileReader::read(SimpleMIDIFileBuilder::wpfStyleSequence(events, 480));
        EXPECT_EQ(file.tracks.at(0).events.at(1), events[0]) << count;
    }
}

TEST(SimpleMIDIFileReader, AMetaEventHasItsTypeAndItsText)
{
    const auto events = eventsOf("00 FF 05 02 82 A0 00 FF 51 03 07 A1 20 00 90 3C 64");
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[0].message, bytes("FF 05 02 82 A0"));
    EXPECT_EQ(events[0].metaType(), 0x05);
    EXPECT_EQ(events[0].text(), "あ");
    EXPECT_EQ(events[1].metaType(), 0x51);
    EXPECT_EQ(events[2].metaType(), std::nullopt);
    EXPECT_EQ(events[2].text(), std::nullopt);
}

TEST(SimpleMIDIFileReader, TextThatIsNoShiftJISIsReadAsUTF8)
{
    const auto events = eventsOf("00 FF 05 03 E3 81 82 00 FF 05 05 E3 81 82 E3 81");
    EXPECT_EQ(events.at(0).text(), "あ");
    EXPECT_EQ(events.at(1).text(), std::nullopt);
}

TEST(SimpleMIDIFileReader, EveryMetaTypeHasText)
{
    const auto events = eventsOf("00 FF 7F 01 41 00 FF 03 00");
    EXPECT_EQ(events.at(0).text(), "A");
    EXPECT_EQ(events.at(1).text(), "");
}

TEST(SimpleMIDIFileReader, ALyricInNeitherEncodingHasNoText)
{
    const auto events = eventsOf("00 FF 05 02 FF FF");
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].message, bytes("FF 05 02 FF FF"));
    EXPECT_EQ(events[0].metaType(), 0x05);
    EXPECT_EQ(events[0].text(), std::nullopt);
}

TEST(SimpleMIDIFileReader, TheSizeOfAMetaEventIsEncodedAnew)
{
    EXPECT_THAT(eventsOf("00 FF 01 80 80 01 41"), ElementsAre(SimpleMIDITimedEvent{0, {0xFF, 0x01, 0x01, 0x41}}));
}

TEST(SimpleMIDIFileReader, MetaDataOf127And128And129BytesReadsWhole)
{
    for (const std::size_t count : {127u, 128u, 129u}) {
        const Message data(count, 'x');
        const auto size = SimpleMIDIFileBuilder::variableLengthQuantity(static_cast<std::int64_t>(count));
        const std::vector<SimpleMIDITimedEvent> events{{0, joined({bytes("FF 01"), size, data})}};
        const auto file = SimpleMIDIFileReader::read(SimpleMIDIFileBuilder::wpfStyleSequence(events, 480));
        const auto& event = file.tracks.at(0).events.at(1);
        EXPECT_EQ(event, events[0]);
        EXPECT_EQ(Message(event.metaData().begin(), event.metaData().end()), data);
        EXPECT_EQ(event.text(), std::string(count, 'x'));
    }
}

TEST(SimpleMIDITimedEvent, HalfAMetaEventHasNoDataAndNoneIsReadBeyondIt)
{
    EXPECT_EQ((SimpleMIDITimedEvent{0, {0xFF}}.metaType()), std::nullopt);
    EXPECT_TRUE((SimpleMIDITimedEvent{0, {0xFF, 0x05}}.metaData().empty()));
    EXPECT_TRUE((SimpleMIDITimedEvent{0, {0xFF, 0x05, 0x81, 0x82}}.metaData().empty()));
}

TEST(SimpleMIDIFileReaderError, EqualityLooksAtCaseAndByte)
{
    EXPECT_EQ(Error(Error::unsupportedEvent, 0x70), Error(Error::unsupportedEvent, 0x70));
    EXPECT_FALSE(Error(Error::unsupportedEvent, 0x70) == Error(Error::unsupportedEvent, 0x71));
    EXPECT_FALSE(Error(Error::invalidHeader) == Error(Error::unexpectedBytes));
}

// Bad input

TEST(SimpleMIDIFileReader, TheMostDeclaredTracksInFourteenBytesEndTooEarly)
{
    EXPECT_EQ(readError(bytes("4D 54 68 64 00 00 00 06 00 01 FF FF 01 E0")), Error::unexpectedEndOfFile);
}

TEST(SimpleMIDIFileReader, LengthsBeyondTheFileEndTooEarly)
{
    EXPECT_EQ(readError(bytes("4D 54 68 64 FF FF FF FF 00 01 00 01 01 E0")), Error::unexpectedEndOfFile);
    EXPECT_EQ(readError(bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B FF FF FF FF 00 FF 2F 00")),
              Error::unexpectedEndOfFile);
    EXPECT_EQ(readError(bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B 00 00 00 05 00 FF 2F 00")),
              Error::unexpectedEndOfFile);
    EXPECT_EQ(trackError("00 F0 FF FF FF 7F 01"), Error::unexpectedEndOfFile);
    EXPECT_EQ(trackError("00 FF 01 FF FF FF 7F 41"), Error::unexpectedEndOfFile);
}

TEST(SimpleMIDIFileReader, AnEventDoesNotReachIntoTheNextTrack)
{
    const auto data =
        joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"), track("00 90 3C"), track("00 C0 01")});
    EXPECT_EQ(readError(data), Error::unexpectedEndOfFile);
}

const Message& richFile()
{
    static const Message data =
        joined({bytes("4D 54 68 64 00 00 00 08 00 01 00 02 01 E0 00 00"),
                track("00 FF 51 03 0F 42 40 00 F0 05 00 48 05 7F F7 83 60 F7 02 01 02 00 FF 05 02 82 A0 00 FF 2F 00"),
                track("00 C0 01 00 90 3C 64 60 3C 00 00 F2 01 02 00 E0 00 40 00 FF 2F 00")});
    return data;
}

TEST(SimpleMIDIFileReader, EveryPrefixOfAGoodFileEndsTooEarly)
{
    EXPECT_EQ(readError(richFile()), std::nullopt);
    for (std::size_t size = 0; size < richFile().size(); ++size) {
        const Message prefix(richFile().begin(), richFile().begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(readError(prefix), Error::unexpectedEndOfFile) << size;
    }
}

TEST(SimpleMIDIFileReader, EveryTrackCutAnywhereReadsOrEndsTooEarly)
{
    const Message whole = bytes("00 FF 51 03 0F 42 40 00 F0 03 00 48 F7 83 60 C0 01 00 90 3C 64 60 3C 00 00 F2 01 02");
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        Message data = bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B 00 00 00");
        data.push_back(static_cast<std::uint8_t>(size));
        data.insert(data.end(), whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const auto error = readError(data);
        EXPECT_TRUE(!error || *error == Error(Error::unexpectedEndOfFile)) << size;
    }
}

/// A file with one track that repeats `event`, hexadecimal, for 1.2 MB.
Message fileRepeating(std::string_view event)
{
    const auto length = SimpleMIDIFileBuilder::encodeUInt32BigEndian(1'200'000);
    Message file =
        joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B"), {length.begin(), length.end()}});
    const std::size_t size = file.size() + 1'200'000;
    for (const Message one = bytes(event); file.size() < size;)
        file.insert(file.end(), one.begin(), one.end());
    return file;
}

TEST(SimpleMIDIFileReader, AMegabyteOfTheShortestEventsTakesSixteenBytesAnEvent)
{
    EXPECT_EQ(sizeof(SimpleMIDITimedEvent), 16u);
    const auto texts = SimpleMIDIFileReader::read(fileRepeating("00 FF 01 00"));
    ASSERT_EQ(texts.tracks.at(0).events.size(), 300'000u);
    EXPECT_EQ(texts.tracks[0].events.back().message, bytes("FF 01 00"));
    const auto sysExes = SimpleMIDIFileReader::read(fileRepeating("00 F0 00"));
    ASSERT_EQ(sysExes.tracks.at(0).events.size(), 400'000u);
    EXPECT_EQ(sysExes.tracks[0].events.back().message, bytes("F0 F7"));
    for (const auto& event : sysExes.tracks[0].events)
        ASSERT_TRUE(event.message.isInline());
}

TEST(SimpleMIDIFileReader, ALongTrackOfOneMessageTakesNoRoomForMany)
{
    const Message sysEx = joined({bytes("F0"), Message(12'000'000, 0x22), bytes("F7")});
    const auto file = SimpleMIDIFileReader::read(SimpleMIDIFileBuilder::file(1, 480, {{{{{0, sysEx}}}}}));
    ASSERT_EQ(file.tracks.at(0).events.size(), 1u);
    EXPECT_EQ(file.tracks[0].events[0].message, sysEx);
    EXPECT_LE(file.tracks[0].events.capacity(), 1'000'000u);
}

TEST(SimpleMIDIFileReader, AMegabyteOfGarbageIsReadOrRejected)
{
    std::mt19937 random(1);
    for (int round = 0; round < 4; ++round) {
        Message garbage(1'000'000);
        // Mostly small bytes in the later rounds, so that reading goes on for longer.
        for (auto& byte : garbage)
            byte = static_cast<std::uint8_t>(random() >> (24 + round));
        EXPECT_EQ(readError(garbage), Error::unexpectedBytes);
        const auto length = SimpleMIDIFileBuilder::encodeUInt32BigEndian(1'000'000);
        const Message framed = joined(
            {bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 4D 54 72 6B"), {length.begin(), length.end()}, garbage});
        EXPECT_NE(readError(framed), std::nullopt);
    }
}

// Reading back what was written

SimpleMIDITimedEvent randomEvent(std::mt19937& random, std::int64_t time)
{
    const auto below = [&](unsigned limit) { return static_cast<std::uint8_t>(random() % limit); };
    Message message;
    switch (random() % 5) {
    case 0: {
        Message data(random() % 300);
        for (auto& byte : data)
            byte = below(128);
        const auto size = SimpleMIDIFileBuilder::variableLengthQuantity(static_cast<std::int64_t>(data.size()));
        message = joined({{0xFF, below(0x2F)}, size, data});
        break;
    }
    case 1: {
        Message data(random() % 300);
        for (auto& byte : data)
            byte = below(128);
        message = joined({bytes("F0"), data, bytes("F7")});
        break;
    }
    case 2:
        message = {static_cast<std::uint8_t>(0xC0 + below(32)), below(128)};
        break;
    case 3:
        message = {0xF7, below(128)};
        break;
    default:
        message = {static_cast<std::uint8_t>(0x80 + below(64)), below(128), below(128)};
        break;
    }
    return {time, message};
}

TEST(SimpleMIDIFileReader, ReadsBackWhatWasWritten)
{
    std::mt19937 random(2);
    for (int round = 0; round < 50; ++round) {
        SimpleMIDIFile file;
        file.format = static_cast<std::uint16_t>(random());
        file.ticksPerQuarterNote = static_cast<std::uint16_t>(random() & 0x7FFF);
        file.tracks.resize(random() % 5);
        for (auto& one : file.tracks) {
            std::int64_t time = 0;
            for (std::size_t i = random() % 100; i > 0; --i) {
                time += random() % (1u << random() % 29);
                one.events.push_back(randomEvent(random, time));
            }
        }
        const auto data = SimpleMIDIFileBuilder::file(file.format, file.ticksPerQuarterNote, file.tracks);
        EXPECT_EQ(SimpleMIDIFileReader::read(data), file);
    }
}

} // namespace
} // namespace tonavelle
