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

TEST(RealtimeQueue, RunsEverythingPostedBeforeItEnds)
{
    int finished = 0;
    std::promise<void> release;
    const std::shared_future<void> released = release.get_future().share();
    auto queue = std::make_unique<RealtimeQueue>("test");
    queue->post([released] { released.wait(); });
    for (int i = 0; i < 100; ++i) {
        queue->post([&finished] { ++finished; });
    }
    std::thread opener([&release] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        release.set_value();
    });
    queue.reset();
    opener.join();
    EXPECT_EQ(finished, 100);
}

} // namespace
} // namespace orvim
