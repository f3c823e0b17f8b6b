#pragma once

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "tests/support/Bytes.h"

#include <cstdint>
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

/// A meta event whose data is `content`.
inline tonavelle::SimpleMIDITimedEvent metaEvent(std::int64_t time, std::uint8_t type, std::string_view content)
{
    const auto size =
        tonavelle::SimpleMIDIFileBuilder::variableLengthQuantity(static_cast<std::int64_t>(content.size()));
    return {time, joined({{0xFF, type}, size, tonavelle::Message(content.begin(), content.end())})};
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
