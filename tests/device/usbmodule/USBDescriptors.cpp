#include "usbmodule/USBDescriptors.h"

#include "tests/support/Bytes.h"

#include <linux/usb/audio.h>
#include <linux/usb/ch9.h>
#include <linux/usb/midi.h>

#include <algorithm>
#include <iterator>

namespace orvim::test {

namespace {

using tonavelle::Message;

constexpr std::uint16_t fullSpeedPacket = 64;
constexpr std::uint16_t highSpeedPacket = 512;

std::uint8_t low(std::size_t value)
{
    return static_cast<std::uint8_t>(value & 0xFF);
}
std::uint8_t high(std::size_t value)
{
    return static_cast<std::uint8_t>(value >> 8);
}

void append(Message& to, const Message& what)
{
    std::ranges::copy(what, std::back_inserter(to));
}

/// The four jacks of a port. What the host sends to a port enters by its embedded in-jack and leaves by the external
/// out-jack behind it; the other two are the way back.
struct PortJacks {
    explicit PortJacks(int port)
        : embeddedIn(low(static_cast<std::size_t>(4 * port + 1))), externalIn(low(embeddedIn + 1U)),
          embeddedOut(low(embeddedIn + 2U)), externalOut(low(embeddedIn + 3U))
    {
    }
    std::uint8_t embeddedIn, externalIn, embeddedOut, externalOut;
};

Message inJack(std::uint8_t kind, std::uint8_t id)
{
    return {USB_DT_MIDI_IN_SIZE, USB_DT_CS_INTERFACE, USB_MS_MIDI_IN_JACK, kind, id, 0};
}

Message outJack(std::uint8_t kind, std::uint8_t id, std::uint8_t source)
{
    return {USB_DT_MIDI_OUT_SIZE(1), USB_DT_CS_INTERFACE, USB_MS_MIDI_OUT_JACK, kind, id, 1, source, 1, 0};
}

Message bulkEndpoint(std::uint8_t address, std::uint16_t packet)
{
    return {USB_DT_ENDPOINT_SIZE, USB_DT_ENDPOINT, address, USB_ENDPOINT_XFER_BULK, low(packet), high(packet), 0};
}

/// An endpoint as a configuration names it: with the two bytes of the audio class, then the jacks behind it.
Message midiEndpoint(std::uint8_t address, std::uint16_t packet, const Message& jacks)
{
    Message result = bulkEndpoint(address, packet);
    result[0] = USB_DT_ENDPOINT_AUDIO_SIZE;
    append(result, {0, 0});
    append(result, {low(USB_DT_MS_ENDPOINT_SIZE(jacks.size())), USB_DT_CS_ENDPOINT, USB_MS_GENERAL, low(jacks.size())});
    append(result, jacks);
    return result;
}

/// The class-specific part of the MIDI interface: its header, every jack, both endpoints.
Message midiStreaming(std::uint8_t ports, std::uint16_t packet)
{
    Message jacks;
    Message fromHost;
    Message toHost;
    for (int port = 0; port < ports; ++port) {
        const PortJacks ids(port);
        append(jacks, inJack(USB_MS_EMBEDDED, ids.embeddedIn));
        append(jacks, inJack(USB_MS_EXTERNAL, ids.externalIn));
        append(jacks, outJack(USB_MS_EMBEDDED, ids.embeddedOut, ids.externalIn));
        append(jacks, outJack(USB_MS_EXTERNAL, ids.externalOut, ids.embeddedIn));
        fromHost.push_back(ids.embeddedIn);
        toHost.push_back(ids.embeddedOut);
    }
    append(jacks, midiEndpoint(outEndpointAddress, packet, fromHost));
    append(jacks, midiEndpoint(inEndpointAddress, packet, toHost));
    const std::size_t total = USB_DT_MS_HEADER_SIZE + jacks.size();
    Message result{USB_DT_MS_HEADER_SIZE, USB_DT_CS_INTERFACE, USB_MS_HEADER, 0x00, 0x01, low(total), high(total)};
    append(result, jacks);
    return result;
}

Message interface(std::uint8_t number, std::uint8_t endpoints, std::uint8_t subclass)
{
    return {USB_DT_INTERFACE_SIZE, USB_DT_INTERFACE, number, 0, endpoints, USB_CLASS_AUDIO, subclass, 0, 0};
}

Message configuration(std::uint8_t ports, std::uint16_t packet)
{
    Message interfaces = interface(0, 0, USB_SUBCLASS_AUDIOCONTROL);
    append(interfaces, bytes("09 24 01 00 01 09 00 01 01")); // audio control: one streaming interface, number 1
    append(interfaces, interface(1, 2, USB_SUBCLASS_MIDISTREAMING));
    append(interfaces, midiStreaming(ports, packet));
    const std::size_t total = USB_DT_CONFIG_SIZE + interfaces.size();
    Message result{USB_DT_CONFIG_SIZE, USB_DT_CONFIG, low(total), high(total), 2, 1, 0, USB_CONFIG_ATT_ONE, 50};
    append(result, interfaces);
    return result;
}

} // namespace

Message moduleDescription(std::uint8_t ports)
{
    Message result = bytes("00 00 00 00"); // the format that gadgetfs expects
    append(result, configuration(ports, fullSpeedPacket));
    append(result, configuration(ports, highSpeedPacket));
    // USB 2.0, class per interface, 64 bytes at endpoint 0, a test vendor and product, maker and product named, no
    // serial
    append(result, bytes("12 01 00 02 00 00 00 40 09 12 01 00 00 01 01 02 00 01"));
    return result;
}

Message endpointDescription(std::uint8_t address)
{
    Message result = bytes("01 00 00 00"); // in this machine's byte order
    append(result, bulkEndpoint(address, fullSpeedPacket));
    append(result, bulkEndpoint(address, highSpeedPacket));
    return result;
}

Message stringDescriptor(std::uint8_t index, std::string_view product)
{
    if (index == 0) return bytes("04 03 09 04"); // English
    const std::string_view text = index == 1 ? "Test" : product;
    Message result{low(2 + 2 * text.size()), USB_DT_STRING};
    for (const char c : text)
        append(result, {static_cast<std::uint8_t>(c), 0});
    return result;
}

} // namespace orvim::test
