#include "platform/DestinationWorker.h"

#include "FakeRoute.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <functional>
#include <gmock/gmock.h>
#include <thread>

namespace orvim {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;
using Failure = DestinationWorker::Failure;

const DeliveryTimes impatient{.stall = {.nudgeAfter = 10ms, .timeOutAfter = 50ms}, .openPatience = 20ms};

class DestinationWorkerTest : public testing::Test
{
protected:
    std::shared_ptr<DestinationWorker> start(const DeliveryTimes& times = {})
    {
        auto failed = [this](const std::shared_ptr<DestinationWorker>&, MIDIStatus status) {
            lastFailure = status;
            ++failures;
        };
        worker = DestinationWorker::start(std::make_unique<test::FakeRoute>(receiver),
                                          {.stirred = [this] { ++stirs; }, .failed = failed}, times);
        return worker;
    }

    /// The worker's thread must not outlive what it calls.
    void TearDown() override
    {
        worker->abandon();
        EXPECT_TRUE(worker->waitClosed(soon()));
    }

    static std::chrono::steady_clock::time_point soon() { return std::chrono::steady_clock::now() + 20s; }

    static void waitWhile(const std::function<bool()>& holds)
    {
        for (const auto end = soon(); holds() && std::chrono::steady_clock::now() < end;) {
            std::this_thread::sleep_for(1ms);
        }
    }

    void waitUntilNoneWait() const
    {
        waitWhile([this] { return worker->hasNormalWaiting(); });
        EXPECT_FALSE(worker->hasNormalWaiting());
    }

    void waitForFailures(int count) const
    {
        waitWhile([&] { return failures < count; });
        EXPECT_EQ(failures, count);
    }

    const std::shared_ptr<test::FakeReceiver> receiver = std::make_shared<test::FakeReceiver>();
    std::shared_ptr<DestinationWorker> worker;
    std::atomic<int> stirs = 0;
    std::atomic<int> failures = 0;
    std::atomic<MIDIStatus> lastFailure = 0;
};

TEST_F(DestinationWorkerTest, DeliversEverythingInOrder)
{
    start();
    for (std::uint8_t i = 0; i < 100; ++i) {
        EXPECT_EQ(worker->send(Bytes{0xF0, i, 0xF7}, MIDILane::normal), 0);
    }
    ASSERT_TRUE(receiver->waitForMessages(100));
    for (std::uint8_t i = 0; i < 100; ++i) {
        EXPECT_EQ(receiver->messages()[i], (Bytes{0xF0, i, 0xF7}));
    }
}

TEST_F(DestinationWorkerTest, ARealtimeMessageOvertakesWaitingOnes)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1024, 0x01), MIDILane::normal);
    ASSERT_TRUE(receiver->waitForMessages(1));
    worker->send(Bytes(8, 0x02), MIDILane::normal);
    worker->send(Bytes(8, 0x03), MIDILane::normal);
    worker->send(Bytes(3, 0x90), MIDILane::realtime);
    receiver->takeAllAtOnce(true);
    ASSERT_TRUE(receiver->waitForMessages(4));
    EXPECT_THAT(receiver->messages(), ElementsAre(Bytes(1024, 0x01), Bytes(3, 0x90), Bytes(8, 0x02), Bytes(8, 0x03)));
}

TEST_F(DestinationWorkerTest, ARealtimeMessageGoesWhereALongOneHasNoRoom)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1000, 0x01), MIDILane::normal);
    worker->send(Bytes(100, 0x02), MIDILane::normal);
    worker->send(Bytes(3, 0x90), MIDILane::realtime);
    ASSERT_TRUE(receiver->waitForMessages(2));
    EXPECT_THAT(receiver->messages(), testing::Contains(Bytes(3, 0x90)));
    EXPECT_THAT(receiver->messages(), testing::Not(testing::Contains(Bytes(100, 0x02))));
}

TEST_F(DestinationWorkerTest, NormalMessagesWaitUntilTheyAreWritten)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1024, 0x01), MIDILane::normal);
    waitUntilNoneWait();
    worker->send(Bytes(1024, 0x90), MIDILane::realtime);
    EXPECT_FALSE(worker->hasNormalWaiting());
    worker->send(Bytes(1024, 0x02), MIDILane::normal);
    EXPECT_TRUE(worker->hasNormalWaiting());
    receiver->takeAllAtOnce(true);
    waitUntilNoneWait();
    EXPECT_EQ(receiver->messages().size(), 3u);
}

