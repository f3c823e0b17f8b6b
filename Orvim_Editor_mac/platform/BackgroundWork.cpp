#include "platform/BackgroundWork.h"

#include <QEventLoop>
#include <QMetaObject>

#include <exception>
#include <thread>

namespace orvim {

namespace {

constexpr int hasFinished = 1;

} // namespace

bool runInBackground(const std::function<void()>& work)
{
    QEventLoop loop;
    std::exception_ptr failure;
    std::thread worker([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            &loop, [&loop] { loop.exit(hasFinished); }, Qt::QueuedConnection);
    });
    const bool goesOn = loop.exec(QEventLoop::ExcludeUserInputEvents) == hasFinished;
    worker.join();
    if (failure) std::rethrow_exception(failure);
    return goesOn;
}

} // namespace orvim
