#include "pages/ToneEditorFileActions.h"

#include "tests/app/support/HostileDisk.h"
#include "tests/app/support/ToneEditorTest.h"
#include "tests/app/support/WaveFile.h"

#include <QFile>
#include <QTemporaryDir>

namespace orvim {
namespace {

using tonavelle::UserWaveform;
using ID = tonavelle::ToneParameterID;

class ToneEditorFileActionsTest : public test::ToneEditorTest
{
protected:
    void SetUp() override { ASSERT_TRUE(folder.isValid()); }

    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    void edit()
    {
        actions.channels.setMaster(ID::chorusDepth, 11);
        actions.channels.selectChannel(3);
        actions.channels.setChannel(ID::volume, 33);
        actions.patches.selectUserMelody(9);
        actions.patches.setUserMelodyName(QStringLiteral("Bell"));
        actions.patches.selectUserDrum(38);
        actions.patches.setUserDrum(ID::outputGain, 5);
        actions.patches.setUserDrumName(QStringLiteral("Mine"));
        actions.patches.setDrumSetName(QStringLiteral("Kit"));
        actions.waves.selectUserWave(1);
        actions.waves.chooseFormula(QStringLiteral("0"));
        forget();
    }

    void saveTo(const QString& file)
    {
        dialogs.pathToSave = file;
        actions.files.save();
    }

    void openFrom(const QString& file)
    {
        dialogs.answer = true;
        dialogs.pathToOpen = file;
        actions.files.open();
    }

    QTemporaryDir folder;
};

TEST_F(ToneEditorFileActionsTest, NewAsksAndOnNoReportsTheCancellation)
{
    edit();
    actions.files.newToneData();
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の音色編集内容を破棄して初期化しますか？")});
    EXPECT_EQ(plugged.log(), QStringLiteral(" 音色データの新規作成をキャンセルしました。\n"));
    EXPECT_EQ(state().instrument.master.chorusDepth, 11);
}

TEST_F(ToneEditorFileActionsTest, NewBringsBackTheDefaultsKeepsTheSelectionsAndSendsNothing)
{
    edit();
    plugged.runtime.displaySimulator().setDisplayType(5);
    dialogs.answer = true;
    actions.files.newToneData();
    EXPECT_EQ(state().instrument, tonavelle::factoryToneInstrument());
    EXPECT_EQ(state().sentUserWaveforms, state().instrument.userWaveforms);
    EXPECT_EQ(state().selectedChannel, 3);
    EXPECT_EQ(state().selectedUserMelody, 9);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::initial);
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(status(), QStringLiteral("音色データを初期化しました。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
}

TEST_F(ToneEditorFileActionsTest, CancellingOpenAtTheQuestionOrAtThePathGivesTheSameReport)
{
    const auto report = QStringLiteral(" 音色データ読込をキャンセルしました。\n");
    actions.files.open();
    EXPECT_EQ(plugged.log(), report);
    dialogs.answer = true;
    actions.files.open();
    EXPECT_EQ(plugged.log(), report + report);
    EXPECT_EQ(dialogs.questions.back(), QStringLiteral("現在の音色編集内容を破棄して音色データを開きますか？"));
}

TEST_F(ToneEditorFileActionsTest, WhatWasSavedIsReadBackWithoutASend)
{
    edit();
    saveTo(path("tone_data.mid"));
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("tone_data.mid")});
    EXPECT_EQ(status(), QStringLiteral("音色データMIDIを書き出しました。"));
    auto saved = state().instrument;

