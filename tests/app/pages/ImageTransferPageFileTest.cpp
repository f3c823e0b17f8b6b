#include "tests/app/support/TransferPageTest.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

#include <QDir>
#include <QFileInfo>

#include <string>

namespace orvim {
namespace {

using test::bytes;
using test::joined;
using test::track;

class ImageTransferPageFileTest : public test::ImageTransferPageTest
{
};

TEST_F(ImageTransferPageFileTest, AnExportRestoresAsWhatPackingAllows)
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

TEST_F(ImageTransferPageFileTest, TheSettingsMenuDecidesWhatIsWritten)
{
    const QByteArray reset = QByteArray::fromHex("0048057F0000F7");
    const QByteArray uiType = QByteArray::fromHex("0048057F0304F7");
    const QByteArray draw = QByteArray::fromHex("0048057F2600F7");
    const auto written = [&] {
        const QByteArray file = readFile(exportTo(QStringLiteral("out.mid")));
        EXPECT_TRUE(file.contains(QByteArray::fromHex("0048057F200000")));
        return std::vector<bool>{file.contains(reset), file.contains(uiType), file.contains(draw)};
    };
    addPictures(1);
    EXPECT_EQ(written(), (std::vector<bool>{true, true, true}));
    menuItem(QStringLiteral("リセット命令を書き出し")).trigger();
    EXPECT_EQ(written(), (std::vector<bool>{false, true, true}));
    menuItem(QStringLiteral("UI Type Setを書き出し")).trigger();
    EXPECT_EQ(written(), (std::vector<bool>{false, false, true}));
    menuItem(QStringLiteral("描画コマンドを書き出し")).trigger();
    EXPECT_EQ(written(), (std::vector<bool>{false, false, false}));
}

TEST_F(ImageTransferPageFileTest, AnEmptyListIsExportedAsTheOptionsSay)
{
    const auto expectWritten = [&](const char* events) {
        const auto expected =
            joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"),
                    track(std::string("00 FF 51 03 0F 42 40 ") + events + " 00 FF 2F 00"), track("00 FF 2F 00")});
        const QByteArray written = readFile(exportTo(QStringLiteral("out.mid")));
        EXPECT_EQ(tonavelle::Message(written.begin(), written.end()), expected);
    };
    expectWritten("00 F0 07 00 48 05 7F 00 00 F7  83 60 F0 07 00 48 05 7F 03 04 F7");
    EXPECT_EQ(status(), QStringLiteral("画像MIDIを書き出しました。"));
    menuItem(QStringLiteral("リセット命令を書き出し")).trigger();
    menuItem(QStringLiteral("UI Type Setを書き出し")).trigger();
    expectWritten("");
}

TEST_F(ImageTransferPageFileTest, AnOldFileStaysWholeWhereTheNewOneCannotBeWritten)
{
    addPictures(1);
    // A folder in the place of the file cannot be replaced by one.
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("out.mid/old")));
    exportTo(QStringLiteral("out.mid"));
    EXPECT_EQ(status(), QStringLiteral("画像MIDIを書き出せません。"));
    EXPECT_TRUE(QFileInfo::exists(folder.filePath(QStringLiteral("out.mid/old"))));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{QStringLiteral("0.png"), QStringLiteral("out.mid")}));
}

TEST_F(ImageTransferPageFileTest, ReportsComeInTheirOrderInTheNormalLook)
{
    page().listActions().exportMIDI();
    exportTo(QStringLiteral("out.mid"));
    dialogs.pathToSave = QStringLiteral("/proc/orvim/out.mid");
    actions().exportMIDI();
    actions().restoreFromMIDI();
    dialogs.pathToOpen = textFile(QStringLiteral("broken.mid"));
    actions().restoreFromMIDI();
    dialogs.pathToOpen = folder.filePath(QStringLiteral("out.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(plugged.log(), QStringLiteral(" 画像MIDI保存をキャンセルしました。\n"
                                            " 画像MIDIを書き出しました。\n"
                                            " 画像MIDIを書き出せません。\n"
                                            " 画像のインポートをキャンセルしました。\n"
                                            " MIDIファイルを開けません。\n"
                                            " MIDIファイル中に画像が見つかりません。\n"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
}

TEST(PreviewOrEmpty, APictureThatCannotBeShownKeepsItsPlaceClear)
{
    const QImage empty = previewOrEmpty({});
    EXPECT_EQ(empty.size(), QSize(64, 64));
    EXPECT_EQ(empty.pixelColor(32, 32).alpha(), 0);
    const std::vector<std::uint8_t> white(12'288, 0xFF);
    EXPECT_EQ(previewOrEmpty(white), makePreviewImage(white));
}

TEST_F(ImageTransferPageFileTest, AFolderThatTakesNoFileIsReportedAndNothingIsLeftThere)
{
    dialogs.pathToSave = QStringLiteral("/proc/orvim/out.mid");
    actions().exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("画像MIDIを書き出せません。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
    EXPECT_FALSE(QFileInfo::exists(*dialogs.pathToSave));
}

TEST_F(ImageTransferPageFileTest, Screens0And5RestoreSixRows)
{
    addPictures(6);
    QByteArray content = readFile(exportTo(QStringLiteral("six.mid")));
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

TEST_F(ImageTransferPageFileTest, WhatCannotBeRestoredLeavesTheListAsItWas)
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

    dialogs.pathToOpen = exportTo(QStringLiteral("good.mid"));
    actions().restoreFromMIDI();
    EXPECT_EQ(status(), QStringLiteral("画像のインポートをキャンセルしました。"));
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].id, only);
}

} // namespace
} // namespace orvim
