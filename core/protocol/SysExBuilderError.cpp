#include "core/protocol/SysExBuilderError.h"

#include <array>
#include <cstdio>
#include <string>

namespace tonavelle {

namespace {

std::string description(std::uint8_t byte)
{
    std::array<char, 4> digits{};
    std::snprintf(digits.data(), digits.size(), "%X", unsigned{byte});
    return "SysExのデータバイトは0x00...0x7Fである必要があります: 0x" + std::string(digits.data());
}

} // namespace

SysExBuilderError::SysExBuilderError(std::uint8_t byte) : std::runtime_error(description(byte)), refusedByte(byte) {}

SysExBuilderError SysExBuilderError::invalidDataByte(std::uint8_t byte)
{
    return SysExBuilderError(byte);
}

} // namespace tonavelle
