#include "core/tone/ToneDataFile.h"

#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneDataMIDIFileBuilder.h"
#include "core/tone/ToneDataMIDIImporter.h"

#include <utility>

namespace tonavelle {

std::vector<std::uint8_t> toneDataFile(const ToneInstrument& instrument, const DirtyOnlyFlags& flags)
{
    Batch messages;
    for (LabelledMessage& entry : userMessages(instrument, flags))
        messages.push_back(std::move(entry.message));
    return ToneDataMIDIFileBuilder::fileData(instrument.master, instrument.channels, messages);
}

ToneInstrument readToneDataFile(std::span<const std::uint8_t> bytes)
{
    return toneInstrument(
        ToneDataMIDIImporter::importData(SimpleMIDIFileReader::read(bytes), factoryToneData(), applyFactoryPreset));
}

} // namespace tonavelle
