#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace orvim {

/// How long a receiver may stand still.
struct StallLimits {
    std::chrono::microseconds nudgeAfter = std::chrono::milliseconds(300);
    std::chrono::microseconds timeOutAfter = std::chrono::seconds(5);
};

/// Judges whether a receiver moves. At rest until the first look; each look that shows progress starts the time anew,
/// a nudge is asked for once in a standstill, and after the time-out the receiver counts as hung.
class StallWatch
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    enum class Verdict { moving, nudge, timedOut };

    explicit StallWatch(const StallLimits& stallLimits = {}) : limits(stallLimits) {}

    /// `progress`: a number that changes when the receiver takes something.
    Verdict look(std::uint64_t progress, TimePoint now);
    /// Forgets the standstill so far: something was sent, or there is nothing to wait for.
    void rest() { standstill.reset(); }

private:
    struct Standstill {
        std::uint64_t progress = 0;
        TimePoint since;
        bool nudged = false;
    };

    StallLimits limits;
    std::optional<Standstill> standstill;
};

} // namespace orvim
