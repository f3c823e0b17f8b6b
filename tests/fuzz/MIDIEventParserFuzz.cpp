// Any bytes parse or end in the parser's own error; the list is in its promised order and no larger than the file.

#include "core/protocol/MIDIEventParser.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tonavelle;
    std::vector<ParsedMIDIEvent> events;
    try {
        events = parseMIDIEvents({data, size});
    } catch (const MIDIEventParserError&) {
        return 0;
    }
    std::size_t byteCount = 0;
    for (const auto& event : events) {
        byteCount += event.message.size() + 1;
        orvim::test::require(event.metaType.has_value() ? event.message.empty() : !event.text);
    }
    orvim::test::require(byteCount <= size);
    orvim::test::require(std::ranges::is_sorted(events, {}, &ParsedMIDIEvent::absoluteTick));
    return 0;
}
