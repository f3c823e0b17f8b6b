#include "core/text/ShiftJIS.h"

#include "core/text/UTF8.h"
#include "tests/support/Bytes.h"
#include "tests/support/Iconv.h"

#include <array>
#include <gtest/gtest.h>
namespace tonavelle {
namespace {

using orvim::test::bytes;
using orvim::test::Iconv;

std::optional<std::string> decoded(std::string_view hex)
{
    return decodeShiftJIS(bytes(hex));
}

/// The system's conversion of `text`; nothing where it refuses any part of it.
std::optional<std::string> converted(Iconv& system, std::string_view text)
{
    std::array<char, 64> room{};
    const auto size = system.convert(text, room);
    if (!size) return std::nullopt;
    return std::string(room.data(), *size);
}

std::string asText(std::span<const std::uint8_t> encoded)
{
    return {encoded.begin(), encoded.end()};
}

TEST(ShiftJIS, DecodesAsTheSystemDoesOverEverySingleByte)
{
    Iconv system("UTF-8", "CP932");
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const std::array one{static_cast<std::uint8_t>(byte)};
        EXPECT_EQ(decodeShiftJIS(one), converted(system, asText(one))) << std::hex << byte;
    }
}

/// All 65,536 pairs, and not one difference: the system's converter is of the same repertoire.
TEST(ShiftJIS, DecodesAsTheSystemDoesOverEveryPairOfBytes)
{
    Iconv system("UTF-8", "CP932");
    std::size_t decodable = 0;
    for (unsigned code = 0; code < 0x10000; ++code) {
        const std::array pair{static_cast<std::uint8_t>(code >> 8), static_cast<std::uint8_t>(code)};
        const auto ours = decodeShiftJIS(pair);
        ASSERT_EQ(ours, converted(system, asText(pair))) << std::hex << code;
        decodable += ours.has_value();
    }
    EXPECT_EQ(decodable, 191u * 191u + 7724u + 1880u);
}

/// Every scalar of Unicode. The one difference: the system drops the 128 language tags from U+E0000 on in silence,
/// where a dropped character would be taken for an encoded one; here they have no code, as any other such scalar.
TEST(ShiftJIS, EncodesAsTheSystemDoesOverEveryScalar)
{
    Iconv system("CP932", "UTF-8");
    std::size_t encodable = 0;
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
        std::string text;
        appendScalar(text, scalar);
        const auto ours = encodeShiftJIS(text);
        encodable += ours.has_value();
        const bool isTag = scalar >= 0xE0000 && scalar <= 0xE007F;
        const auto expected = isTag ? std::nullopt : converted(system, text);
        ASSERT_EQ(ours ? std::optional(asText(*ours)) : std::nullopt, expected) << std::hex << +scalar;
    }
    EXPECT_EQ(encodable, 9406u);
}

TEST(ShiftJIS, BackslashAndTildeAreThemselves)
{
    EXPECT_EQ(decoded("5C 7E"), "\\~");
    EXPECT_EQ(encodeShiftJIS("\\~"), bytes("5C 7E"));
}

TEST(ShiftJIS, RefusesBytesThatBeginNoCharacter)
{
    for (const char* hex : {"80", "A0", "FD", "FE", "FF", "41 80", "82 A0 FF"})
        EXPECT_EQ(decoded(hex), std::nullopt) << hex;
}

TEST(ShiftJIS, RefusesHalfACharacterAndABadTrail)
{
    for (const char* hex : {"82", "41 82", "82 3F", "82 7F", "82 FD", "82 FF", "85 40", "FC 4C"})
        EXPECT_EQ(decoded(hex), std::nullopt) << hex;
}

TEST(ShiftJIS, DecodesHalfWidthKatakanaKanjiAndAsciiSideBySide)
{
    EXPECT_EQ(decoded("41 B1 88 9F 82 A0 7A"), "Aｱ亜あz");
    EXPECT_EQ(encodeShiftJIS("Aｱ亜あz"), bytes("41 B1 88 9F 82 A0 7A"));
    EXPECT_EQ(decoded(""), "");
    EXPECT_EQ(encodeShiftJIS(""), bytes(""));
}

TEST(ShiftJIS, LongRunsOfAsciiAndKatakanaKeepTheirLength)
{
    const std::string ascii(1000, 'x');
    EXPECT_EQ(encodeShiftJIS(ascii), Message(1000, 0x78));
    EXPECT_EQ(decodeShiftJIS(Message(1000, 0x78)), ascii);
    EXPECT_EQ(decodeShiftJIS(Message(1000, 0xB1))->size(), 3000u);
}

