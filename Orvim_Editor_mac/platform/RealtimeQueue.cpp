#include "platform/RealtimeQueue.h"

#include "platform/ThreadPriority.h"

#include <utility>

namespace orvim {

RealtimeQueue::RealtimeQueue(const std::string& name)
    : thread([this, name] {
          becomeRealtimeThread(name);
          run();
      })
{
}

RealtimeQueue::~RealtimeQueue()
{
    {
        const std::lock_guard lock(mutex);
        stopping = true;
    }
    changed.notify_one();
    thread.join();
}

void RealtimeQueue::post(std::function<void()> job)
{
    {
        const std::lock_guard lock(mutex);
        jobs.push_back(std::move(job));
    }
    changed.notify_one();
}

void RealtimeQueue::run()
{
    std::unique_lock lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return stopping || !jobs.empty(); });
        if (jobs.empty()) return;
        const std::function<void()> job = std::move(jobs.front());
        jobs.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
}

} // namespace orvim
