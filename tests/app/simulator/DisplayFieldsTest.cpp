#include "simulator/DisplayFields.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

TEST(DisplayFields, BannerFillsTheTwoHeaderRows)
{
    EXPECT_EQ(DisplayFields().asciiText.size(), 40u);
}

} // namespace
} // namespace orvim
