#include "tests/app/support/TransferPageTest.h"

#include <QContextMenuEvent>
#include <QMenu>

#include <gmock/gmock.h>

namespace orvim {
namespace {

using test::WaveCoding;
using test::waveFile;
using test::writeFile;

class SoundTransferPageViewTest : public test::SoundTransferPageTest
{
};

TEST_F(SoundTransferPageViewTest, OpensEmptyWithTheHint)
{
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：00/32  合計時間：0.00/50.00sec"));
    EXPECT_TRUE(dropHint().isVisible());
    EXPECT_EQ(dropHint().text(), QStringLiteral("ここにWAVファイルをドラッグして下さい"));
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.1)});
    EXPECT_FALSE(dropHint().isVisible());
}

TEST_F(SoundTransferPageViewTest, ThreeRowsOf12AndAHalfSecondsInAllAreCounted)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 5.0), sound(QStringLiteral("b.wav"), 5.0),
                             sound(QStringLiteral("c.wav"), 2.5)});
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：03/32  合計時間：12.50/50.00sec"));
    EXPECT_EQ(lengthAt(2), QStringLiteral("2.50 sec"));
}

TEST_F(SoundTransferPageViewTest, OfTwoDroppedFilesOf30SecondsTheSecondIsSkipped)
{
    drop({sound(QStringLiteral("a.wav"), 30.0), sound(QStringLiteral("b.wav"), 30.0)});
    ASSERT_EQ(items().size(), 1u);
    EXPECT_TRUE(items()[0].filePath.endsWith(QStringLiteral("/a.wav")));
    EXPECT_EQ(status(), QStringLiteral("音声ファイルを登録しました。"));
}

TEST_F(SoundTransferPageViewTest, AShorterFileBehindOneThatDoesNotFitIsAdded)
{
    drop({sound(QStringLiteral("a.wav"), 30.0), sound(QStringLiteral("b.wav"), 30.0),
          sound(QStringLiteral("c.wav"), 20.0)});
    ASSERT_EQ(items().size(), 2u);
    EXPECT_TRUE(items()[1].filePath.endsWith(QStringLiteral("/c.wav")));
    EXPECT_EQ(items()[1].soundNumber, 1);
}

