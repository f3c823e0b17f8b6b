#include "platform/BackgroundWork.h"

#include <QEventLoop>
#include <QMetaObject>

#include <exception>
#include <thread>

namespace orvim {

bool runInBackground(const std::function<void()>& work)
{
    QEventLoop loop;
    bool hasFinished = false;
    std::exception_ptr failure;
    std::thread worker([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            &loop,
            [&] {
                hasFinished = loop.isRunning(); // Not where the application was told to quit before.
                loop.quit();
            },
            Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    worker.join();
    if (!hasFinished) return false;
    if (failure) std::rethrow_exception(failure);
    return true;
}

} // namespace orvim
