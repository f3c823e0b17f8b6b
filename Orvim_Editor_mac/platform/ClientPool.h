#pragma once

#include "platform/MIDISystem.h"

#include <cstddef>
#include <cstdint>

namespace orvim {

/// The cells in which the sequencer keeps what a program has yet to read.
struct ClientPool {
    std::size_t total = 0;
    std::size_t free = 0;
};

/// Asks the sequencer open as `descriptor` about the pool of `client`; alsa-lib itself asks only about one's own.
/// -ENOENT: there is no such client.
MIDIStatus readClientPool(int descriptor, std::uint8_t client, ClientPool& pool);

} // namespace orvim
