#pragma once

#include "core/protocol/MIDIEventParser.h"

#include <QString>

#include <vector>

namespace orvim {

/// The System Exclusive and meta events of the file. Throws Phase3FileError::cannotReadMIDI or as readWholeFile does.
std::vector<tonavelle::ParsedMIDIEvent> parseMIDIEvents(const QString& path);

} // namespace orvim
