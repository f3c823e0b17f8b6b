#pragma once

#include <functional>

namespace orvim {

/// Does `work` on another thread and waits for it on the main thread. The window goes on painting and timers run; keys
/// and presses are kept until the end. What `work` throws is thrown on. False: the application is to quit;
/// there is no more to begin, and what `work` threw no longer matters.
bool runInBackground(const std::function<void()>& work);

} // namespace orvim
