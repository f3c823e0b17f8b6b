#pragma once

#include <string>

namespace orvim {

/// Names the calling thread and asks for realtime scheduling, which ordinary users are often refused; without it the
/// thread goes on as it is. Children of the thread do not inherit it.
void becomeRealtimeThread(const std::string& name);

} // namespace orvim
