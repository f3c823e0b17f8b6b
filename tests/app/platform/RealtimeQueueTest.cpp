#include "platform/RealtimeQueue.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <vector>

namespace orvim {
namespace {

TEST(RealtimeQueue, RunsJobsInTheirOrderOnOneOtherThread)
{
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    std::promise<void> done;
    RealtimeQueue queue("Orvim Editor Mac Realtime MIDI");
    for (int i = 0; i < 100; ++i) {
        queue.post([&, i] {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
            if (i == 99) done.set_value();
        });
    }
    done.get_future().wait();
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
        EXPECT_EQ(threads[static_cast<std::size_t>(i)], threads[0]);
    }
    EXPECT_NE(threads[0], std::this_thread::get_id());
}

TEST(RealtimeQueue, EndsWithTheJobThatIsRunningAndDropsTheRest)
{
    constexpr int jobs = 1000;
    int begun = 0;
    int finished = 0;
    std::promise<void> running;
    auto queue = std::make_unique<RealtimeQueue>("test");
    for (int i = 0; i < jobs; ++i) {
        queue->post([&] {
            if (++begun == 1) running.set_value();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            ++finished;
        });
    }
    running.get_future().wait();
    queue.reset();
    EXPECT_EQ(finished, begun);
    EXPECT_LT(finished, jobs);
}

} // namespace
} // namespace orvim