TEST_F(SoundTransferPageViewTest, ASoundOfHoursIsPassedOverWithoutAWord)
{
    for (const int hours : {3, 4, 1'000}) {
        const QString path = folder.filePath(QStringLiteral("%1.wav").arg(hours));
        writeFile(path, waveFile({WaveCoding::pcm, 1, 1, 8}, QByteArray(hours * 3'600, '\x80')));
        drop({path});
    }
    EXPECT_EQ(items().size(), 0u);
    EXPECT_EQ(logLines(), QStringList{QStringLiteral("音声ファイルを登録しました。")});
}

TEST_F(SoundTransferPageViewTest, TwoFilesOfExactly25SecondsFit)
{
    drop({sound(QStringLiteral("a.wav"), 25.0), sound(QStringLiteral("b.WAV"), 25.0)});
    EXPECT_EQ(items().size(), 2u);
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：02/32  合計時間：50.00/50.00sec"));
}

TEST_F(SoundTransferPageViewTest, RestoreKeepsTheLevelOfTheFile)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(200, 20'000))});
    const auto level = [this] {
        const auto& pcm = items().at(0).pcm16LittleEndian;
        return static_cast<std::int16_t>(pcm.at(0) | pcm.at(1) << 8);
    };
    EXPECT_NEAR(level(), 20'000, 1);
    dialogs.pathToOpen = exportTo(QStringLiteral("out.mid"));
    EXPECT_EQ(status(), QStringLiteral("音声MIDIを書き出しました。"));
    dialogs.answer = true;
    menuItem(QStringLiteral("MIDIから音声を復元")).trigger();
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の音声リストを破棄して読み込みますか？")});
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルから音声をインポートしました。"));
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].filePath, QStringLiteral("MIDI Import: sound 00"));
    EXPECT_EQ(items()[0].pcm16LittleEndian.size(), 400u);
    EXPECT_NEAR(level(), 11'247, 450) << "at 0.56234, within the step of its code";
}

TEST_F(SoundTransferPageViewTest, LengthsInTheMiddleAreRoundedToTheEvenHundredth)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(3'000, 1))});
    EXPECT_EQ(lengthAt(0), QStringLiteral("0.12 sec"));
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：01/32  合計時間：0.12/50.00sec"));
    actions().registerFiles({sound(QStringLiteral("b.wav"), std::vector<std::int16_t>(15'000, 1)),
                             sound(QStringLiteral("c.wav"), std::vector<std::int16_t>(9'000, 1))});
    EXPECT_EQ(lengthAt(1), QStringLiteral("0.62 sec"));
    EXPECT_EQ(lengthAt(2), QStringLiteral("0.38 sec"));
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：03/32  合計時間：1.12/50.00sec"));
}

TEST_F(SoundTransferPageViewTest, AWavOfAnyRateAndChannelCountIsBroughtTo24000HertzMono)
{
    // Frames at 44,100 Hz, left and right; of these 0, 1, 3, 5, 7, 9, 11 and 12 are next before a sample of 24,000 Hz.
    QByteArray frames;
    for (std::int16_t frame = 0; frame < 14; ++frame) {
        test::putLittleEndian(frames, static_cast<std::int16_t>(1'000 * frame));
        test::putLittleEndian(frames, static_cast<std::int16_t>(1'000 * frame + 600));
    }
    test::writeFile(folder.filePath(QStringLiteral("a.wav")), waveFile({test::WaveCoding::pcm, 2, 44'100, 16}, frames));
    actions().registerFiles({folder.filePath(QStringLiteral("a.wav"))});
    ASSERT_EQ(items().size(), 1u);
    const auto& pcm = items()[0].pcm16LittleEndian;
    std::vector<int> samples;
    for (std::size_t i = 0; i + 1 < pcm.size(); i += 2)
        samples.push_back(static_cast<std::int16_t>(pcm[i] | pcm[i + 1] << 8));
    EXPECT_THAT(samples,
                testing::Pointwise(testing::FloatNear(1), {300, 1'300, 3'300, 5'300, 7'300, 9'300, 11'300, 12'300}));
}

TEST_F(SoundTransferPageViewTest, TheSettingsMenuDecidesWhatIsWritten)
{
    const QByteArray reset = QByteArray::fromHex("0048057F0000F7");
    const QByteArray play = QByteArray::fromHex("B0630B");
    const auto written = [&] {
        const QByteArray file = readFile(exportTo(QStringLiteral("out.mid")));
        EXPECT_TRUE(file.contains(QByteArray::fromHex("0048057F3100")));
        return std::vector<bool>{file.contains(reset), file.contains(play)};
    };
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.1)});
    EXPECT_EQ(written(), (std::vector<bool>{true, true}));
    menuItem(QStringLiteral("リセット命令を書き出し")).trigger();
    EXPECT_EQ(written(), (std::vector<bool>{false, true}));
    menuItem(QStringLiteral("再生コマンドを書き出し")).trigger();
    EXPECT_EQ(written(), (std::vector<bool>{false, false}));
}

TEST_F(SoundTransferPageViewTest, TheMenuThePanelAndTheToolbarAddFiles)
{
    const QString before = plugged.log();
    menuItem(QStringLiteral("音声を開く")).trigger();
    EXPECT_EQ(plugged.log(), before) << "a cancelled panel says nothing";
    dialogs.pathsToOpen = QStringList{sound(QStringLiteral("a.wav"), 0.1)};
    menuItem(QStringLiteral("音声を開く")).trigger();
    EXPECT_EQ(items().size(), 1u);
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(items().size(), 2u);
    EXPECT_EQ(toolbarButton("waveform.badge.plus").text(), QStringLiteral("音声追加"));
    press("waveform.badge.plus");
    EXPECT_EQ(items().size(), 3u);
    EXPECT_EQ(toolbarButton("square.and.arrow.down").text(), QStringLiteral("書き出し"));
    press("square.and.arrow.down");
    EXPECT_EQ(status(), QStringLiteral("音声MIDI保存をキャンセルしました。"));
    EXPECT_EQ(toolbarButton("doc").text(), QStringLiteral("クリア"));
    press("doc");
    EXPECT_EQ(status(), QStringLiteral("音声リストのクリアをキャンセルしました。"));
}

TEST_F(SoundTransferPageViewTest, ARowShowsItsNumberItsPathAndItsButton)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.1), sound(QStringLiteral("b.wav"), 0.1)});
    EXPECT_EQ(rowAt(1).findChild<QLabel*>()->text(), QStringLiteral("01"));
    EXPECT_EQ(rowAt(1).findChild<ElidedLabel*>()->text(), folder.filePath(QStringLiteral("b.wav")));
    EXPECT_EQ(rowAt(1).findChild<QWidget*>(QStringLiteral("preview")), nullptr);
}

TEST_F(SoundTransferPageViewTest, TheContextMenuDeletesTheRowUnderThePointer)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.1), sound(QStringLiteral("b.wav"), 0.2)});
    QContextMenuEvent event(QContextMenuEvent::Mouse, middleOfRow(0), list().viewport()->mapToGlobal(middleOfRow(0)));
    QApplication::sendEvent(list().viewport(), &event);
    auto* const menu = list().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().at(0)->text(), QStringLiteral("削除"));
    menu->actions().at(0)->trigger();
    menu->close();
    ASSERT_EQ(items().size(), 1u);
    EXPECT_TRUE(items()[0].filePath.endsWith(QStringLiteral("/b.wav")));
    EXPECT_EQ(lengthAt(0), QStringLiteral("0.20 sec"));
}

TEST_F(SoundTransferPageViewTest, ClearOnAnEmptyListAsksNothingAndNoFilesAreNotReported)
{
    actions().registerFiles({});
    EXPECT_EQ(plugged.log(), QString());
    menuItem(QStringLiteral("クリア")).trigger();
    EXPECT_TRUE(dialogs.questions.isEmpty());
    EXPECT_EQ(plugged.log(), QStringLiteral(" 音声リストをクリアしました。\n"));
}

TEST_F(SoundTransferPageViewTest, ADropWithoutWavFilesIsReported)
{
    test::writeFile(folder.filePath(QStringLiteral("a.png")), "x");
    drop({folder.filePath(QStringLiteral("a.png"))});
    EXPECT_EQ(status(), QStringLiteral("対応するWAVファイルが見つかりません。"));
}

TEST_F(SoundTransferPageViewTest, ABrokenFileIsReportedAndTheNextIsAdded)
{
    test::writeFile(folder.filePath(QStringLiteral("broken.wav")), "RIFF");
    actions().registerFiles({folder.filePath(QStringLiteral("broken.wav")), sound(QStringLiteral("a.wav"), 1.0)});
    EXPECT_EQ(items().size(), 1u);
    EXPECT_EQ(plugged.log(), QStringLiteral(" WAVファイルを読み込めません。\n"
                                            " 音声ファイルを登録しました。\n"));
    EXPECT_EQ(status(), QStringLiteral("音声ファイルを登録しました。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
}

TEST_F(SoundTransferPageViewTest, A33rdSoundIsSkippedWithoutAWord)
{
    QStringList paths;
    for (int i = 0; i < 33; ++i)
        paths << sound(QStringLiteral("%1.wav").arg(i), 0.01);
    actions().registerFiles(paths);
    EXPECT_EQ(items().size(), 32u);
    EXPECT_EQ(status(), QStringLiteral("音声ファイルを登録しました。"));
}

TEST_F(SoundTransferPageViewTest, DeletionsRenumberTheRest)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 1.0), sound(QStringLiteral("b.wav"), 2.0)});
    list().item(0)->setSelected(true);
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].soundNumber, 0);
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：01/32  合計時間：2.00/50.00sec"));
    EXPECT_EQ(status(), QStringLiteral("音声を削除しました。"));
}

TEST_F(SoundTransferPageViewTest, ClearAsksAndKeepsTheListAtNo)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 1.0)});
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の音声リストを破棄して初期化しますか？")});
    EXPECT_EQ(status(), QStringLiteral("音声リストのクリアをキャンセルしました。"));
    dialogs.answer = true;
    actions().clear();
    EXPECT_EQ(status(), QStringLiteral("音声リストをクリアしました。"));
    EXPECT_TRUE(items().empty());
}

