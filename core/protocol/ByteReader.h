#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tonavelle {

/// Walks through bytes from outside and never reads beyond them: a read that does not fit throws `PastEnd`, and the
/// cursor then stands where it was or behind what fitted.
class ByteReader
{
public:
    struct PastEnd {
    }; ///< a read of more bytes than are left
    struct QuantityTooLong {
    }; ///< a variable-length quantity with a fifth byte coming

    explicit ByteReader(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    /// May lie behind the end after `moveTo`; nothing can be read there.
    std::size_t position() const { return m_position; }
    bool atEnd() const { return m_position >= m_bytes.size(); }
    std::size_t remaining() const { return atEnd() ? 0 : m_bytes.size() - m_position; }
    void moveTo(std::size_t position) { m_position = position; }

    std::uint8_t peek() const
    {
        if (atEnd()) throw PastEnd();
        return m_bytes[m_position];
    }

    std::uint8_t byte()
    {
        const std::uint8_t value = peek();
        ++m_position;
        return value;
    }

    std::span<const std::uint8_t> bytes(std::size_t count)
    {
        if (count > remaining()) throw PastEnd();
        const auto result = m_bytes.subspan(m_position, count);
        m_position += count;
        return result;
    }

    std::uint16_t uint16BigEndian()
    {
        const auto two = bytes(2);
        return static_cast<std::uint16_t>(two[0] << 8 | two[1]);
    }

    std::uint32_t uint32BigEndian()
    {
        const std::uint32_t high = uint16BigEndian();
        return high << 16 | uint16BigEndian();
    }

    /// One to four bytes of seven bits each, 0...268,435,455.
    std::uint32_t variableLengthQuantity()
    {
        const std::uint8_t first = byte();
        return first < 0x80 ? first : longQuantity(first);
    }

private:
    std::uint32_t longQuantity(std::uint8_t first)
    {
        std::uint32_t value = first & 0x7Fu;
        for (int i = 1; i < 4; ++i) {
            const std::uint8_t next = byte();
            value = value << 7 | (next & 0x7Fu);
            if (next < 0x80) return value;
        }
        throw QuantityTooLong();
    }

    std::span<const std::uint8_t> m_bytes;
    std::size_t m_position = 0;
};

} // namespace tonavelle
