#include "tests/app/support/TransferPageTest.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

namespace orvim {
namespace {

using test::bytes;
using test::joined;
using test::Progress;

class ImageTransferPageSendTest : public test::ImageTransferPageTest
{
};

TEST_F(ImageTransferPageSendTest, ShowingARowSendsItsMessagesAndMovesTheSimulator)
{
    actions().registerFiles(
        {picture(QStringLiteral("a.png"), Qt::white), picture(QStringLiteral("b.png"), QColor(0xFF, 0x80, 0x40))});
    plugged.system.forgetSent();
    EXPECT_EQ(buttonAt(1).text(), QStringLiteral("実機で表示"));
    QTest::mouseClick(&buttonAt(1), Qt::LeftButton);
    tonavelle::Message pixels;
    for (int x = 0; x < 64; ++x)
        pixels.insert(pixels.end(), {0x7C, 0x08});
    const auto sent = plugged.sent();
    ASSERT_EQ(sent.size(), 66u);
    EXPECT_EQ(sent[0], bytes("F0 00 48 05 7F 03 04 F7"));
    for (std::uint8_t y = 0; y < 64; ++y)
        EXPECT_EQ(sent[y + 1u], joined({bytes("F0 00 48 05 7F 20 01"), {y}, pixels, bytes("F7")}));
    EXPECT_EQ(sent[65], bytes("F0 00 48 05 7F 26 01 F7"));
    EXPECT_EQ(status(), QStringLiteral("Image Draw 64x64 を送信しました。"));
    EXPECT_EQ(logLines(),
              (QStringList{QStringLiteral("画像ファイルを登録しました。"), QStringLiteral("[SysEx: UI Type Set]"),
                           QStringLiteral("[SysEx: Image Transfer color 64x64]"),
                           QStringLiteral("[SysEx: Image Draw 64x64]")}));
}

TEST_F(ImageTransferPageSendTest, TheSimulatorShowsTheRowsPicture)
{
    actions().registerFiles(
        {picture(QStringLiteral("a.png"), Qt::white), picture(QStringLiteral("b.png"), QColor(0xFF, 0x80, 0x40))});
    actions().runOnModule(items()[1].id);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::arbitraryImage);
    EXPECT_EQ(plugged.screen().arbitraryImageRGB, items()[1].rgb888);
    EXPECT_EQ(std::vector(items()[1].rgb888.begin(), items()[1].rgb888.begin() + 3), bytes("FF 80 40"));
}

TEST_F(ImageTransferPageSendTest, ProgressRunsFromOne64thTo1AndEnds)
{
    addPictures(1);
    EXPECT_EQ(progressDuring([&] { actions().runOnModule(items()[0].id); }), test::progressOf(64));
}

TEST_F(ImageTransferPageSendTest, TheProgressStandsBeforeItsMessageLeaves)
{
    addPictures(1);
    Progress atSend;
    plugged.system.onSend = [&] { atSend.push_back(plugged.runtime.midiOutManager().progressFraction()); };
    actions().runOnModule(items()[0].id);
    ASSERT_EQ(atSend.size(), 66u);
    EXPECT_EQ(atSend[0], std::nullopt);
    EXPECT_EQ(atSend[1], 1 / 64.0);
    EXPECT_EQ(atSend[64], 1.0);
    EXPECT_EQ(atSend[65], 1.0);
}

TEST_F(ImageTransferPageSendTest, WithoutADestinationEachSendIsReportedAndTheSimulatorShowsThePicture)
{
    actions().registerFiles({picture(QStringLiteral("a.png"), QColor(0xFF, 0x80, 0x40))});
    plugged.runtime.midiOutManager().setSelectedDestinationID(std::nullopt);
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(plugged.log().count(QStringLiteral("エラー: MIDI OUTが未選択です。")), 66);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::arbitraryImage);
    EXPECT_EQ(plugged.screen().arbitraryImageRGB, items()[0].rgb888);
}

TEST_F(ImageTransferPageSendTest, AFailureOfTheOutputDoesNotStopTheLoop)
{
    addPictures(1);
    plugged.system.forgetSent();
    plugged.system.failAfterMessages(3, -5);
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(plugged.sent().size(), 3u);
    EXPECT_EQ(plugged.system.attempted().size(), 66u);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::arbitraryImage);
}

} // namespace
} // namespace orvim
