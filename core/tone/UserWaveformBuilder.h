#pragma once

#include "core/protocol/Message.h"
#include "core/tone/UserWaveform.h"
#include "core/tone/UserWaveformError.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tonavelle {

/// The shape buttons of the waveform editor, in their order.
enum class UserWaveformButtonPreset : std::uint8_t { sine, saw, square, triangle, flat };

/// The 16 samples that one message carries.
struct WaveformSection {
    int slot = 0;    ///< 0...3
    int section = 0; ///< 0...127; it begins at sample 16 * section
    std::array<std::int16_t, UserWaveformBuilder::samplesPerSection> samples{};

    bool operator==(const WaveformSection&) const = default;
};

} // namespace tonavelle

/// The shapes, operations, messages and files of the user waveforms. Every failure is a UserWaveformError.
namespace tonavelle::UserWaveformBuilder {

/// What each shape button puts into the formula field, by the button's raw value.
inline constexpr std::array<std::string_view, 5> buttonFormulas{"sin(t)", "saw(t)", "squ(t)", "tri(t)", "0"};

/// Examples that are offered to the user.
inline constexpr std::array<std::string_view, 3> formulaSamples{
    "pow( ( (t - pi) / pi) , 3)",
    "sin(7 * t) * saw(t)",
    "abs( (squ(t) / 2 + 0.5) * tri( 2 * t + pi / 2) ) - abs( (-squ(t) / 2 + 0.5) * sin(2 * t) )",
};

/// The stock shapes. They differ slightly from what the formulas of the same names give; the stock sine is what every
/// slot begins with.
UserWaveform sine();
UserWaveform saw();
UserWaveform square();
UserWaveform triangle();
UserWaveform flat();

UserWaveform samplesForButton(UserWaveformButtonPreset preset);

/// Fails with the formula's own word for what is wrong.
UserWaveform samplesFromFormula(std::string_view formula);

/// Scaled about zero so that the largest absolute value becomes 32767; silence stays as it is.
UserWaveform normalized(std::span<const std::int16_t> waveform);

/// Centred and scaled to the full range; a constant waveform stays as it is.
UserWaveform normalizedWithOffset(std::span<const std::int16_t> waveform);

UserWaveform inverted(std::span<const std::int16_t> waveform);
UserWaveform absolute(std::span<const std::int16_t> waveform);

/// The message of one section of a slot. Fails on a slot outside 0...3, then on a section outside 0...127, then on a
/// waveform that has not 2,048 samples.
Message sectionSysEx(int slot, int section, std::span<const std::int16_t> waveform);

/// The messages of all 128 sections in order. Fails as `sectionSysEx`.
Batch sysExMessages(int slot, std::span<const std::int16_t> waveform);

/// What a section message carries, or nothing if it is none.
std::optional<WaveformSection> decodedSectionSamples(std::span<const std::uint8_t> message);

/// Makes a channel sound the slot's waveform; of the channel the low four bits count. Fails on a slot outside 0...3.
Batch previewMessages(int slot, int channel);

/// A mono WAV file of 16-bit samples. Fails on a waveform that has not 2,048 samples.
std::vector<std::uint8_t> wavData(std::span<const std::int16_t> waveform, std::uint32_t sampleRate);

/// The samples of a mono 16-bit PCM WAV file, stretched to 2,048. Fails with `invalidSampleCount` on any other file.
UserWaveform samplesFromWAVData(std::span<const std::uint8_t> file);

} // namespace tonavelle::UserWaveformBuilder
