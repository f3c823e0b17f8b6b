#pragma once

#include "platform/DeliveryPump.h"
#include "platform/LaneQueue.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>

namespace orvim {

/// Serves one destination on a thread of its own: it holds the messages that wait and writes them as the receiver has
/// room, realtime messages first. The thread keeps the worker alive until everything is done, and nobody waits for it,
/// as closing a hung destination takes the kernel up to 10 s.
///
/// After a failure the waiting messages are dropped. A destination that is gone or hung stays failed; after any other
/// failure the next message is tried again. Every member may be called from any thread, and none of them waits unless
/// it says so.
class DestinationWorker : public std::enable_shared_from_this<DestinationWorker>
{
public:
    struct Failure {
        MIDIStatus status = 0;
        MIDILane lane = MIDILane::normal; ///< realtime: no normal message was lost
        bool operator==(const Failure&) const = default;
    };

    /// Called on any thread, without locks. `stirred`: there is room again, or the destination has failed.
    struct Events {
        std::function<void()> stirred;
        std::function<void(const std::shared_ptr<DestinationWorker>&, MIDIStatus)> failed;
    };

    static std::shared_ptr<DestinationWorker> start(std::unique_ptr<DestinationRoute> route, Events events,
                                                    const DeliveryTimes& times = {});

    /// Takes one message: 0, or the code of a failure. Absent when the worker has ended, and another has to be started.
    std::optional<MIDIStatus> send(std::span<const std::uint8_t> message, MIDILane lane);
    /// More than 64 KiB wait on the normal lane.
    bool isFull() const;
    /// Messages wait on the normal lane.
    bool hasNormalWaiting() const;
    /// A failure that cost messages and has not been told by `send` yet; giving it counts as telling. A realtime `send`
    /// tells no loss of normal messages.
    std::optional<Failure> takeFailure();

    /// The destination is known to have failed; nothing more is tried on it.
    void fail(MIDIStatus status);
    /// Ends as soon as everything is delivered.
    void retire();
    /// Takes back `retire`. False when it is too late for that or the destination has failed for good.
    bool keep();
    /// Drops what waits and begins to close.
    void abandon();
    /// Waits for the end, or at least the beginning, of closing. False when `deadline` came first.
    bool waitClosed(std::chrono::steady_clock::time_point deadline) const;
    bool waitClosing(std::chrono::steady_clock::time_point deadline) const;

private:
    enum class Phase { delivering, closing, closed };

    explicit DestinationWorker(Events workerEvents);
    void run(std::unique_ptr<DestinationRoute> route, const DeliveryTimes& times);
    void deliver(DeliveryPump& pump);
    void finish(const DeliveryPump::Step& step, const QueuedMessageRef& message, std::unique_lock<std::mutex>& lock);
    void written(const QueuedMessageRef& message, std::unique_lock<std::mutex>& lock);
    void failLocked(MIDIStatus status, std::unique_lock<std::mutex>& lock);
    std::optional<MIDIStatus> answerOfFailure(MIDILane lane);
    bool isFailedForGood() const;
    void enter(Phase next);
    bool waitFor(Phase wanted, std::chrono::steady_clock::time_point deadline) const;

    const Events events;
    mutable std::mutex mutex;
    std::condition_variable work;
    mutable std::condition_variable phaseChanged;
    LaneQueue queue;
    std::optional<MIDILane> undrainedLane; ///< of what was written and may not have arrived
    std::optional<MIDIStatus> failure;
    std::optional<Failure> untold;
    bool urgent = false; ///< a pause has to end early
    bool retired = false;
    bool abandoned = false;
    Phase phase = Phase::delivering;
};

} // namespace orvim
