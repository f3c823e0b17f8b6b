#include "core/text/UTF8.h"

#include <gtest/gtest.h>
#include <vector>

namespace tonavelle {
namespace {

std::vector<char32_t> scalarsOf(std::string_view text)
{
    std::vector<char32_t> result;
    for (const char32_t scalar : UTF8Scalars(text))
        result.push_back(scalar);
    return result;
}

TEST(UTF8, WalksScalarsOfEveryLength)
{
    EXPECT_EQ(scalarsOf("aé あ😀"), (std::vector<char32_t>{U'a', U'é', U' ', U'あ', U'😀'}));
    EXPECT_EQ(scalarsOf(""), std::vector<char32_t>{});
}

TEST(UTF8, KeepsTheZeroScalar)
{
    EXPECT_EQ(scalarsOf(std::string_view("a\0b", 3)), (std::vector<char32_t>{U'a', U'\0', U'b'}));
}

TEST(UTF8, GivesOneReplacementForEachLongestPartThatBeginsAScalar)
{
    EXPECT_EQ(scalarsOf("\xE3\x81"), (std::vector<char32_t>{0xFFFD}));
    EXPECT_EQ(scalarsOf("\xE3\x81!"), (std::vector<char32_t>{0xFFFD, U'!'}));
    EXPECT_EQ(scalarsOf("\xF0\x9F\x98"), (std::vector<char32_t>{0xFFFD}));
    EXPECT_EQ(scalarsOf("\x80\xBF"), (std::vector<char32_t>{0xFFFD, 0xFFFD}));
    EXPECT_EQ(scalarsOf("\xFF\xFE"), (std::vector<char32_t>{0xFFFD, 0xFFFD}));
}

TEST(UTF8, RefusesOverlongFormsSurrogatesAndValuesAboveUnicode)
{
    EXPECT_EQ(scalarsOf("\xC0\xAF"), (std::vector<char32_t>{0xFFFD, 0xFFFD}));
    EXPECT_EQ(scalarsOf("\xE0\x80\xAF"), (std::vector<char32_t>{0xFFFD, 0xFFFD, 0xFFFD}));
    EXPECT_EQ(scalarsOf("\xED\xA0\x80"), (std::vector<char32_t>{0xFFFD, 0xFFFD, 0xFFFD}));
    EXPECT_EQ(scalarsOf("\xF4\x90\x80\x80"), (std::vector<char32_t>{0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}));
    EXPECT_EQ(scalarsOf("\xF0\x8F\xBF\xBF"), (std::vector<char32_t>{0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}));
}

TEST(UTF8, TellsAWrittenReplacementCharacterFromAnIllFormedPart)
{
    EXPECT_TRUE(readScalar("\xEF\xBF\xBD").isWellFormed);
    EXPECT_FALSE(readScalar("\xEF\xBF").isWellFormed);
    EXPECT_TRUE(isUTF8("あ\xEF\xBF\xBD"));
    EXPECT_FALSE(isUTF8("あ\xEF\xBF"));
}

TEST(UTF8, CountsScalarsAndNotBytes)
{
    EXPECT_EQ(scalarCount("aé あ😀"), 5u);
    EXPECT_EQ(scalarCount("\xE3\x81"), 1u);
}

TEST(UTF8, EveryScalarComesBackFromItsBytes)
{
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
        std::string text;
        appendScalar(text, scalar);
        const ScalarStep step = readScalar(text);
        ASSERT_TRUE(step.isWellFormed && step.scalar == scalar && step.byteCount == text.size()) << std::hex << +scalar;
    }
}

TEST(UTF8, AppendsTheReplacementCharacterForWhatIsNoScalar)
{
    std::string text;
    appendScalar(text, 0xD800);
    appendScalar(text, 0x110000);
    EXPECT_EQ(text, "\xEF\xBF\xBD\xEF\xBF\xBD");
}

} // namespace
} // namespace tonavelle
