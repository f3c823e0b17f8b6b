#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace orvim {

using MIDIClientRef = std::uint32_t;   ///< 0: none
using MIDIPortRef = std::uint32_t;     ///< 0: none
using MIDIEndpointRef = std::uint32_t; ///< 0: none; a handle is never used again for another or a replugged device
using MIDIStatus = std::int32_t;       ///< 0: done; anything else is the code that the user reads

/// The answer of a normal send that waited for room when the application was told to quit.
inline constexpr MIDIStatus midiSendCancelled = -ECANCELED;

/// Which of a destination's two queues a message waits in. A realtime message goes ahead of every waiting normal one,
/// but never into the middle of one.
enum class MIDILane { normal, realtime };

/// What the editor needs of a machine's MIDI: one client, one output, the list of destinations, and a way to send.
/// All calls but `send` on the realtime lane belong to the main thread; that one may come from any thread.
class MIDISystem
{
public:
    /// Told on the main thread when a destination has failed with messages in its queue whose sends had been answered
    /// with 0 already. Each failure is told once: here, or by the answer of the next `send`, whichever comes first;
    /// but a loss of normal messages is never left to the answer of a realtime one.
    using DeliveryFailure = std::function<void(MIDIEndpointRef endpoint, MIDILane lane, MIDIStatus status)>;

    MIDISystem() = default;
    MIDISystem(const MIDISystem&) = delete;
    MIDISystem& operator=(const MIDISystem&) = delete;
    virtual ~MIDISystem() = default;

    /// Opens the client. `setupChanged` is called after any change of the list of destinations, on any thread;
    /// `deliveryFailed` on the main thread.
    virtual MIDIStatus createClient(const std::string& name, std::function<void()> setupChanged,
                                    DeliveryFailure deliveryFailed, MIDIClientRef& client) = 0;
    virtual MIDIStatus createOutputPort(MIDIClientRef client, const std::string& name, MIDIPortRef& port) = 0;

    /// Takes a new list of the destinations; the four calls below speak of that list.
    virtual std::size_t refreshDestinations() = 0;
    /// The endpoint at `index` of the list, 0 when there is none.
    virtual MIDIEndpointRef destination(std::size_t index) const = 0;
    virtual std::optional<std::string> displayName(MIDIEndpointRef endpoint) const = 0;
    virtual std::optional<std::string> name(MIDIEndpointRef endpoint) const = 0;

    /// Connects `port` to the destination that the coming sends go to, or to none; a destination that has failed
    /// takes messages again after this. Returns at once.
    virtual void select(MIDIPortRef port, MIDIEndpointRef endpoint) = 0;

    /// Hands over one whole message to be sent as soon as the destination has room. On the normal lane it may wait
    /// while much is queued, and the window goes on painting meanwhile; on the realtime lane it never waits.
    virtual MIDIStatus send(MIDIPortRef port, MIDIEndpointRef endpoint, std::span<const std::uint8_t> message,
                            MIDILane lane) = 0;

    /// Messages of the normal lane wait for the destination.
    virtual bool isWaitedFor(MIDIEndpointRef endpoint) const = 0;

    virtual void disposePort(MIDIPortRef port) = 0;
    virtual void disposeClient(MIDIClientRef client) = 0;
};

} // namespace orvim
