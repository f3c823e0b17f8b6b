#include "platform/EndpointTable.h"

namespace orvim {
namespace {

template <typename Key>
std::uint16_t generation(const std::map<Key, std::uint16_t>& generations, const Key& key)
{
    const auto found = generations.find(key);
    return found == generations.end() ? std::uint16_t{0} : found->second;
}

} // namespace

MIDIEndpointRef EndpointTable::handle(SequencerAddress address) const
{
    const auto sum = static_cast<std::uint16_t>(generation(portGenerations, address) +
                                                generation(clientGenerations, address.client));
    return MIDIEndpointRef{sum} << 16 | MIDIEndpointRef{address.client} << 8 | address.port;
}

MIDIEndpointRef EndpointTable::list(SequencerAddress address)
{
    listed.insert(address);
    return handle(address);
}

void EndpointTable::portStarted(SequencerAddress address)
{
    if (!listed.contains(address)) ++portGenerations[address];
}

void EndpointTable::portEnded(SequencerAddress address)
{
    listed.erase(address);
    ++portGenerations[address];
}

void EndpointTable::clientEnded(std::uint8_t client)
{
    std::erase_if(listed, [client](const SequencerAddress& address) { return address.client == client; });
    ++clientGenerations[client];
}

void EndpointTable::announcementsLost()
{
    listed.clear();
}

bool EndpointTable::isCurrent(MIDIEndpointRef endpoint) const
{
    return handle(address(endpoint)) == endpoint;
}

SequencerAddress EndpointTable::address(MIDIEndpointRef endpoint)
{
    return {static_cast<std::uint8_t>(endpoint >> 8 & 0xFF), static_cast<std::uint8_t>(endpoint & 0xFF)};
}

} // namespace orvim
