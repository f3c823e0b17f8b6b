#pragma once

#include "core/protocol/SimpleMIDIFile.h"
#include "core/tone/ToneModuleModel.h"
#include "core/tone/ToneRecords.h"

/// Reads tone data from any MIDI file: its events are played in time order into a model of the module, and what they
/// set is kept. What is unknown or malformed is skipped, and what the file does not mention stays as it was.
namespace tonavelle::ToneDataMIDIImporter {

using ApplyPresetVoice = ToneModuleModel::ApplyPresetVoice;

/// `applyPresetVoice` may be empty.
ImportedToneData importData(const SimpleMIDIFile& from, ImportedToneData initialState,
                            const ApplyPresetVoice& applyPresetVoice);

} // namespace tonavelle::ToneDataMIDIImporter
