#pragma once

#include "core/tone/ToneInstrument.h"
#include "core/tone/ToneUserMessages.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tonavelle {

/// The bytes of the editor's document, a Standard MIDI File.
std::vector<std::uint8_t> toneDataFile(const ToneInstrument& instrument, const DirtyOnlyFlags& flags);

/// What any MIDI file sets, on top of the factory state. Throws SimpleMIDIFileReaderError where the bytes are no MIDI
/// file.
ToneInstrument readToneDataFile(std::span<const std::uint8_t> bytes);

} // namespace tonavelle
