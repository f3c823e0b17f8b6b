#include "platform/StallWatch.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

using namespace std::chrono_literals;
using Verdict = StallWatch::Verdict;

const StallWatch::TimePoint start{};

TEST(StallWatch, AsksForOneNudgeAfter300Milliseconds)
{
    StallWatch watch;
    EXPECT_EQ(watch.look(7, start), Verdict::moving);
    EXPECT_EQ(watch.look(7, start + 299ms), Verdict::moving);
    EXPECT_EQ(watch.look(7, start + 300ms), Verdict::nudge);
    EXPECT_EQ(watch.look(7, start + 301ms), Verdict::moving);
    EXPECT_EQ(watch.look(7, start + 4999ms), Verdict::moving);
}

TEST(StallWatch, TimesOutAfterFiveSecondsWithoutProgress)
{
    StallWatch watch;
    watch.look(7, start);
    watch.look(7, start + 300ms);
    EXPECT_EQ(watch.look(7, start + 5000ms), Verdict::timedOut);
}

TEST(StallWatch, AnyProgressStartsTheTimeAnew)
{
    StallWatch watch;
    watch.look(7, start);
    EXPECT_EQ(watch.look(8, start + 4900ms), Verdict::moving);
    EXPECT_EQ(watch.look(8, start + 9800ms), Verdict::nudge);
    EXPECT_EQ(watch.look(8, start + 9900ms), Verdict::timedOut);
}

TEST(StallWatch, ANumberThatFallsIsProgressToo)
{
    StallWatch watch;
    watch.look(7, start);
    EXPECT_EQ(watch.look(6, start + 6s), Verdict::moving);
}

TEST(StallWatch, TimeAtRestDoesNotCount)
{
    StallWatch watch;
    watch.look(7, start);
    watch.rest();
    EXPECT_EQ(watch.look(7, start + 60s), Verdict::moving);
    EXPECT_EQ(watch.look(7, start + 60s + 300ms), Verdict::nudge);
}

} // namespace
} // namespace orvim
