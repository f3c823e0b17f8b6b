// Any MIDI file imports into values that the module knows, and what was imported once survives the tone data file.

#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/tone/ToneDataFile.h"
#include "core/tone/ToneParameterTable.h"
#include "tests/fuzz/Require.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace tonavelle;

void requireWireValues(const ToneInstrument& instrument)
{
    for (const ToneParameter& row : masterToneParameterRows())
        orvim::test::require(value(row, instrument.master) <= 127);
    for (const ChannelToneParameters& channel : instrument.channels)
        orvim::test::require(channel == ChannelToneParameters(channel));
    for (const UserTonePatch& patch : instrument.userMelodies)
        orvim::test::require(patch.parameters == ChannelToneParameters(patch.parameters) && patch.name.size() <= 12);
    for (const UserTonePatch& patch : instrument.userDrums)
        orvim::test::require(patch.parameters == ChannelToneParameters(patch.parameters) && patch.noteNumber <= 127);
}

ToneInstrument writtenAndRead(const ToneInstrument& instrument)
{
    return readToneDataFile(toneDataFile(instrument, {}));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ToneInstrument instrument;
    try {
        instrument = readToneDataFile({data, size});
    } catch (const SimpleMIDIFileReaderError&) {
        return 0;
    }
    requireWireValues(instrument);
    const ToneInstrument kept = writtenAndRead(instrument); // without what a file does not hold
    orvim::test::require(writtenAndRead(kept) == kept);
    return 0;
}