TEST_F(SoundTransferPageViewTest, ExportAndRestoreReportWhatWentWrongInTheNormalLook)
{
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("sound_output.mid")});
    dialogs.pathToSave = QStringLiteral("/proc/orvim/out.mid");
    actions().exportMIDI();
    actions().restoreFromMIDI();
    dialogs.pathToOpen = folder.filePath(QStringLiteral("missing.mid"));
    actions().restoreFromMIDI();
    dialogs.pathToOpen = sound(QStringLiteral("broken.mid"), 0.1);
    actions().restoreFromMIDI();
    dialogs.pathToOpen = exportTo(QStringLiteral("empty.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(plugged.log(), QStringLiteral(" 音声MIDI保存をキャンセルしました。\n"
                                            " 音声MIDIを書き出せません。\n"
                                            " 音声のインポートをキャンセルしました。\n"
                                            " MIDIファイルを開けません。\n"
                                            " MIDIファイルを開けません。\n"
                                            " 音声MIDIを書き出しました。\n"
                                            " MIDIファイル中に音声が見つかりません。\n"));
    EXPECT_EQ(status(), QStringLiteral("MIDIファイル中に音声が見つかりません。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
}

TEST_F(SoundTransferPageViewTest, RestoreKeepsTheListAtNo)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.1)});
    const QUuid only = items()[0].id;
    dialogs.pathToOpen = exportTo(QStringLiteral("out.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の音声リストを破棄して読み込みますか？")});
    EXPECT_EQ(status(), QStringLiteral("音声のインポートをキャンセルしました。"));
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].id, only);
}

} // namespace
} // namespace orvim
