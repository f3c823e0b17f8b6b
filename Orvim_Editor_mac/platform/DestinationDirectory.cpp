#include "platform/DestinationDirectory.h"

#include "platform/RawMIDIStatusFile.h"

#include <utility>

namespace orvim
{

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
        if (isGone(destination)) continue;
        const MIDIEndpointRef endpoint = endpoints.handle(destination.port.address);
        rows.push_back({endpoint, std::move(destination)});
    }
    return rows;
}

/// A card that can be looked at again is another one with the same number.
bool DestinationDirectory::isGone(const ListedDestination& destination)
{
    const SequencerPort& port = destination.port;
    if (!port.isDevicePort() || !goneCards.contains(port.card)) return false;
    RawMIDIStatusFile file;
    if (file.open(port.card, deviceOf(port.address)) != 0) return true;
    goneCards.erase(port.card);
    return false;
}

bool DestinationDirectory::followNews()
{
    const std::lock_guard lock(mutex);
    const std::vector<SequencerAnnouncement> news = sequencer.readAnnouncements();
    for (const SequencerAnnouncement& one : news) {
        switch (one.kind) {
        case SequencerAnnouncement::Kind::portStarted:
        case SequencerAnnouncement::Kind::portEnded:
            endpoints.advance(one.address);
            break;
        case SequencerAnnouncement::Kind::clientEnded:
            endpoints.advanceClient(one.address.client);
            break;
        case SequencerAnnouncement::Kind::changed:
        case SequencerAnnouncement::Kind::lost:
            break;
        }
    }
    return !news.empty();
}

void DestinationDirectory::markGone(int card)
{
    const std::lock_guard lock(mutex);
    goneCards.insert(card);
}

bool DestinationDirectory::isCurrent(MIDIEndpointRef endpoint) const
{
    const std::lock_guard lock(mutex);
    return endpoints.isCurrent(endpoint);
}

} // namespace orvim
