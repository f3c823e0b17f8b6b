#pragma once

#include "platform/MIDISystem.h"
#include "platform/SequencerPort.h"

#include <cstdint>
#include <map>
#include <set>

namespace orvim {

/// Gives each destination its handle: generation (16 bits), client (8), port (8). The generation of an address grows
/// with each start or exit seen for it, so that a device that was plugged in again, or another one that got the same
/// numbers, is a new row. A port can be listed before its start is announced; that start then changes nothing, or what
/// was sent to the new row meanwhile would count as sent to a device that is gone.
class EndpointTable
{
public:
    MIDIEndpointRef handle(SequencerAddress address) const;
    /// The handle under which the port stands in the list from now on.
    MIDIEndpointRef list(SequencerAddress address);
    void portStarted(SequencerAddress address);
    void portEnded(SequencerAddress address);
    /// The client ended, and with it all its ports.
    void clientEnded(std::uint8_t client);
    /// Announcements were lost, and ends may have been among them.
    void announcementsLost();
    /// No start or exit was seen since the handle was given.
    bool isCurrent(MIDIEndpointRef endpoint) const;

    static SequencerAddress address(MIDIEndpointRef endpoint);

private:
    std::map<SequencerAddress, std::uint16_t> portGenerations;
    std::map<std::uint8_t, std::uint16_t> clientGenerations;
    std::set<SequencerAddress> listed; ///< since the last end seen for them
};

} // namespace orvim
