#include "core/media/LyricsSysExBuilder.h"

#include "core/protocol/ModuleFrameContent.h"
#include "core/protocol/SysExBuilder.h"
#include "core/text/ShiftJIS.h"

#include <algorithm>
#include <span>

namespace tonavelle::LyricsSysExBuilder {

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

namespace {

// A delete command's number is its target's wire value plus this.
constexpr int firstDeleteNumber = static_cast<int>(LyricsCommand::deleteBoth);

std::string textOfNibbles(std::span<const std::uint8_t> nibbles)
{
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i + 1 < nibbles.size(); i += 2)
        bytes.push_back(static_cast<std::uint8_t>(nibbles[i] << 4 | (nibbles[i + 1] & 0x0F)));
    return decodeShiftJIS(bytes).value_or(std::string());
}

} // namespace

Message sysEx(LyricsCommand command, std::string_view text)
{
    const auto number = static_cast<std::uint8_t>(command);
    if (isAddCommand(command)) return japaneseCharacterAdd(text, static_cast<JapaneseCharacterLine>(number));
    return SysExBuilder::japaneseCharacterDelete(
        static_cast<JapaneseCharacterDeleteTarget>(number - firstDeleteNumber));
}

std::optional<LyricsCommandAndText> decodedCommand(std::span<const std::uint8_t> message)
{
    const auto content = moduleFrameContent(message);
    if (!content || content->size() < 2) return std::nullopt;
    const std::uint8_t wireValue = (*content)[1];
    switch (static_cast<Command>(content->front())) {
    case Command::japaneseCharacterDelete:
        if (content->size() != 2 || !japaneseCharacterDeleteTarget(wireValue)) return std::nullopt;
        return LyricsCommandAndText{static_cast<LyricsCommand>(wireValue + firstDeleteNumber), {}};
    case Command::japaneseCharacterAdd:
        if (!japaneseCharacterLine(wireValue)) return std::nullopt;
        return LyricsCommandAndText{static_cast<LyricsCommand>(wireValue), textOfNibbles(content->subspan(2))};
    default:
        return std::nullopt;
    }
}

} // namespace tonavelle::LyricsSysExBuilder
