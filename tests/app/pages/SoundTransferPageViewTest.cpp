#include "pages/SoundTransferPageView.h"

#include "EditorPageHost.h"
#include "PageScaffold.h"
#include "tests/app/support/Drop.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/app/support/WaveFile.h"
#include "tests/support/Bytes.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;
using test::dropOnMiddle;
using test::PluggedRuntime;
using test::RecordingDialogs;
using test::waveFile;

class SoundTransferPageViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        plugged.runtime.setSelectedPage(EditorPage::samplingSound);
        window.resize(900, 700);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QString sound(const QString& name, const std::vector<std::int16_t>& samples)
    {
        test::writeFile(folder.filePath(name), waveFile(samples));
        return folder.filePath(name);
    }

    QString sound(const QString& name, double seconds)
    {
        return sound(name, std::vector<std::int16_t>(static_cast<std::size_t>(seconds * 24'000), 1'000));
    }

    void drop(const QStringList& paths)
    {
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        const QString before = plugged.log();
        EXPECT_TRUE(dropOnMiddle(page(), urls));
        EXPECT_TRUE(QTest::qWaitFor([&] { return plugged.log() != before; }));
    }

    SoundTransferPageView& page() { return *window.findChild<SoundTransferPageView*>(); }
    SoundTransferPageActions& actions() { return page().actions(); }
    const std::vector<SoundTransferItem>& items() { return actions().state().items; }
    QListWidget& list() { return *page().findChild<QListWidget*>(); }
    QString counter() { return page().findChild<QLabel*>(QStringLiteral("counter"))->text(); }
    QString status() { return plugged.runtime.midiOutManager().statusMessage(); }

    QString lengthAt(int row) { return list().itemWidget(list().item(row))->findChildren<QLabel*>().last()->text(); }

    QAction& menuItem(const QString& title)
    {
        for (QAction* const action : window.page(EditorPage::samplingSound).findChildren<QAction*>())
            if (action->text() == title) return *action;
        throw std::logic_error("no such item");
    }

    /// The numbers of the sections that were sent.
    std::vector<int> sentSections()
    {
        std::vector<int> numbers;
        for (const auto& message : plugged.sent())
            if (message.size() == 137) numbers.push_back(message[6] * 128 + message[7]);
        return numbers;
    }

    QTemporaryDir folder;
    PluggedRuntime plugged;
    RecordingDialogs dialogs;
    EditorPageHost window{plugged.runtime, dialogs};
};

TEST_F(SoundTransferPageViewTest, OpensEmptyWithTheHint)
{
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：00/32  合計時間：0.00/50.00sec"));
    auto& hint = *page().findChild<QLabel*>(QStringLiteral("dropHint"));
    EXPECT_TRUE(hint.isVisible());
    EXPECT_EQ(hint.text(), QStringLiteral("ここにWAVファイルをドラッグして下さい"));
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

TEST_F(SoundTransferPageViewTest, TwoFilesOfExactly25SecondsFit)
{
    drop({sound(QStringLiteral("a.wav"), 25.0), sound(QStringLiteral("b.WAV"), 25.0)});
    EXPECT_EQ(items().size(), 2u);
    EXPECT_EQ(counter(), QStringLiteral("登録音声数：02/32  合計時間：50.00/50.00sec"));
}

TEST_F(SoundTransferPageViewTest, ASoundOfZeroLengthIsARowAndHasASettingWithCount0)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.0)});
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(lengthAt(0), QStringLiteral("0.00 sec"));
    plugged.system.forgetSent();
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(plugged.sent().at(0), bytes("F0 00 48 05 7F 31 00 00 00 00 00 00 00 F7"));
}

TEST_F(SoundTransferPageViewTest, PlayOnARowOf300SamplesAtStart100SendsSections0To3)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(100, 1)),
                             sound(QStringLiteral("b.wav"), std::vector<std::int16_t>(300, 2))});
    plugged.system.forgetSent();
    QSignalSpy progress(&plugged.runtime.midiOutManager(), &MIDIOutManager::progressChanged);
    auto* const button = list().itemWidget(list().item(1))->findChild<QPushButton*>();
    EXPECT_EQ(button->text(), QStringLiteral("実機で再生"));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(sentSections(), (std::vector<int>{0, 1, 2, 3}));
    const auto sent = plugged.sent();
    ASSERT_EQ(sent.size(), 9u);
    EXPECT_EQ(sent[0], bytes("F0 00 48 05 7F 31 01 00 00 64 00 02 2C F7"));
    EXPECT_EQ(tonavelle::Batch(sent.begin() + 5, sent.end()),
              (tonavelle::Batch{bytes("B0 63 0B"), bytes("B0 62 00"), bytes("B0 06 01"), bytes("B0 26 00")}));
    EXPECT_EQ(progress.count(), 5);
    EXPECT_FALSE(plugged.runtime.midiOutManager().progressFraction());
    EXPECT_EQ(status(), QStringLiteral("Sampling Sound Play を送信しました。"));
}

