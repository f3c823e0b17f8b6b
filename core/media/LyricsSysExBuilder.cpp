#include "core/media/LyricsSysExBuilder.h"

#include "core/protocol/SysExBuilder.h"
#include "core/text/ShiftJIS.h"

#include <algorithm>
#include <span>

namespace tonavelle::LyricsSysExBuilder
{

std::vector<std::uint8_t> trimShiftJISBytes(std::vector<std::uint8_t> bytes, std::size_t maxByteCount)
{
    bytes.resize(std::min(bytes.size(), maxByteCount));
    std::size_t end = 0;
    while (end < bytes.size()) {
        const std::size_t length = shiftJISCharacterLength(std::span(bytes).subspan(end));
        if (length == 0) break;
        end += length;
    }
    bytes.resize(end);
    return bytes;
}

std::vector<std::uint8_t> shiftJISNibbleBytes(std::string_view text)
{
    std::vector<std::uint8_t> nibbles;
    for (const std::uint8_t byte : trimShiftJISBytes(encodeShiftJISLossy(text), japaneseTextByteLimit)) {
        nibbles.push_back(byte >> 4);
        nibbles.push_back(byte & 0x0F);
    }
    return nibbles;
}

Message japaneseCharacterAdd(std::string_view text, JapaneseCharacterLine line)
{
    std::vector<std::uint8_t> parameters = shiftJISNibbleBytes(text);
    parameters.insert(parameters.begin(), static_cast<std::uint8_t>(line));
    return SysExBuilder::frame(Command::japaneseCharacterAdd, parameters);
}

} // namespace tonavelle::LyricsSysExBuilder
