#include "core/media/LyricFile.h"

#include "core/media/LyricsSysExBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

#include <cstddef>
#include <gmock/gmock.h>
#include <limits>
#include <string>
#include <vector>

namespace tonavelle {
namespace {

using orvim::test::bytes;
using orvim::test::metaEvent;
using testing::ElementsAre;
using testing::IsEmpty;
using Event = SimpleMIDITimedEvent;
using Events = std::vector<Event>;

constexpr std::uint8_t text = 0x01;
constexpr std::uint8_t lyric = 0x05;

const Message modeOn = bytes("F0 00 48 05 7F 05 01 F7");

Event command(std::int64_t time, LyricsCommand lyricsCommand, std::string_view content)
{
    return {time, LyricsSysExBuilder::sysEx(lyricsCommand, content)};
}

SimpleMIDIFile song(std::vector<SimpleMIDITrack> tracks)
{
    return {1, 480, std::move(tracks)};
}

std::vector<LyricsRow> rowsOf(Events events)
{
    return readLyricRows(song({{std::move(events)}}));
}

/// The song as it reads after a save with these rows.
SimpleMIDIFile saved(const SimpleMIDIFile& opened, const std::vector<LyricsRow>& rows, bool addJapaneseModeOn = false)
{
    return SimpleMIDIFileReader::read(buildLyricFile(rows, addJapaneseModeOn, opened, lyricsTicksPerBar(opened)));
}

SimpleMIDIFile newSong(const std::vector<LyricsRow>& rows, bool addJapaneseModeOn = false)
{
    return SimpleMIDIFileReader::read(buildLyricFile(rows, addJapaneseModeOn, std::nullopt, defaultLyricsTicksPerBar));
}

TEST(ReadLyricRows, ALyricWithAKeywordGivesItsCommandAndTheWordBehindIt)
{
    EXPECT_THAT(rowsOf({metaEvent(1'920, lyric, "$ADD_LO$hello")}),
                ElementsAre(LyricsRow{1, 0, 0, LyricsCommand::addLower, "hello"}));
    EXPECT_THAT(rowsOf({metaEvent(1'921, text, "$ADD_HI$hello")}),
                ElementsAre(LyricsRow{1, 1, 0, LyricsCommand::addUpper, "hello"}));
}

TEST(ReadLyricRows, APlainLyricGoesToTheUpperRowAndAPlainTextGivesNoRow)
{
    EXPECT_THAT(rowsOf({metaEvent(5, lyric, "la")}), ElementsAre(LyricsRow{0, 5, 0, LyricsCommand::addUpper, "la"}));
    EXPECT_THAT(rowsOf({metaEvent(5, text, "la")}), IsEmpty());
}

TEST(ReadLyricRows, WhatStandsBehindADeleteKeywordIsDropped)
{
    EXPECT_THAT(
        rowsOf({metaEvent(0, lyric, "$DEL_HI$abc"), metaEvent(1, text, "$DEL_LO$"), metaEvent(2, text, "$DEL_HL$")}),
        ElementsAre(LyricsRow{0, 0, 0, LyricsCommand::deleteUpper, ""},
                    LyricsRow{0, 1, 0, LyricsCommand::deleteLower, ""},
                    LyricsRow{0, 2, 0, LyricsCommand::deleteBoth, ""}));
}

TEST(ReadLyricRows, KeywordsAreComparedExactlyAtTheVeryStart)
{
    EXPECT_THAT(
        rowsOf({metaEvent(0, lyric, "$add_lo$a"), metaEvent(1, lyric, " $ADD_LO$a"), metaEvent(2, text, " $DEL_HL$")}),
        ElementsAre(LyricsRow{0, 0, 0, LyricsCommand::addUpper, "$add_lo$a"},
                    LyricsRow{0, 1, 0, LyricsCommand::addUpper, " $ADD_LO$a"}));
}

TEST(ReadLyricRows, TheModulesOwnCommandsGiveRows)
{
    EXPECT_THAT(
        rowsOf({command(0, LyricsCommand::addUpper, "春"), command(1, LyricsCommand::deleteBoth, ""), {2, modeOn}}),
        ElementsAre(LyricsRow{0, 0, 0, LyricsCommand::addUpper, "春"},
                    LyricsRow{0, 1, 0, LyricsCommand::deleteBoth, ""}));
}

TEST(ReadLyricRows, LyricsAreShiftJISOrElseUTF8AndOthersGiveNoRow)
{
    EXPECT_THAT(rowsOf({{0, bytes("FF 05 02 82 A0")}, {1, bytes("FF 05 03 E3 81 82")}, {2, bytes("FF 05 02 FF FF")}}),
                ElementsAre(LyricsRow{0, 0, 0, LyricsCommand::addUpper, "あ"},
                            LyricsRow{0, 1, 0, LyricsCommand::addUpper, "あ"}));
}

TEST(ReadLyricRows, OtherEventsGiveNoRow)
{
    EXPECT_THAT(rowsOf({metaEvent(0, 0x03, "$ADD_HI$x"), {0, {0x90, 0x3C, 0x64}}, {0, {}}, {0, {0xF7, 0x00, 0x48}}}),
                IsEmpty());
}

TEST(ReadLyricRows, RowsAreSortedByTimeAndKeepTheFilesOrderAmongEqualOnes)
{
    const auto file = song({{{metaEvent(9, lyric, "b"), metaEvent(9, lyric, "c")}},
                            {{metaEvent(3, lyric, "a"), metaEvent(9, lyric, "d")}}});
    EXPECT_THAT(readLyricRows(file), ElementsAre(LyricsRow{0, 3, 1, LyricsCommand::addUpper, "a"},
                                                 LyricsRow{0, 9, 0, LyricsCommand::addUpper, "b"},
                                                 LyricsRow{0, 9, 0, LyricsCommand::addUpper, "c"},
                                                 LyricsRow{0, 9, 1, LyricsCommand::addUpper, "d"}));
}

TEST(ReadLyricRows, ABarIsFourQuarterNotesOfTheFileAndAtLeastOneTick)
{
    SimpleMIDIFile file = song({{{metaEvent(1'000, lyric, "a")}}});
    file.ticksPerQuarterNote = 96;
    EXPECT_EQ(readLyricRows(file).at(0), (LyricsRow{2, 232, 0, LyricsCommand::addUpper, "a"}));
    file.ticksPerQuarterNote = 0;
    EXPECT_EQ(readLyricRows(file).at(0), (LyricsRow{1'000, 0, 0, LyricsCommand::addUpper, "a"}));
    file.ticksPerQuarterNote = 0xFFFF;
    EXPECT_EQ(lyricsTicksPerBar(file), 262'140);
}

TEST(BuildLyricFile, ADivisionOf0PutsEveryCommandAtTick0)
{
    SimpleMIDIFile file = song({{{metaEvent(1'000, lyric, "a"), metaEvent(2'000, lyric, "b")}}});
    file.ticksPerQuarterNote = 0;
    EXPECT_EQ(lyricsTicksPerBar(file), 0);
    EXPECT_THAT(saved(file, readLyricRows(file)).tracks.at(0).events,
                ElementsAre(command(0, LyricsCommand::addUpper, "a"), command(0, LyricsCommand::addUpper, "b")));
}

TEST(BuildLyricFile, ASavedSongOpensWithTheSameRows)
{
    const auto file = song({{{metaEvent(0, lyric, "one"), metaEvent(2'000, text, "$ADD_LO$two")}},
                            {{metaEvent(7, lyric, "$DEL_HL$"), command(9, LyricsCommand::addLower, "春の")}}});
    const auto rows = readLyricRows(file);
    ASSERT_EQ(rows.size(), 4u);
    const auto once = saved(file, rows, true);
    EXPECT_EQ(readLyricRows(once), rows);
    EXPECT_EQ(saved(once, readLyricRows(once), true), once);
}

TEST(BuildLyricFile, LyricsBecomeCommandsAndTheRestOfTheSongStays)
{
    const Events kept{metaEvent(0, 0x03, "title"),
                      {0, {0x90, 0x3C, 0x64}},
                      metaEvent(5, text, "la"),
                      {5, bytes("F0 7E 7F 09 01 F7")},
                      {480, {0x80, 0x3C, 0x00}}};
    Events events = kept;
    events.insert(events.begin() + 2, {metaEvent(3, lyric, "la"), metaEvent(4, text, "$ADD_HI$lo")});
    const auto file = song({{events}});
    const auto result = saved(file, readLyricRows(file));
    EXPECT_THAT(result.tracks.at(0).events,
                ElementsAre(kept[0], kept[1], command(3, LyricsCommand::addUpper, "la"),
                            command(4, LyricsCommand::addUpper, "lo"), kept[2], kept[3], kept[4]));
}

TEST(BuildLyricFile, ASongWithoutLyricsIsSavedAsItIs)
{
    const SimpleMIDIFile file{
        0, 96, {{{{0, {0x90, 0x3C, 0x64}}, metaEvent(3, text, "karaoke"), {9, {0xF7, 0x01}}}}, {}}};
    EXPECT_EQ(saved(file, {}), file);
}

TEST(BuildLyricFile, CommandsThatGiveNoRowFallAwayToo)
{
    const auto file = song({{{{0, bytes("F0 00 48 05 7F 06 03 F7")},
                              {1, bytes("F0 00 48 05 7F 06 01 00 F7")},
                              {2, bytes("F0 00 48 05 7F 07 F7")},
                              {3, bytes("F0 00 48 05 7F 07 02 F7")},
                              {4, bytes("FF 05 02 FF FF")}}}});
    EXPECT_THAT(readLyricRows(file), IsEmpty());
    EXPECT_THAT(saved(file, {}).tracks.at(0).events, IsEmpty());
}

TEST(BuildLyricFile, OtherCommandsOfTheModuleStay)
{
    const Events events{{0, modeOn},
                        {1, bytes("F0 00 48 05 7F F7")},
                        {2, bytes("F0 00 48 05 7E 06 01 F7")},
                        {3, bytes("F0 00 48 05 7F 26 00 F7")}};
    EXPECT_EQ(saved(song({{events}}), {}).tracks.at(0).events, events);
}

TEST(BuildLyricFile, NewCommandsStandBehindWhatStandsAtTheirTick)
{
    const auto file = song({{{{480, {0x90, 0x3C, 0x64}}, {481, {0x90, 0x3C, 0x00}}}}});
    EXPECT_THAT(saved(file, {{0, 480, 0, LyricsCommand::addUpper, "a"}, {0, 480, 0, LyricsCommand::addUpper, "b"}})
                    .tracks.at(0)
                    .events,
                ElementsAre(file.tracks[0].events[0], command(480, LyricsCommand::addUpper, "a"),
                            command(480, LyricsCommand::addUpper, "b"), file.tracks[0].events[1]));
}

TEST(BuildLyricFile, TheJapaneseDisplayCommandGoesToTheSecondTrackOnce)
{
    const auto once = saved(song({{}, {}, {}}), {}, true);
    EXPECT_THAT(once.tracks.at(0).events, IsEmpty());
    EXPECT_THAT(once.tracks.at(1).events, ElementsAre(Event{240, modeOn}));
    EXPECT_EQ(saved(once, {}, true), once);
}

TEST(BuildLyricFile, AJapaneseDisplayCommandElsewhereDoesNotCount)
{
    const auto file = song({{{{240, modeOn}}}, {{{241, modeOn}}}});
    EXPECT_THAT(saved(file, {}, true).tracks.at(1).events, ElementsAre(Event{240, modeOn}, Event{241, modeOn}));
}

TEST(BuildLyricFile, InAFileOfOneTrackTheJapaneseDisplayCommandGoesThere)
{
    const SimpleMIDIFile file{0, 480, {{{{0, {0xC0, 0x01}}}}}};
    EXPECT_THAT(saved(file, {}, true).tracks.at(0).events, ElementsAre(Event{0, {0xC0, 0x01}}, Event{240, modeOn}));
}

TEST(BuildLyricFile, AFileWithoutTracksGetsOne)
{
    const auto result = saved(song({}), {{0, 1, 0, LyricsCommand::addUpper, "a"}});
    ASSERT_EQ(result.tracks.size(), 1u);
    EXPECT_THAT(result.tracks[0].events, ElementsAre(command(1, LyricsCommand::addUpper, "a")));
}

TEST(BuildLyricFile, ARowBeyondTheLastTrackGoesToTheFirst)
{
    const auto result = saved(song({{}, {}}), {{0, 1, 2, LyricsCommand::addUpper, "a"},
                                               {0, 2, -1, LyricsCommand::addUpper, "b"},
                                               {0, 3, 1, LyricsCommand::addUpper, "c"}});
    EXPECT_THAT(result.tracks.at(0).events,
                ElementsAre(command(1, LyricsCommand::addUpper, "a"), command(2, LyricsCommand::addUpper, "b")));
    EXPECT_THAT(result.tracks.at(1).events, ElementsAre(command(3, LyricsCommand::addUpper, "c")));
}

TEST(BuildLyricFile, Bar2AndMinus10TicksOfA480TickFileGiveTick3830)
{
    const auto result = saved(song({{}}), {{2, -10, 0, LyricsCommand::addUpper, "a"}});
    EXPECT_EQ(result.tracks.at(0).events.at(0).absoluteTime, 3'830);
}

TEST(BuildLyricFile, TimesBelowZeroCountAsZero)
{
    const std::vector<LyricsRow> rows{{-3, 7, 0, LyricsCommand::addUpper, "a"},
                                      {0, -7, 0, LyricsCommand::addUpper, "b"}};
    const auto events = saved(song({{}}), rows).tracks.at(0).events;
    EXPECT_THAT(events,
                ElementsAre(command(0, LyricsCommand::addUpper, "b"), command(7, LyricsCommand::addUpper, "a")));
}

TEST(BuildLyricFile, EnormousBarsAndTicksDoNotOverflow)
{
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    for (const LyricsRow& row : {LyricsRow{largest, largest, largest, LyricsCommand::addUpper, "a"},
                                 LyricsRow{smallest, smallest, smallest, LyricsCommand::addUpper, "a"},
                                 LyricsRow{largest / 1'920, largest, 0, LyricsCommand::addUpper, "a"},
                                 LyricsRow{largest, smallest, 0, LyricsCommand::addUpper, "a"}}) {
        const bool isLate = row.bar > 0;
        EXPECT_THAT(saved(song({{}}), {row}).tracks.at(0).events,
                    ElementsAre(command(isLate ? 268'435'455 : 0, LyricsCommand::addUpper, "a")));
        EXPECT_THAT(newSong({row}, true).tracks.at(0).events,
                    ElementsAre(SimpleMIDIFileBuilder::defaultTempoEvent(), Event{240, modeOn},
                                command(isLate ? 268'435'455 : 240, LyricsCommand::addUpper, "a")));
    }
}

TEST(BuildLyricFile, ATextOf17TwoByteCharactersIsCutTo16Characters)
{
    std::string seventeen;
    for (int i = 0; i < 17; ++i)
        seventeen += "あ";
    const auto rows = readLyricRows(saved(song({{}}), {{0, 0, 0, LyricsCommand::addUpper, seventeen}}));
    EXPECT_EQ(rows.at(0).text, seventeen.substr(0, 16 * std::string("あ").size()));
}

TEST(BuildLyricFile, WithoutAFileAndRowsTheResultIsATempoAndTwoTracks)
{
    EXPECT_EQ(buildLyricFile({}, false, std::nullopt, defaultLyricsTicksPerBar),
              bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0 "
                    "4D 54 72 6B 00 00 00 0B 00 FF 51 03 0F 42 40 00 FF 2F 00 "
                    "4D 54 72 6B 00 00 00 04 00 FF 2F 00"));
}

TEST(BuildLyricFile, ANewFileHoldsItsCommandsByteForByte)
{
    const std::vector<LyricsRow> rows{{0, 480, 0, LyricsCommand::addUpper, "A"}};
    EXPECT_EQ(buildLyricFile(rows, true, std::nullopt, defaultLyricsTicksPerBar),
              bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0 "
                    "4D 54 72 6B 00 00 00 23 00 FF 51 03 0F 42 40 "
                    "81 70 F0 07 00 48 05 7F 05 01 F7 "
                    "81 70 F0 09 00 48 05 7F 07 00 04 01 F7 00 FF 2F 00 "
                    "4D 54 72 6B 00 00 00 04 00 FF 2F 00"));
}

TEST(BuildLyricFile, ASavedSongHoldsItsCommandsByteForByte)
{
    const auto file = song({{{{0, {0x90, 0x3C, 0x64}}, metaEvent(480, lyric, "la"), {960, {0x80, 0x3C, 0x00}}}}});
    EXPECT_EQ(buildLyricFile(readLyricRows(file), false, file, lyricsTicksPerBar(file)),
              bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0 "
                    "4D 54 72 6B 00 00 00 1C 00 90 3C 64 "
                    "83 60 F0 0B 00 48 05 7F 07 00 06 0C 06 01 F7 "
                    "83 60 80 3C 00 00 FF 2F 00"));
}

TEST(BuildLyricFile, AnEmptyLyricBecomesACommandWithoutText)
{
    const auto file = song({{{{7, bytes("FF 05 00")}}}});
    EXPECT_THAT(readLyricRows(file), ElementsAre(LyricsRow{0, 7, 0, LyricsCommand::addUpper, ""}));
    EXPECT_THAT(saved(file, readLyricRows(file)).tracks.at(0).events,
                ElementsAre(Event{7, bytes("F0 00 48 05 7F 07 00 F7")}));
}

TEST(BuildLyricFile, ANewFileSortsItsRowsByTime)
{
    const auto file = newSong({{1, 0, 0, LyricsCommand::addUpper, "b"},
                               {0, 1'920, 5, LyricsCommand::addUpper, "c"},
                               {0, 480, 0, LyricsCommand::deleteBoth, ""}});
    EXPECT_EQ(file.format, 1);
    EXPECT_EQ(file.ticksPerQuarterNote, 480);
    ASSERT_EQ(file.tracks.size(), 2u);
    EXPECT_THAT(file.tracks[0].events,
                ElementsAre(SimpleMIDIFileBuilder::defaultTempoEvent(), command(480, LyricsCommand::deleteBoth, ""),
                            command(1'920, LyricsCommand::addUpper, "b"),
                            command(1'920, LyricsCommand::addUpper, "c")));
}

TEST(BuildLyricFile, InANewFileARowBeforeTick240FallsBehindTheJapaneseDisplayCommand)
{
    const auto file = newSong({{0, 100, 0, LyricsCommand::addUpper, "a"},
                               {0, -5, 0, LyricsCommand::addUpper, "b"},
                               {0, 300, 0, LyricsCommand::addUpper, "c"}},
                              true);
    EXPECT_THAT(file.tracks.at(0).events,
                ElementsAre(SimpleMIDIFileBuilder::defaultTempoEvent(), Event{240, modeOn},
                            command(240, LyricsCommand::addUpper, "b"), command(240, LyricsCommand::addUpper, "a"),
                            command(300, LyricsCommand::addUpper, "c")));
}

} // namespace
} // namespace tonavelle
