#pragma once

#include "platform/MIDISystem.h"
#include "platform/SequencerPort.h"

#include <cstdint>
#include <map>

namespace orvim
{

/// Gives each destination its handle: generation (16 bits), client (8), port (8). The generation of an address grows
/// with each start or exit seen for it, so that a device that was plugged in again, or another one that got the same
/// numbers, is a new row.
class EndpointTable
{
public:
    MIDIEndpointRef handle(SequencerAddress address) const;
    /// The port was started or ended.
    void advance(SequencerAddress address);
    /// The client ended, and with it all its ports.
    void advanceClient(std::uint8_t client);
    /// No start or exit was seen since the handle was given.
    bool isCurrent(MIDIEndpointRef endpoint) const;

    static SequencerAddress address(MIDIEndpointRef endpoint);

private:
    std::map<SequencerAddress, std::uint16_t> portGenerations;
    std::map<std::uint8_t, std::uint16_t> clientGenerations;
};

} // namespace orvim
