#include "platform/RoomRules.h"

#include <algorithm>
#include <cerrno>

namespace orvim {
namespace {

constexpr std::size_t headroom = 256;     ///< bytes of a ring that stay free
constexpr std::size_t bytesPerCell = 28;  ///< of a system exclusive message in a receiver's pool
constexpr std::size_t bytesPerPacket = 6; ///< of a system exclusive message in one Universal MIDI Packet

std::size_t dividedUp(std::size_t value, std::size_t divisor)
{
    return (value + divisor - 1) / divisor;
}

RouteLook tooLong()
{
    return {.status = -EMSGSIZE};
}

const RawMIDIStream* openOutput(std::span<const RawMIDIStream> streams, unsigned subdevice)
{
    const auto found = std::ranges::find_if(streams, [subdevice](const RawMIDIStream& stream) {
        return stream.isOutput && stream.subdevice == subdevice && stream.ring;
    });
    return found == streams.end() ? nullptr : &*found;
}

/// Bytes that left any output of the device. Its ports share one connection and take turns, so that progress on one
/// of them is progress for all.
std::uint64_t transferredByAll(std::span<const RawMIDIStream> streams)
{
    std::uint64_t sum = 0;
    for (const RawMIDIStream& stream : streams) {
        if (stream.isOutput) sum += stream.transferred;
    }
    return sum;
}

} // namespace

std::optional<RouteLook> hardwareRoom(std::span<const RawMIDIStream> streams, unsigned subdevice, std::size_t length)
{
    const RawMIDIStream* stream = openOutput(streams, subdevice);
    if (stream == nullptr) return std::nullopt;
    const auto [size, available] = *stream->ring;
    if (length > size) return tooLong();
    return RouteLook{.hasRoom = available >= length + std::min(headroom, size - length),
                     .isDrained = available == size,
                     .progress = transferredByAll(streams)};
}

RouteLook readerRoom(std::span<const RawMIDIStream> streams, std::size_t length)
{
    RouteLook look{.hasRoom = true, .isDrained = true};
    for (const RawMIDIStream& stream : streams) {
        if (stream.isOutput || !stream.ring) continue;
        const auto [size, waiting] = *stream.ring;
        if (length > size) return tooLong();
        const std::size_t room = size - waiting;
        look.hasRoom = look.hasRoom && room >= length + std::min(headroom, size - length);
        look.progress += room;
    }
    return look;
}

RouteLook poolRoom(std::size_t free, std::size_t total, std::size_t length)
{
    const std::size_t cells = 1 + dividedUp(length, bytesPerCell);
    if (total <= cells) return tooLong();
    const std::size_t needed = std::max(cells, std::min(2 + dividedUp(length, bytesPerPacket), total));
    return {.hasRoom = free >= needed, .isDrained = true, .progress = free};
}

std::optional<std::uint64_t> bytesWritten(std::span<const RawMIDIStream> streams, unsigned subdevice)
{
    const RawMIDIStream* stream = openOutput(streams, subdevice);
    if (stream == nullptr) return std::nullopt;
    return stream->transferred + stream->ring->size - stream->ring->available;
}

} // namespace orvim
