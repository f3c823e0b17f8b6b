#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tonavelle {

/// One cycle of a sound, nominally `UserWaveformBuilder::sampleCount` samples; operations that need them all check.
using UserWaveform = std::vector<std::int16_t>;

namespace UserWaveformBuilder {

inline constexpr int slotCount = 4;
inline constexpr int firstWaveType = 8;            ///< the wave type of the first slot; the others follow it
inline constexpr std::uint8_t previewProgram = 80; ///< the factory program "081:Square Wave", as which a slot is heard
inline constexpr int sectionCount = 128;
inline constexpr std::size_t samplesPerSection = 16;
inline constexpr std::size_t sampleCount = sectionCount * samplesPerSection;

} // namespace UserWaveformBuilder

} // namespace tonavelle
