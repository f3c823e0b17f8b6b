#pragma once

#include "core/protocol/MIDIEventParser.h"
#include "core/protocol/SimpleMIDIFile.h"

#include <QString>

#include <vector>

namespace orvim {

/// The file as the full reader gives it. Throws tonavelle::SimpleMIDIFileReaderError or as readWholeFile does.
tonavelle::SimpleMIDIFile readSimpleMIDIFile(const QString& path);

/// The System Exclusive and meta events of the file. Throws Phase3FileError::cannotReadMIDI or as readWholeFile does.
std::vector<tonavelle::ParsedMIDIEvent> parseMIDIEvents(const QString& path);

} // namespace orvim
