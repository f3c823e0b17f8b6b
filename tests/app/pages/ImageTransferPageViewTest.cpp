#include "pages/ImageTransferPageView.h"

#include "EditorPageHost.h"
#include "PageScaffold.h"
#include "tests/app/support/Drop.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/app/support/WaveFile.h"
#include "tests/support/Bytes.h"

#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;
using test::dropOnMiddle;
using test::PluggedRuntime;
using test::RecordingDialogs;

class ImageTransferPageViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        plugged.runtime.setSelectedPage(EditorPage::imageTransfer);
        window.resize(900, 700);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// A picture file of one colour.
    QString picture(const QString& name, QColor color = Qt::white)
    {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(color);
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return folder.filePath(name);
    }

    QString textFile(const QString& name)
    {
        test::writeFile(folder.filePath(name), "no picture");
        return folder.filePath(name);
    }

    void addPictures(int count)
    {
        QStringList paths;
        for (int i = 0; i < count; ++i)
            paths << picture(QStringLiteral("%1.png").arg(i), QColor(8 * i, 0, 0));
        actions().registerFiles(paths);
    }

    /// Drops the files on the page and waits until they are taken in.
    void drop(const QStringList& paths)
    {
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        const QString before = plugged.log();
        EXPECT_TRUE(dropOnMiddle(page(), urls));
        EXPECT_TRUE(QTest::qWaitFor([&] { return plugged.log() != before; }));
    }

    ImageTransferPageView& page() { return *window.findChild<ImageTransferPageView*>(); }
    ImageTransferPageActions& actions() { return page().actions(); }
    const std::vector<ImageTransferItem>& items() { return actions().state().items; }
    QListWidget& list() { return *page().findChild<QListWidget*>(); }
    QString counter() { return page().findChild<QLabel*>(QStringLiteral("counter"))->text(); }
    QString status() { return plugged.runtime.midiOutManager().statusMessage(); }
    QString pathAt(int index) { return items().at(static_cast<std::size_t>(index)).filePath; }

    QAction& menuItem(const QString& title)
    {
        for (QAction* const action : window.page(EditorPage::imageTransfer).findChildren<QAction*>())
            if (action->text() == title) return *action;
        throw std::logic_error("no such item");
    }

    QPoint middleOfRow(int row) { return list().visualItemRect(list().item(row)).center(); }

    QTemporaryDir folder;
    PluggedRuntime plugged;
    RecordingDialogs dialogs;
    EditorPageHost window{plugged.runtime, dialogs};
};

TEST_F(ImageTransferPageViewTest, OpensEmptyWithTheHintInTheMiddleOfTheList)
{
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：00/32"));
    auto& hint = *page().findChild<QLabel*>(QStringLiteral("dropHint"));
    EXPECT_TRUE(hint.isVisible());
    EXPECT_EQ(hint.text(), QStringLiteral("ここに画像ファイルをドラッグして下さい\nbmp, jpg, pngに対応"));
    addPictures(1);
    EXPECT_FALSE(hint.isVisible());
}

