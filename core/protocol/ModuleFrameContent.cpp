#include "core/protocol/ModuleFrameContent.h"

#include "core/protocol/MIDIFileFormat.h"
#include "core/protocol/ModuleCommands.h"

#include <algorithm>

namespace tonavelle {

std::optional<std::span<const std::uint8_t>> moduleFrameContent(std::span<const std::uint8_t> message)
{
    if (!message.empty() && message.front() == MIDIFileFormat::sysExStatus) message = message.subspan(1);
    if (!message.empty() && message.back() == MIDIFileFormat::sysExEnd) message = message.first(message.size() - 1);
    const auto head = std::span(moduleFrameHead).subspan(1);
    if (message.size() <= head.size() || !std::ranges::equal(message.first(head.size()), head)) return std::nullopt;
    return message.subspan(head.size());
}

} // namespace tonavelle
