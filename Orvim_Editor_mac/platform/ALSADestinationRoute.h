#pragma once

#include "platform/DestinationRoute.h"
#include "platform/RoomSources.h"
#include "platform/SequencerClient.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvim {

/// The names under which the editor shows up in the sequencer.
struct SequencerNames {
    std::string client;
    std::string port;
};

/// The way to a destination of the machine's sequencer. Each route is a client of its own: while the kernel closes a
/// hung device, the client that was connected to it can do nothing else.
class ALSADestinationRoute : public DestinationRoute
{
public:
    /// `disturbed` counts the messages that another program may have written into.
    ALSADestinationRoute(SequencerAddress destinationAddress, SequencerNames sequencerNames,
                         std::shared_ptr<std::atomic<std::uint64_t>> disturbedMessages);

    ~ALSADestinationRoute() override;

    MIDIStatus open() override;
    RouteLook look(std::size_t length) override;
    MIDIStatus write(std::span<const std::uint8_t> message) override;
    void nudge() override;

private:
    MIDIStatus connect();
    std::optional<RouteLook> lookAtAll(std::size_t length);
    void countForeignBytes();

    SequencerAddress destination;
    SequencerNames names;
    std::shared_ptr<std::atomic<std::uint64_t>> disturbed;
    std::unique_ptr<SequencerClient> sequencer;
    std::vector<std::unique_ptr<RoomSource>> sources;
    std::optional<std::uint64_t> expectedBytes; ///< in the ring ever, if nobody else writes; known during a run
};

} // namespace orvim