TEST_F(ImageTransferPageViewTest, SevenRowsAreCounted)
{
    addPictures(7);
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：07/32"));
    EXPECT_EQ(list().count(), 7);
    EXPECT_EQ(status(), QStringLiteral("画像ファイルを登録しました。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().progressFraction());
}

TEST_F(ImageTransferPageViewTest, A33rdPictureIsSkippedWithoutAWord)
{
    addPictures(33);
    EXPECT_EQ(items().size(), 32u);
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：32/32"));
    EXPECT_EQ(plugged.log(), QStringLiteral(" 画像ファイルを登録しました。\n"));
}

TEST_F(ImageTransferPageViewTest, ADroppedTextFileIsReported)
{
    drop({textFile(QStringLiteral("a.txt"))});
    EXPECT_EQ(status(), QStringLiteral("対応する画像ファイルが見つかりません。"));
    EXPECT_TRUE(items().empty());
}

TEST_F(ImageTransferPageViewTest, OfADroppedTextFileAndAPngThePngIsRegistered)
{
    drop({textFile(QStringLiteral("a.txt")), picture(QStringLiteral("b.png"))});
    ASSERT_EQ(items().size(), 1u);
    EXPECT_TRUE(pathAt(0).endsWith(QStringLiteral("/b.png")));
    EXPECT_EQ(status(), QStringLiteral("画像ファイルを登録しました。"));
}

TEST_F(ImageTransferPageViewTest, AFileNamedAPngInCapitalsPasses)
{
    drop({picture(QStringLiteral("A.PNG")), picture(QStringLiteral("b.Jpeg")), picture(QStringLiteral("c.BMP"))});
    EXPECT_EQ(items().size(), 3u);
}

TEST_F(ImageTransferPageViewTest, FilesKeepTheOrderOfTheDropAndFilledListsTakeDropsToo)
{
    addPictures(1);
    drop({picture(QStringLiteral("z.png")), picture(QStringLiteral("a.jpg")), picture(QStringLiteral("m.bmp"))});
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().size() == 4; }));
    EXPECT_TRUE(pathAt(1).endsWith(QStringLiteral("/z.png")));
    EXPECT_TRUE(pathAt(2).endsWith(QStringLiteral("/a.jpg")));
    EXPECT_TRUE(pathAt(3).endsWith(QStringLiteral("/m.bmp")));
    EXPECT_EQ(items()[3].screenNumber, 3);
}

TEST_F(ImageTransferPageViewTest, ATextThatIsNoAddressIsNotTaken)
{
    QMimeData text;
    text.setText(QStringLiteral("a.png"));
    EXPECT_FALSE(dropOnMiddle(page(), text));
}

TEST_F(ImageTransferPageViewTest, RemoteAddressesAndFoldersCannotBeReadAndTheRestIsRegistered)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder.png")));
    const QList<QUrl> urls{QUrl(QStringLiteral("https://example.org/a.png")),
                           QUrl::fromLocalFile(folder.filePath(QStringLiteral("folder.png"))),
                           QUrl::fromLocalFile(picture(QStringLiteral("b.png")))};
    EXPECT_TRUE(dropOnMiddle(page(), urls));
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == QStringLiteral("画像ファイルを登録しました。"); }));
    EXPECT_EQ(items().size(), 1u);
    EXPECT_EQ(plugged.log().count(QStringLiteral("画像ファイルを読み込めません。")), 2);
}

TEST_F(ImageTransferPageViewTest, ABrokenPictureIsReportedInTheNormalLookAndTheListStays)
{
    addPictures(1);
    actions().registerFiles({textFile(QStringLiteral("broken.png"))});
    EXPECT_EQ(items().size(), 1u);
    EXPECT_TRUE(plugged.log().contains(QStringLiteral(" 画像ファイルを読み込めません。\n")));
    EXPECT_EQ(status(), QStringLiteral("画像ファイルを登録しました。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
}

TEST_F(ImageTransferPageViewTest, WhileManyPhotosAreLoadedTheWindowLivesAndProgressRuns)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(0);
    QSignalSpy progress(&plugged.runtime.midiOutManager(), &MIDIOutManager::progressChanged);
    addPictures(32);
    EXPECT_GT(ticks, 0);
    EXPECT_EQ(progress.count(), 33);
    EXPECT_FALSE(plugged.runtime.midiOutManager().progressFraction());
}

TEST_F(ImageTransferPageViewTest, ADropWhileFilesAreLoadedFollowsThem)
{
    const QString late = picture(QStringLiteral("late.png"));
    QTimer::singleShot(0, &page(), [&] { dropOnMiddle(page(), {QUrl::fromLocalFile(late)}); });
    addPictures(3);
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().size() == 4; }));
    EXPECT_TRUE(pathAt(3).endsWith(QStringLiteral("/late.png")));
}

