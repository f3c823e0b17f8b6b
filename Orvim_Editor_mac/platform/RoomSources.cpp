#include "platform/RoomSources.h"

#include "platform/ClientPool.h"
#include "platform/RawMIDIStatusFile.h"
#include "platform/RoomRules.h"

#include <cerrno>
#include <cstdio>

namespace orvim {
namespace {

/// The ring between the sequencer and the driver of a device.
class HardwareRing : public RoomSource
{
public:
    MIDIStatus open(const SequencerPort& port)
    {
        subdevice = subdeviceOf(port.address);
        return file.open(port.card, deviceOf(port.address));
    }

    std::optional<RouteLook> look(std::size_t length) override
    {
        if (const MIDIStatus status = file.read(streams); status != 0) return RouteLook{.status = status};
        return hardwareRoom(streams, subdevice, length);
    }

    std::optional<std::uint64_t> bytesWritten() const override { return orvim::bytesWritten(streams, subdevice); }
    bool isHardware() const override { return true; }

private:
    RawMIDIStatusFile file;
    unsigned subdevice = 0;
    std::vector<RawMIDIStream> streams;
};

/// The rings of the programs that read from a virtual device.
class VirtualDeviceReaders : public RoomSource
{
public:
    MIDIStatus open(const SequencerPort& port)
    {
        unsigned device = 0; // the port's name ends in card and device
        if (std::sscanf(port.portName.c_str(), "VirMIDI %*d-%u", &device) != 1) device = 0;
        return file.open(port.card, device);
    }

    std::optional<RouteLook> look(std::size_t length) override
    {
        if (const MIDIStatus status = file.read(streams); status != 0) return RouteLook{.status = status};
        return readerRoom(streams, length);
    }

private:
    RawMIDIStatusFile file;
    std::vector<RawMIDIStream> streams;
};

/// The pool of a program that receives.
class ProgramPool : public RoomSource
{
public:
    ProgramPool(int sequencerDescriptor, std::uint8_t receivingClient)
        : descriptor(sequencerDescriptor), client(receivingClient)
    {
    }

    std::optional<RouteLook> look(std::size_t length) override
    {
        ClientPool pool;
        const MIDIStatus status = readClientPool(descriptor, client, pool);
        if (status == -ENOENT) return RouteLook{.status = -ENODEV};
        if (status != 0) return RouteLook{.status = status};
        return poolRoom(pool.free, pool.total, length);
    }

private:
    int descriptor;
    std::uint8_t client;
};

using RoomSourceList = std::vector<std::unique_ptr<RoomSource>>;

template <typename Source>
MIDIStatus addDevice(const SequencerPort& port, RoomSourceList& sources)
{
    auto source = std::make_unique<Source>();
    const MIDIStatus status = source->open(port);
    if (status == 0) sources.push_back(std::move(source));
    return status;
}

/// `hops` ends rounds of ports that pass on to each other.
MIDIStatus addSources(SequencerClient& sequencer, SequencerAddress address, int hops, RoomSourceList& sources)
{
    const std::optional<SequencerPort> port = sequencer.port(address);
    if (!port) return -ENODEV;
    if (!port->isKernelClient) {
        sources.push_back(std::make_unique<ProgramPool>(sequencer.descriptor(), address.client));
        return 0;
    }
    if (port->isDevicePort()) return addDevice<HardwareRing>(*port, sources);
    if (port->card != SequencerPort::noCard) return addDevice<VirtualDeviceReaders>(*port, sources);
    if (hops == 0) return 0;
    for (const SequencerAddress subscriber : sequencer.subscribers(address)) {
        const MIDIStatus status = addSources(sequencer, subscriber, hops - 1, sources);
        if (status != 0 && status != -ENODEV) return status;
    }
    return 0;
}

} // namespace

std::vector<std::unique_ptr<RoomSource>> makeRoomSources(SequencerClient& sequencer, SequencerAddress destination,
                                                         MIDIStatus& status)
{
    constexpr int longestChain = 8;
    RoomSourceList sources;
    status = addSources(sequencer, destination, longestChain, sources);
    return sources;
}

} // namespace orvim
