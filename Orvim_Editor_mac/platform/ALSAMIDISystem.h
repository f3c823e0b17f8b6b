#pragma once

#include "platform/ALSADestinationRoute.h"
#include "platform/DestinationDirectory.h"
#include "platform/DestinationWorker.h"
#include "platform/MIDISystem.h"
#include "platform/MainThreadDoor.h"
#include "platform/SetupListener.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

namespace orvim {

/// MIDI by the sequencer of the Linux kernel. Statuses are negative error numbers: -ENOENT and -EACCES from creating
/// the client, -ENODEV for a destination that is gone, -ETIMEDOUT for one that takes nothing for 5 s, -EAGAIN for one
/// that another program holds, -EMSGSIZE for a message that its receiver can never take, -ECANCELED for a send that was
/// waiting as the application quit.
class ALSAMIDISystem : public MIDISystem
{
public:
    ALSAMIDISystem();
    /// Gives what is queued up to 1 s, as `disposeClient` does.
    ~ALSAMIDISystem() override;

    MIDIStatus createClient(const std::string& name, std::function<void()> setupChanged, DeliveryFailure deliveryFailed,
                            MIDIClientRef& client) override;
    MIDIStatus createOutputPort(MIDIClientRef client, const std::string& name, MIDIPortRef& port) override;

    std::size_t refreshDestinations() override;
    MIDIEndpointRef destination(std::size_t index) const override;
    std::optional<std::string> displayName(MIDIEndpointRef endpoint) const override;
    std::optional<std::string> name(MIDIEndpointRef endpoint) const override;

    void select(MIDIPortRef port, MIDIEndpointRef endpoint) override;
    MIDIStatus send(MIDIPortRef port, MIDIEndpointRef endpoint, std::span<const std::uint8_t> message,
                    MIDILane lane) override;
    bool isWaitedFor(MIDIEndpointRef endpoint) const override;

    void disposePort(MIDIPortRef port) override;
    void disposeClient(MIDIClientRef client) override;

    /// Messages into which bytes of another program may have come on their way to a device, since the start.
    std::uint64_t disturbedMessages() const { return disturbed->load(); }

private:
    struct Service {
        std::shared_ptr<DestinationWorker> worker;
        int card = SequencerPort::noCard;
    };

    const DestinationRow* findRow(MIDIEndpointRef endpoint) const;
    std::shared_ptr<DestinationWorker> startService(const DestinationRow& row);
    std::shared_ptr<DestinationWorker> serviceFor(MIDIEndpointRef endpoint);
    bool waitForRoom(const DestinationWorker& worker);
    void forgetClosedServices();
    void failServices(const std::function<bool(MIDIEndpointRef, const Service&)>& hasFailed);

    std::set<std::uint8_t> clientsOf(int card) const;
    void followSetup();
    void loseCard(int card);
    void tellFailure(MIDIEndpointRef endpoint, int card, MIDIStatus status, DestinationWorker& worker);
    void finishServices();
    void closeDirectory();

    std::function<void()> setupChanged;
    DeliveryFailure deliveryFailed;
    std::multiset<const DestinationWorker*> waitingSends; ///< the main thread's own
    const std::shared_ptr<MainThreadDoor> door;
    const std::shared_ptr<std::atomic<std::uint64_t>> disturbed;

    mutable std::mutex mutex; ///< for what follows, up to the directory; never held while waiting
    SequencerNames names;
    MIDIPortRef outputPort = 0;
    MIDIEndpointRef selected = 0;
    std::vector<DestinationRow> rows;
    std::map<MIDIEndpointRef, Service> services;

    std::unique_ptr<DestinationDirectory> directory;
    std::unique_ptr<SetupListener> listener; ///< ends before all that it uses
};

} // namespace orvim
