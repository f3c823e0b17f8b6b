#include "usbmodule/EventPackets.h"

#include <array>

namespace orvim::test {

namespace {

/// MIDI bytes in a packet, by the code index number in the low half of its first byte.
constexpr std::array<std::size_t, 16> lengths{0, 0, 2, 3, 3, 1, 2, 3, 3, 3, 3, 3, 2, 2, 3, 1};

} // namespace

std::size_t readEventPackets(std::span<const std::uint8_t> transfer,
                             const std::function<void(std::size_t port, std::span<const std::uint8_t> bytes)>& take)
{
    std::size_t total = 0;
    for (; transfer.size() >= 4; transfer = transfer.subspan(4)) {
        const std::size_t length = lengths[transfer[0] & 0x0F];
        if (length > 0) take(transfer[0] >> 4, transfer.subspan(1, length));
        total += length;
    }
    return total;
}

} // namespace orvim::test
