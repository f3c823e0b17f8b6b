#include "core/protocol/SysExBuilder.h"

#include "core/text/UTF8.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tonavelle::SysExBuilder {

namespace {

constexpr std::uint8_t endOfSysEx = 0xF7;
constexpr std::array<std::uint8_t, 5> displayFrameHead{0xF0, 0x41, 0x10, 0x45, 0x12};
constexpr std::size_t letterLimit = 32;
constexpr std::size_t dotRowCount = 16;
constexpr std::size_t dotColumnCount = 16;
constexpr std::size_t dotsPerByte = 5;
constexpr std::size_t dotGroupCount = 4;

using Address = std::array<std::uint8_t, 3>;
constexpr Address letterAddress{0x10, 0x00, 0x00};
constexpr Address dotAddress{0x10, 0x01, 0x00};

std::uint8_t checkedDataByte(std::uint8_t byte)
{
    if ((byte & 0x80) != 0) throw SysExBuilderError::invalidDataByte(byte);
    return byte;
}

std::uint8_t maskedDataByte(std::uint8_t byte)
{
    return byte & 0x7F;
}

Message command(Command command)
{
    return frame(command, {});
}

Message command(Command command, std::uint8_t parameter)
{
    return frame(command, std::array{parameter});
}

/// The seven low bits of the two's complement of the sum of the address and the data.
std::uint8_t displayChecksum(const Address& address, std::span<const std::uint8_t> data)
{
    unsigned sum = 0;
    for (const std::uint8_t byte : address)
        sum += byte;
    for (const std::uint8_t byte : data)
        sum += byte;
    return static_cast<std::uint8_t>((0u - sum) & 0x7F);
}

Message displayFrame(const Address& address, std::span<const std::uint8_t> data)
{
    Message message(displayFrameHead.size() + address.size() + data.size() + 2);
    auto end = std::ranges::copy(displayFrameHead, message.begin()).out;
    end = std::ranges::copy(address, end).out;
    end = std::ranges::copy(data, end).out;
    *end++ = displayChecksum(address, data);
    *end = endOfSysEx;
    return message;
}

bool isDotOn(const DotRows& rows, std::size_t row, std::size_t column)
{
    return row < rows.size() && column < rows[row].size() && rows[row][column];
}

/// Five dots of a row, the leftmost in bit 4. The fourth group has one column of the grid, the others lie beyond it.
std::uint8_t dotByte(const DotRows& rows, std::size_t group, std::size_t row)
{
    unsigned byte = 0;
    for (std::size_t i = 0; i < dotsPerByte; ++i) {
        const std::size_t column = group * dotsPerByte + i;
        const bool isOn = column < dotColumnCount && isDotOn(rows, row, column);
        byte = byte << 1 | (isOn ? 1u : 0u);
    }
    return static_cast<std::uint8_t>(byte);
}

} // namespace

Message frame(Command command, std::span<const std::uint8_t> parameters)
{
    Message message(moduleFrameHead.size() + parameters.size() + 2);
    auto end = std::ranges::copy(moduleFrameHead, message.begin()).out;
    *end++ = static_cast<std::uint8_t>(command);
    end = std::ranges::copy(parameters, end).out;
    *end = endOfSysEx;
    return message;
}

Message tonavelleReset()
{
    return command(Command::tonavelleReset, 0);
}

Message uiTypeSet(std::uint8_t value)
{
    return command(Command::uiTypeSet, checkedDataByte(value));
}

Message faceBlinkingSet(bool on)
{
    return command(Command::faceBlinkingSet, on);
}

Message japaneseCharacterMode(bool on)
{
    return command(Command::japaneseCharacterMode, on);
}

Message japaneseCharacterDelete(JapaneseCharacterDeleteTarget target)
{
    return command(Command::japaneseCharacterDelete, static_cast<std::uint8_t>(target));
}

Message uiFaceSet(UIFacePart part, std::uint8_t index)
{
    return frame(Command::uiFaceSet, std::array{static_cast<std::uint8_t>(part), checkedDataByte(index)});
}

Message imageDraw64x64(std::uint8_t screenNumber)
{
    return command(Command::imageDraw64x64, checkedDataByte(screenNumber));
}

Message lcdColorSet(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return frame(Command::lcdColorSet, std::array{maskedDataByte(red), maskedDataByte(green), maskedDataByte(blue)});
}

Message debugMode(bool on)
{
    return command(Command::debugMode, on);
}

Message versionDisplay()
{
    return command(Command::versionDisplay);
}

Message displayDataLetter(std::string_view text)
{
    std::vector<std::uint8_t> letters;
    for (const char32_t scalar : UTF8Scalars(text)) {
        if (letters.size() == letterLimit) break;
        if (scalar >= 0x20 && scalar <= 0x7E) letters.push_back(static_cast<std::uint8_t>(scalar));
    }
    return displayFrame(letterAddress, letters);
}

Message displayDataDot(const DotRows& rows)
{
    std::array<std::uint8_t, dotGroupCount * dotRowCount> data{};
    for (std::size_t group = 0; group < dotGroupCount; ++group) {
        for (std::size_t row = 0; row < dotRowCount; ++row)
            data[group * dotRowCount + row] = dotByte(rows, group, row);
    }
    return displayFrame(dotAddress, data);
}

Message gmSystemOn()
{
    return {0xF0, 0x7E, 0x7F, 0x09, 0x01, 0xF7};
}

Message gm2SystemOn()
{
    return {0xF0, 0x7E, 0x7F, 0x09, 0x03, 0xF7};
}

Message gsReset()
{
    return {0xF0, 0x41, 0x10, 0x42, 0x12, 0x40, 0x00, 0x7F, 0x00, 0x41, 0xF7};
}

Message xgSystemOn()
{
    return {0xF0, 0x43, 0x10, 0x4C, 0x00, 0x00, 0x7E, 0x00, 0xF7};
}

std::string hexString(std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) text += ' ';
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

} // namespace tonavelle::SysExBuilder
