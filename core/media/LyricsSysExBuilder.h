#pragma once

#include "core/media/LyricsCommand.h"
#include "core/protocol/Message.h"
#include "core/protocol/ModuleCommands.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tonavelle {

/// A lyrics command and the text that it adds, in UTF-8; empty for a delete command.
struct LyricsCommandAndText {
    LyricsCommand command;
    std::string text;

    bool operator==(const LyricsCommandAndText&) const = default;
};

} // namespace tonavelle

/// The messages that put Japanese text on the module's screen.
namespace tonavelle::LyricsSysExBuilder {

/// The most bytes of Shift_JIS that one message adds to a row.
inline constexpr std::size_t japaneseTextByteLimit = 32;

/// Appends `text` (UTF-8) to a row; what is beyond 32 bytes of Shift_JIS falls away by whole characters, and what
/// Shift_JIS lacks becomes '?'. An empty text gives a message without data.
Message japaneseCharacterAdd(std::string_view text, JapaneseCharacterLine line);

/// The longest beginning of at most `maxByteCount` bytes that is a row of whole Shift_JIS characters.
std::vector<std::uint8_t> trimShiftJISBytes(std::vector<std::uint8_t> bytes, std::size_t maxByteCount);

/// The data bytes of an added text: each byte of its trimmed Shift_JIS form as two nibbles, the high one first.
std::vector<std::uint8_t> shiftJISNibbleBytes(std::string_view text);

/// The command's message. The text of a delete command is not looked at.
Message sysEx(LyricsCommand command, std::string_view text);

/// The command that a message gives, with its F0 and F7 or without; nothing if it is none. Nibbles that are no
/// Shift_JIS give an empty text.
std::optional<LyricsCommandAndText> decodedCommand(std::span<const std::uint8_t> message);

} // namespace tonavelle::LyricsSysExBuilder
