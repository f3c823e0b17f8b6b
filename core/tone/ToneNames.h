#pragma once

#include "core/tone/ToneRecords.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tonavelle {

inline constexpr std::string_view defaultUserMelodyName = "User Melody";
inline constexpr std::string_view defaultDrumSetName = "User Drum";

/// The name as the module gets it: exactly 12 characters of 32...126. Of the UTF-8 text the first 12 Unicode scalars
/// count, each outside that range is a blank, and blanks fill what is missing.
std::string normalizedPatchName(std::string_view text);

/// The same without the filling: at most 12 characters, as the editor keeps an entered name.
std::string limitedPatchName(std::string_view text);

/// How lists show a user melody: "001:User Melody" for the one of id 0.
std::string userMelodyDisplayName(const UserTonePatch& patch);

/// How lists show a drum note: "038 (Acoustic Snare)", or "034" for one without a name.
std::string drumNoteDisplayName(int note, std::string_view name);

/// The name of the sound that a channel plays. A program past the end of its list takes the last row.
std::string channelDisplayName(const ChannelToneParameters& channel, std::span<const UserTonePatch> userMelodies,
                               std::string_view drumSetName);

/// The programs that a channel can choose from; a single row for a drum channel.
std::vector<TonePresetMenuItem> presetMenuItems(const ChannelToneParameters& channel,
                                                std::span<const UserTonePatch> userMelodies,
                                                std::string_view drumSetName);

} // namespace tonavelle
