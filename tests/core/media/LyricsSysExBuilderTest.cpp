#include "core/media/LyricsSysExBuilder.h"

#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

namespace tonavelle
{
namespace
{

using LyricsSysExBuilder::japaneseCharacterAdd;
using LyricsSysExBuilder::shiftJISNibbleBytes;
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

} // namespace
} // namespace tonavelle
