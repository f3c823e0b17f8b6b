#pragma once

#include "core/tone/ToneRecords.h"

#include <vector>

namespace tonavelle {

inline constexpr int channelCount = 16;
inline constexpr int userPatchCount = 128;

/// Sixteen channels on "001:Piano 1"; the one of index 9 is a drum channel and carries that sound as well.
std::vector<ChannelToneParameters> defaultChannels();

/// 128 melody patches, all alike: the user bank does not start as a copy of the factory table.
std::vector<UserTonePatch> defaultUserMelodies();

/// 128 drum patches, one a MIDI note, as `defaultUserDrumPatch` gives them.
std::vector<UserTonePatch> defaultUserDrums();

/// Whether a melody patch has the default name (normalized) and sound; the rest of it does not count.
bool isDefaultUserMelody(const UserTonePatch& patch);

/// Whether a drum patch has the sound and pitch of its note's factory patch; its name does not count.
bool isDefaultUserDrum(const UserTonePatch& patch);

} // namespace tonavelle
