#pragma once

#include "core/protocol/Message.h"

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace orvim::test {

/// The message `index` (below 16,384) of a long transfer: `length` (9 or more) bytes in the module's frame, each
/// message different from every other.
tonavelle::Message numberedMessage(std::size_t index, std::size_t length = 137);
tonavelle::Batch numberedMessages(std::size_t count, std::size_t length = 137);

tonavelle::Message joined(const tonavelle::Batch& messages);

/// What came over a wire, taken apart into whole messages.
struct Arrivals {
    tonavelle::Batch messages; ///< all, in their order
    tonavelle::Batch systemExclusive;
    tonavelle::Batch others;
    std::vector<std::size_t> otherOffsets; ///< where each of the others began in the stream
    std::size_t strayBytes = 0;            ///< bytes that belong to no whole message
};
Arrivals takenApart(const tonavelle::Message& stream);

/// What a sequencer beside the module would have written: a MIDI file with one message a tick.
std::vector<std::uint8_t> recordedFile(const tonavelle::Batch& messages);

/// Whether both are the same; says where they part, not what they are, for they may be a million bytes long.
testing::AssertionResult sameBytes(const tonavelle::Message& arrived, const tonavelle::Message& sent);
/// The same where the end of what was sent may be missing, because the way broke.
testing::AssertionResult isBeginning(const tonavelle::Message& arrived, const tonavelle::Message& sent);

} // namespace orvim::test
