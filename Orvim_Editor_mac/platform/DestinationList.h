#pragma once

#include "platform/SequencerPort.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvim {

/// One row of the list of destinations.
struct ListedDestination {
    SequencerPort port;
    std::string name;
    bool operator==(const ListedDestination&) const = default;
};

/// The destinations among `ports`, in the order of the list: devices first, then software, each by client and port.
/// The first port of a device has the device's name and its n-th is "MIDIOUTn (DEVICE)". Software is "CLIENT: PORT", or
/// the port's name alone where it begins with the client's. "Midi Through" is left out: it takes everything and leads
/// nowhere, and would be chosen whenever the module is not there.
std::vector<ListedDestination> listDestinations(std::vector<SequencerPort> ports, std::uint8_t ownClient);

} // namespace orvim
