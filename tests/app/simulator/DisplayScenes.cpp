#include "DisplayScenes.h"

#include "simulator/ColorScheme.h"
#include "simulator/DotBars.h"

#include <array>
#include <cstddef>
#include <utility>

namespace orvim::test {

namespace {

using Type = DisplaySimulatorType;
using Mode = DisplaySimulatorColorMode;
using Special = DisplaySimulatorSpecialMode;

constexpr std::array<std::pair<const char*, Type>, 7> types{{
    {"initial", Type::initial},
    {"lip-sync", Type::lipSync},
    {"piano-roll", Type::pianoRoll},
    {"oscilloscope", Type::oscilloscope},
    {"image", Type::arbitraryImage},
    {"monitor", Type::performanceMonitor},
    {"waterfall", Type::waterfall},
}};

constexpr std::array<std::pair<const char*, Mode>, 5> modes{{
    {"standard", Mode::standard},
    {"gm2", Mode::gm2},
    {"gs", Mode::gs},
    {"xg", Mode::xg},
    {"user", Mode::user},
}};

constexpr std::array<std::pair<const char*, DisplaySimulatorErrorKind>, 4> errors{{
    {"vbus-low", DisplaySimulatorErrorKind::vbusLow},
    {"psram-init", DisplaySimulatorErrorKind::psramInit},
    {"psram-test", DisplaySimulatorErrorKind::psramTest},
    {"dac", DisplaySimulatorErrorKind::dac},
}};

/// Stripes of every brightness in red, green and blue by columns, growing darker downwards.
std::vector<std::uint8_t> stripedImage()
{
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            for (int component = 0; component < 3; ++component) {
                const bool isLit = (x / 8 & 1 << component) != 0;
                bytes.push_back(static_cast<std::uint8_t>(isLit ? 255 - y * 4 : 0));
            }
    return bytes;
}

/// The state of a program that just started, on another screen.
DisplayFields startState(Type type = Type::initial)
{
    DisplayFields fields;
    fields.displayType = type;
    fields.dotValues = dotGridOfBars(fields.barValues);
    fields.arbitraryImageRGB = stripedImage();
    return fields;
}

DisplayFields inMode(DisplayFields fields, Mode mode)
{
    constexpr std::uint16_t userColor565 = 0xFBD6;
    const auto worked = colorSchemeOf565(mode == Mode::gm2 ? gm2Color565 : userColor565);
    const auto scheme = storedColorScheme(mode).value_or(worked);
    fields.colorMode = mode;
    fields.foregroundRGB = scheme.foreground;
    fields.backgroundRGB = scheme.background;
    fields.baseRGB = scheme.base;
    fields.oscilloscopeWaveRGB = scheme.oscilloscopeWave;
    fields.oscilloscopeUntriggeredRGB = scheme.oscilloscopeUntriggered;
    return fields;
}

DisplayFields special(Special mode)
{
    auto fields = startState();
    fields.specialMode = mode;
    return fields;
}

DisplayFields knob(int value)
{
    auto fields = special(Special::knob);
    fields.knobValue = value;
    return fields;
}

DisplayFields face(int eyebrow, int eye, int mouth)
{
    auto fields = startState(Type::lipSync);
    fields.eyebrow = eyebrow;
    fields.eye = eye;
    fields.mouth = mouth;
    return fields;
}

DisplayFields bars()
{
    auto fields = startState();
    fields.dotValues = dotGridOfBars({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16});
    return fields;
}

DisplayFields levels(int left, int right, int voices)
{
    auto fields = startState();
    fields.leftLevel = left;
    fields.rightLevel = right;
    fields.voiceCount = voices;
    return fields;
}

DisplayFields subDisplay(DisplaySimulatorSubDisplay value)
{
    auto fields = startState();
    fields.subDisplay = value;
    return fields;
}

DisplayFields ascii(std::string text, bool showsUSB = true)
{
    auto fields = startState();
    fields.asciiText = std::move(text);
    fields.showsUSB = showsUSB;
    return fields;
}

DisplayFields japanese(std::string upper, std::string lower)
{
    auto fields = startState();
    fields.isJapaneseMode = true;
    fields.japaneseUpper = std::move(upper);
    fields.japaneseLower = std::move(lower);
    return fields;
}

DisplayFields triggered(DisplayFields fields)
{
    fields.isOscilloscopeTriggered = true;
    return fields;
}

DisplayFields monitor()
{
    auto fields = startState(Type::performanceMonitor);
    auto& parts = fields.performanceMonitor;
    parts.setPart(0, "005:Mine", true, false, 4);
    parts.setPart(3, "A name so long that it runs over the picture and wraps", true, false, 4);
    parts.setPart(9, "001:My Drums", true, true, 0);
    parts.setPart(12, "あ漢🙂\x7F\n!", false, false, 0);
    parts.setPart(15, "A name so long that it would leave the screen below", false, false, 0);
    return fields;
}

DisplayFields wrongImage()
{
    auto fields = startState(Type::arbitraryImage);
    fields.arbitraryImageRGB.pop_back();
    return fields;
}

void addScreens(std::vector<DisplayScene>& scenes)
{
    for (const auto& [typeName, type] : types)
        for (const auto& [modeName, mode] : modes)
            scenes.push_back({std::string(typeName) + "-" + modeName, inMode(startState(type), mode)});
    scenes.push_back({"initial-bars", bars()});
    scenes.push_back({"oscilloscope-triggered", triggered(startState(Type::oscilloscope))});
    scenes.push_back({"oscilloscope-triggered-xg", triggered(inMode(startState(Type::oscilloscope), Mode::xg))});
    scenes.push_back({"image-of-wrong-length", wrongImage()});
    scenes.push_back({"monitor-names", monitor()});
    for (int i = 0; i < 9; ++i)
        scenes.push_back({"lip-sync-mouth-" + std::to_string(i), face(i % 4, i % 7, i)});
}

void addIndicators(std::vector<DisplayScene>& scenes)
{
    scenes.push_back({"levels-silent", levels(0, 1, 0)});
    scenes.push_back({"levels-full", levels(63, 63, 60)});
    scenes.push_back({"levels-out-of-range", levels(-5, 1000, 123'456)});
    scenes.push_back({"levels-full-gs", inMode(levels(63, 63, 60), Mode::gs)});
    scenes.push_back({"sub-display-over", subDisplay(DisplaySimulatorSubDisplay::over)});
    scenes.push_back({"sub-display-clip", subDisplay(DisplaySimulatorSubDisplay::clip)});
    scenes.push_back({"sub-display-clip-gm2", inMode(subDisplay(DisplaySimulatorSubDisplay::clip), Mode::gm2)});
}

void addTexts(std::vector<DisplayScene>& scenes)
{
    scenes.push_back({"ascii-empty", ascii("")});
    scenes.push_back({"ascii-five", ascii("Hello")});
    scenes.push_back({"ascii-forty-five-without-usb", ascii("ABCDEFGHIJKLMNOPQRSTabcdefghijklmnopqrst12345", false)});
    scenes.push_back({"ascii-signs", ascii("!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~01234567", false)});
    scenes.push_back({"ascii-odd-bytes", ascii("a\nb\x7F"
                                               "cあd\xFF"
                                               "e",
                                               false)});
    scenes.push_back({"ascii-over-the-strip", ascii("éééééééééééééééééééégjpqyQ@#%&gjpqyQ@#%&", false)});
    scenes.push_back({"japanese-empty", japanese("", "")});
    scenes.push_back({"japanese-lower-only", japanese("", "さくら　さくら")});
    scenes.push_back({"japanese-mixed", japanese("春の歌 ABC xyz 0123", "ﾊﾙﾉｳﾀ「ﾗﾗﾗ」ﾟﾞ～〜−")});
    scenes.push_back(
        {"japanese-clipped", japanese("右の端で切れる長い歌詞の行です。", "Aｱ右の端で切れる長い歌詞の行です。")});
    scenes.push_back({"japanese-outside-shift-jis", japanese("歌😀", "歌詞の下段")});
    scenes.push_back({"japanese-odd", japanese("\uE000A\nBⅣ①纊\\~", "［（｛【゛゜】｝）］＿￣─┼")});
    scenes.push_back({"japanese-gs", inMode(japanese("ああ我が心", "歌詞"), Mode::gs)});
}

void addSpecialScreens(std::vector<DisplayScene>& scenes)
{
    for (const auto& [errorName, kind] : errors) {
        auto fields = special(Special::error);
        fields.errorKind = kind;
        scenes.push_back({std::string("error-") + errorName, fields});
    }
    scenes.push_back({"knob-mute", knob(0)});
    scenes.push_back({"knob-20", knob(20)});
    scenes.push_back({"knob-50", knob(50)});
    scenes.push_back({"knob-20-gs", inMode(knob(20), Mode::gs)});
    scenes.push_back({"starting", special(Special::starting)});
    scenes.push_back({"firmware-update", special(Special::firmwareUpdate)});
}

} // namespace

std::vector<DisplayScene> displayScenes()
{
    std::vector<DisplayScene> scenes;
    addScreens(scenes);
    addIndicators(scenes);
    addTexts(scenes);
    addSpecialScreens(scenes);
    return scenes;
}

} // namespace orvim::test
