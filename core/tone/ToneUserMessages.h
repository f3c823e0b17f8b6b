#pragma once

#include "core/protocol/Message.h"
#include "core/tone/ToneInstrument.h"

#include <span>
#include <string_view>
#include <vector>

namespace tonavelle {

/// A message and the label under which it is sent.
struct LabelledMessage {
    std::string_view label;
    Message message;

    bool operator==(const LabelledMessage&) const = default;
};

/// Whether only what was edited is written, list by list.
struct DirtyOnlyFlags {
    bool writesDirtyUserMelodyOnly = true;
    bool writesDirtyUserDrumOnly = true; ///< for the drum set's name as well
    bool writesDirtyUserWaveOnly = true;

    bool operator==(const DirtyOnlyFlags&) const = default;
};

/// The flags for sending everything to the module.
inline constexpr DirtyOnlyFlags everything{false, false, false};

inline constexpr std::string_view userPatchParamLabel = "User Patch Param Send";
inline constexpr std::string_view userPatchNameLabel = "User Patch Name Send";
inline constexpr std::string_view userWaveformLabel = "User Waveform Send Data";

/// What stores the user patches and waveforms in the module: melodies with their names, drums, the drum set's name,
/// waveforms. A waveform that is not whole is left out.
std::vector<LabelledMessage> userMessages(const ToneInstrument& instrument, const DirtyOnlyFlags& flags);

} // namespace tonavelle
