// Any file gives whole pictures for screens 0 to 31, which come back the same from an export.

#include "core/media/ImageTransferBuilder.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "tests/fuzz/Require.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tonavelle;
    using namespace TransferMIDIFileBuilder;
    std::vector<ParsedMIDIEvent> events;
    try {
        events = parseMIDIEvents({data, size});
    } catch (const MIDIEventParserError&) {
        return 0;
    }
    const auto pictures = restoreImages(events);
    orvim::test::require(pictures.size() <= 32);
    std::vector<Batch> rows;
    for (const auto& picture : pictures)
        rows.push_back(ImageTransferBuilder::imageTransferRows(static_cast<std::uint8_t>(rows.size()), picture));
    const auto file =
        SimpleMIDIFileBuilder::wpfStyleSequence(imageTransferEvents(rows, true, true, true), ticksPerQuarterNote);
    orvim::test::require(restoreImages(parseMIDIEvents(file)) == pictures);
    return 0;
}
