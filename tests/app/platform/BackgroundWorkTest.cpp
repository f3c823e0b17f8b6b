#include "platform/BackgroundWork.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

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

TEST(RunInBackground, TellsThatTheApplicationQuitsOnceTheWorkIsDone)
{
    bool isDone = false;
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    EXPECT_FALSE(runInBackground([&] {
        QThread::msleep(100);
        isDone = true;
    }));
    EXPECT_TRUE(isDone);
}

} // namespace
} // namespace orvim
