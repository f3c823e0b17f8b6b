#include "platform/ThreadPriority.h"

#include <pthread.h>
#include <sched.h>

namespace orvim {

void becomeRealtimeThread(const std::string& name)
{
    constexpr std::size_t longestName = 15; // what the kernel keeps
    pthread_setname_np(pthread_self(), name.substr(0, longestName).c_str());
    constexpr int priority = 10;
    sched_param parameters{};
    parameters.sched_priority = priority;
    sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &parameters);
}

} // namespace orvim
