#include "platform/MainThreadDoor.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <utility>

namespace orvim {

void MainThreadDoor::post(std::function<void()> job)
{
    const std::lock_guard lock(mutex);
    if (!isOpen) return;
    QMetaObject::invokeMethod(
        this,
        [this, ownJob = std::move(job)] {
            // Only the main thread closes the door, so that it cannot close during the job.
            if (isOpen) ownJob();
        },
        Qt::QueuedConnection);
}

void MainThreadDoor::stir()
{
    post([this] { Q_EMIT stirred(); });
}

void MainThreadDoor::close()
{
    {
        const std::lock_guard lock(mutex);
        isOpen = false;
    }
    // A job that waits may own what owns this door. Left to the end of the application, it would destroy the door from
    // within the clearing of the queue, which would then wait for itself.
    QCoreApplication::removePostedEvents(this);
}

bool MainThreadDoor::waitUntil(const std::function<bool()>& isDone)
{
    if (isDone()) return true;
    bool done = false;
    QEventLoop loop;
    const auto look = [&] {
        if (!isDone()) return;
        done = true;
        loop.quit();
    };
    QTimer timer;
    constexpr auto lookingInterval = std::chrono::milliseconds(15);
    QObject::connect(&timer, &QTimer::timeout, &loop, look);
    QObject::connect(this, &MainThreadDoor::stirred, &loop, look);
    timer.start(lookingInterval);
    inputHold.begin();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    inputHold.end();
    return done;
}

} // namespace orvim
