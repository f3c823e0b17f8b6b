#include "platform/ALSAMIDISystem.h"

#include <system_error>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <future>
#include <set>
#include <thread>
#include <utility>

namespace orvim {
namespace {

constexpr MIDIClientRef onlyClient = 1;
constexpr MIDIPortRef onlyPort = 1;
constexpr auto timeToClose = std::chrono::milliseconds(100);

std::set<int> deviceCards(const std::vector<DestinationRow>& rows)
{
    std::set<int> cards;
    for (const DestinationRow& row : rows) {
        if (row.destination.port.isDevicePort()) cards.insert(row.destination.port.card);
    }
    return cards;
}

} // namespace

ALSAMIDISystem::ALSAMIDISystem()
    : door(std::make_shared<MainThreadDoor>()), disturbed(std::make_shared<std::atomic<std::uint64_t>>(0))
{
}

ALSAMIDISystem::~ALSAMIDISystem()
{
    disposeClient(onlyClient);
    door->close();
}

MIDIStatus ALSAMIDISystem::createClient(const std::string& name, std::function<void()> setupChangedCall,
                                        DeliveryFailure deliveryFailedCall, MIDIClientRef& client)
{
    client = 0;
    auto opened = std::make_unique<DestinationDirectory>();
    if (const MIDIStatus status = opened->open(name); status != 0) return status;
    setupChanged = std::move(setupChangedCall);
    deliveryFailed = std::move(deliveryFailedCall);
    names.client = name;
    directory = std::move(opened);
    try {
        listener = std::make_unique<SetupListener>(
            *directory, SetupListener::Events{.newsFollowed = [this] { followSetup(); },
                                              .cardGone = [this](int card) { loseCard(card); }});
    } catch (const std::system_error& error) {
        directory.reset();
        return -error.code().value();
    }
    client = onlyClient;
    return 0;
}

MIDIStatus ALSAMIDISystem::createOutputPort(MIDIClientRef client, const std::string& name, MIDIPortRef& port)
{
    port = 0;
    if (client != onlyClient || !directory) return -EINVAL;
    const std::lock_guard lock(mutex);
    names.port = name;
    outputPort = onlyPort;
    port = onlyPort;
    return 0;
}

std::size_t ALSAMIDISystem::refreshDestinations()
{
    if (!directory) return 0;
    std::vector<DestinationRow> fresh = directory->list();
    listener->watchCards(deviceCards(fresh));
    const std::lock_guard lock(mutex);
    rows = std::move(fresh);
    forgetClosedServices();
    return rows.size();
}

MIDIEndpointRef ALSAMIDISystem::destination(std::size_t index) const
{
    const std::lock_guard lock(mutex);
    return index < rows.size() ? rows[index].endpoint : 0;
}

std::optional<std::string> ALSAMIDISystem::displayName(MIDIEndpointRef endpoint) const
{
    const std::lock_guard lock(mutex);
    const DestinationRow* row = findRow(endpoint);
    return row == nullptr ? std::nullopt : std::optional(row->destination.name);
}

std::optional<std::string> ALSAMIDISystem::name(MIDIEndpointRef endpoint) const
{
    const std::lock_guard lock(mutex);
    const DestinationRow* row = findRow(endpoint);
    return row == nullptr ? std::nullopt : std::optional(row->destination.port.portName);
}

const DestinationRow* ALSAMIDISystem::findRow(MIDIEndpointRef endpoint) const
{
    const auto found = std::ranges::find(rows, endpoint, &DestinationRow::endpoint);
    return found == rows.end() ? nullptr : &*found;
}

void ALSAMIDISystem::select(MIDIPortRef port, MIDIEndpointRef endpoint)
{
    const std::lock_guard lock(mutex);
    if (port != outputPort || port == 0) return;
    selected = endpoint;
    for (const auto& [other, service] : services) {
        if (other != endpoint) service.worker->retire();
    }
    const auto found = services.find(endpoint);
    if (found != services.end() && found->second.worker->keep()) return;
    if (const DestinationRow* row = findRow(endpoint)) startService(*row);
}

/// Replaces a worker that has ended. The caller holds the lock.
std::shared_ptr<DestinationWorker> ALSAMIDISystem::startService(const DestinationRow& row)
{
    const int card = row.destination.port.isDevicePort() ? row.destination.port.card : SequencerPort::noCard;
    const MIDIEndpointRef endpoint = row.endpoint;
    auto route = std::make_unique<ALSADestinationRoute>(row.destination.port.address, names, disturbed);
    auto failed = [this, ownDoor = door, endpoint, card](const std::shared_ptr<DestinationWorker>& worker,
                                                         MIDIStatus status) {
        // The worker may outlive the system; the door, once closed, lets nothing through to it.
        ownDoor->post([this, endpoint, card, worker, status] { tellFailure(endpoint, card, status, *worker); });
    };
    const auto worker = DestinationWorker::start(
        std::move(route), {.stirred = [ownDoor = door] { ownDoor->stir(); }, .failed = std::move(failed)});
    services[endpoint] = {worker, card};
    return worker;
}

/// The worker of any destination of the list; one that is not selected ends again after its message.
std::shared_ptr<DestinationWorker> ALSAMIDISystem::serviceFor(MIDIEndpointRef endpoint)
{
    const auto found = services.find(endpoint);
    if (found != services.end()) return found->second.worker;
    const DestinationRow* row = findRow(endpoint);
    return row == nullptr ? nullptr : startService(*row);
}

MIDIStatus ALSAMIDISystem::send(MIDIPortRef port, MIDIEndpointRef endpoint, std::span<const std::uint8_t> message,
                                MIDILane lane)
{
    constexpr int mostAttempts = 3; // a worker that is not selected may end between finding and using it
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        std::unique_lock lock(mutex);
        if (port != outputPort || port == 0) return -EINVAL;
        if (message.empty()) return 0;
        const std::shared_ptr<DestinationWorker> worker = serviceFor(endpoint);
        if (!worker) return -ENODEV;
        lock.unlock();

        if (lane == MIDILane::normal && !waitForRoom(*worker)) return midiSendCancelled;
        const std::optional<MIDIStatus> status = worker->send(message, lane);

        lock.lock();
        if (endpoint != selected) worker->retire();
        if (status) return *status;
        services.erase(endpoint);
    }
    return -ENODEV;
}

