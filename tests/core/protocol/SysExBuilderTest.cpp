#include "core/protocol/SysExBuilder.h"

#include "tests/support/Bytes.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using orvim::test::bytes;

/// A grid of 16 by 16 with one dot set.
DotRows oneDot(std::size_t row, std::size_t column)
{
    DotRows rows(16, std::vector<bool>(16));
    rows[row][column] = true;
    return rows;
}

/// The 64 bytes between the address and the checksum.
Message dotData(const DotRows& rows)
{
    const Message message = SysExBuilder::displayDataDot(rows);
    return {message.begin() + 8, message.end() - 2};
}

Message withByte(std::size_t position, std::uint8_t byte)
{
    Message data(64, 0x00);
    data[position] = byte;
    return data;
}

std::uint8_t refusedByte(const std::function<Message()>& build)
{
    try {
        build();
    } catch (const SysExBuilderError& error) {
        return error.byte();
    }
    return 0;
}

TEST(SysExBuilder, FramesACommandAndItsParameters)
{
    EXPECT_EQ(SysExBuilder::frame(Command::waveformData, std::array<std::uint8_t, 2>{0x01, 0x7F}),
              bytes("F0 00 48 05 7F 48 01 7F F7"));
    EXPECT_EQ(SysExBuilder::frame(Command::tonePatch, {}), bytes("F0 00 48 05 7F 40 F7"));
}

TEST(SysExBuilder, TonavelleResetIsFixed)
{
    EXPECT_EQ(SysExBuilder::tonavelleReset(), bytes("F0 00 48 05 7F 00 00 F7"));
}

TEST(SysExBuilder, UITypeTakes0To127)
{
    EXPECT_EQ(SysExBuilder::uiTypeSet(0), bytes("F0 00 48 05 7F 03 00 F7"));
    EXPECT_EQ(SysExBuilder::uiTypeSet(127), bytes("F0 00 48 05 7F 03 7F F7"));
}

TEST(SysExBuilder, UITypeAbove127ThrowsWithItsByteInTheText)
{
    try {
        SysExBuilder::uiTypeSet(128);
        FAIL() << "no error";
    } catch (const SysExBuilderError& error) {
        EXPECT_STREQ(error.what(), "SysExのデータバイトは0x00...0x7Fである必要があります: 0x80");
        EXPECT_EQ(error.byte(), 0x80);
    }
}

TEST(SysExBuilder, ErrorTextIsUpperCaseHexadecimal)
{
    EXPECT_STREQ(SysExBuilderError::invalidDataByte(0xAF).what(),
                 "SysExのデータバイトは0x00...0x7Fである必要があります: 0xAF");
    EXPECT_STREQ(SysExBuilderError::invalidDataByte(0x05).what(),
                 "SysExのデータバイトは0x00...0x7Fである必要があります: 0x5");
}

TEST(SysExBuilder, SwitchesAreOneAndZero)
{
    EXPECT_EQ(SysExBuilder::faceBlinkingSet(true), bytes("F0 00 48 05 7F 04 01 F7"));
    EXPECT_EQ(SysExBuilder::faceBlinkingSet(false), bytes("F0 00 48 05 7F 04 00 F7"));
    EXPECT_EQ(SysExBuilder::japaneseCharacterMode(true), bytes("F0 00 48 05 7F 05 01 F7"));
    EXPECT_EQ(SysExBuilder::japaneseCharacterMode(false), bytes("F0 00 48 05 7F 05 00 F7"));
    EXPECT_EQ(SysExBuilder::debugMode(true), bytes("F0 00 48 05 7F 70 01 F7"));
    EXPECT_EQ(SysExBuilder::debugMode(false), bytes("F0 00 48 05 7F 70 00 F7"));
}

TEST(SysExBuilder, JapaneseCharacterDeleteCarriesItsTarget)
{
    EXPECT_EQ(SysExBuilder::japaneseCharacterDelete(JapaneseCharacterDeleteTarget::both),
              bytes("F0 00 48 05 7F 06 00 F7"));
    EXPECT_EQ(SysExBuilder::japaneseCharacterDelete(JapaneseCharacterDeleteTarget::upper),
              bytes("F0 00 48 05 7F 06 01 F7"));
    EXPECT_EQ(SysExBuilder::japaneseCharacterDelete(JapaneseCharacterDeleteTarget::lower),
              bytes("F0 00 48 05 7F 06 02 F7"));
}

TEST(SysExBuilder, UIFaceSetCarriesPartAndIndex)
{
    EXPECT_EQ(SysExBuilder::uiFaceSet(UIFacePart::mouth, 0x12), bytes("F0 00 48 05 7F 10 03 12 F7"));
    EXPECT_EQ(SysExBuilder::uiFaceSet(UIFacePart::all, 0x7F), bytes("F0 00 48 05 7F 10 00 7F F7"));
}

TEST(SysExBuilder, UIFaceSetChecksItsIndexAndNotItsPart)
{
    EXPECT_EQ(refusedByte([] { return SysExBuilder::uiFaceSet(UIFacePart::eye, 200); }), 200);
    EXPECT_EQ(SysExBuilder::uiFaceSet(static_cast<UIFacePart>(0x7E), 1), bytes("F0 00 48 05 7F 10 7E 01 F7"));
}

