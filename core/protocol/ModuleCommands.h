#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace tonavelle {

/// What every message of the module's own protocol begins with; a command byte follows.
inline constexpr std::array<std::uint8_t, 5> moduleFrameHead{0xF0, 0x00, 0x48, 0x05, 0x7F};

/// The command bytes of the module's frame.
enum class Command : std::uint8_t {
    tonavelleReset = 0x00,
    uiTypeSet = 0x03,
    faceBlinkingSet = 0x04,
    japaneseCharacterMode = 0x05,
    japaneseCharacterDelete = 0x06,
    japaneseCharacterAdd = 0x07,
    uiFaceSet = 0x10,
    imageRow = 0x20,
    imageDraw64x64 = 0x26,
    lcdColorSet = 0x2A,
    samplingSoundSection = 0x30,
    samplingSoundSetting = 0x31,
    tonePatch = 0x40,
    tonePatchName = 0x41,
    waveformData = 0x48,
    debugMode = 0x70,
    versionDisplay = 0x71,
};

/// A row of Japanese text on the module's screen, by its wire value.
enum class JapaneseCharacterLine : std::uint8_t { upper = 0, lower = 1 };

/// The rows that a delete command clears, by its wire value.
enum class JapaneseCharacterDeleteTarget : std::uint8_t { both = 0, upper = 1, lower = 2 };

/// The part of the face that a face command changes, by its wire value.
enum class UIFacePart : std::uint8_t { all = 0, eyebrow = 1, eye = 2, mouth = 3 };

/// The case with this raw value, or nothing.
std::optional<JapaneseCharacterLine> japaneseCharacterLine(std::uint8_t rawValue);
std::optional<JapaneseCharacterDeleteTarget> japaneseCharacterDeleteTarget(std::uint8_t rawValue);
std::optional<UIFacePart> uiFacePart(std::uint8_t rawValue);

} // namespace tonavelle
