#pragma once

#include "platform/MIDISystem.h"
#include "platform/SequencerPort.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct _snd_seq;
struct snd_midi_event;

namespace orvim {

/// News about a client or port of the sequencer.
struct SequencerAnnouncement {
    enum class Kind { portStarted, portEnded, clientEnded, changed, lost };
    Kind kind = Kind::changed;
    SequencerAddress address; ///< the port is 0 for news about a client; none for `lost`: news have been dropped
};

/// One connection to the sequencer. Not thread-safe, except that `descriptor` and `id` never change once open.
/// Statuses are 0 or a negative error number.
class SequencerClient
{
public:
    SequencerClient() = default;
    SequencerClient(const SequencerClient&) = delete;
    SequencerClient& operator=(const SequencerClient&) = delete;
    /// Outputs should be unsubscribed by then: if the kernel has to do it here, it may take 10 s, in which no program
    /// of the machine can open or close the sequencer.
    ~SequencerClient();

    /// -ENOENT: this machine has no sequencer; -EACCES: this user may not use it. Prints nothing.
    MIDIStatus open(const std::string& name);
    bool isOpen() const { return sequencer != nullptr; }
    std::uint8_t id() const { return clientID; }
    /// Readable when there are announcements.
    int descriptor() const { return pollDescriptor; }

    MIDIStatus createOutput(const std::string& name);
    /// Connects the output to a destination.
    MIDIStatus subscribe(SequencerAddress destination);
    /// May take up to 10 s while a device holds back what was written to it.
    void unsubscribe(SequencerAddress destination);
    /// Writes one message from the output to a destination, as one event if it is system exclusive.
    MIDIStatus write(SequencerAddress destination, std::span<const std::uint8_t> message);

    std::vector<SequencerPort> ports();
    std::optional<SequencerPort> port(SequencerAddress address);
    /// The ports that are sent what arrives at `address`.
    std::vector<SequencerAddress> subscribers(SequencerAddress address);

    MIDIStatus subscribeToAnnouncements();
    /// Takes all news there are, without waiting.
    std::vector<SequencerAnnouncement> readAnnouncements();

private:
    MIDIStatus writeSystemExclusive(SequencerAddress destination, std::span<const std::uint8_t> message);
    MIDIStatus writeShort(SequencerAddress destination, std::span<const std::uint8_t> message);

    _snd_seq* sequencer = nullptr;
    snd_midi_event* encoder = nullptr;
    std::uint8_t clientID = 0;
    int pollDescriptor = -1;
    int output = -1;
};

} // namespace orvim