    dialogs.answer = true;
    actions.files.newToneData();
    forget();
    openFrom(path("tone_data.mid"));
    EXPECT_EQ(status(), QStringLiteral("音色データを読み込みました。"));
    EXPECT_TRUE(sent().empty());
    // The module has no name for a note, so that the file has none either.
    saved.userDrums[38].name = "Acoustic Snare";
    EXPECT_EQ(state().instrument.master, saved.master);
    EXPECT_EQ(state().instrument.channels, saved.channels);
    EXPECT_EQ(state().instrument.userMelodies[9].name.substr(0, 4), "Bell");
    EXPECT_EQ(state().instrument.userDrums[38].parameters, saved.userDrums[38].parameters);
    EXPECT_EQ(state().instrument.userDrums[38].name, saved.userDrums[38].name);
    EXPECT_EQ(state().instrument.userWaveforms, saved.userWaveforms);
}

TEST_F(ToneEditorFileActionsTest, AfterOpenAWaveformCountsAsUnsentUnlessItIsTheDefault)
{
    edit();
    actions.waves.send(1);
    saveTo(path("tone_data.mid"));
    openFrom(path("tone_data.mid"));
    EXPECT_EQ(state().selectedUserWave, 0);
    EXPECT_FALSE(state().isUserWaveUnsent());
    actions.waves.selectUserWave(1);
    EXPECT_TRUE(state().isUserWaveUnsent());
    EXPECT_TRUE(state().userWaveFormula.isEmpty());
    EXPECT_TRUE(state().userWaveFormulaStatus.isEmpty());
}

TEST_F(ToneEditorFileActionsTest, ACorruptHeaderLeavesEverythingAsItWas)
{
    edit();
    const auto before = state().instrument;
    write(path("bad.mid"), "MThx\0\0\0\6");
    openFrom(path("bad.mid"));
    EXPECT_EQ(status(), QStringLiteral("音色データMIDIを読み込めません。"));
    EXPECT_EQ(plugged.log(), QStringLiteral(" 音色データMIDIを読み込めません。\n"));
    EXPECT_EQ(state().instrument, before);
    EXPECT_EQ(state().selectedUserWave, 1);
}

TEST_F(ToneEditorFileActionsTest, AMissingFileAFolderAndAnEndlessFileAreRefused)
{
    for (const QString& bad : {path("none.mid"), folder.path(), QStringLiteral("/dev/zero")}) {
        openFrom(bad);
        EXPECT_EQ(status(), QStringLiteral("音色データMIDIを読み込めません。"));
        actions.files.importWAV();
        EXPECT_EQ(status(), QStringLiteral("WAV読み込みに失敗しました。"));
    }
}

TEST_F(ToneEditorFileActionsTest, ASongOf64MebibytesIsReadAndALargerOneIsRefusedUnread)
{
    // One track: a text of zeros that fills the file, the volume of channel 1, the end.
    constexpr qint64 headSize = 29;
    const QByteArray end = QByteArray::fromHex("00B00721 00FF2F00");
    const auto openSong = [&](qint64 fileSize) {
        const auto textSize = static_cast<quint32>(fileSize - headSize - end.size());
        const auto length = QByteArray::number(fileSize - 22, 16).rightJustified(8, '0');
        QByteArray text = QByteArray::fromHex("00FF01");
        for (int shift = 21; shift >= 0; shift -= 7)
            text.append(static_cast<char>(((textSize >> shift) & 0x7F) | (shift > 0 ? 0x80 : 0)));
        const QByteArray head = QByteArray::fromHex("4D546864 00000006 0000 0001 01E0 4D54726B" + length) + text;
        ASSERT_EQ(head.size(), headSize);
        QFile file(path("long.mid"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(head) == headSize);
        ASSERT_TRUE(file.seek(fileSize - end.size()) && file.write(end) == end.size());
        file.close();
        openFrom(path("long.mid"));
    };
    constexpr qint64 largest = 67'108'864;
    openSong(largest + 1);
    EXPECT_EQ(status(), QStringLiteral("音色データMIDIを読み込めません。"));
    EXPECT_EQ(state().instrument.channels[0].volume, 100);
    openSong(largest);
    EXPECT_EQ(status(), QStringLiteral("音色データを読み込みました。"));
    EXPECT_EQ(state().instrument.channels[0].volume, 0x21);
}

TEST_F(ToneEditorFileActionsTest, ASoundOf64MebibytesIsReadAndALargerOneIsRefusedUnread)
{
    constexpr int headSize = 44;
    const auto importSilence = [this](qint64 fileSize) {
        QByteArray head = test::waveFile({}, QByteArray()).first(headSize - 4);
        test::putLittleEndian(head, static_cast<std::uint32_t>(fileSize - headSize));
        write(path("long.wav"), head);
        EXPECT_TRUE(QFile::resize(path("long.wav"), fileSize));
        dialogs.pathToOpen = path("long.wav");
        actions.files.importWAV();
    };
    constexpr qint64 largest = 67'108'864;
    const UserWaveform before = state().userWave();
    importSilence(largest + 2);
    EXPECT_EQ(status(), QStringLiteral("WAV読み込みに失敗しました。"));
    EXPECT_EQ(state().userWave(), before);
    importSilence(largest);
    EXPECT_EQ(status(), QStringLiteral("User Wave 1 にWAVを読み込みました。"));
    EXPECT_EQ(state().userWave(), UserWaveform(2'048, 0));
}

TEST_F(ToneEditorFileActionsTest, CancellingASaveIsReported)
{
    actions.files.save();
    EXPECT_EQ(plugged.log(), QStringLiteral(" 音色データ保存をキャンセルしました。\n"));
}

TEST_F(ToneEditorFileActionsTest, AFolderThatTakesNoFileIsReported)
{
    saveTo(path("no/such/folder/tone_data.mid"));
    EXPECT_EQ(status(), QStringLiteral("音色データMIDIを書き出せません。"));
    actions.files.exportWAV();
    EXPECT_EQ(status(), QStringLiteral("WAV保存に失敗しました。"));
}

TEST_F(ToneEditorFileActionsTest, AReadOnlyFolderLeavesTheOldFileWhole)
{
    write(path("tone_data.mid"), "old");
    ASSERT_TRUE(QFile::setPermissions(path("tone_data.mid"), QFile::Permissions(0x4444)));
    const test::LockedFolder locked(folder.path());
    saveTo(path("tone_data.mid"));
    EXPECT_EQ(status(), QStringLiteral("音色データMIDIを書き出せません。"));
    EXPECT_EQ(contents(path("tone_data.mid")), QByteArray("old"));
}

TEST_F(ToneEditorFileActionsTest, AFullDiskIsReportedAndLeavesTheOldFileWhole)
{
    write(path("tone_data.mid"), "old");
    {
        const test::FullDisk full(1'000);
        saveTo(path("tone_data.mid"));
    }
    EXPECT_EQ(status(), QStringLiteral("音色データMIDIを書き出せません。"));
    EXPECT_EQ(contents(path("tone_data.mid")), QByteArray("old"));
}

TEST_F(ToneEditorFileActionsTest, TheOptionsDecideHowMuchIsWritten)
{
    saveTo(path("edited.mid"));
    actions.model.change(ToneEditorPart::options,
                         [](ToneEditorState& state) { state.dirtyOnly = tonavelle::everything; });
    saveTo(path("whole.mid"));
    const QByteArray edited = contents(path("edited.mid"));
    const QByteArray whole = contents(path("whole.mid"));
    EXPECT_TRUE(edited.startsWith("MThd"));
    EXPECT_GT(whole.size(), edited.size() + 128 * 25 + 128 * 22 + 128 * 25 + 512 * 73);
}

TEST_F(ToneEditorFileActionsTest, AWaveformGoesThroughAWAVFile)
{
    actions.waves.selectUserWave(2);
    actions.waves.chooseFormula(QStringLiteral("saw(t)"));
    const UserWaveform drawn = state().userWave();
    dialogs.pathToSave = path("UserWave3.wav");
    actions.files.exportWAV();
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("UserWave3.wav")});
    EXPECT_EQ(dialogs.savedKinds, QList<FileKind>{FileKind::wave});
    EXPECT_EQ(status(), QStringLiteral("User Wave 3 をWAV保存しました。"));
    EXPECT_EQ(contents(path("UserWave3.wav")).size(), 44 + 4'096);
    EXPECT_TRUE(state().loadedToneTabs.contains(ToneEditorTab::userWave));

    actions.waves.selectUserWave(0);
    dialogs.pathToOpen = path("UserWave3.wav");
    actions.files.importWAV();
    EXPECT_EQ(status(), QStringLiteral("User Wave 1 にWAVを読み込みました。"));
    EXPECT_EQ(state().userWave(), drawn);
    EXPECT_TRUE(state().isUserWaveUnsent());
    EXPECT_TRUE(sent().empty());
}

TEST_F(ToneEditorFileActionsTest, CancellingAWAVFileIsReported)
{
    actions.files.importWAV();
    actions.files.exportWAV();
    EXPECT_EQ(plugged.log(), QStringLiteral(" WAV読み込みをキャンセルしました。\n WAV保存をキャンセルしました。\n"));
    EXPECT_FALSE(state().loadedToneTabs.contains(ToneEditorTab::userWave));
}

TEST_F(ToneEditorFileActionsTest, AWAVFileOfTheWrongKindLeavesTheSamples)
{
    const UserWaveform before = state().userWave();
    dialogs.pathToSave = path("good.wav");
    actions.files.exportWAV();
    const QByteArray good = contents(path("good.wav"));
    struct Harm {
        int offset;
        char value;
    };
    // No RIFF, no WAVE, not PCM, stereo, 8 bits, no data.
    for (const Harm harm : {Harm{0, 'X'}, Harm{8, 'X'}, Harm{20, 3}, Harm{22, 2}, Harm{34, 8}, Harm{36, 'X'}}) {
        QByteArray bad = good;
        bad[harm.offset] = harm.value;
        write(path("bad.wav"), bad);
        dialogs.pathToOpen = path("bad.wav");
        actions.files.importWAV();
        EXPECT_EQ(status(), QStringLiteral("WAV読み込みに失敗しました。")) << harm.offset;
        EXPECT_EQ(state().userWave(), before);
    }
}

} // namespace
} // namespace orvim