TEST(ShiftJIS, TakesBothFormsOfTheWaveDashAndItsKind)
{
    EXPECT_EQ(decoded("81 60"), "\uFF5E");
    EXPECT_EQ(encodeShiftJIS("\uFF5E\u301C"), bytes("81 60 81 60"));
    EXPECT_EQ(encodeShiftJIS("\uFF0D\u2212"), bytes("81 7C 81 7C"));
    EXPECT_EQ(encodeShiftJIS("\u2225\u2016"), bytes("81 61 81 61"));
    EXPECT_EQ(encodeShiftJIS("\u2015\u2014"), bytes("81 5C 81 5C"));
    EXPECT_EQ(encodeShiftJIS("\uFFE0\u00A2"), bytes("81 91 81 91"));
    EXPECT_EQ(encodeShiftJIS("\uFFE1\u00A3"), bytes("81 92 81 92"));
    EXPECT_EQ(encodeShiftJIS("\uFFE2\u00AC"), bytes("81 CA 81 CA"));
}

TEST(ShiftJIS, CharactersOfSeveralCodesTakeThePreferredOne)
{
    EXPECT_EQ(decoded("87 90 81 E0"), "≒≒");
    EXPECT_EQ(encodeShiftJIS("≒"), bytes("81 E0"));
    EXPECT_EQ(decoded("87 54 FA 4A"), "ⅠⅠ");
    EXPECT_EQ(encodeShiftJIS("Ⅰ"), bytes("87 54"));
    EXPECT_EQ(decoded("EE EF FA 40"), "ⅰⅰ");
    EXPECT_EQ(encodeShiftJIS("ⅰ"), bytes("FA 40"));
    EXPECT_EQ(decoded("ED 40 FA 5C"), "纊纊");
    EXPECT_EQ(encodeShiftJIS("纊"), bytes("FA 5C"));
}

TEST(ShiftJIS, TheUserDefinedAreaIsPrivateUse)
{
    EXPECT_EQ(decoded("F0 40 F9 FC"), "\uE000\uE757");
    EXPECT_EQ(encodeShiftJIS("\uE000\uE757"), bytes("F0 40 F9 FC"));
}

TEST(ShiftJIS, OneScalarHasTheCodeThatATextOfItHas)
{
    EXPECT_EQ(shiftJISCode(U'A'), 0x41);
    EXPECT_EQ(shiftJISCode(U'ｱ'), 0xB1);
    EXPECT_EQ(shiftJISCode(U'あ'), 0x82A0);
    EXPECT_EQ(shiftJISCode(U'\u301C'), 0x8160);
    EXPECT_EQ(shiftJISCode(U'\0'), 0x00);
    EXPECT_EQ(shiftJISCode(U'é'), std::nullopt);
    EXPECT_EQ(shiftJISCode(U'😀'), std::nullopt);
    EXPECT_EQ(shiftJISCode(0x110000), std::nullopt);
}

TEST(ShiftJIS, StrictEncodingRefusesWhatHasNoCode)
{
    EXPECT_EQ(encodeShiftJIS("あ😀"), std::nullopt);
    EXPECT_EQ(encodeShiftJIS("é"), std::nullopt);
    EXPECT_EQ(encodeShiftJIS("\xE3\x81"), std::nullopt);
}

TEST(ShiftJIS, LossyEncodingWritesOneQuestionMarkForEachScalar)
{
    EXPECT_EQ(encodeShiftJISLossy("あ😀é!"), bytes("82 A0 3F 3F 21"));
    EXPECT_EQ(encodeShiftJISLossy("か\u3099"), bytes("82 A9 3F"));
    EXPECT_EQ(encodeShiftJISLossy("👨\u200D👩"), bytes("3F 3F 3F"));
}

TEST(ShiftJIS, LossyEncodingWritesOneQuestionMarkForEachIllFormedPart)
{
    EXPECT_EQ(encodeShiftJISLossy("\xE3\x81"), bytes("3F"));
    EXPECT_EQ(encodeShiftJISLossy("a\xF0\x9F\x98z\xFF\xFF"), bytes("61 3F 7A 3F 3F"));
    EXPECT_EQ(encodeShiftJISLossy("\xED\xA0\x80"), bytes("3F 3F 3F"));
}

TEST(ShiftJIS, TextOfUnknownEncodingIsShiftJISWhereItCanBe)
{
    EXPECT_EQ(decodeText(bytes("82 A0")), "あ");
    EXPECT_EQ(decodeText(bytes("41 42")), "AB");
    // The UTF-8 form of "漢", which is valid Shift_JIS as well.
    EXPECT_EQ(decodeText(bytes("E6 BC A2")), "貍｢");
    // The UTF-8 form of "あ", whose last byte begins a pair that does not follow.
    EXPECT_EQ(decodeText(bytes("E3 81 82")), "あ");
    EXPECT_EQ(decodeText(bytes("E6 BC A2 FF")), std::nullopt);
    EXPECT_EQ(decodeText(bytes("")), "");
}

} // namespace
} // namespace tonavelle
