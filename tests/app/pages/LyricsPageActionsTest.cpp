#include "pages/LyricsPageActions.h"

#include "tests/app/support/HostileDisk.h"
#include "tests/app/support/LyricsPageTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QTimer>

#include <limits>

namespace orvim {
namespace {

using test::bytes;
using test::commandEvent;
using test::lyricMeta;
using test::metaEvent;
using test::songOf;
using test::songOfLyrics;
using test::textMeta;
using testing::ElementsAre;
using tonavelle::LyricsCommand;
using tonavelle::LyricsRow;
using tonavelle::SimpleMIDIFile;

const tonavelle::SimpleMIDITimedEvent modeOn{240, bytes("F0 00 48 05 7F 05 01 F7")};

class LyricsPageActionsTest : public test::LyricsPageTest
{
protected:
    void open(const SimpleMIDIFile& song, const QString& name = QStringLiteral("song.mid"))
    {
        actions.load(write(name, song));
        EXPECT_EQ(status(), QStringLiteral("MIDIファイルを読み込みました。"));
    }

    void saveTo(const QString& file)
    {
        dialogs.pathToSave = file;
        actions.save();
    }

    SimpleMIDIFile saved()
    {
        saveTo(path(QStringLiteral("saved.mid")));
        EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存しました。"));
        return read(path(QStringLiteral("saved.mid")));
    }

    const LyricsPageState& state() const { return actions.state(); }
    LyricsRowID id(std::size_t position) const { return state().rows.at(position).id; }
    const LyricsRow& row(std::size_t position) const { return state().rows.at(position).lyrics; }

    std::vector<LyricsRow> rows() const
    {
        std::vector<LyricsRow> result;
        for (const auto& tableRow : state().rows)
            result.push_back(tableRow.lyrics);
        return result;
    }

    std::vector<std::string> texts() const
    {
        std::vector<std::string> result;
        for (const auto& tableRow : state().rows)
            result.push_back(tableRow.lyrics.text);
        return result;
    }

    void edit(int position, LyricsColumn column, const QVariant& value)
    {
        EXPECT_TRUE(actions.table().setData(actions.table().cell(position, column), value));
    }

    LyricsPageActions actions{plugged.runtime.midiOutManager(), plugged.runtime.displaySimulator(), dialogs};
};

TEST_F(LyricsPageActionsTest, ANewPageOffersLyricsOutputAndWritesAFileOfATempoAndTwoTracks)
{
    EXPECT_THAT(saved().tracks.at(0).events,
                ElementsAre(tonavelle::SimpleMIDIFileBuilder::defaultTempoEvent(), modeOn));
    dialogs.proposedNames.clear();
    dialogs.savedKinds.clear();
    actions.setAddJapaneseModeOn(false);
    const auto file = saved();
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("lyrics_output.mid")});
    EXPECT_EQ(dialogs.savedKinds, QList<FileKind>{FileKind::midi});
    ASSERT_EQ(file.tracks.size(), 2u);
    EXPECT_THAT(file.tracks[0].events, ElementsAre(tonavelle::SimpleMIDIFileBuilder::defaultTempoEvent()));
    EXPECT_TRUE(file.tracks[1].events.empty());
}

TEST_F(LyricsPageActionsTest, WithSongMidOpenTheProposedNameIsSongOutMid)
{
    open(songOfLyrics(1));
    actions.save();
    open(songOfLyrics(1), QStringLiteral("my.song.midi"));
    actions.save();
    EXPECT_EQ(dialogs.proposedNames, (QStringList{QStringLiteral("song_out.mid"), QStringLiteral("my.song_out.mid")}));
}

TEST_F(LyricsPageActionsTest, TheHeaderCountsInFiveDigitsAndNamesTheFile)
{
    EXPECT_EQ(actions.headerText(), QStringLiteral("歌詞イベント数：00000  MIDI未読込"));
    actions.insert();
    EXPECT_EQ(actions.headerText(), QStringLiteral("歌詞イベント数：00001  MIDI未読込"));
    open(songOfLyrics(12));
    EXPECT_EQ(actions.headerText(), QStringLiteral("歌詞イベント数：00012  ") + path(QStringLiteral("song.mid")));
}

