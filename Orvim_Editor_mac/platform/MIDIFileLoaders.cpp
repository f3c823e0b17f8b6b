#include "platform/MIDIFileLoaders.h"

#include "core/protocol/SimpleMIDIFileReader.h"
#include "platform/Phase3FileError.h"
#include "platform/WholeFile.h"

namespace orvim {

tonavelle::SimpleMIDIFile readSimpleMIDIFile(const QString& path)
{
    return tonavelle::SimpleMIDIFileReader::read(readWholeFile(path));
}

std::vector<tonavelle::ParsedMIDIEvent> parseMIDIEvents(const QString& path)
{
    try {
        return tonavelle::parseMIDIEvents(readWholeFile(path));
    } catch (const tonavelle::MIDIEventParserError&) {
        throw Phase3FileError(Phase3FileError::cannotReadMIDI);
    }
}

} // namespace orvim
