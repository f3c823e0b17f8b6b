#include "platform/DestinationList.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace orvim {
namespace {

constexpr std::uint8_t systemClient = 0;

bool isDestination(const SequencerPort& port, std::uint8_t ownClient)
{
    return port.isOpenToAll && port.address.client != systemClient && port.address.client != ownClient &&
           port.clientName != "Midi Through";
}

std::string deviceName(const SequencerPort& port, int ordinal)
{
    if (ordinal == 1) return port.clientName;
    return "MIDIOUT" + std::to_string(ordinal) + " (" + port.clientName + ")";
}

std::string softwareName(const SequencerPort& port)
{
    if (port.portName.starts_with(port.clientName)) return port.portName;
    return port.clientName + ": " + port.portName;
}

} // namespace

std::vector<ListedDestination> listDestinations(std::vector<SequencerPort> ports, std::uint8_t ownClient)
{
    std::erase_if(ports, [ownClient](const SequencerPort& port) { return !isDestination(port, ownClient); });
    std::ranges::stable_sort(ports, {},
                             [](const SequencerPort& port) { return std::tuple(!port.isDevicePort(), port.address); });

    std::vector<ListedDestination> list;
    int ordinal = 0;
    for (SequencerPort& port : ports) {
        const bool continues = !list.empty() && list.back().port.address.client == port.address.client;
        ordinal = continues ? ordinal + 1 : 1;
        std::string name = port.isDevicePort() ? deviceName(port, ordinal) : softwareName(port);
        list.push_back({std::move(port), std::move(name)});
    }
    return list;
}

} // namespace orvim