TEST_F(DestinationWorkerTest, IsFullAbove64KiBAndStirsWhenThereIsRoomAgain)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1024, 0x01), MIDILane::normal);
    ASSERT_TRUE(receiver->waitForMessages(1));
    for (int i = 0; i < 64; ++i) {
        worker->send(Bytes(1024, 0x02), MIDILane::normal);
    }
    EXPECT_FALSE(worker->isFull());
    worker->send(Bytes(1, 0x03), MIDILane::normal);
    EXPECT_TRUE(worker->isFull());
    EXPECT_EQ(stirs, 0);
    receiver->takeAllAtOnce(true);
    ASSERT_TRUE(receiver->waitForMessages(66));
    EXPECT_FALSE(worker->isFull());
    EXPECT_EQ(stirs, 1);
}

TEST_F(DestinationWorkerTest, RealtimeMessagesNeverFillIt)
{
    receiver->takeAllAtOnce(false);
    start();
    for (int i = 0; i < 65; ++i) {
        worker->send(Bytes(1024, 0x01), MIDILane::realtime);
    }
    EXPECT_FALSE(worker->isFull());
}

TEST_F(DestinationWorkerTest, AGoneDestinationAnswersWithItsCodeEveryTime)
{
    receiver->setLookStatus(-ENODEV);
    start();
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::normal), 0);
    waitForFailures(1);
    EXPECT_EQ(lastFailure, -ENODEV);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::normal), -ENODEV);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::realtime), -ENODEV);
    EXPECT_EQ(failures, 1);
    EXPECT_FALSE(worker->keep());
    EXPECT_TRUE(receiver->waitForClose());
}

TEST_F(DestinationWorkerTest, AHungDestinationTimesOutAndDropsWhatWaits)
{
    receiver->takeAllAtOnce(false);
    start(impatient);
    worker->send(Bytes(1024, 0x01), MIDILane::normal);
    for (int i = 0; i < 70; ++i) {
        worker->send(Bytes(1024, 0x02), MIDILane::normal);
    }
    waitForFailures(1);
    EXPECT_EQ(lastFailure, -ETIMEDOUT);
    EXPECT_FALSE(worker->isFull());
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::normal), -ETIMEDOUT);
    EXPECT_EQ(receiver->messages().size(), 1u);
    EXPECT_EQ(receiver->nudges(), 1);
}

TEST_F(DestinationWorkerTest, AMessageThatAHungReceiverNeverTookIsMissedToo)
{
    receiver->takeAllAtOnce(false);
    start(impatient);
    worker->send(Bytes{0xF0, 0xF7}, MIDILane::normal);
    waitForFailures(1);
    EXPECT_EQ(worker->takeFailure(), (Failure{-ETIMEDOUT, MIDILane::normal}));
}

TEST_F(DestinationWorkerTest, AFailureIsTakenOnce)
{
    receiver->setLookStatus(-ENODEV);
    start();
    worker->send(Bytes{0x90}, MIDILane::realtime);
    waitForFailures(1);
    EXPECT_EQ(worker->takeFailure(), (Failure{-ENODEV, MIDILane::realtime}));
    EXPECT_EQ(worker->takeFailure(), std::nullopt);
}

TEST_F(DestinationWorkerTest, AFailureThatASendAnsweredIsNotTakenAgain)
{
    receiver->setLookStatus(-ENODEV);
    start();
    worker->send(Bytes{0x90}, MIDILane::normal);
    waitForFailures(1);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::normal), -ENODEV);
    EXPECT_EQ(worker->takeFailure(), std::nullopt);
}

TEST_F(DestinationWorkerTest, LosingNormalMessagesCountsAsAFailureOfTheNormalLane)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1024, 0x01), MIDILane::realtime);
    ASSERT_TRUE(receiver->waitForMessages(1));
    worker->send(Bytes(8, 0x02), MIDILane::normal);
    worker->send(Bytes(8, 0x03), MIDILane::realtime);
    worker->fail(-ENODEV);
    EXPECT_EQ(worker->takeFailure(), (Failure{-ENODEV, MIDILane::normal}));
}

TEST_F(DestinationWorkerTest, ARealtimeSendLeavesTheLossOfNormalMessagesUntold)
{
    receiver->setLookStatus(-ENODEV);
    start();
    worker->send(Bytes{0xF0, 0xF7}, MIDILane::normal);
    waitForFailures(1);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::realtime), -ENODEV);
    EXPECT_EQ(worker->takeFailure(), (Failure{-ENODEV, MIDILane::normal}));
}

TEST_F(DestinationWorkerTest, ARealtimeSendThatIsTriedAgainLeavesThatLossToTheNextNormalOne)
{
    receiver->setOpenStatus(-EAGAIN);
    start(impatient);
    worker->send(Bytes{0xF0, 0xF7}, MIDILane::normal);
    waitForFailures(1);
    receiver->setOpenStatus(0);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::realtime), 0);
    ASSERT_TRUE(receiver->waitForMessages(1));
    EXPECT_EQ(worker->send(Bytes{0xF0, 0xF7}, MIDILane::normal), -EAGAIN);
    EXPECT_EQ(worker->takeFailure(), std::nullopt);
}

