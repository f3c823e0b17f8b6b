#include "platform/ALSADestinationRoute.h"

#include <array>
#include <cerrno>
#include <utility>

namespace orvim {

ALSADestinationRoute::ALSADestinationRoute(SequencerAddress destinationAddress, SequencerNames sequencerNames,
                                           std::shared_ptr<std::atomic<std::uint64_t>> disturbedMessages)
    : destination(destinationAddress), names(std::move(sequencerNames)), disturbed(std::move(disturbedMessages))
{
}

ALSADestinationRoute::~ALSADestinationRoute()
{
    if (sequencer) sequencer->unsubscribe(destination);
}

MIDIStatus ALSADestinationRoute::open()
{
    if (!sequencer) {
        auto client = std::make_unique<SequencerClient>();
        if (const MIDIStatus status = client->open(names.client); status != 0) return status;
        if (const MIDIStatus status = client->createOutput(names.port); status != 0) return status;
        sequencer = std::move(client);
    }
    return connect();
}

MIDIStatus ALSADestinationRoute::connect()
{
    // Room is looked for first: where it cannot be seen, nothing may be sent, and the device stays free for others.
    MIDIStatus status = 0;
    auto found = makeRoomSources(*sequencer, destination, status);
    if (status != 0) return status;
    status = sequencer->subscribe(destination);
    if (status == -EINVAL || status == -ENOENT || status == -ENXIO) return -ENODEV;
    if (status != 0) return status;
    sources = std::move(found);
    expectedBytes.reset();
    return 0;
}

RouteLook ALSADestinationRoute::look(std::size_t length)
{
    std::optional<RouteLook> found = lookAtAll(length);
    if (!found) {
        // Somebody has cut our subscription, as patch bays do.
        if (const MIDIStatus status = connect(); status != 0) return {.status = status};
        found = lookAtAll(length);
    }
    if (!found) return {.status = -ENODEV};
    if (found->status == 0) countForeignBytes();
    const bool runEnds = length == 0 && found->isDrained;
    if (runEnds) expectedBytes.reset();
    return *found;
}

std::optional<RouteLook> ALSADestinationRoute::lookAtAll(std::size_t length)
{
    RouteLook all{.hasRoom = true, .isDrained = true};
    for (const auto& source : sources) {
        const std::optional<RouteLook> one = source->look(length);
        if (!one || one->status != 0) return one;
        all.hasRoom = all.hasRoom && one->hasRoom;
        all.isDrained = all.isDrained && one->isDrained;
        constexpr std::uint64_t spread = 1'000'003; // so that changes of two sources do not cancel out
        all.progress = all.progress * spread + one->progress;
    }
    return all;
}

/// A message of another program can end up inside one of ours; all that can be seen is that the ring took more bytes
/// than we wrote.
void ALSADestinationRoute::countForeignBytes()
{
    if (sources.size() != 1) return;
    const std::optional<std::uint64_t> written = sources.front()->bytesWritten();
    if (!written) return;
    if (expectedBytes && *written > *expectedBytes) disturbed->fetch_add(1);
    if (!expectedBytes || *written > *expectedBytes) expectedBytes = written;
}

MIDIStatus ALSADestinationRoute::write(std::span<const std::uint8_t> message)
{
    const MIDIStatus status = sequencer->write(destination, message);
    if (status == 0 && expectedBytes) *expectedBytes += message.size();
    if (status == -ENOENT || status == -ENXIO) return -ENODEV;
    return status;
}

void ALSADestinationRoute::nudge()
{
    // After whole messages a lone end of exclusive is dropped by the driver, but makes it look at its ring again.
    constexpr std::array<std::uint8_t, 1> endOfExclusive{0xF7};
    for (const auto& source : sources) {
        if (!source->isHardware()) continue;
        write(endOfExclusive);
        return;
    }
}

} // namespace orvim
