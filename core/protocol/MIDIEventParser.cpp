#include "core/protocol/MIDIEventParser.h"

#include "core/protocol/ByteReader.h"
#include "core/protocol/MIDIFileFormat.h"
#include "core/text/ShiftJIS.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tonavelle {

using namespace MIDIFileFormat;

namespace {

class EventParser
{
public:
    explicit EventParser(std::span<const std::uint8_t> data)
        : m_file(std::make_shared<const Message>(data.begin(), data.end())), m_bytes(*m_file)
    {
    }

    std::vector<ParsedMIDIEvent> parse()
    {
        const std::uint16_t trackCount = readHeader();
        for (int track = 0; track < trackCount; ++track)
            parseTrack(track);
        const auto place = [](const ParsedMIDIEvent& event) {
            return std::tuple(event.absoluteTick, event.trackIndex, event.order);
        };
        // Most files hold all their events in one track, and a sort takes long to find that out.
        if (!std::ranges::is_sorted(m_events, {}, place)) std::ranges::sort(m_events, {}, place);
        return std::move(m_events);
    }

private:
    /// The number of tracks; the cursor then stands where the header's length says, which may be anywhere.
    std::uint16_t readHeader()
    {
        expectTag(headerTag);
        const std::uint32_t length = m_bytes.uint32BigEndian();
        const std::size_t start = m_bytes.position();
        m_bytes.uint16BigEndian();
        const std::uint16_t trackCount = m_bytes.uint16BigEndian();
        m_bytes.uint16BigEndian();
        m_bytes.moveTo(start + length);
        return trackCount;
    }

    void parseTrack(std::int64_t trackIndex)
    {
        expectTag(trackTag);
        const std::uint32_t length = m_bytes.uint32BigEndian();
        const std::size_t end = m_bytes.position() + length;
        m_trackIndex = trackIndex;
        m_tick = 0;
        m_runningStatus.reset();
        while (m_bytes.position() < end)
            parseEvent();
        m_bytes.moveTo(end);
    }

    void parseEvent()
    {
        m_tick += m_bytes.variableLengthQuantity();
        const std::uint8_t status = readStatus();
        if (status == metaStatus)
            parseMeta();
        else if (status == sysExStatus || status == sysExEnd)
            parseSysEx(status);
        else
            m_bytes.moveTo(m_bytes.position() + ((status & 0xE0) == 0xC0 ? 1 : 2));
    }

    /// A data byte that comes first in a track is taken for a status byte, and runs on as one.
    std::uint8_t readStatus()
    {
        const std::uint8_t next = m_bytes.peek();
        if (next < 0x80 && m_runningStatus) return *m_runningStatus;
        m_bytes.byte();
        if (next < sysExStatus) m_runningStatus = next;
        return next;
    }

    void parseMeta()
    {
        const std::uint8_t type = m_bytes.byte();
        const auto data = m_bytes.bytes(m_bytes.variableLengthQuantity());
        store(metaStatus, type, data);
    }

    void parseSysEx(std::uint8_t status)
    {
        store(status, std::nullopt, m_bytes.bytes(m_bytes.variableLengthQuantity()));
    }

    void store(std::uint8_t status, std::optional<std::uint8_t> metaType, std::span<const std::uint8_t> data)
    {
        const auto order = static_cast<std::int64_t>(m_events.size());
        m_events.push_back({m_tick, m_trackIndex, order, status, metaType, data, m_file});
    }

    void expectTag(std::span<const std::uint8_t> tag)
    {
        if (!std::ranges::equal(m_bytes.bytes(tag.size()), tag)) throw MIDIEventParserError();
    }

    std::shared_ptr<const Message> m_file;
    ByteReader m_bytes;
    std::vector<ParsedMIDIEvent> m_events;
    std::int64_t m_trackIndex = 0;
    std::int64_t m_tick = 0;
    std::optional<std::uint8_t> m_runningStatus; ///< of the track being read; SysEx and meta events leave it as it is
};

} // namespace

std::size_t ParsedMIDIEvent::messageSize() const
{
    if (metaType) return 0;
    return data.size() + (status == sysExStatus ? 1 : 0);
}

Message ParsedMIDIEvent::message() const
{
    Message message(messageSize(), status);
    if (!metaType) std::ranges::copy_backward(data, message.end());
    return message;
}

std::optional<std::string> ParsedMIDIEvent::text() const
{
    if (metaType != textMetaType && metaType != lyricMetaType) return std::nullopt;
    return decodeText(data);
}

std::vector<ParsedMIDIEvent> parseMIDIEvents(std::span<const std::uint8_t> data)
{
    try {
        return EventParser(data).parse();
    } catch (const ByteReader::PastEnd&) {
        throw MIDIEventParserError();
    } catch (const ByteReader::QuantityTooLong&) {
        throw MIDIEventParserError();
    }
}

} // namespace tonavelle
