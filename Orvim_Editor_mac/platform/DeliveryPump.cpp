#include "platform/DeliveryPump.h"

#include <algorithm>
#include <cerrno>

namespace orvim {
namespace {

DeliveryPump::Step failure(MIDIStatus status)
{
    return {.kind = DeliveryPump::Step::Kind::failed, .status = status};
}

} // namespace

DeliveryPump::DeliveryPump(DestinationRoute& destinationRoute, const DeliveryTimes& deliveryTimes)
    : route(destinationRoute), times(deliveryTimes), stallWatch(deliveryTimes.stall),
      nextPause(deliveryTimes.firstPause)
{
}

void DeliveryPump::connect()
{
    connected = connected || route.open() == 0;
}

DeliveryPump::Step DeliveryPump::advance(std::span<const std::uint8_t> message, TimePoint now)
{
    if (!connected) {
        const Step step = stepToOpen(now);
        if (!connected) return step;
    }
    const RouteLook look = route.look(message.size());
    if (look.status != 0) return failure(look.status);
    if (!look.hasRoom) return stepToMove(look.progress, now);
    const MIDIStatus status = route.write(message);
    if (status == -EAGAIN) return stepToMove(look.progress, now);
    if (status != 0) return failure(status);
    undrained = true;
    moved();
    return {};
}

DeliveryPump::Step DeliveryPump::drain(TimePoint now)
{
    if (!undrained) return {};
    const RouteLook look = route.look(0);
    if (look.status != 0) return failure(look.status);
    if (!look.isDrained) return stepToMove(look.progress, now);
    undrained = false;
    moved();
    return {};
}

DeliveryPump::Step DeliveryPump::stepToOpen(TimePoint now)
{
    const MIDIStatus status = route.open();
    if (status == 0) {
        connected = true;
        firstOpenFailure.reset();
        return {};
    }
    if (!firstOpenFailure) firstOpenFailure = now;
    if (now - *firstOpenFailure < times.openPatience) return {.kind = Step::Kind::pause, .pause = times.openPause};
    firstOpenFailure.reset();
    return failure(status);
}

DeliveryPump::Step DeliveryPump::stepToMove(std::uint64_t progress, TimePoint now)
{
    switch (stallWatch.look(progress, now)) {
    case StallWatch::Verdict::timedOut:
        return failure(-ETIMEDOUT);
    case StallWatch::Verdict::nudge:
        route.nudge();
        return pauseLonger();
    case StallWatch::Verdict::moving:
        return pauseLonger();
    }
    return pauseLonger();
}

DeliveryPump::Step DeliveryPump::pauseLonger()
{
    const Step step{.kind = Step::Kind::pause, .pause = nextPause};
    nextPause = std::min(nextPause + nextPause / 2, times.longestPause);
    return step;
}

void DeliveryPump::moved()
{
    stallWatch.rest();
    nextPause = times.firstPause;
}

} // namespace orvim
