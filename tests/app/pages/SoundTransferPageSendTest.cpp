#include "tests/app/support/TransferPageTest.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

namespace orvim {
namespace {

using test::bytes;
using test::joined;
using test::writeFile;

class SoundTransferPageSendTest : public test::SoundTransferPageTest
{
};

TEST_F(SoundTransferPageSendTest, ASoundOfZeroLengthIsARowAndHasASettingWithCount0)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.0)});
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(lengthAt(0), QStringLiteral("0.00 sec"));
    plugged.system.forgetSent();
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(plugged.sent().at(0), bytes("F0 00 48 05 7F 31 00 00 00 00 00 00 00 F7"));
}

TEST_F(SoundTransferPageSendTest, PlayOnARowOf300SamplesAtStart100SendsSections0To3)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(100, 1)),
                             sound(QStringLiteral("b.wav"), std::vector<std::int16_t>(300, 2))});
    plugged.system.forgetSent();
    EXPECT_EQ(buttonAt(1).text(), QStringLiteral("実機で再生"));
    QTest::mouseClick(&buttonAt(1), Qt::LeftButton);
    EXPECT_EQ(sentSections(), (std::vector<int>{0, 1, 2, 3}));
    const auto sent = plugged.sent();
    ASSERT_EQ(sent.size(), 9u);
    EXPECT_EQ(sent[0], bytes("F0 00 48 05 7F 31 01 00 00 64 00 02 2C F7"));
    EXPECT_EQ(tonavelle::Batch(sent.begin() + 5, sent.end()),
              (tonavelle::Batch{bytes("B0 63 0B"), bytes("B0 62 00"), bytes("B0 06 01"), bytes("B0 26 00")}));
    EXPECT_EQ(status(), QStringLiteral("Sampling Sound Play を送信しました。"));
    EXPECT_EQ(
        logLines(),
        (QStringList{QStringLiteral("音声ファイルを登録しました。"), QStringLiteral("[SysEx: Sampling Sound Setting]"),
                     QStringLiteral("[SysEx: Sampling Sound Send Data]"), QStringLiteral("[Sampling Sound Play]")}));
    EXPECT_EQ(plugged.log().count(QStringLiteral("[Sampling Sound Play]")), 1);
}

TEST_F(SoundTransferPageSendTest, ProgressRunsInQuartersOverFourSectionsAndEnds)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(100, 1)),
                             sound(QStringLiteral("b.wav"), std::vector<std::int16_t>(300, 2))});
    const std::vector<std::optional<double>> expected{0.25, 0.5, 0.75, 1.0, std::nullopt};
    EXPECT_EQ(progressDuring([&] { actions().runOnModule(items()[1].id); }), expected);
}

TEST_F(SoundTransferPageSendTest, SectionsHoldTheNeighboursCodesToo)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(100, 32'767)),
                             sound(QStringLiteral("b.wav"), std::vector<std::int16_t>(28, 0))});
    menuItem(QStringLiteral("音量を下げる（推奨）")).trigger();
    actions().runOnModule(items()[1].id);
    EXPECT_EQ(plugged.sent().at(1), joined({bytes("F0 00 48 05 7F 30 00 00"), tonavelle::Message(100, 0x7F),
                                            tonavelle::Message(28, 0x40), bytes("F7")}));
}

TEST_F(SoundTransferPageSendTest, PlayOnARowOfZeroLengthAtStart0SendsSection0)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 0.0)});
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(sentSections(), std::vector<int>{0});
}

TEST_F(SoundTransferPageSendTest, PlayOnARowOfZeroLengthBehindWholeSectionsEndsAtTheLastSection)
{
    actions().registerFiles(
        {sound(QStringLiteral("a.wav"), std::vector<std::int16_t>(128, 1)), sound(QStringLiteral("b.wav"), 0.0)});
    plugged.system.forgetSent();
    actions().runOnModule(items()[1].id);
    EXPECT_EQ(sentSections(), std::vector<int>{}) << "the sound's place lies behind the last section";
    EXPECT_EQ(plugged.sent().size(), 5u);
}

TEST_F(SoundTransferPageSendTest, WithReducedVolumeOffTheSamplesStandAsTheyAre)
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

    EXPECT_TRUE(readFile(exportTo(QStringLiteral("out.mid"))).contains(QByteArray(128, '\x7F')));
}

TEST_F(SoundTransferPageSendTest, ARestoredListThatIsTooLongCannotBeExportedOrPlayed)
{
    actions().registerFiles({sound(QStringLiteral("a.wav"), 1.0)});
    QByteArray content = readFile(exportTo(QStringLiteral("out.mid")));
    content.replace(QByteArray::fromHex("0048057F310000000001 3B40"), QByteArray::fromHex("0048057F310000000049 7F7F"));
    writeFile(folder.filePath(QStringLiteral("long.mid")), content);
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
