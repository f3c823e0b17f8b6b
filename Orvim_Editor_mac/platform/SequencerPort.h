#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace orvim {

/// Where a port of the machine's sequencer is found. Numbers are used again for other clients and ports.
struct SequencerAddress {
    std::uint8_t client = 0;
    std::uint8_t port = 0;
    auto operator<=>(const SequencerAddress&) const = default;
};

/// What the sequencer knows of one port.
struct SequencerPort {
    static constexpr int noCard = -1;

    SequencerAddress address;
    std::string clientName;
    std::string portName;
    bool isKernelClient = false; ///< a driver; otherwise a program
    bool isHardware = false;     ///< the port leads to a device outside this machine
    bool isOpenToAll = false;    ///< anybody may subscribe to write to it, and it is neither hidden nor inactive
    int card = noCard;

    /// A raw MIDI device of a card stands behind the port.
    bool isDevicePort() const { return isKernelClient && isHardware && card != noCard; }
    bool operator==(const SequencerPort&) const = default;
};

} // namespace orvim