TEST(SysExBuilder, ImageDrawChecksItsScreenNumber)
{
    EXPECT_EQ(SysExBuilder::imageDraw64x64(31), bytes("F0 00 48 05 7F 26 1F F7"));
    EXPECT_EQ(refusedByte([] { return SysExBuilder::imageDraw64x64(0xFF); }), 0xFF);
}

TEST(SysExBuilder, LCDColorIsMaskedAndNeverThrows)
{
    EXPECT_EQ(SysExBuilder::lcdColorSet(255, 128, 127), bytes("F0 00 48 05 7F 2A 7F 00 7F F7"));
}

TEST(SysExBuilder, VersionDisplayHasNoParameters)
{
    EXPECT_EQ(SysExBuilder::versionDisplay(), bytes("F0 00 48 05 7F 71 F7"));
}

TEST(DisplayDataLetter, SendsTheFirst32OfFortyCharacters)
{
    const std::string forty = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcd";
    const Message message = SysExBuilder::displayDataLetter(forty);
    EXPECT_EQ(Message(message.begin(), message.begin() + 8), bytes("F0 41 10 45 12 10 00 00"));
    EXPECT_EQ(std::string(message.begin() + 8, message.end() - 2), "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345");
    EXPECT_EQ(message, SysExBuilder::displayDataLetter(forty.substr(0, 32)));
}

TEST(DisplayDataLetter, ChecksumOfTheSingleLetterA)
{
    EXPECT_EQ(SysExBuilder::displayDataLetter("A"), bytes("F0 41 10 45 12 10 00 00 41 2F F7"));
}

TEST(DisplayDataLetter, AnEmptyTextGivesTheBareMessage)
{
    EXPECT_EQ(SysExBuilder::displayDataLetter(""), bytes("F0 41 10 45 12 10 00 00 70 F7"));
}

TEST(DisplayDataLetter, WhatIsNotPrintableASCIIVanishes)
{
    EXPECT_EQ(SysExBuilder::displayDataLetter("aあb"), bytes("F0 41 10 45 12 10 00 00 61 62 2D F7"));
    EXPECT_EQ(SysExBuilder::displayDataLetter("\n\x1F\x7F \xE3~"), bytes("F0 41 10 45 12 10 00 00 20 7E 52 F7"));
}

TEST(DisplayDataLetter, WhatVanishesDoesNotCountTowardsThe32)
{
    const std::string text = "あいう" + std::string(40, 'x');
    EXPECT_EQ(SysExBuilder::displayDataLetter(text).size(), 8u + 32u + 2u);
}

TEST(DisplayDataDot, AnEmptyGridIsAllOffWithItsChecksum)
{
    Message expected = bytes("F0 41 10 45 12 10 01 00");
    expected.insert(expected.end(), 64, 0x00);
    expected.push_back(0x6F);
    expected.push_back(0xF7);
    EXPECT_EQ(SysExBuilder::displayDataDot({}), expected);
    EXPECT_EQ(SysExBuilder::displayDataDot(DotRows(16, std::vector<bool>(16))), expected);
}

TEST(DisplayDataDot, FirstAndLastCellStandInTheirBytes)
{
    EXPECT_EQ(dotData(oneDot(0, 0)), withByte(0, 0x10));
    EXPECT_EQ(dotData(oneDot(15, 15)), withByte(63, 0x10));
}

TEST(DisplayDataDot, EveryCellSetsOneBitOfItsGroup)
{
    for (std::size_t row = 0; row < 16; ++row) {
        for (std::size_t column = 0; column < 16; ++column) {
            const auto bit = static_cast<std::uint8_t>(0x10 >> column % 5);
            EXPECT_EQ(dotData(oneDot(row, column)), withByte(column / 5 * 16 + row, bit)) << row << " " << column;
        }
    }
}

TEST(DisplayDataDot, MissingRowsAndColumnsAreOff)
{
    EXPECT_EQ(dotData({{true}}), withByte(0, 0x10));
    Message fifteenColumns(64, 0x00);
    fifteenColumns[0] = fifteenColumns[16] = fifteenColumns[32] = 0x1F;
    EXPECT_EQ(dotData({std::vector<bool>(15, true)}), fifteenColumns);
}

TEST(DisplayDataDot, RowsAndColumnsBeyondSixteenAreNotLookedAt)
{
    const DotRows large(40, std::vector<bool>(40, true));
    const DotRows exact(16, std::vector<bool>(16, true));
    EXPECT_EQ(dotData(large), dotData(exact));
    EXPECT_EQ(dotData(exact)[63], 0x10);
}

TEST(SysExBuilder, StandardResetsAreFixed)
{
    EXPECT_EQ(SysExBuilder::gmSystemOn(), bytes("F0 7E 7F 09 01 F7"));
    EXPECT_EQ(SysExBuilder::gm2SystemOn(), bytes("F0 7E 7F 09 03 F7"));
    EXPECT_EQ(SysExBuilder::gsReset(), bytes("F0 41 10 42 12 40 00 7F 00 41 F7"));
    EXPECT_EQ(SysExBuilder::xgSystemOn(), bytes("F0 43 10 4C 00 00 7E 00 F7"));
}

TEST(SysExBuilder, HexStringJoinsTwoDigitsAByteWithBlanks)
{
    EXPECT_EQ(SysExBuilder::hexString(bytes("F0 00 0A F7")), "F0 00 0A F7");
    EXPECT_EQ(SysExBuilder::hexString({}), "");
}

} // namespace
} // namespace tonavelle
