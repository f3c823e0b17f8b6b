#include "core/protocol/ByteAppender.h"

#include <algorithm>
#include <utility>

namespace tonavelle {

void ByteAppender::overwrite(std::size_t offset, std::span<const std::uint8_t> bytes)
{
    flush();
    std::ranges::copy(bytes, m_bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

std::vector<std::uint8_t> ByteAppender::take() &&
{
    flush();
    return std::move(m_bytes);
}

void ByteAppender::flush()
{
    const auto pending = std::span(m_pending).first(m_pendingCount);
    m_bytes.insert(m_bytes.end(), pending.begin(), pending.end());
    m_pendingCount = 0;
}

void ByteAppender::appendUnbuffered(std::span<const std::uint8_t> bytes)
{
    flush();
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

} // namespace tonavelle
