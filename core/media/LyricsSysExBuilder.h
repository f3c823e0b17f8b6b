#pragma once

#include "core/protocol/Message.h"
#include "core/protocol/ModuleCommands.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// The messages that put Japanese text on the module's screen.
namespace tonavelle::LyricsSysExBuilder
{

/// The most bytes of Shift_JIS that one message adds to a row.
inline constexpr std::size_t japaneseTextByteLimit = 32;

/// Appends `text` (UTF-8) to a row; what is beyond 32 bytes of Shift_JIS falls away by whole characters, and what
/// Shift_JIS lacks becomes '?'. An empty text gives a message without data.
Message japaneseCharacterAdd(std::string_view text, JapaneseCharacterLine line);

/// The longest beginning of at most `maxByteCount` bytes that is a row of whole Shift_JIS characters.
std::vector<std::uint8_t> trimShiftJISBytes(std::vector<std::uint8_t> bytes, std::size_t maxByteCount);

/// The data bytes of an added text: each byte of its trimmed Shift_JIS form as two nibbles, the high one first.
std::vector<std::uint8_t> shiftJISNibbleBytes(std::string_view text);

} // namespace tonavelle::LyricsSysExBuilder
