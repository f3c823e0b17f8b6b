#include "platform/DestinationList.h"

#include <gmock/gmock.h>

namespace orvim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint8_t ownClient = 130;

SequencerPort devicePort(std::uint8_t client, std::uint8_t port, std::string clientName)
{
    return {.address = {client, port},
            .clientName = clientName,
            .portName = clientName + " MIDI " + std::to_string(port + 1),
            .isKernelClient = true,
            .isHardware = true,
            .isOpenToAll = true,
            .card = client / 4 - 4};
}

SequencerPort programPort(std::uint8_t client, std::uint8_t port, std::string clientName, std::string portName)
{
    return {.address = {client, port},
            .clientName = std::move(clientName),
            .portName = std::move(portName),
            .isOpenToAll = true};
}

std::vector<std::string> names(std::vector<SequencerPort> ports)
{
    std::vector<std::string> result;
    for (const ListedDestination& destination : listDestinations(std::move(ports), ownClient)) {
        result.push_back(destination.name);
    }
    return result;
}

TEST(DestinationList, NumbersThePortsOfADeviceFromTheSecondOn)
{
    EXPECT_THAT(names({devicePort(20, 0, "Tonavelle_mini"), devicePort(20, 1, "Tonavelle_mini"),
                       devicePort(20, 2, "Tonavelle_mini")}),
                ElementsAre("Tonavelle_mini", "MIDIOUT2 (Tonavelle_mini)", "MIDIOUT3 (Tonavelle_mini)"));
}

TEST(DestinationList, CountsOnlyThePortsThatTakeMIDI)
{
    SequencerPort onlyInput = devicePort(20, 0, "Module");
    onlyInput.isOpenToAll = false;
    EXPECT_THAT(names({onlyInput, devicePort(20, 1, "Module"), devicePort(20, 2, "Module")}),
                ElementsAre("Module", "MIDIOUT2 (Module)"));
}

TEST(DestinationList, TwoDevicesOfOneNameAreNumberedApart)
{
    EXPECT_THAT(names({devicePort(20, 0, "Module"), devicePort(24, 0, "Module")}), ElementsAre("Module", "Module"));
}

TEST(DestinationList, DevicesComeBeforeSoftwareEachByClientAndPort)
{
    EXPECT_THAT(names({programPort(129, 0, "Synth", "in"), devicePort(24, 0, "B"), programPort(16, 3, "Patch", "x"),
                       devicePort(20, 1, "A"), devicePort(20, 0, "A")}),
                ElementsAre("A", "MIDIOUT2 (A)", "B", "Patch: x", "Synth: in"));
}

TEST(DestinationList, ASoftwarePortThatBeginsWithItsClientStandsAlone)
{
    EXPECT_THAT(names({programPort(128, 0, "FLUID Synth (812)", "Synth input port (812:0)"),
                       programPort(129, 0, "VMPK", "VMPK Input")}),
                ElementsAre("FLUID Synth (812): Synth input port (812:0)", "VMPK Input"));
}

TEST(DestinationList, AVirtualDeviceIsSoftware)
{
    SequencerPort port = programPort(24, 0, "Virtual Raw MIDI 2-0", "VirMIDI 2-0");
    port.isKernelClient = true;
    port.card = 2;
    EXPECT_THAT(names({port, devicePort(28, 0, "Module")}), ElementsAre("Module", "Virtual Raw MIDI 2-0: VirMIDI 2-0"));
}

TEST(DestinationList, LeavesOutTheSystemMidiThroughItselfAndClosedPorts)
{
    SequencerPort closed = programPort(131, 0, "Player", "out");
    closed.isOpenToAll = false;
    SequencerPort through = programPort(14, 0, "Midi Through", "Midi Through Port-0");
    through.isKernelClient = true;
    EXPECT_THAT(names({programPort(0, 0, "System", "Timer"), through,
                       programPort(ownClient, 0, "Orvim Editor Mac", "x"), closed}),
                IsEmpty());
}

TEST(DestinationList, NothingInGivesNothingOut)
{
    EXPECT_THAT(names({}), IsEmpty());
}

} // namespace
} // namespace orvim
