#include "core/protocol/SimpleMIDIFile.h"

#include "core/protocol/ByteReader.h"
#include "core/protocol/MIDIFileFormat.h"
#include "core/text/ShiftJIS.h"

#include <algorithm>

namespace tonavelle {

std::optional<std::uint8_t> SimpleMIDITimedEvent::metaType() const
{
    if (message.size() < 2 || message[0] != MIDIFileFormat::metaStatus) return std::nullopt;
    return message[1];
}

std::span<const std::uint8_t> SimpleMIDITimedEvent::metaData() const
{
    if (!metaType()) return {};
    const auto sizeAndData = std::span<const std::uint8_t>(message).subspan(2);
    std::size_t sizeByteCount = 0;
    while (sizeByteCount < sizeAndData.size() && sizeAndData[sizeByteCount] >= 0x80)
        ++sizeByteCount;
    return sizeAndData.subspan(std::min(sizeByteCount + 1, sizeAndData.size()));
}

std::optional<std::string> SimpleMIDITimedEvent::text() const
{
    if (!metaType()) return std::nullopt;
    return decodeText(metaData());
}

} // namespace tonavelle
