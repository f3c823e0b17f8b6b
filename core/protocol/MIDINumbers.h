#pragma once

#include <cstdint>

namespace tonavelle {

/// The high four bits of a channel message's first byte.
enum class ChannelStatus : std::uint8_t {
    noteOff = 0x80,
    noteOn = 0x90,
    controlChange = 0xB0,
    programChange = 0xC0,
    pitchBend = 0xE0,
};

/// The controllers that select a bank or a parameter and carry its data.
namespace Controller {
inline constexpr int bankSelectMSB = 0x00;
inline constexpr int dataEntryMSB = 0x06;
inline constexpr int bankSelectLSB = 0x20;
inline constexpr int dataEntryLSB = 0x26;
inline constexpr int nrpnLSB = 0x62;
inline constexpr int nrpnMSB = 0x63;
inline constexpr int rpnLSB = 0x64;
inline constexpr int rpnMSB = 0x65;
inline constexpr int allSoundOff = 0x78;
} // namespace Controller

} // namespace tonavelle
