#include "core/text/UTF8.h"

#include <cassert>
#include <cstdint>

namespace tonavelle {

namespace {

/// What the first byte of a sequence promises: its length, the bits it carries, and the bounds of its second byte.
/// The bounds keep out overlong forms, surrogates and values above 0x10FFFF.
struct Lead {
    std::size_t length;
    char32_t bits;
    std::uint8_t lowest;
    std::uint8_t highest;
};

constexpr Lead leadOf(std::uint8_t byte)
{
    if (byte < 0x80) return {1, byte, 0, 0};
    if (byte < 0xC2) return {0, 0, 0, 0};
    if (byte < 0xE0) return {2, byte & 0x1Fu, 0x80, 0xBF};
    if (byte < 0xF0) {
        const std::uint8_t lowest = byte == 0xE0 ? 0xA0 : 0x80;
        const std::uint8_t highest = byte == 0xED ? 0x9F : 0xBF;
        return {3, byte & 0x0Fu, lowest, highest};
    }
    if (byte < 0xF5) {
        const std::uint8_t lowest = byte == 0xF0 ? 0x90 : 0x80;
        const std::uint8_t highest = byte == 0xF4 ? 0x8F : 0xBF;
        return {4, byte & 0x07u, lowest, highest};
    }
    return {0, 0, 0, 0};
}

char continuation(char32_t scalar, int shift)
{
    return static_cast<char>(0x80 | ((scalar >> shift) & 0x3F));
}

} // namespace

ScalarStep readScalar(std::string_view utf8)
{
    assert(!utf8.empty());
    const Lead lead = leadOf(static_cast<std::uint8_t>(utf8[0]));
    if (lead.length == 0) return {replacementScalar, 1, false};
    char32_t scalar = lead.bits;
    std::uint8_t lowest = lead.lowest;
    std::uint8_t highest = lead.highest;
    for (std::size_t i = 1; i < lead.length; ++i) {
        if (i >= utf8.size()) return {replacementScalar, i, false};
        const auto byte = static_cast<std::uint8_t>(utf8[i]);
        if (byte < lowest || byte > highest) return {replacementScalar, i, false};
        scalar = (scalar << 6) | (byte & 0x3Fu);
        lowest = 0x80;
        highest = 0xBF;
    }
    return {scalar, lead.length, true};
}

void appendScalar(std::string& utf8, char32_t scalar)
{
    if ((scalar >= 0xD800 && scalar <= 0xDFFF) || scalar > 0x10FFFF) scalar = replacementScalar;
    if (scalar < 0x80) {
        utf8 += static_cast<char>(scalar);
    } else if (scalar < 0x800) {
        utf8 += static_cast<char>(0xC0 | (scalar >> 6));
        utf8 += continuation(scalar, 0);
    } else if (scalar < 0x10000) {
        utf8 += static_cast<char>(0xE0 | (scalar >> 12));
        utf8 += continuation(scalar, 6);
        utf8 += continuation(scalar, 0);
    } else {
        utf8 += static_cast<char>(0xF0 | (scalar >> 18));
        utf8 += continuation(scalar, 12);
        utf8 += continuation(scalar, 6);
        utf8 += continuation(scalar, 0);
    }
}

std::size_t scalarCount(std::string_view utf8)
{
    std::size_t count = 0;
    for (; !utf8.empty(); ++count)
        utf8.remove_prefix(readScalar(utf8).byteCount);
    return count;
}

bool isUTF8(std::string_view utf8)
{
    while (!utf8.empty()) {
        const ScalarStep step = readScalar(utf8);
        if (!step.isWellFormed) return false;
        utf8.remove_prefix(step.byteCount);
    }
    return true;
}

} // namespace tonavelle