TEST_F(DestinationWorkerTest, ALaterLossOfRealtimeMessagesDoesNotHideTheLossOfNormalOnes)
{
    receiver->setOpenStatus(-EAGAIN);
    start(impatient);
    worker->send(Bytes{0xF0, 0xF7}, MIDILane::normal);
    waitForFailures(1);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::realtime), 0);
    waitForFailures(2);
    EXPECT_EQ(worker->takeFailure(), (Failure{-EAGAIN, MIDILane::normal}));
}

TEST_F(DestinationWorkerTest, AnIdleDestinationThatGoesCostsNothing)
{
    start();
    worker->fail(-ENODEV);
    EXPECT_EQ(worker->takeFailure(), std::nullopt);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::normal), -ENODEV);
    EXPECT_EQ(stirs, 1);
}

TEST_F(DestinationWorkerTest, AMessageThatIsTooLongForTheReceiverFailsAlone)
{
    receiver->setLookStatus(-EMSGSIZE);
    start();
    worker->send(Bytes{0x90}, MIDILane::normal);
    waitForFailures(1);
    receiver->setLookStatus(0);
    EXPECT_EQ(worker->send(Bytes{0x91}, MIDILane::normal), -EMSGSIZE);
    EXPECT_EQ(worker->send(Bytes{0x92}, MIDILane::normal), 0);
    ASSERT_TRUE(receiver->waitForMessages(1));
    EXPECT_THAT(receiver->messages(), ElementsAre(Bytes{0x92}));
}

TEST_F(DestinationWorkerTest, ADestinationHeldByAnotherProgramIsTriedAgainOnceToldOf)
{
    receiver->setOpenStatus(-EAGAIN);
    start(impatient);
    worker->send(Bytes{0x90}, MIDILane::normal);
    waitForFailures(1);
    EXPECT_EQ(worker->takeFailure(), (Failure{-EAGAIN, MIDILane::normal}));
    receiver->setOpenStatus(0);
    EXPECT_EQ(worker->send(Bytes{0x91}, MIDILane::normal), 0);
    EXPECT_TRUE(receiver->waitForMessages(1));
}

TEST_F(DestinationWorkerTest, RetiresAfterEverythingIsDelivered)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1024, 0x01), MIDILane::normal);
    worker->send(Bytes(8, 0x02), MIDILane::normal);
    worker->retire();
    EXPECT_FALSE(worker->waitClosing(std::chrono::steady_clock::now() + 20ms));
    receiver->takeAllAtOnce(true);
    EXPECT_TRUE(worker->waitClosed(soon()));
    EXPECT_EQ(receiver->messages().size(), 2u);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::normal), std::nullopt);
    EXPECT_FALSE(worker->keep());
}

TEST_F(DestinationWorkerTest, KeepsOnWhenItIsWantedAgainBeforeTheEnd)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1024, 0x01), MIDILane::normal);
    ASSERT_TRUE(receiver->waitForMessages(1));
    worker->retire();
    EXPECT_TRUE(worker->keep());
    receiver->takeAllAtOnce(true);
    EXPECT_EQ(worker->send(Bytes{0x90}, MIDILane::normal), 0);
    ASSERT_TRUE(receiver->waitForMessages(2));
    EXPECT_FALSE(worker->waitClosing(std::chrono::steady_clock::now() + 20ms));
}

TEST_F(DestinationWorkerTest, AbandoningDropsWhatAHungReceiverWouldHoldUp)
{
    receiver->takeAllAtOnce(false);
    start();
    worker->send(Bytes(1024, 0x01), MIDILane::normal);
    worker->send(Bytes(1024, 0x02), MIDILane::normal);
    ASSERT_TRUE(receiver->waitForMessages(1));
    worker->abandon();
    EXPECT_TRUE(worker->waitClosed(soon()));
    EXPECT_EQ(receiver->messages().size(), 1u);
    EXPECT_EQ(failures, 0);
}

TEST_F(DestinationWorkerTest, TakesMessagesFromSeveralThreads)
{
    start();
    std::thread other([this] {
        for (int i = 0; i < 200; ++i) {
            worker->send(Bytes{0x90}, MIDILane::realtime);
        }
    });
    for (int i = 0; i < 200; ++i) {
        worker->send(Bytes{0xF0, 0xF7}, MIDILane::normal);
    }
    other.join();
    ASSERT_TRUE(receiver->waitForMessages(400));
    EXPECT_EQ(receiver->messages().size(), 400u);
}

} // namespace
} // namespace orvim
