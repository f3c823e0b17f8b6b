#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tonavelle {

/// What the universal Master Volume message begins with; the volume and 0xF7 follow.
inline constexpr std::array<std::uint8_t, 6> masterVolumeHead{0xF0, 0x7F, 0x7F, 0x04, 0x01, 0x00};
inline constexpr std::size_t masterVolumeMessageSize = masterVolumeHead.size() + 2;

/// Where the parts of a patch parameter message (command tonePatch) and of a patch name message (command
/// tonePatchName) stand, counted from 0xF0. The sound's own bytes are `ToneParameter::patchOffset`.
namespace PatchMessageLayout {
inline constexpr std::size_t patchClass = 6;
inline constexpr std::size_t program = 8;
inline constexpr std::size_t drumKey = 9;
inline constexpr std::size_t drumPitch = 22;
inline constexpr std::size_t parameterMessageSize = 25;
inline constexpr std::size_t name = 9;
inline constexpr std::size_t nameLength = 12;
inline constexpr std::size_t nameMessageSize = 22;
} // namespace PatchMessageLayout

/// The patch class byte: whether a message is for the user melodies or the user drum set.
enum class PatchClass : std::uint8_t { melody = 0, drum = 1 };

} // namespace tonavelle
