#pragma once

#include "core/PerformanceMonitorState.h"
#include "core/protocol/DotGrid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orvim {

/// The main screens, numbered as the module numbers them.
enum class DisplaySimulatorType : std::uint8_t {
    initial = 0,
    lipSync = 1,
    pianoRoll = 2,
    oscilloscope = 3,
    arbitraryImage = 4,
    performanceMonitor = 5,
    waterfall = 6,
};

enum class DisplaySimulatorColorMode : std::uint8_t { standard = 0, gm2 = 1, gs = 2, xg = 3, user = 4 };
enum class DisplaySimulatorSubDisplay : std::uint8_t { none = 0, over = 1, clip = 2 };
enum class DisplaySimulatorSpecialMode : std::uint8_t {
    none = 0,
    knob = 1,
    error = 2,
    starting = 3,
    firmwareUpdate = 4
};
enum class DisplaySimulatorErrorKind : std::uint8_t { vbusLow = 0, psramInit = 1, psramTest = 2, dac = 3 };

/// An sRGB colour with components from 0 to 1.
struct DisplayColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 1;

    bool operator==(const DisplayColor&) const = default;
};

using tonavelle::DotGrid;
using tonavelle::dotGridSize;

constexpr std::size_t arbitraryImageByteCount = 64 * 64 * 3;

/// The two header rows of 20 characters when no text is shown.
inline constexpr const char* displayBanner = "    [Tonavelle]     - MIDI Synthesizer -";

/// Everything that the simulated screen shows, as plain values. Texts are UTF-8, colours 0xRRGGBB.
struct DisplayFields {
    DisplaySimulatorType displayType = DisplaySimulatorType::initial;
    DisplaySimulatorColorMode colorMode = DisplaySimulatorColorMode::standard;
    DisplayColor lcdColorSet{63.0 / 127, 63.0 / 127, 63.0 / 127, 1}; ///< the last LCD colour set; no drawing reads it
    std::int32_t foregroundRGB = 0x8EBCFC;                           ///< text and lit dots
    std::int32_t backgroundRGB = 0x213A60;                           ///< header band and unlit dots
    std::int32_t baseRGB = 0x000000;                                 ///< background of the main area
    std::int32_t oscilloscopeWaveRGB = 0xFFD700;                     ///< the wave, and the trigger label when triggered
    std::int32_t oscilloscopeUntriggeredRGB = 0x3D3300;              ///< the zero line, and the trigger label otherwise
    std::string asciiText = displayBanner;                           ///< the two header rows in ASCII mode
    std::string japaneseUpper;
    std::string japaneseLower;
    bool isJapaneseMode = false;
    bool showsUSB = true;
    int leftLevel = 20;  ///< 0...63
    int rightLevel = 53; ///< 0...63
    int voiceCount = 24; ///< 0...60
    DisplaySimulatorSubDisplay subDisplay = DisplaySimulatorSubDisplay::none;
    std::array<int, dotGridSize> barValues{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}; ///< 0...16 each
    bool isOscilloscopeTriggered = false;
    DisplaySimulatorSpecialMode specialMode = DisplaySimulatorSpecialMode::none;
    int knobValue = 20; ///< 0...40
    DisplaySimulatorErrorKind errorKind = DisplaySimulatorErrorKind::vbusLow;
    int eyebrow = 0;   ///< 0...3
    int eye = 0;       ///< 0...6, drawn now
    int steadyEye = 0; ///< 0...6, chosen by the user
    int mouth = 0;     ///< 0...8
    bool isBlinking = false;
    int blinkState = 0;           ///< 0...71
    DotGrid dotValues{};          ///< the dot matrix drawn now
    DotGrid dotBarValues{};       ///< the bars, to which a dot picture yields after its time
    bool showsDotDisplay = false; ///< no drawing reads it
    std::vector<std::uint8_t> arbitraryImageRGB =
        std::vector<std::uint8_t>(arbitraryImageByteCount); ///< 64 by 64, R, G, B a pixel, rows from the top
    int displayWindowScale = 1;                             ///< 1...3
    bool displayWindowShowsBorder = false;
    bool displayWindowAlwaysOnTop = false;
    bool displayWindowIsVisible = false;
    tonavelle::PerformanceMonitorState performanceMonitor;

    bool operator==(const DisplayFields&) const = default;
};

} // namespace orvim