bool ALSAMIDISystem::isWaitedFor(MIDIEndpointRef endpoint) const
{
    const std::lock_guard lock(mutex);
    const auto service = services.find(endpoint);
    return service != services.end() && service->second.worker->hasNormalWaiting();
}

/// False: the application quits.
bool ALSAMIDISystem::waitForRoom(const DestinationWorker& worker)
{
    const auto waiting = waitingSends.insert(&worker);
    const bool hasRoom = door->waitUntil([&worker] { return !worker.isFull(); });
    waitingSends.erase(waiting);
    return hasRoom;
}

/// Called on the listener's thread.
void ALSAMIDISystem::followSetup()
{
    failServices([this](MIDIEndpointRef endpoint, const Service&) { return !directory->isCurrent(endpoint); });
    const std::vector<DestinationRow> fresh = directory->list();
    {
        const std::lock_guard lock(mutex);
        if (fresh == rows) return;
    }
    setupChanged();
}

/// Called on the listener's thread.
void ALSAMIDISystem::loseCard(int card)
{
    failServices([card](MIDIEndpointRef, const Service& service) { return service.card == card; });
    for (const std::uint8_t client : clientsOf(card)) {
        directory->markGone(client);
    }
    setupChanged();
}

std::set<std::uint8_t> ALSAMIDISystem::clientsOf(int card) const
{
    const std::lock_guard lock(mutex);
    std::set<std::uint8_t> clients;
    for (const DestinationRow& row : rows) {
        const SequencerPort& port = row.destination.port;
        if (port.isDevicePort() && port.card == card) clients.insert(port.address.client);
    }
    return clients;
}

void ALSAMIDISystem::failServices(const std::function<bool(MIDIEndpointRef, const Service&)>& hasFailed)
{
    std::vector<std::shared_ptr<DestinationWorker>> failing;
    {
        const std::lock_guard lock(mutex);
        for (const auto& [endpoint, service] : services) {
            if (hasFailed(endpoint, service)) failing.push_back(service.worker);
        }
    }
    for (const auto& worker : failing) {
        worker->fail(-ENODEV);
    }
}

void ALSAMIDISystem::tellFailure(MIDIEndpointRef endpoint, int card, MIDIStatus status, DestinationWorker& worker)
{
    const bool aSendWillTell = waitingSends.contains(&worker);
    if (!aSendWillTell) {
        if (const auto failure = worker.takeFailure()) deliveryFailed(endpoint, failure->lane, failure->status);
    }
    if (status != -ENODEV || card == SequencerPort::noCard || !directory) return;
    directory->markGone(EndpointTable::address(endpoint).client);
    setupChanged();
}

void ALSAMIDISystem::forgetClosedServices()
{
    std::erase_if(services, [this](const auto& entry) {
        const auto& [endpoint, service] = entry;
        return findRow(endpoint) == nullptr && service.worker->waitClosed(std::chrono::steady_clock::now());
    });
}

void ALSAMIDISystem::disposePort(MIDIPortRef port)
{
    const std::lock_guard lock(mutex);
    if (port == outputPort) outputPort = 0;
}

void ALSAMIDISystem::disposeClient(MIDIClientRef client)
{
    if (client != onlyClient || !directory) return;
    disposePort(onlyPort);
    listener.reset();
    finishServices();
    closeDirectory();
    const std::lock_guard lock(mutex);
    rows.clear();
}

/// A device that hangs is disconnected by threads that are still at it when the process ends: the end interrupts them
/// there, whereas the kernel would hold up the process for 10 s if it found the device still connected.
void ALSAMIDISystem::finishServices()
{
    constexpr auto timeToDeliver = std::chrono::milliseconds(900);
    const auto deliverBy = std::chrono::steady_clock::now() + timeToDeliver;
    std::map<MIDIEndpointRef, Service> ending;
    {
        const std::lock_guard lock(mutex);
        ending.swap(services);
    }
    for (const auto& [endpoint, service] : ending) {
        service.worker->retire();
    }
    for (const auto& [endpoint, service] : ending) {
        if (!service.worker->waitClosing(deliverBy)) service.worker->abandon();
    }
    const auto closeBy = std::chrono::steady_clock::now() + timeToClose;
    for (const auto& [endpoint, service] : ending) {
        service.worker->waitClosed(closeBy);
    }
}

/// While the kernel takes leave of a device that was pulled out in the middle of a transfer, nobody can close the
/// sequencer.
void ALSAMIDISystem::closeDirectory()
{
    std::promise<void> closed;
    const std::future<void> closing = closed.get_future();
    std::thread([ownDirectory = std::move(directory), ownClosed = std::move(closed)]() mutable {
        ownDirectory.reset();
        ownClosed.set_value();
    }).detach();
    closing.wait_for(timeToClose);
}

} // namespace orvim
