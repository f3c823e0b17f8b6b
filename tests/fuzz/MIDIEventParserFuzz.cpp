// Any bytes parse or end in the parser's own error; the list is in its promised order, has fewer events than the file
// has bytes, and all of them share one copy of the file.

#include "core/protocol/MIDIEventParser.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <tuple>

namespace {

using namespace tonavelle;
using orvim::test::require;

// Overlapping events copied one by one would keep the run from getting anywhere.
constexpr std::size_t copiedByteCount = 1'000'000;

bool liesIn(std::span<const std::uint8_t> part, const Message& whole)
{
    const std::less_equal<const std::uint8_t*> isNotBehind;
    return isNotBehind(whole.data(), part.data()) &&
           isNotBehind(part.data() + part.size(), whole.data() + whole.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<ParsedMIDIEvent> events;
    try {
        events = parseMIDIEvents({data, size});
    } catch (const MIDIEventParserError&) {
        return 0;
    }
    require(events.size() < size);
    require(std::ranges::is_sorted(events, {}, [](const ParsedMIDIEvent& event) {
        return std::tuple(event.absoluteTick, event.trackIndex, event.order);
    }));
    std::size_t copied = 0;
    for (const auto& event : events) {
        require(event.file == events[0].file && event.file->size() == size && liesIn(event.data, *event.file));
        copied += event.data.size();
        if (copied > copiedByteCount) continue;
        require(event.message().size() == event.messageSize());
        require(event.metaType ? event.messageSize() == 0 : !event.text());
    }
    return 0;
}
