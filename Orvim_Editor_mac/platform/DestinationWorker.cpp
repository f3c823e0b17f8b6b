#include "platform/DestinationWorker.h"

#include "platform/ThreadPriority.h"

#include <cerrno>
#include <thread>
#include <utility>

namespace orvim {
namespace {

constexpr std::size_t fullBytes = 64 * 1024;
/// A sender that waits is woken here, not at each message.
constexpr std::size_t roomyBytes = fullBytes - 8 * 1024;

bool isForGood(MIDIStatus status)
{
    return status == -ENODEV || status == -ETIMEDOUT;
}

} // namespace

std::shared_ptr<DestinationWorker> DestinationWorker::start(std::unique_ptr<DestinationRoute> route, Events events,
                                                            const DeliveryTimes& times)
{
    const std::shared_ptr<DestinationWorker> worker(new DestinationWorker(std::move(events)));
    std::thread([worker, times, ownRoute = std::move(route)]() mutable {
        becomeRealtimeThread("Orvim MIDI out");
        worker->run(std::move(ownRoute), times);
    }).detach();
    return worker;
}

DestinationWorker::DestinationWorker(Events workerEvents) : events(std::move(workerEvents)) {}

std::optional<MIDIStatus> DestinationWorker::send(std::span<const std::uint8_t> message, MIDILane lane)
{
    const auto queued = std::make_shared<const QueuedMessage>(QueuedMessage{{message.begin(), message.end()}, lane});
    const std::lock_guard lock(mutex);
    if (const auto status = answerOfFailure(lane)) return status;
    if (phase != Phase::delivering) return std::nullopt;
    if (lane == MIDILane::realtime || queue.isEmpty()) {
        urgent = true;
        work.notify_one();
    }
    queue.push(queued);
    return 0;
}

/// What a send on `lane` has to answer instead of taking its message. A realtime send leaves the loss of normal
/// messages to be told as what it is.
std::optional<MIDIStatus> DestinationWorker::answerOfFailure(MIDILane lane)
{
    std::optional<Failure> told;
    if (untold && (lane == MIDILane::normal || untold->lane == MIDILane::realtime)) std::swap(told, untold);
    if (isFailedForGood()) return failure;
    failure.reset();
    return told ? std::optional(told->status) : std::nullopt;
}

bool DestinationWorker::isFull() const
{
    const std::lock_guard lock(mutex);
    return queue.normalBytes() > fullBytes;
}

bool DestinationWorker::hasNormalWaiting() const
{
    const std::lock_guard lock(mutex);
    return queue.hasNormal();
}

std::optional<DestinationWorker::Failure> DestinationWorker::takeFailure()
{
    const std::lock_guard lock(mutex);
    return std::exchange(untold, std::nullopt);
}

void DestinationWorker::fail(MIDIStatus status)
{
    std::unique_lock lock(mutex);
    failLocked(status, lock);
}

void DestinationWorker::retire()
{
    const std::lock_guard lock(mutex);
    retired = true;
    work.notify_one();
}

bool DestinationWorker::keep()
{
    const std::lock_guard lock(mutex);
    if (phase != Phase::delivering || isFailedForGood()) return false;
    retired = false;
    return true;
}

void DestinationWorker::abandon()
{
    const std::lock_guard lock(mutex);
    abandoned = true;
    urgent = true;
    queue.clear();
    work.notify_one();
}

bool DestinationWorker::waitClosed(std::chrono::steady_clock::time_point deadline) const
{
    return waitFor(Phase::closed, deadline);
}

bool DestinationWorker::waitClosing(std::chrono::steady_clock::time_point deadline) const
{
    return waitFor(Phase::closing, deadline);
}

bool DestinationWorker::waitFor(Phase wanted, std::chrono::steady_clock::time_point deadline) const
{
    std::unique_lock lock(mutex);
    return phaseChanged.wait_until(lock, deadline, [this, wanted] { return phase >= wanted; });
}

void DestinationWorker::run(std::unique_ptr<DestinationRoute> route, const DeliveryTimes& times)
{
    {
        DeliveryPump pump(*route, times);
        pump.connect();
        deliver(pump);
    }
    route.reset();
    const std::lock_guard lock(mutex);
    enter(Phase::closed);
}

void DestinationWorker::deliver(DeliveryPump& pump)
{
    std::unique_lock lock(mutex);
    while (!abandoned && !isFailedForGood()) {
        urgent = false;
        const QueuedMessageRef message = queue.front();
        if (!message && !pump.hasUndrained()) {
            undrainedLane.reset();
            if (retired) break;
            work.wait(lock);
            continue;
        }
        lock.unlock();
        const auto now = std::chrono::steady_clock::now();
        const DeliveryPump::Step step = message ? pump.advance(message->bytes, now) : pump.drain(now);
        lock.lock();
        finish(step, message, lock);
    }
    enter(Phase::closing);
}

void DestinationWorker::finish(const DeliveryPump::Step& step, const QueuedMessageRef& message,
                               std::unique_lock<std::mutex>& lock)
{
    switch (step.kind) {
    case DeliveryPump::Step::Kind::done:
        if (message) written(message, lock);
        return;
    case DeliveryPump::Step::Kind::pause:
        work.wait_for(lock, step.pause, [this] { return urgent; });
        return;
    case DeliveryPump::Step::Kind::failed:
        failLocked(step.status, lock);
        return;
    }
}

void DestinationWorker::written(const QueuedMessageRef& message, std::unique_lock<std::mutex>& lock)
{
    if (undrainedLane != MIDILane::normal) undrainedLane = message->lane;
    const bool wasCrowded = queue.normalBytes() > roomyBytes;
    queue.remove(message);
    if (!wasCrowded || queue.normalBytes() > roomyBytes) return;
    lock.unlock();
    events.stirred();
    lock.lock();
}

void DestinationWorker::failLocked(MIDIStatus status, std::unique_lock<std::mutex>& lock)
{
    if (isFailedForGood()) return;
    failure = status;
    if (!queue.isEmpty() || undrainedLane) {
        const bool normalLost =
            queue.hasNormal() || undrainedLane == MIDILane::normal || (untold && untold->lane == MIDILane::normal);
        untold = Failure{status, normalLost ? MIDILane::normal : MIDILane::realtime};
    }
    queue.clear();
    urgent = true;
    work.notify_one();
    lock.unlock();
    events.failed(shared_from_this(), status);
    events.stirred();
    lock.lock();
}

bool DestinationWorker::isFailedForGood() const
{
    return failure && isForGood(*failure);
}

void DestinationWorker::enter(Phase next)
{
    phase = next;
    phaseChanged.notify_all();
}

} // namespace orvim
