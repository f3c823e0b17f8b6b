#pragma once

#include "core/protocol/Message.h"

#include <cstdint>
#include <string_view>

namespace orvim::test {

inline constexpr std::uint8_t outEndpointAddress = 0x02; ///< from the host to the module
inline constexpr std::uint8_t inEndpointAddress = 0x81;

/// What a module with `ports` (1...16) USB MIDI ports has to write to its controller's gadgetfs file to be plugged in:
/// its configuration at full and at high speed, and its device descriptor.
tonavelle::Message moduleDescription(std::uint8_t ports);

/// What it has to write to the file of one of its two endpoints.
tonavelle::Message endpointDescription(std::uint8_t address);

/// The answer to a request for the string `index`: 0 the list of languages, 1 the maker, 2 `product` (ASCII).
tonavelle::Message stringDescriptor(std::uint8_t index, std::string_view product);

} // namespace orvim::test
