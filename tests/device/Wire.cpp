#include "Wire.h"

#include <algorithm>

namespace orvim::test {

void Wire::add(std::span<const std::uint8_t> bytes)
{
    if (bytes.empty()) return;
    const std::lock_guard lock(mutex);
    arrived.insert(arrived.end(), bytes.begin(), bytes.end());
    pieces.push_back({arrived.size(), Clock::now()});
}

tonavelle::Message Wire::bytes() const
{
    const std::lock_guard lock(mutex);
    return arrived;
}

std::size_t Wire::size() const
{
    const std::lock_guard lock(mutex);
    return arrived.size();
}

Clock::time_point Wire::timeOf(std::size_t offset) const
{
    const std::lock_guard lock(mutex);
    return std::ranges::upper_bound(pieces, offset, {}, &Piece::end)->time;
}

Clock::time_point Wire::lastArrival() const
{
    const std::lock_guard lock(mutex);
    return pieces.empty() ? Clock::time_point{} : pieces.back().time;
}

} // namespace orvim::test
