#pragma once

#include "core/tone/ToneRecords.h"

#include <string_view>
#include <vector>

namespace tonavelle {

/// The module's 128 General MIDI programs in order, parsed on first use and shared.
const std::vector<TonePreset>& factoryMelodyPresets();

/// The rows of a comma-separated melody table below its header line. A line of fewer than 15 fields is dropped; a
/// number that cannot be read is 0, one that is too large keeps its low seven bits.
std::vector<TonePreset> parseMelodyTable(std::string_view text);

/// Gives a channel or a user patch the preset's sound: its P fields, and nothing else.
void applyPreset(const TonePreset& preset, ChannelToneParameters& parameters);

/// The same for a row of `factoryMelodyPresets`; a program that is no row changes nothing.
void applyFactoryPreset(int program, ChannelToneParameters& parameters);

} // namespace tonavelle
