#include "core/protocol/SimpleMIDIFileBuilder.h"

#include "core/protocol/ByteAppender.h"
#include "core/protocol/MIDIFileFormat.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>

namespace tonavelle::SimpleMIDIFileBuilder {

namespace {

using namespace MIDIFileFormat;

constexpr std::array<std::uint8_t, 4> endOfTrackEvent{0x00, metaStatus, endOfTrackMetaType, 0x00};
constexpr std::size_t trackFrameSize = trackTag.size() + sizeof(std::uint32_t) + endOfTrackEvent.size();
constexpr std::size_t largestQuantitySize = 4;

/// The encoded quantity without memory of its own.
struct Quantity {
    std::array<std::uint8_t, largestQuantitySize> bytes;
    std::size_t first; ///< position of the first byte; the encoding ends where `bytes` ends

    std::span<const std::uint8_t> span() const { return std::span(bytes).subspan(first); }
};

Quantity encodeQuantity(std::int64_t value)
{
    std::uint32_t rest = value < 0 ? 0 : static_cast<std::uint32_t>(value & 0x0FFF'FFFF);
    Quantity quantity;
    quantity.first = largestQuantitySize - 1;
    quantity.bytes[quantity.first] = rest & 0x7F;
    while ((rest >>= 7) != 0)
        quantity.bytes[--quantity.first] = static_cast<std::uint8_t>(0x80 | (rest & 0x7F));
    return quantity;
}

void appendQuantity(ByteAppender& out, std::int64_t value)
{
    if (value < 0x80)
        out.append(static_cast<std::uint8_t>(std::max<std::int64_t>(value, 0)));
    else
        out.append(encodeQuantity(value).span());
}

/// A message with the count of its bytes behind the status.
void appendWithLength(ByteAppender& out, std::span<const std::uint8_t> message)
{
    out.append(message[0]);
    appendQuantity(out, static_cast<std::int64_t>(message.size() - 1));
    out.append(message.subspan(1));
}

void appendAsItStands(ByteAppender& out, const EventBytes& message)
{
    if (message.isInline())
        out.appendFirst(message.size(), message.inlineRoom());
    else
        out.append(message);
}

void appendTimedBody(ByteAppender& out, const EventBytes& message)
{
    if (!message.empty() && (message[0] == sysExStatus || message[0] == sysExEnd))
        appendWithLength(out, message);
    else
        appendAsItStands(out, message);
}

void appendHeader(ByteAppender& out, std::uint16_t format, std::size_t trackCount, std::uint16_t ticksPerQuarterNote)
{
    if (trackCount > std::numeric_limits<std::uint16_t>::max()) std::abort();
    out.append(headerTag);
    out.append(encodeUInt32BigEndian(headerLength));
    out.appendUInt16BigEndian(format);
    out.appendUInt16BigEndian(static_cast<std::uint16_t>(trackCount));
    out.appendUInt16BigEndian(ticksPerQuarterNote);
}

/// A whole track chunk; `appendEvents` writes the events.
template <typename AppendEvents>
void appendTrack(ByteAppender& out, const AppendEvents& appendEvents)
{
    out.append(trackTag);
    const std::size_t lengthOffset = out.size();
    out.append(encodeUInt32BigEndian(0));
    const std::size_t start = out.size();
    appendEvents();
    out.append(endOfTrackEvent);
    const std::size_t length = out.size() - start;
    if (length > std::numeric_limits<std::uint32_t>::max()) std::abort();
    out.overwrite(lengthOffset, encodeUInt32BigEndian(static_cast<std::uint32_t>(length)));
}

void appendSortedEvents(ByteAppender& out, std::span<const SimpleMIDITimedEvent> events)
{
    std::int64_t previousTime = 0;
    for (const auto& event : events) {
        const std::int64_t time = std::max<std::int64_t>(event.absoluteTime, 0);
        appendQuantity(out, time - previousTime);
        appendTimedBody(out, event.message);
        previousTime = time;
    }
}

void appendTimedEvents(ByteAppender& out, std::span<const SimpleMIDITimedEvent> events)
{
    // Most lists are in order already, and sorting one costs more than writing it.
    if (std::ranges::is_sorted(events, {}, &SimpleMIDITimedEvent::absoluteTime)) return appendSortedEvents(out, events);
    std::vector<SimpleMIDITimedEvent> sorted(events.begin(), events.end());
    std::ranges::stable_sort(sorted, {}, &SimpleMIDITimedEvent::absoluteTime);
    appendSortedEvents(out, sorted);
}

/// Close to the size of the track's chunk and cheap to find.
std::size_t expectedSize(std::span<const SimpleMIDITimedEvent> events)
{
    std::size_t size = trackFrameSize;
    for (const auto& event : events)
        size += event.message.size() + (event.message.isInline() ? 1 : largestQuantitySize);
    return size;
}

} // namespace

std::vector<std::uint8_t> variableLengthQuantity(std::int64_t value)
{
    const Quantity quantity = encodeQuantity(value);
    const auto bytes = quantity.span();
    return {bytes.begin(), bytes.end()};
}

std::array<std::uint8_t, 4> encodeUInt32BigEndian(std::uint32_t value)
{
    return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
            static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

std::vector<std::uint8_t> file(std::uint16_t format, std::uint16_t ticksPerQuarterNote,
                               std::span<const SimpleMIDITrack> tracks)
{
    std::size_t size = headerTag.size() + sizeof(std::uint32_t) + headerLength;
    for (const auto& track : tracks)
        size += expectedSize(track.events);
    ByteAppender out(size);
    appendHeader(out, format, tracks.size(), ticksPerQuarterNote);
    for (const auto& track : tracks)
        appendTrack(out, [&] { appendTimedEvents(out, track.events); });
    return std::move(out).take();
}

std::vector<std::uint8_t> wpfStyleSequence(std::span<const SimpleMIDITimedEvent> events,
                                           std::uint16_t ticksPerQuarterNote)
{
    std::array<SimpleMIDITrack, 2> tracks;
    tracks[0].events.reserve(events.size() + 1);
    tracks[0].events.push_back(defaultTempoEvent());
    tracks[0].events.insert(tracks[0].events.end(), events.begin(), events.end());
    return file(1, ticksPerQuarterNote, tracks);
}

std::vector<std::uint8_t> singleTrack(std::span<const MIDITrackEvent> events, std::uint16_t ticksPerQuarterNote)
{
    ByteAppender out(0);
    appendHeader(out, 0, 1, ticksPerQuarterNote);
    appendTrack(out, [&] {
        for (const auto& event : events) {
            appendQuantity(out, event.deltaTime);
            if (!event.message.empty() && event.message[0] == sysExStatus)
                appendWithLength(out, event.message);
            else
                appendAsItStands(out, event.message);
        }
    });
    return std::move(out).take();
}

SimpleMIDITimedEvent defaultTempoEvent()
{
    return {.absoluteTime = 0, .message = {metaStatus, tempoMetaType, 0x03, 0x0F, 0x42, 0x40}};
}

} // namespace tonavelle::SimpleMIDIFileBuilder