TEST_F(LyricsPageActionsTest, CancelledPanelsAreReportedInTheLogAndTheStatus)
{
    actions.openByPanel();
    EXPECT_EQ(status(), QStringLiteral("MIDIファイル読込をキャンセルしました。"));
    actions.save();
    EXPECT_EQ(status(), QStringLiteral("MIDI保存をキャンセルしました。"));
    EXPECT_EQ(plugged.log(),
              QStringLiteral(" MIDIファイル読込をキャンセルしました。\n MIDI保存をキャンセルしました。\n"));
}

TEST_F(LyricsPageActionsTest, OpeningTakesRowsPathAndTicksOfABar)
{
    SimpleMIDIFile song = songOf({metaEvent(400, lyricMeta, "$ADD_LO$la"), metaEvent(1, textMeta, "no row")});
    song.ticksPerQuarterNote = 96;
    dialogs.pathToOpen = write(QStringLiteral("song.mid"), song);
    actions.openByPanel();
    EXPECT_THAT(rows(), ElementsAre(LyricsRow{1, 16, 0, LyricsCommand::addLower, "la"}));
    EXPECT_EQ(state().openedMIDIPath, path(QStringLiteral("song.mid")));
    EXPECT_TRUE(state().hasOpenedMIDI);
    EXPECT_EQ(state().lyricsTicksPerBar, 384);
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを読み込みました。"));
    EXPECT_EQ(dialogs.openedKinds, QList<FileKind>{FileKind::midi});
}

TEST_F(LyricsPageActionsTest, TheSelectionStaysAsItIsOnOpeningAndOldRowsInItSelectNothing)
{
    open(songOfLyrics(2));
    const QSet<LyricsRowID> old{id(0)};
    actions.setSelectedRowIDs(old);
    open(songOfLyrics(3));
    EXPECT_EQ(state().selectedRowIDs, old);
    actions.insert();
    EXPECT_EQ(state().rows.size(), 3u);
    EXPECT_TRUE(state().selectedRowIDs.isEmpty());
    EXPECT_EQ(status(), QStringLiteral("歌詞行を挿入しました。"));

    actions.setSelectedRowIDs(old);
    actions.deleteSelected();
    EXPECT_EQ(state().rows.size(), 3u);
    EXPECT_EQ(status(), QStringLiteral("歌詞行を削除しました。"));
}

TEST_F(LyricsPageActionsTest, RowsSelectedAt1And4GetNewRowsAt2And6AndBothAreSelected)
{
    open(songOfLyrics(6));
    actions.setSelectedRowIDs({id(1), id(4)});
    actions.insert();
    EXPECT_THAT(texts(), ElementsAre("0", "1", "", "2", "3", "4", "", "5"));
    EXPECT_EQ(row(2), (LyricsRow{0, 480, 0, LyricsCommand::addUpper, ""}));
    EXPECT_EQ(row(6), (LyricsRow{1, 0, 0, LyricsCommand::addUpper, ""}));
    EXPECT_EQ(state().selectedRowIDs, (QSet<LyricsRowID>{id(2), id(6)}));
    EXPECT_EQ(status(), QStringLiteral("歌詞行を挿入しました。"));
}

