#include "platform/MainThreadDoor.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace orvim {
namespace {

using namespace std::chrono_literals;

TEST(MainThreadDoor, DoesJobsFromOtherThreadsOnTheMainThreadInOrder)
{
    MainThreadDoor door;
    std::vector<int> order;
    std::thread::id thread;
    std::thread([&] {
        door.post([&] { order.push_back(1); });
        door.post([&] {
            order.push_back(2);
            thread = std::this_thread::get_id();
        });
    }).join();
    EXPECT_TRUE(order.empty());
    EXPECT_TRUE(door.waitUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (std::vector{1, 2}));
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST(MainThreadDoor, NothingComesThroughAClosedDoor)
{
    MainThreadDoor door;
    int jobs = 0;
    door.post([&] { ++jobs; });
    door.close();
    door.post([&] { ++jobs; });
    QCoreApplication::processEvents();
    EXPECT_EQ(jobs, 0);
}

TEST(MainThreadDoor, ClosingLetsGoOfJobsThatOwnTheDoor)
{
    auto door = std::make_shared<MainThreadDoor>();
    const std::weak_ptr<MainThreadDoor> observer = door;
    door->post([door] { FAIL(); });
    door->close();
    door.reset();
    EXPECT_TRUE(observer.expired());
}

TEST(MainThreadDoor, TimersRunWhileItWaits)
{
    MainThreadDoor door;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1);
    EXPECT_TRUE(door.waitUntil([&] { return ticks >= 5; }));
}

TEST(MainThreadDoor, StirringEndsTheWaitOfAnotherThreadsDoing)
{
    MainThreadDoor door;
    std::atomic<bool> done = false;
    std::thread other([&] {
        std::this_thread::sleep_for(20ms);
        done = true;
        door.stir();
    });
    EXPECT_TRUE(door.waitUntil([&] { return done.load(); }));
    other.join();
}

TEST(MainThreadDoor, WhatIsDoneAlreadyIsNotWaitedFor)
{
    MainThreadDoor door;
    bool ran = false;
    QTimer::singleShot(0, [&] { ran = true; });
    EXPECT_TRUE(door.waitUntil([] { return true; }));
    EXPECT_FALSE(ran);
    QCoreApplication::processEvents();
}

TEST(MainThreadDoor, WaitsWithinItself)
{
    MainThreadDoor door;
    bool innerDone = false;
    bool outerDone = false;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(30, [&] { outerDone = true; });
        QTimer::singleShot(60, [&] { innerDone = true; });
        EXPECT_TRUE(door.waitUntil([&] { return innerDone; }));
    });
    EXPECT_TRUE(door.waitUntil([&] { return outerDone; }));
    EXPECT_TRUE(innerDone);
}

TEST(MainThreadDoor, WhatAnInputMethodSendsIsKeptUntilTheWaitIsOver)
{
    MainThreadDoor door;
    QLineEdit field;
    bool done = false;
    QTimer::singleShot(0, [&] {
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("かな"));
        QCoreApplication::sendEvent(&field, &commit);
        EXPECT_EQ(field.text(), QString());
        QTimer::singleShot(20, [&] { done = true; });
    });
    EXPECT_TRUE(door.waitUntil([&] { return done; }));
    EXPECT_EQ(field.text(), QString());
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), QStringLiteral("かな"));
}

TEST(MainThreadDoor, QuittingEndsTheWaitAndEveryLaterOne)
{
    MainThreadDoor door;
    bool first = true;
    bool second = true;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [] { QCoreApplication::quit(); });
        first = door.waitUntil([] { return false; });
        second = door.waitUntil([] { return false; });
    });
    QCoreApplication::exec();
    EXPECT_FALSE(first);
    EXPECT_FALSE(second);
}

} // namespace
} // namespace orvim