TEST_F(ImageTransferPageViewTest, ThePanelsFilesAreRegisteredAndACancelledOneSaysNothing)
{
    const QString before = plugged.log();
    menuItem(QStringLiteral("画像を開く")).trigger();
    EXPECT_EQ(plugged.log(), before);
    dialogs.pathsToOpen = QStringList{picture(QStringLiteral("a.png"))};
    menuItem(QStringLiteral("画像を開く")).trigger();
    EXPECT_EQ(items().size(), 1u);
}

TEST_F(ImageTransferPageViewTest, DeletingRow3Of5LeavesRows0To3)
{
    addPictures(5);
    const QUuid formerRow4 = items()[4].id;
    actions().deleteOne(items()[3].id);
    ASSERT_EQ(items().size(), 4u);
    EXPECT_EQ(items()[3].id, formerRow4);
    EXPECT_EQ(items()[3].screenNumber, 3);
    EXPECT_EQ(list().itemWidget(list().item(3))->findChild<QLabel*>()->text(), QStringLiteral("03"));
    EXPECT_EQ(status(), QStringLiteral("画像を削除しました。"));
}

TEST_F(ImageTransferPageViewTest, TheDeleteKeyRemovesAllSelectedRows)
{
    addPictures(4);
    const QUuid last = items()[3].id;
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middleOfRow(0));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ShiftModifier, middleOfRow(2));
    EXPECT_EQ(actions().selectedItemIDs().size(), 3);
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].id, last);
    EXPECT_EQ(items()[0].screenNumber, 0);
    EXPECT_TRUE(actions().selectedItemIDs().isEmpty());
}

TEST_F(ImageTransferPageViewTest, WithoutASelectionTheDeleteKeyDoesNothing)
{
    addPictures(1);
    const QString before = plugged.log();
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(items().size(), 1u);
    EXPECT_EQ(plugged.log(), before);
}

TEST_F(ImageTransferPageViewTest, TheContextMenuDeletesTheRowUnderThePointerAndKeepsTheOtherSelection)
{
    addPictures(3);
    const QUuid kept = items()[0].id;
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middleOfRow(0));
    QContextMenuEvent event(QContextMenuEvent::Mouse, middleOfRow(1), list().viewport()->mapToGlobal(middleOfRow(1)));
    QApplication::sendEvent(list().viewport(), &event);
    auto* const menu = list().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("削除"));
    menu->actions()[0]->trigger();
    menu->close();
    EXPECT_EQ(items().size(), 2u);
    EXPECT_EQ(actions().selectedItemIDs(), QSet<QUuid>{kept});
    EXPECT_TRUE(list().item(0)->isSelected());
}

TEST_F(ImageTransferPageViewTest, ClearOnAnEmptyListAsksNothing)
{
    menuItem(QStringLiteral("クリア")).trigger();
    EXPECT_TRUE(dialogs.questions.isEmpty());
    EXPECT_EQ(status(), QStringLiteral("画像リストをクリアしました。"));
}

TEST_F(ImageTransferPageViewTest, ClearAsksAndKeepsTheListAtNo)
{
    addPictures(2);
    actions().clear();
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の画像リストを破棄して初期化しますか？")});
    EXPECT_EQ(items().size(), 2u);
    EXPECT_EQ(status(), QStringLiteral("画像リストのクリアをキャンセルしました。"));
    dialogs.answer = true;
    actions().clear();
    EXPECT_TRUE(items().empty());
    EXPECT_EQ(list().count(), 0);
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：00/32"));
}

TEST_F(ImageTransferPageViewTest, ShortcutsActOnlyWhileThePageIsInView)
{
    addPictures(1);
    dialogs.answer = true;
    plugged.runtime.setSelectedPage(EditorPage::command);
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(items().size(), 1u);
    plugged.runtime.setSelectedPage(EditorPage::imageTransfer);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("image_output.mid")});
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(items().empty());
    dialogs.pathsToOpen = QStringList{picture(QStringLiteral("a.png"))};
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(items().size(), 1u);
}

