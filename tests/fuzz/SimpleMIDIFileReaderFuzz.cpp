// Any bytes read or end in the reader's own error; what was read comes back the same after writing.

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"
#include "tests/fuzz/Require.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tonavelle;
    SimpleMIDIFile file;
    try {
        file = SimpleMIDIFileReader::read({data, size});
    } catch (const SimpleMIDIFileReaderError&) {
        return 0;
    }
    for (const auto& track : file.tracks) {
        for (const auto& event : track.events)
            orvim::test::require(event.metaType() || !event.text());
    }
    const auto written = SimpleMIDIFileBuilder::file(file.format, file.ticksPerQuarterNote, file.tracks);
    orvim::test::require(SimpleMIDIFileReader::read(written) == file);
    return 0;
}
