#pragma once

#include <array>
#include <cstdint>

namespace tonavelle {

/// What the writer and the readers of Standard MIDI Files share.
namespace MIDIFileFormat {

inline constexpr std::array<std::uint8_t, 4> headerTag{'M', 'T', 'h', 'd'};
inline constexpr std::array<std::uint8_t, 4> trackTag{'M', 'T', 'r', 'k'};
inline constexpr std::uint32_t headerLength = 6; ///< bytes of the header behind its length field

inline constexpr std::uint8_t sysExStatus = 0xF0;
inline constexpr std::uint8_t sysExEnd = 0xF7; ///< closes a SysEx; as a status byte it opens a continued one
inline constexpr std::uint8_t metaStatus = 0xFF;

inline constexpr std::uint8_t textMetaType = 0x01;
inline constexpr std::uint8_t lyricMetaType = 0x05;
inline constexpr std::uint8_t endOfTrackMetaType = 0x2F;
inline constexpr std::uint8_t tempoMetaType = 0x51;

} // namespace MIDIFileFormat

} // namespace tonavelle