TEST_F(ImageTransferPageViewTest, TheToolbarClearsAddsAndExports)
{
    auto& header = window.page(EditorPage::imageTransfer);
    const auto press = [&](const char* symbol) {
        QTest::mouseClick(header.findChild<QToolButton*>(QString::fromUtf8(symbol)), Qt::LeftButton);
    };
    dialogs.pathsToOpen = QStringList{picture(QStringLiteral("a.png"))};
    press("photo.badge.plus");
    EXPECT_EQ(items().size(), 1u);
    press("square.and.arrow.down");
    EXPECT_EQ(status(), QStringLiteral("画像MIDI保存をキャンセルしました。"));
    press("doc");
    EXPECT_EQ(status(), QStringLiteral("画像リストのクリアをキャンセルしました。"));
}

TEST_F(ImageTransferPageViewTest, AnExportRestoresAsWhatPackingAllows)
{
    actions().registerFiles({picture(QStringLiteral("a.png"), QColor(0x88, 0x88, 0x88)),
                             picture(QStringLiteral("b.png"), QColor(0xFF, 0, 0))});
    dialogs.pathToSave = folder.filePath(QStringLiteral("out.mid"));
    menuItem(QStringLiteral("MIDIを書き出し")).trigger();
    EXPECT_EQ(status(), QStringLiteral("画像MIDIを書き出しました。"));
    EXPECT_EQ(dialogs.savedKinds, QList<FileKind>{FileKind::midi});

    dialogs.pathToOpen = dialogs.pathToSave;
    dialogs.answer = true;
    menuItem(QStringLiteral("MIDIから画像を復元")).trigger();
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルから画像をインポートしました。"));
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の画像リストを破棄して読み込みますか？")});
    ASSERT_EQ(items().size(), 2u);
    EXPECT_EQ(items()[0].filePath, QStringLiteral("MIDI Import: screen 00"));
    const auto& grey = items()[0].rgb888;
    EXPECT_EQ(std::vector(grey.begin(), grey.begin() + 3), bytes("88 8C 8C"));
    EXPECT_EQ(items()[1].previewImage.pixelColor(0, 0), QColor(0xFF, 0, 0));
}

TEST_F(ImageTransferPageViewTest, TheSettingsMenuDecidesWhatIsWritten)
{
    const auto exported = [&] {
        dialogs.pathToSave = folder.filePath(QStringLiteral("out.mid"));
        actions().exportMIDI();
        QFile file(*dialogs.pathToSave);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray reset = QByteArray::fromHex("0048057F0000F7");
    const QByteArray uiType = QByteArray::fromHex("0048057F0304F7");
    const QByteArray draw = QByteArray::fromHex("0048057F2600F7");
    addPictures(1);
    for (const QByteArray& message : {reset, uiType, draw})
        EXPECT_TRUE(exported().contains(message)) << message.toHex().constData();
    for (const char* title : {"リセット命令を書き出し", "UI Type Setを書き出し", "描画コマンドを書き出し"})
        menuItem(QString::fromUtf8(title)).trigger();
    for (const QByteArray& message : {reset, uiType, draw})
        EXPECT_FALSE(exported().contains(message)) << message.toHex().constData();
    EXPECT_TRUE(exported().contains(QByteArray::fromHex("0048057F200000")));
}

TEST_F(ImageTransferPageViewTest, AnEmptyListIsExportedAllTheSame)
{
    dialogs.pathToSave = folder.filePath(QStringLiteral("out.mid"));
    actions().exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("画像MIDIを書き出しました。"));
    EXPECT_GT(QFileInfo(*dialogs.pathToSave).size(), 0);
}

