#pragma once

#include "platform/InputHold.h"

#include <QObject>

#include <functional>
#include <mutex>

namespace orvim {

/// The way from other threads to the main thread, which makes and closes it.
class MainThreadDoor : public QObject
{
    Q_OBJECT

public:
    /// Has `job` done by the main thread. From any thread; after `close` nothing happens.
    void post(std::function<void()> job);
    /// Makes those that wait look again. From any thread.
    void stir();
    /// No job runs after this; those that wait are let go. On the main thread.
    void close();

    /// Waits on the main thread until `isDone`, which is asked when stirred and every few milliseconds. The window goes
    /// on painting and timers run; what the user types or presses meanwhile is kept until the end, and drops are
    /// refused where they cannot wait. May be called within itself. False: the application is to quit, and there is no
    /// more waiting.
    bool waitUntil(const std::function<bool()>& isDone);

Q_SIGNALS:
    void stirred();

private:
    std::mutex mutex;
    bool isOpen = true;
    InputHold inputHold;
};

} // namespace orvim
