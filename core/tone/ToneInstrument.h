#pragma once

#include "core/tone/ToneNames.h"
#include "core/tone/ToneRecords.h"

#include <string>
#include <vector>

namespace tonavelle {

/// All that the tone editor edits and a tone data file holds.
struct ToneInstrument {
    MasterToneParameters master;
    std::vector<ChannelToneParameters> channels;
    std::vector<UserTonePatch> userMelodies;
    std::vector<UserTonePatch> userDrums;
    std::string drumSetName{defaultDrumSetName};
    std::vector<UserWaveform> userWaveforms;

    bool operator==(const ToneInstrument&) const = default;
};

/// The state of the module as it left the factory.
ToneInstrument factoryToneInstrument();

/// The same as the start values of an import: what a tone data file leaves out is at its default.
ImportedToneData factoryToneData();

/// What the editor makes of an import: 16 channels, patches numbered by their place, a drum set name that is not
/// empty, and the default in place of a waveform that is not whole.
ToneInstrument toneInstrument(ImportedToneData imported);

} // namespace tonavelle
