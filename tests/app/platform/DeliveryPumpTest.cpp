#include "platform/DeliveryPump.h"

#include "FakeRoute.h"

#include <cerrno>
#include <gmock/gmock.h>

namespace orvim {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = DeliveryPump::Step::Kind;

class DeliveryPumpTest : public testing::Test
{
protected:
    static constexpr std::size_t fullRing = 1024;

    DeliveryPump::Step advance(std::chrono::microseconds at) { return pump.advance(message, start + at); }

    void fillRing()
    {
        receiver->takeAllAtOnce(false);
        pump.advance(std::vector<std::uint8_t>(fullRing, 0x42), start);
    }

    const DeliveryPump::TimePoint start{};
    const std::vector<std::uint8_t> message{0xF0, 0x01, 0xF7};
    const std::shared_ptr<test::FakeReceiver> receiver = std::make_shared<test::FakeReceiver>();
    test::FakeRoute route{receiver};
    DeliveryPump pump{route};
};

TEST_F(DeliveryPumpTest, ConnectsAndWritesTheWholeMessageInOneStep)
{
    EXPECT_EQ(advance(0ms).kind, Kind::done);
    EXPECT_THAT(receiver->messages(), ElementsAre(message));
}

TEST_F(DeliveryPumpTest, LooksForRoomAtGrowingIntervalsUpToTwoMilliseconds)
{
    fillRing();
    std::vector<std::chrono::microseconds> pauses;
    for (int i = 0; i < 10; ++i) {
        pauses.push_back(advance(1ms * i).pause);
    }
    EXPECT_THAT(pauses, ElementsAre(100us, 150us, 225us, 337us, 505us, 757us, 1135us, 1702us, 2000us, 2000us));
}

TEST_F(DeliveryPumpTest, WritesNothingBeforeTheWholeMessageFits)
{
    fillRing();
    receiver->take(2);
    EXPECT_EQ(advance(0ms).kind, Kind::pause);
    receiver->take(1);
    EXPECT_EQ(advance(1ms).kind, Kind::done);
    EXPECT_EQ(receiver->messages().size(), 2u);
}

TEST_F(DeliveryPumpTest, NudgesOnceAndTimesOutWithoutHavingWritten)
{
    fillRing();
    EXPECT_EQ(advance(0ms).kind, Kind::pause);
    EXPECT_EQ(advance(300ms).kind, Kind::pause);
    EXPECT_EQ(advance(600ms).kind, Kind::pause);
    EXPECT_EQ(receiver->nudges(), 1);
    EXPECT_EQ(advance(5s), (DeliveryPump::Step{.kind = Kind::failed, .status = -ETIMEDOUT}));
    EXPECT_EQ(receiver->messages().size(), 1u);
}

TEST_F(DeliveryPumpTest, ASlowReceiverNeverTimesOut)
{
    fillRing();
    for (int second = 0; second < 60; ++second) {
        EXPECT_NE(pump.advance(std::vector<std::uint8_t>(1000, 0x42), start + second * 4s).kind, Kind::failed);
        receiver->take(1);
    }
}

TEST_F(DeliveryPumpTest, AReceiverThatIsGoneFailsAtOnce)
{
    advance(0ms);
    receiver->setLookStatus(-ENODEV);
    EXPECT_EQ(advance(1ms), (DeliveryPump::Step{.kind = Kind::failed, .status = -ENODEV}));
    EXPECT_EQ(pump.drain(start + 2ms).status, -ENODEV);
}

TEST_F(DeliveryPumpTest, RoomThatWasTakenByAnotherProgramIsWaitedForAgain)
{
    receiver->setWriteStatus(-EAGAIN);
    EXPECT_EQ(advance(0ms).kind, Kind::pause);
    receiver->setWriteStatus(0);
    EXPECT_EQ(advance(1ms).kind, Kind::done);
}

TEST_F(DeliveryPumpTest, GivesADeviceHalfASecondToAppear)
{
    receiver->setOpenStatus(-ENODEV);
    EXPECT_EQ(advance(0ms), (DeliveryPump::Step{.kind = Kind::pause, .pause = 10ms}));
    EXPECT_EQ(advance(499ms).kind, Kind::pause);
    EXPECT_EQ(advance(500ms), (DeliveryPump::Step{.kind = Kind::failed, .status = -ENODEV}));
    EXPECT_THAT(receiver->messages(), IsEmpty());
}

TEST_F(DeliveryPumpTest, ADeviceThatWasHeldByAnotherProgramIsTriedAgain)
{
    receiver->setOpenStatus(-EAGAIN);
    advance(0ms);
    EXPECT_EQ(advance(500ms).status, -EAGAIN);
    receiver->setOpenStatus(0);
    EXPECT_EQ(advance(600ms).kind, Kind::done);
}

TEST_F(DeliveryPumpTest, DrainsUntilTheReceiverHasEverything)
{
    EXPECT_FALSE(pump.hasUndrained());
    receiver->takeAllAtOnce(false);
    advance(0ms);
    EXPECT_TRUE(pump.hasUndrained());
    EXPECT_EQ(pump.drain(start + 1ms).kind, Kind::pause);
    receiver->take(3);
    EXPECT_EQ(pump.drain(start + 2ms).kind, Kind::done);
    EXPECT_FALSE(pump.hasUndrained());
}

TEST_F(DeliveryPumpTest, DrainingTimesOutByTheSameRule)
{
    receiver->takeAllAtOnce(false);
    advance(0ms);
    EXPECT_EQ(pump.drain(start).kind, Kind::pause);
    EXPECT_EQ(pump.drain(start + 300ms).kind, Kind::pause);
    EXPECT_EQ(receiver->nudges(), 1);
    EXPECT_EQ(pump.drain(start + 5s).status, -ETIMEDOUT);
}

} // namespace
} // namespace orvim
