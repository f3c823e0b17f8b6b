#pragma once

#include "core/protocol/Message.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvim::test {

/// The bytes of a text such as "F0 00 48": two hexadecimal digits a byte; blanks and line ends between them are free.
/// Throws std::invalid_argument on any other character, so that a mistyped expectation cannot pass.
inline tonavelle::Message bytes(std::string_view text)
{
    const auto digit = [](char c) {
        if (c >= '0' && c <= '9') return c - '0';
        if (c >= 'A' && c <= 'F') return c - 'A' + 10;
        throw std::invalid_argument("not a hexadecimal digit: " + std::string(1, c));
    };
    tonavelle::Message result;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == ' ' || text[i] == '\n') {
            ++i;
            continue;
        }
        if (i + 1 >= text.size()) throw std::invalid_argument("half a byte at the end");
        result.push_back(static_cast<std::uint8_t>(digit(text[i]) * 16 + digit(text[i + 1])));
        i += 2;
    }
    return result;
}

} // namespace orvim::test
