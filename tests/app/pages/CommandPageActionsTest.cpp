#include "pages/CommandPageActions.h"

#include "tests/app/support/PluggedRuntime.h"
#include "tests/support/Bytes.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;
using test::PluggedRuntime;
using tonavelle::Batch;
using tonavelle::JapaneseCharacterLine;
using tonavelle::UIFacePart;

class CommandPageActionsTest : public testing::Test
{
protected:
    void dragTo(int x, int y) { actions.dragDot({5.0 + 16 * x + 3, 5.0 + 9 * y + 3}); }
    bool isLit(std::size_t x, std::size_t y) const { return actions.state().dotValues[y][x]; }

    int litCount() const
    {
        int count = 0;
        for (const auto& row : actions.state().dotValues)
            for (const bool dot : row)
                count += dot;
        return count;
    }

    PluggedRuntime plugged;
    CommandPageActions actions{plugged.runtime.midiOutManager(), plugged.runtime.displaySimulator()};
};

TEST_F(CommandPageActionsTest, RedFrom63To64SendsTheThreeComponents)
{
    actions.setRed(64);
    EXPECT_EQ(plugged.sent(), Batch{bytes("F0 00 48 05 7F 2A 40 3F 3F F7")});
    EXPECT_EQ(plugged.screen().colorMode, DisplaySimulatorColorMode::user);
    EXPECT_TRUE(plugged.log().startsWith(QStringLiteral(" [SysEx: LCD Color Set]\n")));
}

TEST_F(CommandPageActionsTest, AnUnchangedColorSendsNothing)
{
    actions.setGreen(63);
    EXPECT_TRUE(plugged.sent().empty());
    actions.setBlue(0);
    EXPECT_EQ(plugged.sent(), Batch{bytes("F0 00 48 05 7F 2A 3F 3F 00 F7")});
}

TEST_F(CommandPageActionsTest, ResettingTheFaceSendsItsThreeMessagesInOrder)
{
    actions.setFacePart(UIFacePart::eyebrow, 3);
    actions.setFacePart(UIFacePart::eye, 5);
    actions.setFacePart(UIFacePart::mouth, 8);
    EXPECT_EQ(plugged.sent(), (Batch{bytes("F0 00 48 05 7F 10 01 03 F7"), bytes("F0 00 48 05 7F 10 02 05 F7"),
                                     bytes("F0 00 48 05 7F 10 03 08 F7")}));
    EXPECT_EQ(plugged.screen().mouth, 8);

    plugged.system.forgetSent();
    plugged.runtime.logStore().clear();
    actions.resetFace();
    EXPECT_EQ(plugged.sent(), (Batch{bytes("F0 00 48 05 7F 03 01 F7"), bytes("F0 00 48 05 7F 10 00 00 F7"),
                                     bytes("F0 00 48 05 7F 04 00 F7")}));
    EXPECT_EQ(plugged.log(), QStringLiteral(" [SysEx: UI Type Set (1)]\n   F0H 00H 48H 05H 7FH 03H 01H F7H\n"
                                            " [SysEx: UI Face set]\n   F0H 00H 48H 05H 7FH 10H 00H 00H F7H\n"
                                            " [SysEx: UI Face Blinking Set]\n   F0H 00H 48H 05H 7FH 04H 00H F7H\n"));
    EXPECT_EQ(actions.state().eyebrow + actions.state().eye + actions.state().mouth, 0);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::lipSync);
    EXPECT_EQ(plugged.screen().mouth, 0);
}

TEST_F(CommandPageActionsTest, PickersSendNothingWhileTheFaceIsBeingReset)
{
    actions.resetFace();
    plugged.system.forgetSent();
    actions.setFacePart(UIFacePart::eye, 0);
    EXPECT_TRUE(plugged.sent().empty());
    QCoreApplication::processEvents();
    actions.setFacePart(UIFacePart::eye, 1);
    EXPECT_EQ(plugged.sent(), Batch{bytes("F0 00 48 05 7F 10 02 01 F7")});
}

TEST_F(CommandPageActionsTest, AFaceThatCannotBeBuiltChangesNothing)
{
    actions.setFacePart(UIFacePart::eye, 200);
    EXPECT_TRUE(plugged.sent().empty());
    EXPECT_EQ(plugged.screen().eye, 0);
    EXPECT_EQ(plugged.screen().displayType, DisplaySimulatorType::initial);
}

TEST_F(CommandPageActionsTest, BlinkingIsLabelledByItsButtons)
{
    actions.setFaceBlinking(true);
    EXPECT_EQ(plugged.runtime.midiOutManager().statusMessage(), QStringLiteral("ON を送信しました。"));
    EXPECT_TRUE(plugged.screen().isBlinking);
    actions.setFaceBlinking(false);
    EXPECT_FALSE(plugged.screen().isBlinking);
    EXPECT_EQ(plugged.log(), QStringLiteral(" [SysEx: ON]\n   F0H 00H 48H 05H 7FH 04H 01H F7H\n"
                                            " [SysEx: OFF]\n   F0H 00H 48H 05H 7FH 04H 00H F7H\n"));
}

