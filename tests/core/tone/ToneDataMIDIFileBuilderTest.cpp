#include "core/tone/ToneDataMIDIFileBuilder.h"

#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/tone/ToneDataFile.h"
#include "core/tone/ToneDefaults.h"
#include "tests/core/tone/EditedInstrument.h"
#include "tests/support/Bytes.h"
#include "tests/support/GoldenBytes.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <string>
#include <string_view>
#include <vector>

namespace tonavelle {
namespace {

using orvim::test::bytes;
using orvim::test::matchesGolden;
using testing::AnyOf;
using testing::ElementsAre;

using Bytes = std::vector<std::uint8_t>;

/// The file of untouched channels with so many user messages, read again.
SimpleMIDIFile fileWithUserMessages(std::size_t count)
{
    const Batch messages(count, bytes("F0 00 48 05 7F 41 00 00 05 50 61 64 20 20 20 20 20 20 20 20 20 F7"));
    return SimpleMIDIFileReader::read(
        ToneDataMIDIFileBuilder::fileData(MasterToneParameters(), defaultChannels(), messages));
}

const SimpleMIDITrack& channelTrack(const SimpleMIDIFile& file, std::size_t channel)
{
    return file.tracks.at(channel + 1);
}

/// The ticks at which a text that begins so stands in a track.
std::vector<std::int64_t> ticksOf(const SimpleMIDITrack& track, std::string_view words)
{
    std::vector<std::int64_t> ticks;
    for (const SimpleMIDITimedEvent& event : track.events)
        if (event.metaType() == 1 && event.text().value_or("").starts_with(words)) ticks.push_back(event.absoluteTime);
    return ticks;
}

std::size_t eventCountBetween(const SimpleMIDITrack& track, std::int64_t first, std::int64_t last)
{
    std::size_t count = 0;
    for (const SimpleMIDITimedEvent& event : track.events)
        if (event.absoluteTime >= first && event.absoluteTime <= last) ++count;
    return count;
}

TEST(ToneDataMIDIFileBuilder, UntouchedEditorWritesItsGoldenFile)
{
    EXPECT_TRUE(matchesGolden(toneDataFile(factoryToneInstrument(), {}), "core/tone/golden/untouched.hex"));
}

TEST(ToneDataMIDIFileBuilder, EditedInstrumentWritesItsGoldenFile)
{
    EXPECT_TRUE(matchesGolden(toneDataFile(test::editedInstrument(), {}), "core/tone/golden/edited.hex"));
}

TEST(ToneDataMIDIFileBuilder, UntouchedFileHas18TracksAndChannelsThirtyTicksApart)
{
    const SimpleMIDIFile file = fileWithUserMessages(0);
    EXPECT_EQ(file.format, 1);
    EXPECT_EQ(file.ticksPerQuarterNote, 480);
    ASSERT_EQ(file.tracks.size(), 18u);
    EXPECT_THAT(ticksOf(channelTrack(file, 1), "---- Track Setup"), ElementsAre(490));
    EXPECT_THAT(ticksOf(channelTrack(file, 2), "---- Track Setup"), ElementsAre(520));
    EXPECT_THAT(ticksOf(channelTrack(file, 16), "---- Track Setup"), ElementsAre(940));
}

TEST(ToneDataMIDIFileBuilder, EveryMelodyChannelHasThirteenSoundDetailGroups)
{
    const SimpleMIDIFile file = fileWithUserMessages(0);
    for (std::size_t channel = 1; channel <= 16; ++channel) {
        if (channel == 10) continue;
        const SimpleMIDITrack& track = channelTrack(file, channel);
        const std::int64_t start = 460 + 30 * static_cast<std::int64_t>(channel);
        EXPECT_THAT(ticksOf(track, "---- Sound Detail"), ElementsAre(start + 125));
        EXPECT_THAT(ticksOf(track, "---- End of CH Setup"), ElementsAre(start + 195));
        EXPECT_EQ(eventCountBetween(track, start + 126, start + 194), 10u * 4 + 3) << "ten NRPN and three controllers";
        for (std::int64_t tick = start + 130; tick <= start + 190; tick += 5)
            EXPECT_THAT(eventCountBetween(track, tick, tick), AnyOf(4u, 1u)) << channel << " at " << tick;
    }
}

TEST(ToneDataMIDIFileBuilder, DrumChannelHasNoSoundDetailButItsText)
{
    const SimpleMIDIFile file = fileWithUserMessages(0);
    const SimpleMIDITrack& track = channelTrack(file, 10);
    constexpr std::int64_t start = 490 + 9 * 30;
    EXPECT_THAT(ticksOf(track, "---- Sound Detail"), ElementsAre(start + 125));
    EXPECT_THAT(ticksOf(track, "---- End of CH Setup"), ElementsAre(start + 130));
    EXPECT_EQ(eventCountBetween(track, start + 126, start + 1000), 1u) << "the end of the set-up alone";
    EXPECT_EQ(track.events.back().absoluteTime, start + 130);
}

TEST(ToneDataMIDIFileBuilder, TwelveUserMessagesLeaveTheChannelsWhereTheyAre)
{
    const SimpleMIDIFile file = fileWithUserMessages(12);
    EXPECT_EQ(file.tracks.at(1).events.back().absoluteTime, 251);
    EXPECT_THAT(ticksOf(channelTrack(file, 1), "---- Track Setup"), ElementsAre(490));
}

TEST(ToneDataMIDIFileBuilder, ManyUserMessagesPushTheChannelsBack)
{
    EXPECT_THAT(ticksOf(channelTrack(fileWithUserMessages(245), 1), "---- Track Setup"), ElementsAre(490));
    EXPECT_THAT(ticksOf(channelTrack(fileWithUserMessages(246), 1), "---- Track Setup"), ElementsAre(491));
    const SimpleMIDIFile file = fileWithUserMessages(250);
    EXPECT_EQ(file.tracks.at(1).events.back().absoluteTime, 489);
    EXPECT_THAT(ticksOf(channelTrack(file, 1), "---- Track Setup"), ElementsAre(495));
}

TEST(ToneDataMIDIFileBuilder, SongStartDoesNotMove)
{
    const SimpleMIDIFile file = fileWithUserMessages(3000);
    EXPECT_EQ(file.tracks.at(0).events.back().absoluteTime, 1920);
}

TEST(ToneDataMIDIFileBuilder, MessagesFollowTheTextOfTheirTick)
{
    const std::vector<SimpleMIDITimedEvent> events = fileWithUserMessages(1).tracks.at(1).events;
    const auto atTick = [&](std::int64_t tick) {
        std::vector<int> statuses;
        for (const SimpleMIDITimedEvent& event : events)
            if (event.absoluteTime == tick) statuses.push_back(event.message[0]);
        return statuses;
    };
    EXPECT_THAT(atTick(180), ElementsAre(0xFF, 0xF0)) << "the master volume";
    EXPECT_THAT(atTick(190), ElementsAre(0xFF, 0xB0, 0xB0, 0xB0, 0xB0)) << "the delay time";
    EXPECT_THAT(atTick(240), ElementsAre(0xFF, 0xF0)) << "the first user message";
}

TEST(ToneDataMIDIFileBuilder, MemoIsAFixedText)
{
    EXPECT_THAT(ticksOf(SimpleMIDIFileReader::read(toneDataFile(test::editedInstrument(), {})).tracks.at(0), "memo"),
                ElementsAre(0));
}

TEST(ToneDataMIDIFileBuilder, WritesTheFirst16ChannelsOnly)
{
    std::vector<ChannelToneParameters> channels = defaultChannels();
    const Bytes sixteen = ToneDataMIDIFileBuilder::fileData(MasterToneParameters(), channels, {});
    channels.push_back(ChannelToneParameters());
    EXPECT_EQ(ToneDataMIDIFileBuilder::fileData(MasterToneParameters(), channels, {}), sixteen);
}

TEST(ToneDataMIDIFileBuilder, TracksOfMissingChannelsKeepTheirTwoOpeningEvents)
{
    const SimpleMIDIFile file =
        SimpleMIDIFileReader::read(ToneDataMIDIFileBuilder::fileData(MasterToneParameters(), {}, {}));
    ASSERT_EQ(file.tracks.size(), 18u);
    for (std::size_t channel = 1; channel <= 16; ++channel) {
        const auto& events = channelTrack(file, channel).events;
        ASSERT_EQ(events.size(), 2u);
        EXPECT_EQ(events[0].message, bytes("FF 03 00"));
        EXPECT_EQ(events[1].message, bytes("FF 21 01 00"));
    }
}

} // namespace
} // namespace tonavelle
