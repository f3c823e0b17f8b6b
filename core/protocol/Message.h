#pragma once

#include <cstdint>
#include <vector>

namespace tonavelle {

/// One whole MIDI message; a System Exclusive one runs from 0xF0 to 0xF7.
using Message = std::vector<std::uint8_t>;

/// Messages that belong to one action, in the order in which they are sent.
using Batch = std::vector<Message>;

} // namespace tonavelle