TEST_F(CommandPageActionsTest, AnASCIITextIsSentAndShown)
{
    actions.setJapaneseMode(true);
    plugged.system.forgetSent();
    actions.setAsciiText(QStringLiteral("A"));
    EXPECT_EQ(plugged.sent(), Batch{bytes("F0 41 10 45 12 10 00 00 41 2F F7")});
    EXPECT_EQ(plugged.screen().asciiText, "A");
    EXPECT_FALSE(plugged.screen().isJapaneseMode);
}

TEST_F(CommandPageActionsTest, ClearingTheASCIITextSendsTheEmptyLetterMessage)
{
    actions.setAsciiText(QStringLiteral("A"));
    plugged.system.forgetSent();
    actions.setAsciiText(QString());
    EXPECT_EQ(plugged.sent(), Batch{bytes("F0 41 10 45 12 10 00 00 70 F7")});
}

TEST_F(CommandPageActionsTest, AJapaneseRowIsRewrittenWhole)
{
    actions.setJapaneseText(JapaneseCharacterLine::upper, QStringLiteral("あ"));
    EXPECT_EQ(plugged.sent(), (Batch{bytes("F0 00 48 05 7F 06 01 F7"), bytes("F0 00 48 05 7F 07 00 08 02 0A 00 F7")}));
    EXPECT_EQ(plugged.screen().japaneseUpper, "あ");
    plugged.system.forgetSent();
    actions.setJapaneseText(JapaneseCharacterLine::lower, QStringLiteral("い"));
    EXPECT_EQ(plugged.sent(), (Batch{bytes("F0 00 48 05 7F 06 02 F7"), bytes("F0 00 48 05 7F 07 01 08 02 0A 02 F7")}));
    EXPECT_EQ(plugged.screen().japaneseLower, "い");
    EXPECT_EQ(plugged.screen().japaneseUpper, "あ");
}

TEST_F(CommandPageActionsTest, ClearingAJapaneseRowSendsTheDeleteAndAnEmptyAdd)
{
    actions.setJapaneseText(JapaneseCharacterLine::lower, QStringLiteral("あ"));
    plugged.system.forgetSent();
    actions.setJapaneseText(JapaneseCharacterLine::lower, QString());
    EXPECT_EQ(plugged.sent(), (Batch{bytes("F0 00 48 05 7F 06 02 F7"), bytes("F0 00 48 05 7F 07 01 F7")}));
    EXPECT_EQ(plugged.screen().japaneseLower, "");
}

TEST_F(CommandPageActionsTest, TextThatShiftJISLacksIsSubstituted)
{
    actions.setJapaneseText(JapaneseCharacterLine::upper, QStringLiteral("😀"));
    EXPECT_EQ(plugged.sent().back(), bytes("F0 00 48 05 7F 07 00 03 0F F7"));
}

TEST_F(CommandPageActionsTest, JapaneseModeFollowsItsButtons)
{
    actions.setJapaneseMode(true);
    EXPECT_TRUE(plugged.screen().isJapaneseMode);
    actions.setJapaneseMode(false);
    EXPECT_FALSE(plugged.screen().isJapaneseMode);
    EXPECT_EQ(plugged.log(), QStringLiteral(" [SysEx: 日本語表示ON]\n   F0H 00H 48H 05H 7FH 05H 01H F7H\n"
                                            " [SysEx: 日本語表示OFF]\n   F0H 00H 48H 05H 7FH 05H 00H F7H\n"));
}

TEST_F(CommandPageActionsTest, OneEventFromCellToCellTogglesTheLineAndSendsOneMessage)
{
    dragTo(0, 0);
    EXPECT_EQ(plugged.sent().size(), 1u) << "the press";
    dragTo(5, 2);
    EXPECT_EQ(plugged.sent().size(), 2u) << "one for the move";
    EXPECT_EQ(litCount(), 6);
    EXPECT_TRUE(isLit(0, 0) && isLit(1, 0) && isLit(2, 1) && isLit(3, 1) && isLit(4, 2) && isLit(5, 2));

    dragTo(0, 0);
    EXPECT_EQ(plugged.sent().size(), 2u) << "the way back changes nothing";
    EXPECT_EQ(litCount(), 6);
}

TEST_F(CommandPageActionsTest, AStrokeThatLeavesTheGridJoinsItsLastCellToTheNextInside)
{
    dragTo(2, 14);
    actions.dragDot({300, 200});
    EXPECT_EQ(litCount(), 1);
    dragTo(6, 14);
    EXPECT_EQ(litCount(), 5);
}