TEST_F(LyricsPageActionsTest, WithoutASelectionANewRowGoesToTheTopWithTheTimeOfTheFirst)
{
    actions.insert();
    EXPECT_THAT(rows(), ElementsAre(LyricsRow{}));
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(0)});

    open({1, 480, {{}, {{metaEvent(2'000, lyricMeta, "$ADD_LO$a")}}}});
    actions.setSelectedRowIDs({});
    actions.insert();
    EXPECT_THAT(rows(), ElementsAre(LyricsRow{1, 80, 1, LyricsCommand::addUpper, ""},
                                    LyricsRow{1, 80, 1, LyricsCommand::addLower, "a"}));
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(0)});
}

TEST_F(LyricsPageActionsTest, InsertingBehindARowSelectsTheNewOneAlone)
{
    open(songOfLyrics(3));
    actions.setSelectedRowIDs({id(0), id(2)});
    actions.insertBehind(id(1));
    EXPECT_THAT(texts(), ElementsAre("0", "1", "", "2"));
    EXPECT_EQ(row(2).ticks, 480);
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(2)});
    EXPECT_EQ(status(), QStringLiteral("歌詞行を挿入しました。"));

    const QString before = plugged.log();
    actions.insertBehind(999'999);
    EXPECT_EQ(state().rows.size(), 4u);
    EXPECT_EQ(plugged.log(), before);
}

TEST_F(LyricsPageActionsTest, DeletingWithNothingSelectedIsReportedAndChangesNothing)
{
    open(songOfLyrics(2));
    actions.deleteSelected();
    EXPECT_EQ(state().rows.size(), 2u);
    EXPECT_EQ(status(), QStringLiteral("削除する歌詞行が選択されていません。"));
}

TEST_F(LyricsPageActionsTest, DeletingTheSelectedRowsEmptiesTheSelection)
{
    open(songOfLyrics(5));
    actions.setSelectedRowIDs({id(0), id(1), id(3)});
    actions.deleteSelected();
    EXPECT_THAT(texts(), ElementsAre("2", "4"));
    EXPECT_TRUE(state().selectedRowIDs.isEmpty());
    EXPECT_EQ(status(), QStringLiteral("歌詞行を削除しました。"));
}

TEST_F(LyricsPageActionsTest, DeletingOneRowTakesItAloneOutOfTheSelection)
{
    open(songOfLyrics(3));
    const LyricsRowID kept = id(0);
    actions.setSelectedRowIDs({kept, id(1)});
    actions.deleteRow(id(1));
    EXPECT_THAT(texts(), ElementsAre("0", "2"));
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{kept});
    EXPECT_EQ(status(), QStringLiteral("歌詞行を削除しました。"));
}

TEST_F(LyricsPageActionsTest, ADroppedWAVFileDoesNothingAndReportsNothing)
{
    const QString before = plugged.log();
    actions.openDropped({QUrl::fromLocalFile(write(QStringLiteral("a.wav"), bytes("52 49 46 46")))});
    EXPECT_FALSE(state().hasOpenedMIDI);
    EXPECT_EQ(plugged.log(), before);
}

TEST_F(LyricsPageActionsTest, OfSeveralDroppedFilesTheFirstSongIsOpened)
{
    const QString wave = write(QStringLiteral("a.wav"), bytes("52"));
    const QString first = write(QStringLiteral("FIRST.MIDI"), songOfLyrics(2));
    const QString second = write(QStringLiteral("second.mid"), songOfLyrics(3));
    actions.openDropped({QUrl::fromLocalFile(wave), QUrl::fromLocalFile(first), QUrl::fromLocalFile(second)});
    EXPECT_EQ(state().openedMIDIPath, first);
    EXPECT_EQ(state().rows.size(), 2u);
}

TEST_F(LyricsPageActionsTest, DropsWhileASongIsOpenedFollowItEachWithItsReport)
{
    const QString none = write(QStringLiteral("none.mid"), bytes("4D 54 68 64"));
    const QString late = write(QStringLiteral("late.mid"), songOfLyrics(3));
    dialogs.pathToOpen = write(QStringLiteral("song.mid"), songOfLyrics(20));
    dialogs.whileOpening = [&] {
        actions.openDropped({QUrl::fromLocalFile(none)});
        actions.openDropped({QUrl::fromLocalFile(late)});
    };
    actions.openByPanel();
    EXPECT_EQ(state().openedMIDIPath, late);
    EXPECT_EQ(state().rows.size(), 3u);
    EXPECT_EQ(plugged.log(), QStringLiteral(" MIDIファイルを読み込みました。\n MIDIファイルを開けません。\n "
                                            "MIDIファイルを読み込みました。\n"));
}

TEST_F(LyricsPageActionsTest, WhenTheApplicationQuitsDropsThatWaitAreGivenUp)
{
    dialogs.pathToOpen = write(QStringLiteral("song.mid"), songOfLyrics(20));
    const QString late = write(QStringLiteral("late.mid"), songOfLyrics(3));
    dialogs.whileOpening = [&] {
        actions.openDropped({QUrl::fromLocalFile(late)});
        QCoreApplication::quit();
        QCoreApplication::processEvents();
    };
    QTimer::singleShot(0, &actions, [&] { actions.openByPanel(); });
    QCoreApplication::exec();
    QCoreApplication::processEvents();
    EXPECT_FALSE(state().hasOpenedMIDI);
    EXPECT_EQ(plugged.log(), QString());
}

TEST_F(LyricsPageActionsTest, WhatIsNoSongIsReportedAndLeavesTheTableAsItWas)
{
    open(songOfLyrics(2));
    const auto before = state().rows;
    const auto whole = readWholeFile(path(QStringLiteral("song.mid")));
    const auto expectRefused = [&](const QString& file) {
        plugged.runtime.midiOutManager().setStatus(QString(), false);
        actions.load(file);
        EXPECT_EQ(status(), QStringLiteral("MIDIファイルを開けません。")) << qPrintable(file);
        EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
        EXPECT_EQ(state().rows, before);
        EXPECT_EQ(state().openedMIDIPath, path(QStringLiteral("song.mid")));
    };
    for (std::size_t size = 0; size < whole.size(); ++size)
        expectRefused(write(QStringLiteral("part.mid"), {whole.begin(), whole.begin() + std::ptrdiff_t(size)}));
    expectRefused(write(QStringLiteral("text.mid"), bytes("48 65 6C 6C 6F 2C 20 77 6F 72 6C 64 21")));
    expectRefused(path(QStringLiteral("missing.mid")));
    expectRefused(folder.path());
    expectRefused(QStringLiteral("https://example.org/song.mid"));
    QFile huge(path(QStringLiteral("huge.mid")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(600) * 1024 * 1024));
    expectRefused(huge.fileName());
}

TEST_F(LyricsPageActionsTest, ASavedSongOpensWithTheSameRows)
{
    open({1,
          480,
          {{{metaEvent(0, lyricMeta, "one"), metaEvent(2'000, textMeta, "$ADD_LO$二")}},
           {{metaEvent(7, lyricMeta, "$DEL_HL$"), metaEvent(9, lyricMeta, "$DEL_HI$abc")}}}});
    const auto before = rows();
    ASSERT_EQ(before.size(), 4u);
    const auto once = saved();
    EXPECT_EQ(state().openedMIDIPath, path(QStringLiteral("song.mid"))) << "the page stays on the file it opened";
    actions.load(path(QStringLiteral("saved.mid")));
    EXPECT_EQ(rows(), before);
    saveTo(path(QStringLiteral("again.mid")));
    EXPECT_EQ(read(path(QStringLiteral("again.mid"))), once) << "no second Japanese display command";
}

TEST_F(LyricsPageActionsTest, RowsTypedWithoutAFileOpenAgainAsTheyWere)
{
    actions.insert();
    edit(0, LyricsColumn::bar, QStringLiteral("2"));
    edit(0, LyricsColumn::ticks, QStringLiteral("-10"));
    edit(0, LyricsColumn::text, QStringLiteral("歌"));
    const auto file = saved();
    EXPECT_THAT(file.tracks.at(0).events, ElementsAre(tonavelle::SimpleMIDIFileBuilder::defaultTempoEvent(), modeOn,
                                                      commandEvent(3'830, LyricsCommand::addUpper, "歌")));
    actions.load(path(QStringLiteral("saved.mid")));
    EXPECT_THAT(rows(), ElementsAre(LyricsRow{1, 1'910, 0, LyricsCommand::addUpper, "歌"}));
}

TEST_F(LyricsPageActionsTest, TheRestOfASongIsKeptBitForBit)
{
    QByteArray longMessage = QByteArray("F0 81 49") + QByteArray(" 11").repeated(200) + " F7";
    const std::string data = std::string("00 FF 03 02 41 42 "       // title
                                         "00 90 3C 64 83 60 3C 00 " // running status, three bytes in all
                                         "00 FF 05 02 82 A0 "       // a lyric in Shift_JIS
                                         "00 FF 05 03 E3 81 84 "    // one in UTF-8
                                         "00 FF 01 03 6C 61 20 "    // a karaoke word in a text event
                                         "10 ") +
                             longMessage.toStdString() +
                             " 00 F7 02 01 02 "         // an escape
                             "05 F0 02 7E 7F "          // an open message
                             "00 F7 02 09 F7 "          // and its end
                             "00 FF 05 04 24 41 44 44 " // a lyric that only looks like a keyword
                             "00 FF 2F 00";
    for (const int format : {0, 1}) {
        for (const int division : {1, 96, 481, 0x7FFF}) {
            auto file =
                test::joined({bytes("4D 54 68 64 00 00 00 06"),
                              {0, static_cast<std::uint8_t>(format), 0, 1, static_cast<std::uint8_t>(division >> 8),
                               static_cast<std::uint8_t>(division & 0xFF)},
                              test::track(data)});
            actions.load(write(QStringLiteral("song.mid"), file));
            actions.setAddJapaneseModeOn(false);
            EXPECT_THAT(texts(), ElementsAre("あ", "い", "$ADD"));
            const auto before = read(path(QStringLiteral("song.mid")));
            const auto after = saved();
            EXPECT_EQ(after.format, format);
            EXPECT_EQ(after.ticksPerQuarterNote, division);
            ASSERT_EQ(after.tracks.size(), 1u);
            const auto& was = before.tracks.at(0).events;
            ASSERT_EQ(was.size(), 11u);
            EXPECT_EQ(was[6].message.size(), 202u);
            EXPECT_THAT(after.tracks[0].events,
                        ElementsAre(was[0], was[1], was[2], was[5], commandEvent(480, LyricsCommand::addUpper, "あ"),
                                    commandEvent(480, LyricsCommand::addUpper, "い"), was[6], was[7], was[8], was[9],
                                    commandEvent(501, LyricsCommand::addUpper, "$ADD")));
        }
    }
}

TEST_F(LyricsPageActionsTest, ASongWithoutLyricsIsSavedAsItIs)
{
    const SimpleMIDIFile song{
        1, 384, {{{metaEvent(0, 0x51, "\x07\xA1\x20")}}, {{{0, bytes("C0 05")}, metaEvent(9, textMeta, "カラオケ")}}}};
    open(song);
    EXPECT_TRUE(state().rows.empty());
    actions.setAddJapaneseModeOn(false);
    EXPECT_EQ(saved(), song);
}

TEST_F(LyricsPageActionsTest, ADivisionOf0LoadsEachTickAsABarAndSavesEveryCommandAtTick0)
{
    SimpleMIDIFile song = songOf({metaEvent(7, lyricMeta, "a"), metaEvent(1'000, lyricMeta, "b")});
    song.ticksPerQuarterNote = 0;
    open(song);
    EXPECT_THAT(rows(), ElementsAre(LyricsRow{7, 0, 0, LyricsCommand::addUpper, "a"},
                                    LyricsRow{1'000, 0, 0, LyricsCommand::addUpper, "b"}));
    EXPECT_EQ(state().lyricsTicksPerBar, 0);
    actions.setAddJapaneseModeOn(false);
    EXPECT_THAT(saved().tracks.at(0).events, ElementsAre(commandEvent(0, LyricsCommand::addUpper, "a"),
                                                         commandEvent(0, LyricsCommand::addUpper, "b")));
}

TEST_F(LyricsPageActionsTest, TheOptionDecidesWhetherTheJapaneseDisplayCommandIsWritten)
{
    EXPECT_TRUE(state().addJapaneseModeOn);
    open({0, 480, {{{{0, bytes("C0 05")}}}}});
    EXPECT_THAT(saved().tracks.at(0).events, testing::Contains(modeOn));
    actions.setAddJapaneseModeOn(false);
    EXPECT_THAT(saved().tracks.at(0).events, testing::Not(testing::Contains(modeOn)));
}

TEST_F(LyricsPageActionsTest, TheOpenSongItselfCanBeSavedOverAgainAndAgain)
{
    open(songOfLyrics(2));
    ASSERT_TRUE(QFile::link(path(QStringLiteral("song.mid")), path(QStringLiteral("link.mid"))));
    for (const auto* const name : {"song.mid", "link.mid", "./song.mid", "song.mid"}) {
        edit(0, LyricsColumn::text, QString::fromUtf8(name));
        saveTo(path(QString::fromUtf8(name)));
        EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存しました。")) << name;
    }
    const auto before = rows();
    actions.load(path(QStringLiteral("song.mid")));
    EXPECT_EQ(rows(), before);
}

TEST_F(LyricsPageActionsTest, AnotherSongInThePlaceOfTheOpenOneMakesTheSaveFail)
{
    open(songOfLyrics(2));
    SimpleMIDIFile another = songOfLyrics(2);
    another.ticksPerQuarterNote = 96;
    write(QStringLiteral("song.mid"), another);
    const QString target = write(QStringLiteral("old.mid"), bytes("01 02 03"));
    saveTo(target);
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存できません。"));
    EXPECT_EQ(readWholeFile(target), bytes("01 02 03"));
    EXPECT_EQ(state().lyricsTicksPerBar, 1'920);
    write(QStringLiteral("song.mid"), songOfLyrics(2));
    EXPECT_EQ(saved().ticksPerQuarterNote, 480) << "the song that was opened is back";
}

TEST_F(LyricsPageActionsTest, ASongThatVanishedOrWentBadBeforeTheSaveLeavesTheOldFileWhole)
{
    open(songOfLyrics(2));
    const auto before = state().rows;
    const QString target = write(QStringLiteral("old.mid"), bytes("01 02 03"));
    const auto expectFailure = [&] {
        plugged.runtime.midiOutManager().setStatus(QString(), false);
        saveTo(target);
        EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存できません。"));
        EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
        EXPECT_EQ(readWholeFile(target), bytes("01 02 03"));
        EXPECT_EQ(state().rows, before);
    };
    write(QStringLiteral("song.mid"), bytes("4D 54 68 64 00"));
    expectFailure();
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("song.mid"))));
    expectFailure();
}

TEST_F(LyricsPageActionsTest, WhereNothingCanBeWrittenTheFailureIsReportedAndTheTableStays)
{
    actions.insert();
    for (const QString& target : {QStringLiteral("/proc/orvim/out.mid"), folder.path()}) {
        saveTo(target);
        EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存できません。")) << qPrintable(target);
        EXPECT_EQ(state().rows.size(), 1u);
    }
}

TEST_F(LyricsPageActionsTest, AReadOnlyFolderLeavesTheOldFileWhole)
{
    const QString target = write(QStringLiteral("old.mid"), bytes("01 02 03"));
    ASSERT_TRUE(QFile::setPermissions(target, QFile::Permissions(0x4444)));
    actions.insert();
    const test::LockedFolder locked(folder.path());
    saveTo(target);
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存できません。"));
    EXPECT_EQ(readWholeFile(target), bytes("01 02 03"));
    EXPECT_EQ(state().rows.size(), 1u);
}

TEST_F(LyricsPageActionsTest, AFullDiskLeavesTheOldFileWhole)
{
    open(songOfLyrics(100));
    const auto before = state().rows;
    const QString target = write(QStringLiteral("old.mid"), bytes("01 02 03"));
    {
        const test::FullDisk disk(500);
        saveTo(target);
    }
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存できません。"));
    EXPECT_EQ(readWholeFile(target), bytes("01 02 03"));
    EXPECT_EQ(state().rows, before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(LyricsPageActionsTest, NegativeAndEnormousBarsAndTicksAreSavedWithoutOverflow)
{
    const auto smallest = QString::number(std::numeric_limits<std::int64_t>::min());
    const auto largest = QString::number(std::numeric_limits<std::int64_t>::max());
    open(songOfLyrics(4));
    edit(0, LyricsColumn::bar, smallest);
    edit(0, LyricsColumn::ticks, smallest);
    edit(1, LyricsColumn::bar, largest);
    edit(1, LyricsColumn::ticks, largest);
    edit(2, LyricsColumn::bar, largest);
    edit(2, LyricsColumn::ticks, smallest);
    edit(3, LyricsColumn::bar, QStringLiteral("2"));
    edit(3, LyricsColumn::ticks, QStringLiteral("-10"));
    EXPECT_THAT(saved().tracks.at(0).events, ElementsAre(commandEvent(0, LyricsCommand::addUpper, "0"), modeOn,
                                                         commandEvent(3'830, LyricsCommand::addUpper, "3"),
                                                         commandEvent(268'435'455, LyricsCommand::addUpper, "1"),
                                                         commandEvent(268'435'455, LyricsCommand::addUpper, "2")))
        << "a file has no later tick";
}

TEST_F(LyricsPageActionsTest, ASongInTimeCodeIsTakenAsOneOf480Ticks)
{
    const auto file = test::joined(
        {bytes("4D 54 68 64 00 00 00 06 00 01 00 01 E7 28"), test::track("90 00 FF 05 01 61 00 FF 2F 00")});
    actions.load(write(QStringLiteral("film.mid"), file));
    EXPECT_THAT(rows(), ElementsAre(LyricsRow{1, 128, 0, LyricsCommand::addUpper, "a"}));
    EXPECT_EQ(state().lyricsTicksPerBar, 1'920);
    EXPECT_EQ(saved().ticksPerQuarterNote, 480);
}

TEST_F(LyricsPageActionsTest, ASavedTrackEndsWithItsLastEvent)
{
    const auto head = bytes("4D 54 68 64 00 00 00 06 00 00 00 01 01 E0");
    actions.load(
        write(QStringLiteral("song.mid"), test::joined({head, test::track("00 90 3C 64 60 80 3C 00 83 60 FF 2F 00")})));
    actions.setAddJapaneseModeOn(false);
    saveTo(path(QStringLiteral("saved.mid")));
    EXPECT_EQ(readWholeFile(path(QStringLiteral("saved.mid"))),
              test::joined({head, test::track("00 90 3C 64 60 80 3C 00 00 FF 2F 00")}));
}

TEST_F(LyricsPageActionsTest, EditingATimeMovesNoRow)
{
    open(songOfLyrics(3));
    edit(0, LyricsColumn::bar, QStringLiteral("9"));
    EXPECT_THAT(texts(), ElementsAre("0", "1", "2"));
}

TEST_F(LyricsPageActionsTest, APreviewSendsTheRowsMessageAndMovesTheSimulator)
{
    struct Case {
        const char* lyric;
        const char* message;
        const char* label;
        const char* upper;
        const char* lower;
    };
    auto& simulator = plugged.runtime.displaySimulator();
    for (const auto& [lyric, message, label, upper, lower] : {
             Case{"$ADD_HI$あ", "F0 00 48 05 7F 07 00 08 02 0A 00 F7", "Japanese Character Add", "上あ", "下"},
             Case{"$ADD_LO$A", "F0 00 48 05 7F 07 01 04 01 F7", "Japanese Character Add", "上", "下A"},
             Case{"$DEL_HL$", "F0 00 48 05 7F 06 00 F7", "Japanese Character Delete", "", ""},
             Case{"$DEL_HI$", "F0 00 48 05 7F 06 01 F7", "Japanese Character Delete", "", "下"},
             Case{"$DEL_LO$", "F0 00 48 05 7F 06 02 F7", "Japanese Character Delete", "上", ""},
         }) {
        open(songOf({metaEvent(0, lyricMeta, lyric)}));
        simulator.setJapaneseMode(false);
        simulator.addJapaneseText("上", 0);
        simulator.addJapaneseText("下", 1);
        plugged.system.forgetSent();
        plugged.system.onSend = [&] {
            EXPECT_EQ(plugged.screen().japaneseUpper + plugged.screen().japaneseLower, "上下") << "sent first";
        };
        actions.preview(id(0));
        EXPECT_THAT(plugged.sent(), ElementsAre(bytes(message)));
        EXPECT_EQ(plugged.screen().japaneseUpper, upper) << lyric;
        EXPECT_EQ(plugged.screen().japaneseLower, lower) << lyric;
        EXPECT_EQ(status(), QString::fromUtf8(label) + QStringLiteral(" を送信しました。"));
    }
    EXPECT_TRUE(plugged.screen().isJapaneseMode);
}

TEST_F(LyricsPageActionsTest, APreviewOfADeleteRowSendsNoTextWhateverItsFieldHolds)
{
    open(songOf({metaEvent(0, lyricMeta, "words")}));
    edit(0, LyricsColumn::command, static_cast<int>(LyricsCommand::deleteUpper));
    EXPECT_EQ(row(0).text, "words");
    plugged.system.forgetSent();
    actions.preview(id(0));
    EXPECT_THAT(plugged.sent(), ElementsAre(bytes("F0 00 48 05 7F 06 01 F7")));
}

TEST_F(LyricsPageActionsTest, WithoutADestinationAPreviewStillMovesTheSimulator)
{
    open(songOf({metaEvent(0, lyricMeta, "上")}));
    plugged.runtime.midiOutManager().setSelectedDestinationID(std::nullopt);
    actions.preview(id(0));
    EXPECT_EQ(status(), QStringLiteral("MIDI OUTが未選択です。"));
    EXPECT_EQ(plugged.screen().japaneseUpper, "上");
    actions.preview(999'999);
    EXPECT_EQ(plugged.log().count(QStringLiteral("エラー: MIDI OUTが未選択です。")), 1);
}

TEST_F(LyricsPageActionsTest, JapaneseOnStopsTheBannersTimerAndOffEmptiesTheRows)
{
    auto& simulator = plugged.runtime.displaySimulator();
    simulator.setAsciiText("hello");
    ASSERT_TRUE(simulator.asciiTimer().isActive());
    plugged.system.forgetSent();
    actions.setJapaneseMode(true, QStringLiteral("日本語オン"));
    EXPECT_TRUE(plugged.screen().isJapaneseMode);
    EXPECT_FALSE(simulator.asciiTimer().isActive());
    EXPECT_EQ(status(), QStringLiteral("日本語オン を送信しました。"));

    simulator.addJapaneseText("x", 0);
    simulator.addJapaneseText("y", 1);
    actions.setJapaneseMode(false, QStringLiteral("日本語表示OFF"));
    EXPECT_FALSE(plugged.screen().isJapaneseMode);
    EXPECT_EQ(plugged.screen().japaneseUpper, "");
    EXPECT_EQ(plugged.screen().japaneseLower, "");
    EXPECT_EQ(status(), QStringLiteral("日本語表示OFF を送信しました。"));
    EXPECT_THAT(plugged.sent(), ElementsAre(bytes("F0 00 48 05 7F 05 01 F7"), bytes("F0 00 48 05 7F 05 00 F7")));
}

TEST_F(LyricsPageActionsTest, EveryRowHasAnIdentityOfItsOwnAlsoAcrossSongs)
{
    QSet<LyricsRowID> ids;
    for (int i = 0; i < 2; ++i) {
        open(songOfLyrics(3));
        for (const auto& tableRow : state().rows)
            ids.insert(tableRow.id);
    }
    EXPECT_EQ(ids.size(), 6);
}

} // namespace
} // namespace orvim
