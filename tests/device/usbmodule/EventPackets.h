#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace orvim::test {

/// Takes a USB transfer apart into its event packets of four bytes: calls `take` with the port and the one to three
/// MIDI bytes of each. Packets of zeros, which pad a transfer, and a torn packet at the end carry nothing. Returns the
/// number of MIDI bytes.
std::size_t readEventPackets(std::span<const std::uint8_t> transfer,
                             const std::function<void(std::size_t port, std::span<const std::uint8_t> bytes)>& take);

} // namespace orvim::test
