// A song saved with its own rows opens again, and saving it once more changes nothing.

#include "core/media/LyricFile.h"
#include "core/protocol/SimpleMIDIFileReader.h"
#include "tests/fuzz/Require.h"

#include <cstddef>
#include <cstdint>

namespace {

tonavelle::SimpleMIDIFile saved(const tonavelle::SimpleMIDIFile& song)
{
    const auto rows = tonavelle::readLyricRows(song);
    return tonavelle::SimpleMIDIFileReader::read(
        tonavelle::buildLyricFile(rows, true, song, tonavelle::lyricsTicksPerBar(song)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tonavelle::SimpleMIDIFile song;
    try {
        song = tonavelle::SimpleMIDIFileReader::read({data, size});
    } catch (const tonavelle::SimpleMIDIFileReaderError&) {
        return 0;
    }
    const auto once = saved(song);
    orvim::test::require(tonavelle::readLyricRows(saved(once)) == tonavelle::readLyricRows(once));
    return 0;
}
