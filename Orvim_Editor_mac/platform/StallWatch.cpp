#include "platform/StallWatch.h"

namespace orvim {

StallWatch::Verdict StallWatch::look(std::uint64_t progress, TimePoint now)
{
    if (!standstill || standstill->progress != progress) {
        standstill = Standstill{progress, now, false};
        return Verdict::moving;
    }
    const auto still = now - standstill->since;
    if (still >= limits.timeOutAfter) return Verdict::timedOut;
    if (still < limits.nudgeAfter || standstill->nudged) return Verdict::moving;
    standstill->nudged = true;
    return Verdict::nudge;
}

} // namespace orvim
