#pragma once

#include "core/tone/ToneRecords.h"

namespace tonavelle {

/// The factory patch of a MIDI note; notes 35...81 carry the General MIDI percussion, all others one nameless sound.
UserDrumDefaultPatch defaultUserDrumPatch(int note);

} // namespace tonavelle