TEST_F(SoundTransferPageViewTest, PlayOnARowOfZeroLengthAtStart0SendsSection0)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.0)});
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(sentSections(), std::vector<int>{0});
}

TEST_F(SoundTransferPageViewTest, PlayOnARowOfZeroLengthBehindWholeSectionsEndsAtTheLastSection)
{
    actions().registerFiles(
        {sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(128, 1)), sound(QStringLiteral("b.wav"), 0.0)});
    plugged.system.forgetSent();
    actions().runOnModule(items()[1].id);
    EXPECT_EQ(sentSections(), std::vector<int>{}) << "the sound's place lies behind the last section";
    EXPECT_EQ(plugged.sent().size(), 5u);
}

TEST_F(SoundTransferPageViewTest, WithReducedVolumeOffTheSamplesStandAsTheyAre)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(128, 32767))});
    actions().runOnModule(items()[0].id);
    const auto reduced = plugged.sent().at(1);
    menuItem(QStringLiteral("音量を下げる（推奨）")).trigger();
    EXPECT_FALSE(actions().state().reduceVolume);
    plugged.system.forgetSent();
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(plugged.sent().at(1).at(8), 0x7F);
    EXPECT_LT(reduced.at(8), 0x7F);

    dialogs.pathToSave = folder.filePath(QStringLiteral("out.mid"));
    actions().exportMIDI();
    QFile file(*dialogs.pathToSave);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains(QByteArray(128, '\x7F')));
}

TEST_F(SoundTransferPageViewTest, RestoreKeepsTheLevelOfTheFile)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(200, 20'000))});
    const auto level = [this] {
        const auto& pcm = items().at(0).pcm16LittleEndian;
        return static_cast<std::int16_t>(pcm.at(0) | pcm.at(1) << 8);
    };
    EXPECT_NEAR(level(), 20'000, 1);
    dialogs.pathToSave = folder.filePath(QStringLiteral("out.mid"));
    actions().exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("音声MIDIを書き出しました。"));
    dialogs.pathToOpen = dialogs.pathToSave;
    dialogs.answer = true;
    menuItem(QStringLiteral("MIDIから音声を復元")).trigger();
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の音声リストを破棄して読み込みますか？")});
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルから音声をインポートしました。"));
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].filePath, QStringLiteral("MIDI Import: sound 00"));
    EXPECT_EQ(items()[0].pcm16LittleEndian.size(), 400u);
    EXPECT_NEAR(level(), 11'247, 450) << "at 0.56234, within the step of its code";
}

TEST_F(SoundTransferPageViewTest, AWavOfAnyRateAndChannelCountIsBroughtTo24000HertzMono)
{
    test::writeFile(folder.filePath(QStringLiteral("a.wav")),
                    waveFile({test::WaveCoding::pcm, 2, 48'000, 16}, QByteArray(48'000 * 4, '\0')));
    actions().registerFiles({folder.filePath(QStringLiteral("a.wav"))});
    EXPECT_EQ(lengthAt(0), QStringLiteral("1.00 sec"));
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
    EXPECT_TRUE(plugged.log().contains(QStringLiteral(" WAVファイルを読み込めません。\n")));
    EXPECT_EQ(status(), QStringLiteral("音声ファイルを登録しました。"));
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

TEST_F(SoundTransferPageViewTest, ExportAndRestoreReportWhatWentWrong)
{
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("sound_output.mid")});
    EXPECT_EQ(status(), QStringLiteral("音声MIDI保存をキャンセルしました。"));
    dialogs.pathToSave = QStringLiteral("/proc/orvim/out.mid");
    actions().exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("音声MIDIを書き出せません。"));

    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("音声のインポートをキャンセルしました。"));
    dialogs.pathToOpen = folder.filePath(QStringLiteral("missing.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを開けません。"));
    dialogs.pathToSave = folder.filePath(QStringLiteral("empty.mid"));
    actions().exportMIDI();
    dialogs.pathToOpen = dialogs.pathToSave;
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("MIDIファイル中に音声が見つかりません。"));
}

TEST_F(SoundTransferPageViewTest, ARestoredListThatIsTooLongCannotBeExportedOrPlayed)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 1.0)});
    dialogs.pathToSave = folder.filePath(QStringLiteral("out.mid"));
    actions().exportMIDI();
    QFile file(*dialogs.pathToSave);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray content = file.readAll();
    content.replace(QByteArray::fromHex("0048057F310000000001 3B40"), QByteArray::fromHex("0048057F310000000049 7F7F"));
    test::writeFile(folder.filePath(QStringLiteral("long.mid")), content);
    dialogs.pathToOpen = folder.filePath(QStringLiteral("long.mid"));
    dialogs.answer = true;
    actions().restoreFromMIDI();
    ASSERT_GT(actions().totalSeconds(), 50.0);
    actions().exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("音声MIDIを書き出せません。"));
    plugged.system.forgetSent();
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(status(), QStringLiteral("音声プレビューを送信できません。"));
    EXPECT_TRUE(plugged.sent().empty());
}

} // namespace
} // namespace orvim
