#include "core/media/LyricsSysExBuilder.h"

#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using LyricsSysExBuilder::decodedCommand;
using LyricsSysExBuilder::japaneseCharacterAdd;
using LyricsSysExBuilder::shiftJISNibbleBytes;
using LyricsSysExBuilder::sysEx;
using LyricsSysExBuilder::trimShiftJISBytes;
using orvim::test::bytes;

std::string repeated(std::string_view text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(JapaneseCharacterAdd, CarriesTheNibblesOfAKanaOnTheUpperRow)
{
    EXPECT_EQ(japaneseCharacterAdd("あ", JapaneseCharacterLine::upper), bytes("F0 00 48 05 7F 07 00 08 02 0A 00 F7"));
}

TEST(JapaneseCharacterAdd, CarriesALetterOnTheLowerRow)
{
    EXPECT_EQ(japaneseCharacterAdd("A", JapaneseCharacterLine::lower), bytes("F0 00 48 05 7F 07 01 04 01 F7"));
}

TEST(JapaneseCharacterAdd, AnEmptyTextGivesAMessageWithoutData)
{
    EXPECT_EQ(japaneseCharacterAdd("", JapaneseCharacterLine::upper), bytes("F0 00 48 05 7F 07 00 F7"));
    EXPECT_EQ(japaneseCharacterAdd("", JapaneseCharacterLine::lower), bytes("F0 00 48 05 7F 07 01 F7"));
}

TEST(JapaneseCharacterAdd, SeventeenFullWidthCharactersAreCutToSixteen)
{
    const Message message = japaneseCharacterAdd(repeated("あ", 17), JapaneseCharacterLine::upper);
    EXPECT_EQ(message, japaneseCharacterAdd(repeated("あ", 16), JapaneseCharacterLine::upper));
    EXPECT_EQ(message.size(), 72u);
}

TEST(JapaneseCharacterAdd, AFullWidthCharacterAcrossTheLimitIsLostEntirely)
{
    const std::string letters = repeated("a", 31);
    EXPECT_EQ(japaneseCharacterAdd(letters + "あ", JapaneseCharacterLine::upper),
              japaneseCharacterAdd(letters, JapaneseCharacterLine::upper));
}

TEST(JapaneseCharacterAdd, ACharacterWithoutACodeIsReplacedAndNotDropped)
{
    EXPECT_EQ(shiftJISNibbleBytes("a😀あ"), bytes("06 01 03 0F 08 02 0A 00"));
}

TEST(TrimShiftJISBytes, KeepsWholeCharactersUpToTheLimit)
{
    EXPECT_EQ(trimShiftJISBytes(bytes("41 B1 82 A0"), 32), bytes("41 B1 82 A0"));
    EXPECT_EQ(trimShiftJISBytes(bytes("41 B1 82 A0"), 3), bytes("41 B1"));
    EXPECT_EQ(trimShiftJISBytes(bytes("41 B1 82 A0"), 0), bytes(""));
}

TEST(TrimShiftJISBytes, CutsBackToTheFirstByteThatBeginsNoCharacter)
{
    EXPECT_EQ(trimShiftJISBytes(bytes("41 FF 42 43"), 32), bytes("41"));
    EXPECT_EQ(trimShiftJISBytes(bytes("41 82 20 43"), 32), bytes("41"));
    EXPECT_EQ(trimShiftJISBytes(bytes("A0 41"), 32), bytes(""));
    EXPECT_EQ(trimShiftJISBytes(bytes("41 80"), 32), bytes("41"));
    EXPECT_EQ(trimShiftJISBytes(bytes("FC FC E0 40 9F 7E 81 80 82 7F"), 32), bytes("FC FC E0 40 9F 7E 81 80"));
}

TEST(LyricsSysEx, EveryCommandHasItsMessage)
{
    EXPECT_EQ(sysEx(LyricsCommand::addUpper, "あ"), bytes("F0 00 48 05 7F 07 00 08 02 0A 00 F7"));
    EXPECT_EQ(sysEx(LyricsCommand::addLower, "A"), bytes("F0 00 48 05 7F 07 01 04 01 F7"));
    EXPECT_EQ(sysEx(LyricsCommand::deleteBoth, "A"), bytes("F0 00 48 05 7F 06 00 F7"));
    EXPECT_EQ(sysEx(LyricsCommand::deleteUpper, "A"), bytes("F0 00 48 05 7F 06 01 F7"));
    EXPECT_EQ(sysEx(LyricsCommand::deleteLower, ""), bytes("F0 00 48 05 7F 06 02 F7"));
}

TEST(LyricsSysEx, ATextOf17TwoByteCharactersIsCutTo16Characters)
{
    EXPECT_EQ(sysEx(LyricsCommand::addUpper, repeated("あ", 17)), sysEx(LyricsCommand::addUpper, repeated("あ", 16)));
    EXPECT_EQ(sysEx(LyricsCommand::addUpper, repeated("あ", 17)).size(), 72u);
}

TEST(DecodedCommand, GivesBackWhatSysExWrote)
{
    for (const auto command : {LyricsCommand::addUpper, LyricsCommand::addLower})
        EXPECT_EQ(decodedCommand(sysEx(command, "春のA")), (LyricsCommandAndText{command, "春のA"}));
    for (const auto command : {LyricsCommand::deleteBoth, LyricsCommand::deleteUpper, LyricsCommand::deleteLower})
        EXPECT_EQ(decodedCommand(sysEx(command, "")), (LyricsCommandAndText{command, ""}));
}

TEST(DecodedCommand, TheEndsOfTheMessageMayBeMissing)
{
    const LyricsCommandAndText deleteUpper{LyricsCommand::deleteUpper, ""};
    EXPECT_EQ(decodedCommand(bytes("00 48 05 7F 06 01")), deleteUpper);
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 06 01")), deleteUpper);
    EXPECT_EQ(decodedCommand(bytes("00 48 05 7F 06 01 F7")), deleteUpper);
}

TEST(DecodedCommand, ShortAndForeignMessagesGiveNothing)
{
    for (const auto* message : {"", "F0", "F7", "F0 F7", "F0 00 48 05 7F F7", "F0 00 48 05 7F 07 F7",
                                "F0 00 48 05 7F 06 F7", "F0 00 48 05 7E 06 01 F7", "F0 00 48 05 7F 05 01 F7",
                                "F0 00 48 05 7F 08 00 F7", "F0 F0 00 48 05 7F 06 01 F7"})
        EXPECT_EQ(decodedCommand(bytes(message)), std::nullopt) << message;
}

TEST(DecodedCommand, ATargetOf3OrASeventhByteIsNoDeleteCommand)
{
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 06 03 F7")), std::nullopt);
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 06 01 00 F7")), std::nullopt);
}

TEST(DecodedCommand, ALineOf2IsNoAddCommand)
{
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 07 02 04 01 F7")), std::nullopt);
}

TEST(DecodedCommand, ALastSingleNibbleIsDropped)
{
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 07 00 04 01 04 F7")),
              (LyricsCommandAndText{LyricsCommand::addUpper, "A"}));
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 07 00 04 F7")), (LyricsCommandAndText{LyricsCommand::addUpper, ""}));
}

