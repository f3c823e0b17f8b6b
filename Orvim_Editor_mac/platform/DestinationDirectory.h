#pragma once

#include "platform/DestinationList.h"
#include "platform/EndpointTable.h"
#include "platform/SequencerClient.h"

#include <cstdint>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace orvim {

/// A destination with its handle.
struct DestinationRow {
    MIDIEndpointRef endpoint = 0;
    ListedDestination destination;
    bool operator==(const DestinationRow&) const = default;
};

/// What there is to send to, as the sequencer tells it. May be used by several threads.
class DestinationDirectory
{
public:
    /// As SequencerClient::open.
    MIDIStatus open(const std::string& clientName);
    /// Readable when there is news to follow.
    int descriptor() const { return sequencer.descriptor(); }

    std::vector<DestinationRow> list();
    /// Takes in what has happened since the last call. False: nothing.
    bool followNews();
    /// The card of this client was pulled out. The sequencer may go on listing its ports for 10 s.
    void markGone(std::uint8_t client);
    /// The handle stands for the same device or program as when it was given.
    bool isCurrent(MIDIEndpointRef endpoint) const;

private:
    bool isGone(const SequencerPort& port) const;

    mutable std::mutex mutex;
    SequencerClient sequencer;
    EndpointTable endpoints;
    std::set<std::uint8_t> goneClients;
};

} // namespace orvim
