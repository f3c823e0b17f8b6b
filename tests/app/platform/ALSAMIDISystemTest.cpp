#include "platform/ALSAMIDISystem.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace orvim {
namespace {

TEST(ALSAMIDISystem, WithoutASequencerItSaysSoAndPrintsNothing)
{
    if (std::filesystem::exists("/dev/snd/seq")) GTEST_SKIP() << "this machine has a sequencer";
    ALSAMIDISystem system;
    MIDIClientRef client = 99;
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    EXPECT_EQ(system.createClient(
                  "Orvim Editor Mac", [] {}, [](MIDIEndpointRef, MIDILane, MIDIStatus) {}, client),
              -ENOENT);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(client, 0u);
}

TEST(ALSAMIDISystem, WithoutAClientThereIsNoPortAndNothingToSendTo)
{
    ALSAMIDISystem system;
    MIDIPortRef port = 99;
    EXPECT_EQ(system.createOutputPort(1, "Orvim Editor Mac Output", port), -EINVAL);
    EXPECT_EQ(port, 0u);
    EXPECT_EQ(system.refreshDestinations(), 0u);
    EXPECT_EQ(system.destination(0), 0u);
    EXPECT_EQ(system.displayName(0x1401), std::nullopt);
    EXPECT_EQ(system.name(0x1401), std::nullopt);
    system.select(0, 0x1401);
    EXPECT_EQ(system.send(0, 0x1401, std::vector<std::uint8_t>{0xF0, 0xF7}, MIDILane::normal), -EINVAL);
    EXPECT_EQ(system.send(1, 0x1401, std::vector<std::uint8_t>{0xF0, 0xF7}, MIDILane::realtime), -EINVAL);
}

} // namespace
} // namespace orvim
