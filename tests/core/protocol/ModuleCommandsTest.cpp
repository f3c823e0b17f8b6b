#include "core/protocol/ModuleCommands.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

TEST(ModuleCommands, EveryRawValueOfAListGivesItsCase)
{
    EXPECT_EQ(japaneseCharacterLine(0), JapaneseCharacterLine::upper);
    EXPECT_EQ(japaneseCharacterLine(1), JapaneseCharacterLine::lower);
    EXPECT_EQ(japaneseCharacterDeleteTarget(0), JapaneseCharacterDeleteTarget::both);
    EXPECT_EQ(japaneseCharacterDeleteTarget(1), JapaneseCharacterDeleteTarget::upper);
    EXPECT_EQ(japaneseCharacterDeleteTarget(2), JapaneseCharacterDeleteTarget::lower);
    EXPECT_EQ(uiFacePart(0), UIFacePart::all);
    EXPECT_EQ(uiFacePart(1), UIFacePart::eyebrow);
    EXPECT_EQ(uiFacePart(2), UIFacePart::eye);
    EXPECT_EQ(uiFacePart(3), UIFacePart::mouth);
}

TEST(ModuleCommands, ARawValueOutsideItsListGivesNothing)
{
    for (unsigned raw = 0; raw < 0x100; ++raw) {
        const auto value = static_cast<std::uint8_t>(raw);
        EXPECT_EQ(japaneseCharacterLine(value).has_value(), raw < 2) << raw;
        EXPECT_EQ(japaneseCharacterDeleteTarget(value).has_value(), raw < 3) << raw;
        EXPECT_EQ(uiFacePart(value).has_value(), raw < 4) << raw;
    }
}

} // namespace
} // namespace tonavelle
