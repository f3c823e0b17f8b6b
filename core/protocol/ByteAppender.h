#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace tonavelle {

/// Collects the bytes of a file. Small pieces gather in a buffer of fixed size first, for a file has millions of them.
class ByteAppender
{
public:
    /// `expectedSize` is a guess that spares growing.
    explicit ByteAppender(std::size_t expectedSize) { m_bytes.reserve(expectedSize); }

    std::size_t size() const { return m_bytes.size() + m_pendingCount; }

    void append(std::uint8_t byte)
    {
        if (m_pendingCount == m_pending.size()) flush();
        m_pending[m_pendingCount++] = byte;
    }

    void append(std::span<const std::uint8_t> bytes)
    {
        if (bytes.size() > m_pending.size() - m_pendingCount) return appendUnbuffered(bytes);
        if (!bytes.empty()) std::memcpy(m_pending.data() + m_pendingCount, bytes.data(), bytes.size());
        m_pendingCount += bytes.size();
    }

    /// The first `count` of seven bytes. All seven are copied, for a copy of a fixed size is the quickest.
    void appendFirst(std::size_t count, std::span<const std::uint8_t, 7> bytes)
    {
        if (bytes.size() > m_pending.size() - m_pendingCount) flush();
        std::memcpy(m_pending.data() + m_pendingCount, bytes.data(), bytes.size());
        m_pendingCount += count;
    }

    void appendUInt16BigEndian(std::uint16_t value)
    {
        append(static_cast<std::uint8_t>(value >> 8));
        append(static_cast<std::uint8_t>(value));
    }

    /// Puts `bytes` over what was written at `offset` before.
    void overwrite(std::size_t offset, std::span<const std::uint8_t> bytes);

    std::vector<std::uint8_t> take() &&;

private:
    void flush();
    void appendUnbuffered(std::span<const std::uint8_t> bytes);

    std::vector<std::uint8_t> m_bytes;
    std::array<std::uint8_t, 1024> m_pending;
    std::size_t m_pendingCount = 0;
};

} // namespace tonavelle
