#pragma once

#include "platform/DestinationRoute.h"
#include "platform/RawMIDIStatus.h"

#include <cstddef>
#include <optional>
#include <span>

namespace orvim {

/// Whether a message of `length` bytes may be written now to output `subdevice` of a device with these streams. The
/// sequencer drops what does not fit into the ring without a word, so some of it is always left free. Absent when
/// nobody holds the output open.
std::optional<RouteLook> hardwareRoom(std::span<const RawMIDIStream> streams, unsigned subdevice, std::size_t length);

/// The same for a virtual device, whose readers hold its inputs open; with no reader there is always room.
RouteLook readerRoom(std::span<const RawMIDIStream> streams, std::size_t length);

/// The same for a program that receives through `free` of `total` cells. A program that takes Universal MIDI Packets
/// needs one cell for every 6 bytes, any other one for every 28.
RouteLook poolRoom(std::size_t free, std::size_t total, std::size_t length);

/// Bytes ever written into the ring of output `subdevice`. While the ring moves this may come out too small, never
/// too big.
std::optional<std::uint64_t> bytesWritten(std::span<const RawMIDIStream> streams, unsigned subdevice);

} // namespace orvim
