// Any file gives sounds 0 to 31 of whole samples. Those that fit into the sound memory come back the same from an
// export.

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
    const auto sounds = restoreSounds(events);
    orvim::test::require(sounds.size() <= 32);
    for (const auto& sound : sounds)
        orvim::test::require(sound.pcm16LittleEndian.size() % 2 == 0);
    try {
        const auto sections = SamplingSoundBuilder::buildSendDataSections(sounds, false);
        const auto settings = SamplingSoundBuilder::buildSettings(sounds);
        const auto exported = samplingSoundEvents(sections, settings, static_cast<int>(sounds.size()), true, true);
        const auto file = SimpleMIDIFileBuilder::wpfStyleSequence(exported, ticksPerQuarterNote);
        orvim::test::require(restoreSounds(parseMIDIEvents(file)) == sounds);
    } catch (const SamplingSoundError& error) {
        orvim::test::require(error.errorCase() == SamplingSoundError::tooManySamples);
    }
    return 0;
}