TEST(DecodedCommand, OfASecondNibbleTheLowFourBitsCount)
{
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 07 00 04 71 F7")),
              (LyricsCommandAndText{LyricsCommand::addUpper, "A"}));
}

TEST(DecodedCommand, OfAFirstNibbleAboveFTheLowFourBitsCountToo)
{
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 07 00 14 01 F7")),
              (LyricsCommandAndText{LyricsCommand::addUpper, "A"}));
}

TEST(DecodedCommand, NibblesThatAreNoShiftJISGiveAnEmptyText)
{
    EXPECT_EQ(decodedCommand(bytes("F0 00 48 05 7F 07 01 08 02 F7")),
              (LyricsCommandAndText{LyricsCommand::addLower, ""}));
}

TEST(LyricsCommand, KeywordsAndLabelsStandByNumber)
{
    EXPECT_EQ(lyricsCommandNames[static_cast<std::size_t>(LyricsCommand::addLower)].keyword, "$ADD_LO$");
    EXPECT_EQ(lyricsCommandNames[static_cast<std::size_t>(LyricsCommand::deleteBoth)].keyword, "$DEL_HL$");
    for (const auto& names : lyricsCommandNames)
        EXPECT_EQ(names.keyword, std::string("$").append(names.label).append("$"));
}

} // namespace
} // namespace tonavelle
