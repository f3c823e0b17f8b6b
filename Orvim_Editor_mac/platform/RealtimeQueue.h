#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace orvim {

/// Runs jobs one after another, in the order in which they were posted, on a thread of its own with the highest
/// priority that the user may have.
class RealtimeQueue
{
public:
    explicit RealtimeQueue(const std::string& name);
    RealtimeQueue(const RealtimeQueue&) = delete;
    RealtimeQueue& operator=(const RealtimeQueue&) = delete;
    /// Waits until every job posted has run, so that a note begun is also ended.
    ~RealtimeQueue();

    /// From any thread; never waits. The job must not throw.
    void post(std::function<void()> job);

private:
    void run();

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> jobs;
    bool stopping = false;
    std::thread thread;
};

} // namespace orvim
