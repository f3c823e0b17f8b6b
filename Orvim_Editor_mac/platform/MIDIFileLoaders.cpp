#include "platform/MIDIFileLoaders.h"

#include "platform/Phase3FileError.h"
#include "platform/WholeFile.h"

namespace orvim {

std::vector<tonavelle::ParsedMIDIEvent> parseMIDIEvents(const QString& path)
{
    try {
        return tonavelle::parseMIDIEvents(readWholeFile(path));
    } catch (const tonavelle::MIDIEventParserError&) {
        throw Phase3FileError(Phase3FileError::cannotReadMIDI);
    }
}

} // namespace orvim
