#include "core/PerformanceMonitorState.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

TEST(PerformanceMonitorState, StartsWithPianosAndADrumSetOnChannelTen)
{
    const PerformanceMonitorState state;
    ASSERT_EQ(state.parts.size(), 16u);
    const PerformanceMonitorPart piano{.name = "001:Piano 1"};
    const PerformanceMonitorPart drums{.name = "001:Standard Set", .isDrum = true};
    for (std::size_t i = 0; i < state.parts.size(); ++i)
        EXPECT_EQ(state.parts[i], i == 9 ? drums : piano) << "channel " << i + 1;
}

TEST(PerformanceMonitorState, SetPartOutsideTheListChangesNothing)
{
    PerformanceMonitorState state;
    state.setPart(16, "x", true, true, 1);
    state.setPart(-1, "x", true, true, 1);
    EXPECT_EQ(state, PerformanceMonitorState());
}

TEST(PerformanceMonitorState, SetPartMasksTheProgramToSevenBits)
{
    PerformanceMonitorState state;
    state.setPart(2, "073:Flute", false, false, 200);
    EXPECT_EQ(state.parts[2].program, 72);
}

TEST(PerformanceMonitorState, RenamingAToneThatNoUserPartHoldsReturnsFalse)
{
    PerformanceMonitorState state;
    EXPECT_FALSE(state.updateUserPartNames(false, 0, "001:Mine")) << "factory parts keep their names";
    state.setPart(0, "005:Mine", true, false, 4);
    EXPECT_FALSE(state.updateUserPartNames(false, 5, "006:Other"));
    EXPECT_FALSE(state.updateUserPartNames(true, 4, "001:Drums")) << "a melody part is no drum part";
    EXPECT_EQ(state.parts[0].name, "005:Mine");
}

TEST(PerformanceMonitorState, RenamingAToneOnTwoChannelsRenamesBoth)
{
    PerformanceMonitorState state;
    state.setPart(0, "005:Mine", true, false, 4);
    state.setPart(7, "005:Mine", true, false, 4);
    EXPECT_TRUE(state.updateUserPartNames(false, 4 + 128, "005:Renamed")) << "programs are compared in seven bits";
    EXPECT_EQ(state.parts[0].name, "005:Renamed");
    EXPECT_EQ(state.parts[7].name, "005:Renamed");
    EXPECT_EQ(state.parts[1].name, "001:Piano 1");
}

TEST(PerformanceMonitorState, RenamingInAnEmptyListReturnsFalse)
{
    PerformanceMonitorState state;
    state.parts.clear();
    EXPECT_FALSE(state.updateUserPartNames(false, 0, "x"));
}

TEST(PerformanceMonitorState, ResetBringsBackTheStandardSetOnChannelTen)
{
    PerformanceMonitorState state;
    state.setPart(9, "001:Mine", true, true, 0);
    state.reset();
    EXPECT_EQ(state, PerformanceMonitorState());
    EXPECT_EQ(state.parts[9].name, "001:Standard Set");
}

TEST(PerformanceMonitorState, DisplayTextMarksAUserPartWithAnApostrophe)
{
    PerformanceMonitorState state;
    state.setPart(15, "005:Mine", true, false, 4);
    EXPECT_EQ(state.displayText(0), "CH01 001:Piano 1");
    EXPECT_EQ(state.displayText(15), "CH16'005:Mine");
    EXPECT_EQ(state.displayText(16), std::nullopt);
    EXPECT_EQ(state.displayText(-1), std::nullopt);
}

} // namespace
} // namespace tonavelle
