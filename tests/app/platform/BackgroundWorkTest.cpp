#include "platform/BackgroundWork.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

namespace orvim {
namespace {

TEST(RunInBackground, TimersRunWhileTheWorkGoesOn)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1);
    std::thread::id worker;
    EXPECT_TRUE(runInBackground([&] {
        worker = std::this_thread::get_id();
        QThread::msleep(100);
    }));
    EXPECT_GT(ticks, 0);
    EXPECT_NE(worker, std::this_thread::get_id());
}

TEST(RunInBackground, AnErrorOfTheWorkComesOut)
{
    EXPECT_THROW(runInBackground([] { throw std::runtime_error("broken"); }), std::runtime_error);
}

/// What `runInBackground` says of the work when the application quits with `code` in the middle of it.
bool goesOnAfterQuit(int code, const std::function<void()>& work)
{
    bool goesOn = true;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [code] { QCoreApplication::exit(code); });
        goesOn = runInBackground([&] {
            QThread::msleep(100);
            work();
        });
    });
    QCoreApplication::exec();
    return goesOn;
}

TEST(RunInBackground, TellsThatTheApplicationQuitsOnceTheWorkIsDone)
{
    bool isDone = false;
    EXPECT_FALSE(goesOnAfterQuit(0, [&] { isDone = true; }));
    EXPECT_TRUE(isDone);
}

TEST(RunInBackground, TheExitCodeDoesNotMatter)
{
    for (const int code : {1, 2, -1})
        EXPECT_FALSE(goesOnAfterQuit(code, [] {})) << code;
}

TEST(RunInBackground, WhileQuittingAnErrorOfTheWorkDoesNotMatter)
{
    EXPECT_FALSE(goesOnAfterQuit(0, [] { throw std::runtime_error("broken"); }));
}

} // namespace
} // namespace orvim
