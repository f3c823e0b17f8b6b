#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace tonavelle {

/// What a message of the module's own protocol carries behind its head: the command byte and the parameters. One F0 in
/// front and one F7 at the end may be there or not. Nothing for any other message.
std::optional<std::span<const std::uint8_t>> moduleFrameContent(std::span<const std::uint8_t> message);

} // namespace tonavelle
