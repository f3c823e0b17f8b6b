#include "platform/SequencerClient.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <cerrno>
#include <mutex>

namespace orvim {
namespace {

constexpr unsigned inactivePort = 1u << 8; ///< a capability that this version of alsa-lib has no name for
constexpr std::size_t encoderBytes = 256;  ///< the longest channel or system message has three

struct ClientInfoDeleter {
    void operator()(snd_seq_client_info_t* info) const { snd_seq_client_info_free(info); }
};
struct PortInfoDeleter {
    void operator()(snd_seq_port_info_t* info) const { snd_seq_port_info_free(info); }
};
struct QueryDeleter {
    void operator()(snd_seq_query_subscribe_t* query) const { snd_seq_query_subscribe_free(query); }
};
using ClientInfo = std::unique_ptr<snd_seq_client_info_t, ClientInfoDeleter>;
using PortInfo = std::unique_ptr<snd_seq_port_info_t, PortInfoDeleter>;

ClientInfo makeClientInfo()
{
    snd_seq_client_info_t* info = nullptr;
    if (snd_seq_client_info_malloc(&info) < 0) throw std::bad_alloc();
    return ClientInfo(info);
}

PortInfo makePortInfo()
{
    snd_seq_port_info_t* info = nullptr;
    if (snd_seq_port_info_malloc(&info) < 0) throw std::bad_alloc();
    return PortInfo(info);
}

extern "C" void ignoreError(const char*, int, const char*, int, const char*, ...) {}

/// alsa-lib prints its troubles to the terminal unless told otherwise.
void silenceErrors()
{
    static std::once_flag once;
    std::call_once(once, [] { snd_lib_error_set_handler(ignoreError); });
}

SequencerPort describe(const snd_seq_client_info_t* client, const snd_seq_port_info_t* port)
{
    const snd_seq_addr_t* address = snd_seq_port_info_get_addr(port);
    const unsigned capability = snd_seq_port_info_get_capability(port);
    constexpr unsigned needed = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
    constexpr unsigned forbidden = SND_SEQ_PORT_CAP_NO_EXPORT | inactivePort;
    return {.address = {address->client, address->port},
            .clientName = snd_seq_client_info_get_name(const_cast<snd_seq_client_info_t*>(client)),
            .portName = snd_seq_port_info_get_name(port),
            .isKernelClient = snd_seq_client_info_get_type(client) == SND_SEQ_KERNEL_CLIENT,
            .isHardware = (snd_seq_port_info_get_type(port) & SND_SEQ_PORT_TYPE_HARDWARE) != 0,
            .isOpenToAll = (capability & needed) == needed && (capability & forbidden) == 0,
            .card = std::max(snd_seq_client_info_get_card(client), SequencerPort::noCard)};
}

std::optional<SequencerAnnouncement> announcement(const snd_seq_event_t& event)
{
    using Kind = SequencerAnnouncement::Kind;
    const SequencerAddress address{event.data.addr.client, event.data.addr.port};
    switch (event.type) {
    case SND_SEQ_EVENT_PORT_START:
        return SequencerAnnouncement{Kind::portStarted, address};
    case SND_SEQ_EVENT_PORT_EXIT:
        return SequencerAnnouncement{Kind::portEnded, address};
    case SND_SEQ_EVENT_CLIENT_EXIT:
        return SequencerAnnouncement{Kind::clientEnded, {address.client, 0}};
    case SND_SEQ_EVENT_CLIENT_START:
    case SND_SEQ_EVENT_CLIENT_CHANGE:
    case SND_SEQ_EVENT_PORT_CHANGE:
        return SequencerAnnouncement{Kind::changed, {address.client, 0}};
    default:
        return std::nullopt;
    }
}

} // namespace

SequencerClient::~SequencerClient()
{
    if (encoder != nullptr) snd_midi_event_free(encoder);
    if (sequencer != nullptr) snd_seq_close(sequencer);
}

MIDIStatus SequencerClient::open(const std::string& name)
{
    silenceErrors();
    const int status = snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK);
    if (status < 0) {
        sequencer = nullptr;
        return status;
    }
    snd_seq_set_client_name(sequencer, name.c_str());
    clientID = static_cast<std::uint8_t>(snd_seq_client_id(sequencer));
    pollfd descriptor{};
    snd_seq_poll_descriptors(sequencer, &descriptor, 1, POLLIN);
    pollDescriptor = descriptor.fd;
    return 0;
}

