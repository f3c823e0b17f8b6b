#include "platform/DestinationDirectory.h"

#include "platform/CardWatch.h"

#include <utility>

namespace orvim {

MIDIStatus DestinationDirectory::open(const std::string& clientName)
{
    const std::lock_guard lock(mutex);
    if (const MIDIStatus status = sequencer.open(clientName); status != 0) return status;
    return sequencer.subscribeToAnnouncements();
}

std::vector<DestinationRow> DestinationDirectory::list()
{
    const std::lock_guard lock(mutex);
    std::vector<DestinationRow> rows;
    for (ListedDestination& destination : listDestinations(sequencer.ports(), sequencer.id())) {
        if (isGone(destination.port)) continue;
        const MIDIEndpointRef endpoint = endpoints.list(destination.port.address);
        rows.push_back({endpoint, std::move(destination)});
    }
    return rows;
}

/// A card has its control device from the moment it can be used until it is pulled out.
bool DestinationDirectory::isGone(const SequencerPort& port) const
{
    return port.isDevicePort() && goneClients.contains(port.address.client) && !CardWatch::hasControlDevice(port.card);
}

bool DestinationDirectory::followNews()
{
    const std::lock_guard lock(mutex);
    const std::vector<SequencerAnnouncement> news = sequencer.readAnnouncements();
    for (const SequencerAnnouncement& one : news) {
        switch (one.kind) {
        case SequencerAnnouncement::Kind::portStarted:
            goneClients.erase(one.address.client);
            endpoints.portStarted(one.address);
            break;
        case SequencerAnnouncement::Kind::portEnded:
            endpoints.portEnded(one.address);
            break;
        case SequencerAnnouncement::Kind::clientEnded:
            endpoints.clientEnded(one.address.client);
            break;
        case SequencerAnnouncement::Kind::lost:
            endpoints.announcementsLost();
            break;
        case SequencerAnnouncement::Kind::changed:
            break;
        }
    }
    return !news.empty();
}

void DestinationDirectory::markGone(std::uint8_t client)
{
    const std::lock_guard lock(mutex);
    goneClients.insert(client);
}

bool DestinationDirectory::isCurrent(MIDIEndpointRef endpoint) const
{
    const std::lock_guard lock(mutex);
    return endpoints.isCurrent(endpoint);
}

} // namespace orvim