TEST_F(ImageTransferPageViewTest, AFolderThatTakesNoFileIsReportedAndNothingIsLeftThere)
{
    dialogs.pathToSave = QStringLiteral("/proc/orvim/out.mid");
    actions().exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("画像MIDIを書き出せません。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
    EXPECT_FALSE(QFileInfo::exists(*dialogs.pathToSave));
}

TEST_F(ImageTransferPageViewTest, Screens0And5RestoreSixRows)
{
    addPictures(6);
    dialogs.pathToSave = folder.filePath(QStringLiteral("six.mid"));
    actions().exportMIDI();
    QFile file(*dialogs.pathToSave);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray content = file.readAll();
    for (char screen = 1; screen <= 4; ++screen)
        content.replace(QByteArray::fromHex("0048057F20") + screen, QByteArray::fromHex("0048057F21") + screen);
    test::writeFile(folder.filePath(QStringLiteral("two.mid")), content);
    dialogs.pathToOpen = folder.filePath(QStringLiteral("two.mid"));
    dialogs.answer = true;
    actions().restoreFromMIDI();
    EXPECT_EQ(items().size(), 6u);
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：06/32"));
    EXPECT_EQ(items()[3].rgb888, std::vector<std::uint8_t>(12'288));
    EXPECT_EQ(items()[5].rgb888[0], 0x22) << "40 in the four bits of red";
}

TEST_F(ImageTransferPageViewTest, WhatCannotBeRestoredLeavesTheListAsItWas)
{
    addPictures(1);
    const QUuid only = items()[0].id;
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("画像のインポートをキャンセルしました。"));

    dialogs.pathToOpen = textFile(QStringLiteral("broken.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを開けません。"));
    dialogs.pathToOpen = folder.filePath(QStringLiteral("missing.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを開けません。"));

    test::writeFile(folder.filePath(QStringLiteral("other.mid")),
                    QByteArray::fromHex("4D546864000000060000000101E04D54726B0000000400FF2F00"));
    dialogs.pathToOpen = folder.filePath(QStringLiteral("other.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("MIDIファイル中に画像が見つかりません。"));
    EXPECT_TRUE(dialogs.questions.isEmpty());

    dialogs.pathToSave = folder.filePath(QStringLiteral("good.mid"));
    actions().exportMIDI();
    dialogs.pathToOpen = dialogs.pathToSave;
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("画像のインポートをキャンセルしました。"));
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].id, only);
}

TEST_F(ImageTransferPageViewTest, ShowingARowSendsItsMessagesAndMovesTheSimulator)
{
    addPictures(2);
    plugged.system.forgetSent();
    QSignalSpy progress(&plugged.runtime.midiOutManager(), &MIDIOutManager::progressChanged);
    auto* const button = list().itemWidget(list().item(1))->findChild<QPushButton*>();
    EXPECT_EQ(button->text(), QStringLiteral("実機で表示"));
    QTest::mouseClick(button, Qt::LeftButton);
    const auto sent = plugged.sent();
    ASSERT_EQ(sent.size(), 66u);
    EXPECT_EQ(sent[0], bytes("F0 00 48 05 7F 03 04 F7"));
    for (std::uint8_t y = 0; y < 64; ++y) {
        EXPECT_EQ(sent[y + 1u].size(), 137u);
        EXPECT_EQ(std::vector(sent[y + 1u].begin(), sent[y + 1u].begin() + 7), bytes("F0 00 48 05 7F 20 01"));
        EXPECT_EQ(sent[y + 1u][7], y);
    }
    EXPECT_EQ(sent[65], bytes("F0 00 48 05 7F 26 01 F7"));
    EXPECT_EQ(progress.count(), 65);
    EXPECT_FALSE(plugged.runtime.midiOutManager().progressFraction());
    EXPECT_EQ(status(), QStringLiteral("Image Draw 64x64 を送信しました。"));
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::arbitraryImage);
    EXPECT_TRUE(plugged.log().contains(QStringLiteral("[SysEx: Image Transfer color 64x64]")));
}

TEST_F(ImageTransferPageViewTest, WithoutADestinationEachSendIsReportedAndTheSimulatorShowsThePicture)
{
    addPictures(1);
    plugged.runtime.midiOutManager().setSelectedDestinationID(std::nullopt);
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(plugged.log().count(QStringLiteral("エラー: MIDI OUTが未選択です。")), 66);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::arbitraryImage);
}

} // namespace
} // namespace orvim