MIDIStatus SequencerClient::createOutput(const std::string& name)
{
    const int status = snd_midi_event_new(encoderBytes, &encoder);
    if (status < 0) return status;
    output = snd_seq_create_simple_port(sequencer, name.c_str(), SND_SEQ_PORT_CAP_READ,
                                        SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
    return std::min(output, 0);
}

MIDIStatus SequencerClient::subscribe(SequencerAddress destination)
{
    const int status = snd_seq_connect_to(sequencer, output, destination.client, destination.port);
    return status == -EBUSY ? 0 : status; // it stands already
}

void SequencerClient::unsubscribe(SequencerAddress destination)
{
    snd_seq_disconnect_to(sequencer, output, destination.client, destination.port);
}

MIDIStatus SequencerClient::write(SequencerAddress destination, std::span<const std::uint8_t> message)
{
    constexpr std::uint8_t systemExclusive = 0xF0;
    constexpr std::uint8_t endOfExclusive = 0xF7;
    if (message.empty()) return 0;
    if (message[0] == systemExclusive || message[0] == endOfExclusive)
        return writeSystemExclusive(destination, message);
    return writeShort(destination, message);
}

MIDIStatus SequencerClient::writeSystemExclusive(SequencerAddress destination, std::span<const std::uint8_t> message)
{
    snd_seq_event_t event{};
    snd_seq_ev_set_direct(&event);
    snd_seq_ev_set_source(&event, static_cast<unsigned char>(output));
    snd_seq_ev_set_dest(&event, destination.client, destination.port);
    // The event only reads the bytes; its field is not const because received events use it too.
    snd_seq_ev_set_sysex(&event, static_cast<unsigned>(message.size()), const_cast<std::uint8_t*>(message.data()));
    return std::min(snd_seq_event_output_direct(sequencer, &event), 0);
}

MIDIStatus SequencerClient::writeShort(SequencerAddress destination, std::span<const std::uint8_t> message)
{
    snd_midi_event_reset_encode(encoder);
    for (const std::uint8_t byte : message) {
        snd_seq_event_t event{};
        if (snd_midi_event_encode_byte(encoder, byte, &event) != 1) continue;
        snd_seq_ev_set_direct(&event);
        snd_seq_ev_set_source(&event, static_cast<unsigned char>(output));
        snd_seq_ev_set_dest(&event, destination.client, destination.port);
        const int status = snd_seq_event_output_direct(sequencer, &event);
        if (status < 0) return status;
    }
    return 0;
}

std::vector<SequencerPort> SequencerClient::ports()
{
    const ClientInfo client = makeClientInfo();
    const PortInfo port = makePortInfo();
    std::vector<SequencerPort> found;
    snd_seq_client_info_set_client(client.get(), -1);
    while (snd_seq_query_next_client(sequencer, client.get()) >= 0) {
        snd_seq_port_info_set_client(port.get(), snd_seq_client_info_get_client(client.get()));
        snd_seq_port_info_set_port(port.get(), -1);
        while (snd_seq_query_next_port(sequencer, port.get()) >= 0) {
            found.push_back(describe(client.get(), port.get()));
        }
    }
    return found;
}

std::optional<SequencerPort> SequencerClient::port(SequencerAddress address)
{
    const ClientInfo client = makeClientInfo();
    const PortInfo port = makePortInfo();
    if (snd_seq_get_any_client_info(sequencer, address.client, client.get()) < 0) return std::nullopt;
    if (snd_seq_get_any_port_info(sequencer, address.client, address.port, port.get()) < 0) return std::nullopt;
    return describe(client.get(), port.get());
}

std::vector<SequencerAddress> SequencerClient::subscribers(SequencerAddress address)
{
    snd_seq_query_subscribe_t* raw = nullptr;
    if (snd_seq_query_subscribe_malloc(&raw) < 0) throw std::bad_alloc();
    const std::unique_ptr<snd_seq_query_subscribe_t, QueryDeleter> query(raw);
    const snd_seq_addr_t root{address.client, address.port};
    snd_seq_query_subscribe_set_root(query.get(), &root);
    snd_seq_query_subscribe_set_type(query.get(), SND_SEQ_QUERY_SUBS_READ);
    std::vector<SequencerAddress> found;
    for (int index = 0;; ++index) {
        snd_seq_query_subscribe_set_index(query.get(), index);
        if (snd_seq_query_port_subscribers(sequencer, query.get()) < 0) return found;
        const snd_seq_addr_t* subscriber = snd_seq_query_subscribe_get_addr(query.get());
        found.push_back({subscriber->client, subscriber->port});
    }
}

MIDIStatus SequencerClient::subscribeToAnnouncements()
{
    const int port = snd_seq_create_simple_port(
        sequencer, "Announcements", SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_NO_EXPORT, SND_SEQ_PORT_TYPE_APPLICATION);
    if (port < 0) return port;
    return snd_seq_connect_from(sequencer, port, SND_SEQ_CLIENT_SYSTEM, SND_SEQ_PORT_SYSTEM_ANNOUNCE);
}

std::vector<SequencerAnnouncement> SequencerClient::readAnnouncements()
{
    std::vector<SequencerAnnouncement> news;
    for (;;) {
        snd_seq_event_t* event = nullptr;
        const int status = snd_seq_event_input(sequencer, &event);
        if (status == -ENOSPC) {
            news.push_back({SequencerAnnouncement::Kind::lost, {}});
        } else if (status < 0 || event == nullptr) {
            return news;
        } else if (const auto one = announcement(*event)) {
            news.push_back(*one);
        }
    }
}

} // namespace orvim