TEST_F(CommandPageActionsTest, ANewStrokeTogglesAgainAndJoinsNothing)
{
    dragTo(3, 3);
    actions.endDotStroke();
    dragTo(9, 9);
    actions.endDotStroke();
    EXPECT_EQ(litCount(), 2);
    dragTo(3, 3);
    EXPECT_EQ(litCount(), 1);
}

TEST_F(CommandPageActionsTest, TheGridAndTheColorsAreShownAndThenSent)
{
    std::vector<bool> dotWasShown;
    plugged.system.onSend = [&] { dotWasShown.push_back(plugged.screen().dotValues[0][0]); };
    dragTo(0, 0);
    EXPECT_EQ(dotWasShown, std::vector<bool>{true});

    std::vector<DisplaySimulatorColorMode> modeAtSend;
    plugged.system.onSend = [&] { modeAtSend.push_back(plugged.screen().colorMode); };
    actions.setRed(0);
    EXPECT_EQ(modeAtSend, std::vector{DisplaySimulatorColorMode::user});
}

TEST_F(CommandPageActionsTest, AResetIsSentAndThenShown)
{
    std::vector<std::string> textAtSend;
    plugged.system.onSend = [&] { textAtSend.push_back(plugged.screen().asciiText); };
    actions.reset({"GSリセット", "GS Reset", tonavelle::SysExBuilder::gsReset});
    EXPECT_EQ(textAtSend, std::vector<std::string>{displayBanner});
    EXPECT_EQ(plugged.screen().asciiText, "GS Reset");
}

TEST_F(CommandPageActionsTest, ADotPictureIsOneMessageOf64DataBytes)
{
    dragTo(0, 0);
    EXPECT_TRUE(plugged.screen().dotValues[0][0]);
    const auto message = plugged.sent().front();
    ASSERT_EQ(message.size(), 74u);
    EXPECT_EQ(message[8], 0x10);
    EXPECT_TRUE(plugged.log().startsWith(QStringLiteral(" [SysEx: Display Data (Dot)]\n")));
}

TEST_F(CommandPageActionsTest, TheGridIsFilledInvertedAndSentAsItStands)
{
    actions.fillDots(true);
    EXPECT_EQ(litCount(), 256);
    actions.invertDots();
    EXPECT_EQ(litCount(), 0);
    actions.toggleDot({15, 15});
    EXPECT_TRUE(isLit(15, 15));
    actions.sendDots();
    const auto sent = plugged.sent();
    ASSERT_EQ(sent.size(), 4u);
    EXPECT_EQ(sent[3][71], 0x10) << "row 15, column 15 is the last of the 64 data bytes";
    EXPECT_EQ(sent[2], sent[3]);
}

TEST_F(CommandPageActionsTest, PanicSilencesAllSixteenChannelsUnderABareLabel)
{
    actions.panic();
    const auto sent = plugged.sent();
    ASSERT_EQ(sent.size(), 16u);
    EXPECT_EQ(sent.front(), bytes("B0 78 00"));
    EXPECT_EQ(sent.back(), bytes("BF 78 00"));
    EXPECT_TRUE(plugged.log().startsWith(QStringLiteral(" [All Sound Off]\n")));
}

TEST_F(CommandPageActionsTest, SpecialCommandsLeaveTheSimulatedScreenAlone)
{
    const DisplayFields before = plugged.screen();
    actions.setDebugMode(false);
    actions.setDebugMode(true);
    actions.showVersion();
    actions.panic();
    EXPECT_EQ(plugged.screen(), before);
    const auto sent = plugged.sent();
    EXPECT_EQ(sent[0], bytes("F0 00 48 05 7F 70 00 F7"));
    EXPECT_EQ(sent[1], bytes("F0 00 48 05 7F 70 01 F7"));
    EXPECT_EQ(sent[2], bytes("F0 00 48 05 7F 71 F7"));
}

TEST(CommandPageWithoutDevice, TheSimulatedScreenMovesAllTheSame)
{
    PluggedRuntime unplugged(std::vector<std::string>{});
    CommandPageActions actions(unplugged.runtime.midiOutManager(), unplugged.runtime.displaySimulator());
    actions.setUIType(3);
    EXPECT_EQ(unplugged.screen().displayType, DisplaySimulatorType::oscilloscope);
    EXPECT_EQ(unplugged.runtime.midiOutManager().lastErrorMessage(), QStringLiteral("MIDI OUTが未選択です。"));
}

TEST(FilteredASCII, KeepsTheFirst32PrintableCharacters)
{
    EXPECT_EQ(filteredASCII(QStringLiteral("aあb\t~\u007F")), QStringLiteral("ab~"));
    EXPECT_EQ(filteredASCII(QString(40, QLatin1Char('x'))).size(), 32);
}

} // namespace
} // namespace orvim
