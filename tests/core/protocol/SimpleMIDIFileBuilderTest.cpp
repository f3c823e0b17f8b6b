#include "core/protocol/SimpleMIDIFileBuilder.h"

#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace tonavelle::SimpleMIDIFileBuilder {
namespace {

using orvim::test::bytes;
using orvim::test::joined;
using orvim::test::track;

const Message oneTrackHeader = bytes("4D 54 68 64 00 00 00 06 00 00 00 01 01 E0");

std::vector<std::uint8_t> oneTrackFile(std::vector<SimpleMIDITimedEvent> events)
{
    const std::vector<SimpleMIDITrack> tracks{{std::move(events)}};
    return file(0, 480, tracks);
}

TEST(VariableLengthQuantity, TakesAsFewBytesAsItCan)
{
    EXPECT_EQ(variableLengthQuantity(0), bytes("00"));
    EXPECT_EQ(variableLengthQuantity(127), bytes("7F"));
    EXPECT_EQ(variableLengthQuantity(128), bytes("81 00"));
    EXPECT_EQ(variableLengthQuantity(480), bytes("83 60"));
    EXPECT_EQ(variableLengthQuantity(16'383), bytes("FF 7F"));
    EXPECT_EQ(variableLengthQuantity(16'384), bytes("81 80 00"));
    EXPECT_EQ(variableLengthQuantity(2'097'151), bytes("FF FF 7F"));
    EXPECT_EQ(variableLengthQuantity(2'097'152), bytes("81 80 80 00"));
}

TEST(VariableLengthQuantity, DropsBitsAboveTwentyEight)
{
    EXPECT_EQ(variableLengthQuantity(268'435'455), bytes("FF FF FF 7F"));
    EXPECT_EQ(variableLengthQuantity(268'435'456), bytes("00"));
    EXPECT_EQ(variableLengthQuantity(268'435'456 + 128), bytes("81 00"));
    EXPECT_EQ(variableLengthQuantity(std::numeric_limits<std::int64_t>::max()), bytes("FF FF FF 7F"));
}

TEST(VariableLengthQuantity, CountsANegativeValueAsZero)
{
    EXPECT_EQ(variableLengthQuantity(-1), bytes("00"));
    EXPECT_EQ(variableLengthQuantity(std::numeric_limits<std::int64_t>::min()), bytes("00"));
}

TEST(EncodeUInt32BigEndian, PutsTheHighByteFirst)
{
    const std::array<std::uint8_t, 4> expected{0x12, 0x34, 0x56, 0x78};
    EXPECT_EQ(encodeUInt32BigEndian(0x12345678), expected);
}

TEST(SimpleMIDIFileBuilder, AnEmptyTrackListYieldsTheHeaderAlone)
{
    EXPECT_EQ(file(1, 480, {}), bytes("4D 54 68 64 00 00 00 06 00 01 00 00 01 E0"));
}

TEST(SimpleMIDIFileBuilder, FormatTrackCountAndTicksGoIntoTheHeader)
{
    const std::vector<SimpleMIDITrack> tracks(258);
    const auto result = file(0x0203, 0xE728, tracks);
    EXPECT_EQ(Message(result.begin(), result.begin() + 14), bytes("4D 54 68 64 00 00 00 06 02 03 01 02 E7 28"));
    EXPECT_EQ(result.size(), 14u + 258 * 12);
}

TEST(SimpleMIDIFileBuilder, TracksAreWrittenInOrder)
{
    const std::vector<SimpleMIDITrack> tracks{{{{0, {0x90, 0x3C, 0x64}}}}, {{{1, {0xC1, 0x05}}}}};
    EXPECT_EQ(file(1, 480, tracks), joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"),
                                            track("00 90 3C 64 00 FF 2F 00"), track("01 C1 05 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, AChannelMessageKeepsItsStatusByteAfterAnotherOfTheSameStatus)
{
    EXPECT_EQ(oneTrackFile({{0, {0x90, 0x3C, 0x64}}, {480, {0x90, 0x3C, 0x00}}}),
              joined({oneTrackHeader, track("00 90 3C 64 83 60 90 3C 00 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, ADeltaOf268435455TakesFourBytesAndOneMoreComesOutAsZero)
{
    EXPECT_EQ(oneTrackFile({{268'435'455, {0xC0, 0x01}}}),
              joined({oneTrackHeader, track("FF FF FF 7F C0 01 00 FF 2F 00")}));
    EXPECT_EQ(oneTrackFile({{268'435'456, {0xC0, 0x01}}}), joined({oneTrackHeader, track("00 C0 01 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, TwoEventsOfOneTimeKeepTheirListOrder)
{
    EXPECT_EQ(oneTrackFile({{5, {0xC0, 0x02}}, {5, {0xC0, 0x01}}}),
              joined({oneTrackHeader, track("05 C0 02 00 C0 01 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, SortingIsStable)
{
    std::vector<SimpleMIDITimedEvent> events;
    for (int i = 0; i < 100; ++i)
        events.push_back({i % 2, {0xC0, static_cast<std::uint8_t>(i)}});
    const auto result = oneTrackFile(events);
    for (std::size_t i = 0; i < 100; ++i) {
        const std::size_t program = 14 + 8 + i * 3 + 2;
        EXPECT_EQ(result[program], i < 50 ? i * 2 : (i - 50) * 2 + 1);
    }
}

TEST(SimpleMIDIFileBuilder, AnEventBeforeTickZeroSortsAheadAndIsWrittenAtTickZero)
{
    EXPECT_EQ(oneTrackFile({{0, {0xC0, 0x01}}, {-5, {0xC0, 0x02}}, {3, {0xC0, 0x03}}}),
              joined({oneTrackHeader, track("00 C0 02 00 C0 01 03 C0 03 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, TheShortestSysExIsWrittenAsItsStatusItsCountAndItsEnd)
{
    EXPECT_EQ(oneTrackFile({{0, {0xF0, 0xF7}}}), joined({oneTrackHeader, track("00 F0 01 F7 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, ASysExOf137BytesCarriesATwoByteCount)
{
    Message sysEx(137, 0x11);
    sysEx.front() = 0xF0;
    sysEx.back() = 0xF7;
    const auto result = oneTrackFile({{0, sysEx}});
    ASSERT_EQ(result.size(), 14u + 8 + 1 + 3 + 136 + 4);
    EXPECT_EQ(Message(result.begin() + 22, result.begin() + 26), bytes("00 F0 81 08"));
    EXPECT_EQ(Message(result.begin() + 26, result.begin() + 162), Message(sysEx.begin() + 1, sysEx.end()));
}

TEST(SimpleMIDIFileBuilder, SysExCountsOf127And128And129BytesAreRight)
{
    for (const std::size_t count : {127u, 128u, 129u}) {
        Message sysEx(count + 1, 0x22);
        sysEx.front() = 0xF0;
        const auto result = oneTrackFile({{0, sysEx}});
        const Message size = count == 127 ? bytes("7F") : count == 128 ? bytes("81 00") : bytes("81 01");
        const Message body(count, 0x22);
        EXPECT_EQ(Message(result.begin() + 22, result.end()),
                  joined({bytes("00 F0"), size, body, bytes("00 FF 2F 00")}));
    }
}

TEST(SimpleMIDIFileBuilder, AMessageThatBeginsWithF7TakesTheLengthFormInATimedTrack)
{
    EXPECT_EQ(oneTrackFile({{0, {0xF7, 0x01, 0x02}}}), joined({oneTrackHeader, track("00 F7 02 01 02 00 FF 2F 00")}));
    EXPECT_EQ(oneTrackFile({{0, {0xF7}}}), joined({oneTrackHeader, track("00 F7 00 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, AnEmptyMessageLeavesItsDeltaWithNothingBehindIt)
{
    EXPECT_EQ(oneTrackFile({{7, {}}}), joined({oneTrackHeader, track("07 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, AnEndOfTrackEventInTheListIsNotFilteredOut)
{
    EXPECT_EQ(oneTrackFile({{0, {0xFF, 0x2F, 0x00}}}), joined({oneTrackHeader, track("00 FF 2F 00 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilder, AMetaEventIsCopiedAsItStands)
{
    EXPECT_EQ(oneTrackFile({{0, {0xFF, 0x05, 0x02, 0x68, 0x69}}}),
              joined({oneTrackHeader, track("00 FF 05 02 68 69 00 FF 2F 00")}));
}

TEST(SimpleMIDIFileBuilderDeathTest, MoreTracksThanTheHeaderCanCountStopTheProgram)
{
    EXPECT_DEATH(file(1, 480, std::vector<SimpleMIDITrack>(65'536)), "");
    EXPECT_EQ(file(1, 480, std::vector<SimpleMIDITrack>(65'535)).size(), 14u + 65'535 * 12);
}

TEST(WPFStyleSequence, WithoutEventsYieldsATempoTrackAndAnEmptyOne)
{
    EXPECT_EQ(wpfStyleSequence({}, 480), joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"),
                                                 bytes("4D 54 72 6B 00 00 00 0B 00 FF 51 03 0F 42 40 00 FF 2F 00"),
                                                 bytes("4D 54 72 6B 00 00 00 04 00 FF 2F 00")}));
}

TEST(WPFStyleSequence, TheTempoStaysAheadOfTheEventsAtTickZero)
{
    const std::vector<SimpleMIDITimedEvent> events{{480, {0xC0, 0x01}}, {0, {0xC0, 0x02}}};
    EXPECT_EQ(wpfStyleSequence(events, 96),
              joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 00 60"),
                      track("00 FF 51 03 0F 42 40 00 C0 02 83 60 C0 01 00 FF 2F 00"), track("00 FF 2F 00")}));
}

TEST(WPFStyleSequence, TheTempoEventIsAMetaEventAtTickZero)
{
    const auto tempo = defaultTempoEvent();
    EXPECT_EQ(tempo.absoluteTime, 0);
    EXPECT_EQ(tempo.message, bytes("FF 51 03 0F 42 40"));
    EXPECT_EQ(tempo.metaType(), 0x51);
}

TEST(SingleTrack, WithoutEventsYieldsATrackOfFourBytes)
{
    EXPECT_EQ(singleTrack({}, 480), joined({oneTrackHeader, track("00 FF 2F 00")}));
}

TEST(SingleTrack, TakesEventsInListOrderWithTheirOwnDeltas)
{
    const std::vector<MIDITrackEvent> events{{480, {0xC0, 0x01}}, {-3, {0xC0, 0x02}}, {0, {0xF0, 0x01, 0xF7}}};
    EXPECT_EQ(singleTrack(events, 480),
              joined({oneTrackHeader, track("83 60 C0 01 00 C0 02 00 F0 02 01 F7 00 FF 2F 00")}));
}

TEST(SingleTrack, CopiesAMessageThatBeginsWithF7AsItStands)
{
    const std::vector<MIDITrackEvent> events{{0, {0xF7, 0x01, 0x02}}, {1, {}}};
    EXPECT_EQ(singleTrack(events, 0xE728),
              joined({bytes("4D 54 68 64 00 00 00 06 00 00 00 01 E7 28"), track("00 F7 01 02 01 00 FF 2F 00")}));
}

} // namespace
} // namespace tonavelle::SimpleMIDIFileBuilder
