#include "platform/RoomRules.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <vector>

namespace orvim {
namespace {

std::vector<RawMIDIStream> output(std::size_t size, std::size_t available, std::uint64_t transferred = 0)
{
    return {{true, 0, transferred, RawMIDIStream::Ring{size, available}}};
}

std::vector<RawMIDIStream> input(std::size_t size, std::size_t waiting)
{
    return {{false, 0, 0, RawMIDIStream::Ring{size, waiting}}};
}

bool fits(const std::optional<RouteLook>& look)
{
    return look && look->status == 0 && look->hasRoom;
}

TEST(HardwareRoom, Leaves256BytesOfTheRingFree)
{
    EXPECT_TRUE(fits(hardwareRoom(output(4096, 393), 0, 137)));
    EXPECT_FALSE(fits(hardwareRoom(output(4096, 392), 0, 137)));
}

TEST(HardwareRoom, AMessageNearTheSizeOfTheRingNeedsAllOfIt)
{
    EXPECT_TRUE(fits(hardwareRoom(output(1024, 1024), 0, 1010)));
    EXPECT_FALSE(fits(hardwareRoom(output(1024, 1023), 0, 1010)));
}

TEST(HardwareRoom, AMessageLongerThanTheRingNeverFits)
{
    EXPECT_EQ(hardwareRoom(output(512, 512), 0, 513)->status, -EMSGSIZE);
}

TEST(HardwareRoom, AnOutputThatNobodyHoldsOpenIsToldApart)
{
    EXPECT_EQ(hardwareRoom(std::vector<RawMIDIStream>{{true, 0, 5, std::nullopt}}, 0, 3), std::nullopt);
    EXPECT_EQ(hardwareRoom(output(4096, 4096), 1, 3), std::nullopt);
    EXPECT_EQ(hardwareRoom(input(4096, 0), 0, 3), std::nullopt);
}

TEST(HardwareRoom, IsDrainedWhenTheRingIsEmpty)
{
    EXPECT_TRUE(hardwareRoom(output(4096, 4096), 0, 0)->isDrained);
    EXPECT_FALSE(hardwareRoom(output(4096, 4095), 0, 0)->isDrained);
}

TEST(HardwareRoom, ProgressOfAnyPortOfTheDeviceCounts)
{
    std::vector<RawMIDIStream> streams = output(4096, 100, 1000);
    streams.push_back({true, 1, 20, std::nullopt});
    const std::uint64_t before = hardwareRoom(streams, 0, 137)->progress;
    streams[1].transferred = 21;
    EXPECT_NE(hardwareRoom(streams, 0, 137)->progress, before);
}

TEST(HardwareRoom, WhatAnInputReceivesIsNoProgress)
{
    std::vector<RawMIDIStream> streams = output(4096, 100, 1000);
    const std::uint64_t before = hardwareRoom(streams, 0, 137)->progress;
    streams.push_back({false, 0, 0, RawMIDIStream::Ring{4096, 77}});
    EXPECT_EQ(hardwareRoom(streams, 0, 137)->progress, before);
}

TEST(BytesWritten, AreThoseThatLeftTheRingAndThoseInIt)
{
    EXPECT_EQ(bytesWritten(output(4096, 4000, 500), 0), 596u);
    EXPECT_EQ(bytesWritten(output(4096, 4000, 500), 1), std::nullopt);
}

TEST(ReaderRoom, IsWhatTheFullestReaderHasLeft)
{
    std::vector<RawMIDIStream> streams = input(4096, 0);
    streams.push_back({false, 1, 0, RawMIDIStream::Ring{4096, 3703}});
    EXPECT_TRUE(readerRoom(streams, 137).hasRoom);
    streams[1].ring->available = 3704;
    EXPECT_FALSE(readerRoom(streams, 137).hasRoom);
}

TEST(ReaderRoom, WithoutReadersThereIsAlwaysRoom)
{
    EXPECT_TRUE(readerRoom(std::vector<RawMIDIStream>{{false, 0, 0, std::nullopt}}, 1010).hasRoom);
}

TEST(PoolRoom, CountsOneCellForEverySixBytes)
{
    EXPECT_TRUE(poolRoom(25, 200, 137).hasRoom);
    EXPECT_FALSE(poolRoom(24, 200, 137).hasRoom);
}

TEST(PoolRoom, ASmallPoolHasToBeEmpty)
{
    EXPECT_TRUE(poolRoom(20, 20, 137).hasRoom);
    EXPECT_FALSE(poolRoom(19, 20, 137).hasRoom);
}

TEST(PoolRoom, AShortMessageNeedsThreeCells)
{
    EXPECT_TRUE(poolRoom(3, 200, 3).hasRoom);
    EXPECT_FALSE(poolRoom(2, 200, 3).hasRoom);
}

TEST(PoolRoom, APoolThatCanNeverHoldTheMessageIsAnErrorAtOnce)
{
    EXPECT_EQ(poolRoom(6, 6, 137).status, -EMSGSIZE);
    EXPECT_EQ(poolRoom(7, 7, 137).status, 0);
}

TEST(PoolRoom, FreeCellsAreTheProgress)
{
    EXPECT_NE(poolRoom(3, 200, 137).progress, poolRoom(4, 200, 137).progress);
}

} // namespace
} // namespace orvim
