#pragma once

#include <cstdint>
#include <stdexcept>

namespace tonavelle {

/// A builder was given a byte above 0x7F where it checks for data bytes; what() is the text for the user, in UTF-8.
class SysExBuilderError : public std::runtime_error
{
public:
    static SysExBuilderError invalidDataByte(std::uint8_t byte);

    /// The byte that was refused.
    std::uint8_t byte() const { return refusedByte; }

private:
    explicit SysExBuilderError(std::uint8_t byte);

    std::uint8_t refusedByte;
};

} // namespace tonavelle
