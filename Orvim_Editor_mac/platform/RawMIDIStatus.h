#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace orvim {

/// One stream of a raw MIDI device, as the kernel's text about the device shows it.
struct RawMIDIStream {
    /// The ring between the program and the driver; there is one only while somebody holds the stream open.
    struct Ring {
        std::size_t size = 0;      ///< bytes
        std::size_t available = 0; ///< free bytes of an output, waiting bytes of an input
        bool operator==(const Ring&) const = default;
    };

    bool isOutput = false;
    unsigned subdevice = 0;
    std::uint64_t transferred = 0; ///< bytes that ever left an output's ring; 0 for inputs
    std::optional<Ring> ring;

    bool operator==(const RawMIDIStream&) const = default;
};

/// Reads the text of `/proc/asound/card*/midi*`. Lines that are not understood are passed over.
std::vector<RawMIDIStream> parseRawMIDIStatus(std::string_view text);

} // namespace orvim
