#pragma once

#include "core/protocol/Message.h"
#include "platform/MIDISystem.h"

#include <functional>
#include <map>
#include <mutex>
#include <vector>

namespace orvim::test {

/// A MIDI system that keeps what it is given and fails on demand.
class RecordingMIDISystem : public MIDISystem
{
public:
    struct Endpoint {
        MIDIEndpointRef id = 0;
        std::optional<std::string> displayName;
        std::optional<std::string> name;
    };

    struct Sent {
        MIDIEndpointRef endpoint = 0;
        tonavelle::Message message;
        MIDILane lane = MIDILane::normal;
    };

    /// One endpoint a name, with the handles 1, 2, ...
    void plug(const std::vector<std::string>& names)
    {
        endpoints.clear();
        for (const auto& name : names)
            endpoints.push_back({static_cast<MIDIEndpointRef>(endpoints.size() + 1), name, {}});
    }

    tonavelle::Batch sentMessages() const
    {
        const std::scoped_lock lock(m_mutex);
        tonavelle::Batch messages;
        for (const Sent& entry : m_sent)
            messages.push_back(entry.message);
        return messages;
    }

    std::vector<Sent> sent() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_sent;
    }

    /// All messages handed over, also those that failed.
    tonavelle::Batch attempted() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_attempted;
    }

    void forgetSent()
    {
        const std::scoped_lock lock(m_mutex);
        m_sent.clear();
    }

    MIDIStatus createClient(const std::string& name, std::function<void()> changed, DeliveryFailure failed,
                            MIDIClientRef& client) override
    {
        clientName = name;
        setupChanged = std::move(changed);
        deliveryFailed = std::move(failed);
        client = clientStatus == 0 ? 1 : 0;
        return clientStatus;
    }

    MIDIStatus createOutputPort(MIDIClientRef, const std::string& name, MIDIPortRef& port) override
    {
        ++createdPorts;
        portName = name;
        port = portStatus == 0 ? 1 : 0;
        return portStatus;
    }

    std::size_t refreshDestinations() override
    {
        listed = endpoints;
        return listed.size();
    }

    MIDIEndpointRef destination(std::size_t index) const override
    {
        return index < listed.size() ? listed[index].id : 0;
    }

    std::optional<std::string> displayName(MIDIEndpointRef endpoint) const override
    {
        for (const auto& row : listed)
            if (row.id == endpoint) return row.displayName;
        return std::nullopt;
    }

    std::optional<std::string> name(MIDIEndpointRef endpoint) const override
    {
        for (const auto& row : listed)
            if (row.id == endpoint) return row.name;
        return std::nullopt;
    }

    void select(MIDIPortRef, MIDIEndpointRef endpoint) override { selections.push_back(endpoint); }

    MIDIStatus send(MIDIPortRef, MIDIEndpointRef endpoint, std::span<const std::uint8_t> message,
                    MIDILane lane) override
    {
        if (const auto call = onSend) call();
        const std::scoped_lock lock(m_mutex);
        m_attempted.emplace_back(message.begin(), message.end());
        if (m_sent.size() >= failAfter) return sendStatus;
        m_sent.push_back({endpoint, {message.begin(), message.end()}, lane});
        return 0;
    }

    bool isWaitedFor(MIDIEndpointRef) const override { return isBehind; }

    void disposePort(MIDIPortRef) override { disposals.push_back("port"); }
    void disposeClient(MIDIClientRef) override { disposals.push_back("client"); }

    /// Every send from the one behind `count` more messages fails with `status`.
    void failAfterMessages(std::size_t count, MIDIStatus status)
    {
        const std::scoped_lock lock(m_mutex);
        failAfter = m_sent.size() + count;
        sendStatus = status;
    }

    std::vector<Endpoint> endpoints; ///< what the next refresh lists
    MIDIStatus clientStatus = 0;
    MIDIStatus portStatus = 0;
    bool isBehind = false; ///< as if normal messages waited
    int createdPorts = 0;
    std::string clientName;
    std::string portName;
    std::function<void()> setupChanged;
    DeliveryFailure deliveryFailed;
    std::function<void()> onSend; ///< called with each message, before it is taken
    std::vector<MIDIEndpointRef> selections;
    std::vector<std::string> disposals;

private:
    mutable std::mutex m_mutex;
    std::vector<Endpoint> listed;
    std::vector<Sent> m_sent;
    std::size_t failAfter = SIZE_MAX;
    MIDIStatus sendStatus = 0;
    tonavelle::Batch m_attempted;
};

} // namespace orvim::test
