#pragma once

#include "platform/DestinationRoute.h"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace orvim::test {

/// A receiver with a ring of `room` bytes that a test fills, empties and pulls out. May be used by several threads.
class FakeReceiver
{
public:
    using Bytes = std::vector<std::uint8_t>;

    /// Takes `bytes` out of its ring.
    void take(std::size_t bytes)
    {
        const std::lock_guard lock(mutex);
        taken += std::min(bytes, waiting);
        waiting -= std::min(bytes, waiting);
    }

    void takeAllAtOnce(bool atOnce)
    {
        const std::lock_guard lock(mutex);
        takesAtOnce = atOnce;
        taken += waiting;
        waiting = 0;
    }

    void setOpenStatus(MIDIStatus status)
    {
        const std::lock_guard lock(mutex);
        openStatus = status;
    }

    void setLookStatus(MIDIStatus status)
    {
        const std::lock_guard lock(mutex);
        lookStatus = status;
    }

    void setWriteStatus(MIDIStatus status)
    {
        const std::lock_guard lock(mutex);
        writeStatus = status;
    }

    std::vector<Bytes> messages() const
    {
        const std::lock_guard lock(mutex);
        return written;
    }

    int nudges() const
    {
        const std::lock_guard lock(mutex);
        return nudgeCount;
    }

    bool waitForMessages(std::size_t count) const
    {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(20), [&] { return written.size() >= count; });
    }

    bool waitForClose() const
    {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(20), [&] { return isClosed; });
    }

private:
    friend class FakeRoute;

    static constexpr std::size_t room = 1024;

    mutable std::mutex mutex;
    mutable std::condition_variable changed;
    std::vector<Bytes> written;
    std::size_t waiting = 0;
    std::size_t taken = 0;
    bool takesAtOnce = true;
    bool isClosed = false;
    int nudgeCount = 0;
    MIDIStatus openStatus = 0;
    MIDIStatus lookStatus = 0;
    MIDIStatus writeStatus = 0;
};

class FakeRoute : public DestinationRoute
{
public:
    explicit FakeRoute(std::shared_ptr<FakeReceiver> fakeReceiver) : receiver(std::move(fakeReceiver)) {}

    ~FakeRoute() override
    {
        const std::lock_guard lock(receiver->mutex);
        receiver->isClosed = true;
        receiver->changed.notify_all();
    }

    MIDIStatus open() override
    {
        const std::lock_guard lock(receiver->mutex);
        return receiver->openStatus;
    }

    RouteLook look(std::size_t length) override
    {
        const std::lock_guard lock(receiver->mutex);
        return {.status = receiver->lookStatus,
                .hasRoom = receiver->waiting + length <= FakeReceiver::room,
                .isDrained = receiver->waiting == 0,
                .progress = receiver->taken};
    }

    MIDIStatus write(std::span<const std::uint8_t> message) override
    {
        const std::lock_guard lock(receiver->mutex);
        if (receiver->writeStatus != 0) return receiver->writeStatus;
        receiver->written.emplace_back(message.begin(), message.end());
        (receiver->takesAtOnce ? receiver->taken : receiver->waiting) += message.size();
        receiver->changed.notify_all();
        return 0;
    }

    void nudge() override
    {
        const std::lock_guard lock(receiver->mutex);
        ++receiver->nudgeCount;
    }

private:
    std::shared_ptr<FakeReceiver> receiver;
};

} // namespace orvim::test
