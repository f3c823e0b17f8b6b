#pragma once

#include "core/protocol/Message.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <span>
#include <vector>

namespace orvim::test {

using Clock = std::chrono::steady_clock;

/// What arrived at one port of a module: its bytes in their order and the time at which each came. Any thread.
class Wire
{
public:
    void add(std::span<const std::uint8_t> bytes);
    tonavelle::Message bytes() const;
    std::size_t size() const;
    /// When the byte at `offset`, below size(), came.
    Clock::time_point timeOf(std::size_t offset) const;
    /// When the last byte came; the clock's epoch before any did.
    Clock::time_point lastArrival() const;

private:
    struct Piece {
        std::size_t end;
        Clock::time_point time;
    };
    mutable std::mutex mutex;
    tonavelle::Message arrived;
    std::vector<Piece> pieces;
};

} // namespace orvim::test
