#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tonavelle {

/// Decodes Shift_JIS, in the Windows-31J repertoire, to UTF-8; nothing if any byte has no meaning.
/// 0x5C and 0x7E are backslash and tilde; 0x80, 0xA0 and 0xFD...0xFF begin no character.
std::optional<std::string> decodeShiftJIS(std::span<const std::uint8_t> bytes);

/// The Shift_JIS code of one Unicode scalar, one byte or lead and trail; nothing if it has none.
std::optional<std::uint16_t> shiftJISCode(char32_t scalar);

/// Encodes UTF-8 as Shift_JIS; nothing if any scalar has no code or the text is ill-formed. Characters that have two
/// usual Unicode forms, such as the wave dash, are taken in both.
std::optional<std::vector<std::uint8_t>> encodeShiftJIS(std::string_view utf8);

/// Encodes UTF-8 as Shift_JIS with one '?' for each scalar that has no code and for each ill-formed part.
std::vector<std::uint8_t> encodeShiftJISLossy(std::string_view utf8);

/// Decodes text of unknown encoding to UTF-8: as Shift_JIS if it is valid Shift_JIS, else as UTF-8, else nothing.
std::optional<std::string> decodeText(std::span<const std::uint8_t> bytes);

/// The bytes, 1 or 2, of the Shift_JIS character that `bytes` begin with, by its form alone: the code need not be
/// assigned. 0 where no whole character stands there.
std::size_t shiftJISCharacterLength(std::span<const std::uint8_t> bytes);

} // namespace tonavelle
