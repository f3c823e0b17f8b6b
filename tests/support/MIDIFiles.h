#pragma once

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "tests/support/Bytes.h"

#include <initializer_list>
#include <string_view>

namespace orvim::test {

/// The pieces one behind the other.
inline tonavelle::Message joined(std::initializer_list<tonavelle::Message> pieces)
{
    tonavelle::Message result;
    for (const auto& piece : pieces)
        result.insert(result.end(), piece.begin(), piece.end());
    return result;
}

/// A track chunk with the length that `data`, hexadecimal, has.
inline tonavelle::Message track(std::string_view data)
{
    const auto content = bytes(data);
    const auto length =
        tonavelle::SimpleMIDIFileBuilder::encodeUInt32BigEndian(static_cast<std::uint32_t>(content.size()));
    return joined({bytes("4D 54 72 6B"), {length.begin(), length.end()}, content});
}

/// A file of format 1 and 480 ticks a quarter note with one track.
inline tonavelle::Message fileWithTrack(std::string_view data)
{
    return joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 01 01 E0"), track(data)});
}

} // namespace orvim::test
