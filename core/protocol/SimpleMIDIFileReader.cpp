#include "core/protocol/SimpleMIDIFileReader.h"

#include "core/protocol/ByteReader.h"
#include "core/protocol/MIDIFileFormat.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace tonavelle::SimpleMIDIFileReader {

namespace {

using namespace MIDIFileFormat;
using Error = SimpleMIDIFileReaderError;

constexpr std::uint16_t timeCodeDivision = 0x8000;
constexpr std::uint16_t ticksForTimeCode = 480;
// A note under running status, the event that long tracks are made of: delta, two data bytes.
constexpr std::size_t usualEventSize = 3;
// As many as a track of 3 MB may hold. A long track may as well be a single message, which needs no room for more.
constexpr std::size_t largestReserve = 1'000'000;

/// The data bytes of a channel message, by its upper nibble.
int channelDataByteCount(std::uint8_t status)
{
    switch (status >> 4) {
    case 0x8:
    case 0x9:
    case 0xA:
    case 0xB:
    case 0xE:
        return 2;
    case 0xC:
    case 0xD:
        return 1;
    default:
        throw Error(Error::unsupportedEvent, status);
    }
}

int systemCommonDataByteCount(std::uint8_t status)
{
    switch (status) {
    case 0xF1:
    case 0xF3:
        return 1;
    case 0xF2:
        return 2;
    default:
        return 0;
    }
}

class TrackReader
{
public:
    TrackReader(std::span<const std::uint8_t> slice, EventByteArena& arena) : m_bytes(slice), m_arena(arena)
    {
        m_track.events.reserve(std::min(slice.size() / usualEventSize, largestReserve));
    }

    SimpleMIDITrack read()
    {
        while (!m_bytes.atEnd() && readEvent()) {
        }
        return std::move(m_track);
    }

private:
    /// False at the end-of-track event.
    bool readEvent()
    {
        m_time += m_bytes.variableLengthQuantity();
        const std::uint8_t first = m_bytes.peek();
        if (first < 0x80) {
            if (m_runningStatus == noStatus) throw Error(Error::missingRunningStatus);
            readChannelMessage();
            return true;
        }
        m_bytes.byte();
        if (first < sysExStatus) {
            m_runningStatus = first;
            readChannelMessage();
            return true;
        }
        if (first == metaStatus) return readMeta();
        if (first == sysExStatus || first == sysExEnd)
            readSysEx(first);
        else
            readSystemCommon(first);
        m_runningStatus = noStatus;
        return true;
    }

    /// The data bytes under the running status, which the message's own status byte has set if it has one.
    void readChannelMessage()
    {
        const std::uint8_t status = m_runningStatus;
        if (channelDataByteCount(status) == 2) {
            const auto data = m_bytes.bytes(2);
            store({status, data[0], data[1]});
        } else {
            store({status, m_bytes.byte()});
        }
    }

    bool readMeta()
    {
        const std::uint8_t type = m_bytes.byte();
        const auto data = m_bytes.bytes(m_bytes.variableLengthQuantity());
        if (type == endOfTrackMetaType) return false;
        std::vector<std::uint8_t> head{metaStatus, type};
        const auto size = SimpleMIDIFileBuilder::variableLengthQuantity(static_cast<std::int64_t>(data.size()));
        head.insert(head.end(), size.begin(), size.end());
        store(m_arena.join(head, data, {}));
        return true;
    }

    void readSysEx(std::uint8_t status)
    {
        static constexpr std::array<std::uint8_t, 1> closing{sysExEnd};
        const auto data = m_bytes.bytes(m_bytes.variableLengthQuantity());
        const bool isOpen = status == sysExStatus && (data.empty() || data.back() != sysExEnd);
        store(m_arena.join(std::span(&status, 1), data, std::span(closing).first(isOpen ? 1 : 0)));
    }

    void readSystemCommon(std::uint8_t status)
    {
        const auto data = m_bytes.bytes(static_cast<std::size_t>(systemCommonDataByteCount(status)));
        store(m_arena.join(std::span(&status, 1), data, {}));
    }

    void store(EventBytes message) { m_track.events.push_back({m_time, std::move(message)}); }

    static constexpr std::uint8_t noStatus = 0;

    ByteReader m_bytes;
    EventByteArena& m_arena;
    SimpleMIDITrack m_track;
    std::int64_t m_time = 0;
    std::uint8_t m_runningStatus = noStatus;
};

void expectTag(ByteReader& bytes, std::span<const std::uint8_t> tag)
{
    if (!std::ranges::equal(bytes.bytes(tag.size()), tag)) throw Error(Error::unexpectedBytes);
}

SimpleMIDIFile readFile(ByteReader bytes)
{
    expectTag(bytes, headerTag);
    const std::uint32_t length = bytes.uint32BigEndian();
    if (length < headerLength) throw Error(Error::invalidHeader);
    SimpleMIDIFile file;
    file.format = bytes.uint16BigEndian();
    const std::uint16_t trackCount = bytes.uint16BigEndian();
    const std::uint16_t division = bytes.uint16BigEndian();
    bytes.bytes(length - headerLength);
    file.ticksPerQuarterNote = (division & timeCodeDivision) != 0 ? ticksForTimeCode : division;
    EventByteArena arena;
    for (int i = 0; i < trackCount; ++i) {
        expectTag(bytes, trackTag);
        const auto slice = bytes.bytes(bytes.uint32BigEndian());
        file.tracks.push_back(TrackReader(slice, arena).read());
    }
    return file;
}

} // namespace

SimpleMIDIFile read(std::span<const std::uint8_t> data)
{
    try {
        return readFile(ByteReader(data));
    } catch (const ByteReader::PastEnd&) {
        throw Error(Error::unexpectedEndOfFile);
    } catch (const ByteReader::QuantityTooLong&) {
        throw Error(Error::unexpectedBytes);
    }
}

} // namespace tonavelle::SimpleMIDIFileReader
