#include "simulator/DisplayPrimitives.h"
#include "simulator/DisplayScreens.h"
#include "simulator/DisplayText.h"
#include "simulator/EmbeddedResources.h"
#include "simulator/JapaneseText.h"
#include "simulator/PackedPicture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace orvim {

namespace {

constexpr std::int32_t black = 0x000000;

void clearScreen(DisplayCanvas& canvas)
{
    fillRect(canvas, 0, 0, 159, 84, black);
}

void drawKnob(const DisplayFields& fields, DisplayCanvas& canvas)
{
    constexpr int barCount = 40;
    const int litBars = std::clamp(fields.knobValue, 0, barCount);
    std::array<char, 32> text{"    VOLUME: MUTE"};
    if (litBars > 0) std::snprintf(text.data(), text.size(), "    VOLUME: %d", litBars);
    drawText8(canvas, 0, 0, text.data(), fields.foregroundRGB, fields.backgroundRGB);
    for (int i = 0; i < barCount; ++i)
        fillRect(canvas, 18 + 3 * i, 70 - i, 19 + 3 * i, 70, i < litBars ? fields.foregroundRGB : fields.backgroundRGB);
}

struct ErrorText {
    std::string_view title;
    std::array<std::string_view, 3> lines;
};

/// By the raw value of DisplaySimulatorErrorKind.
constexpr std::array<ErrorText, 4> errorTexts{{
    {"USB VOLTAGE IS LOW",
     {"【USBポートの電圧が低下】", "USBハブの使用をやめて下さい。", "他のUSB機器を取り外して下さい。"}},
    {"PSRAM INIT ERROR!", {"【PSRAMの初期化失敗】", "USBケーブルを抜いて下さい。"}},
    {"PSRAM TEST ERROR!", {"【PSRAMの読書失敗】", "USBケーブルを抜いて下さい。"}},
    {"DAC ERROR!", {"【DACチップの初期化失敗】", "USBケーブルを抜いて下さい。"}},
}};

void drawError(const DisplayFields& fields, DisplayCanvas& canvas)
{
    constexpr std::int32_t titleRGB = 0xF8FC00;
    constexpr std::int32_t lineRGB = 0xF8A400;
    constexpr int firstLineY = 20;
    constexpr int linePitch = 11;

    clearScreen(canvas);
    const auto kind = static_cast<std::size_t>(fields.errorKind);
    if (kind >= errorTexts.size()) return;
    drawText8(canvas, 0, 0, errorTexts[kind].title, titleRGB, black);
    int y = firstLineY;
    for (const auto line : errorTexts[kind].lines) {
        drawJapanese(canvas, 0, y, line, lineRGB, black);
        y += linePitch;
    }
}

void drawStarting(DisplayCanvas& canvas)
{
    constexpr std::int32_t textRGB = 0x8EBCFC;
    constexpr std::string_view firmwareVersion = "1.2.0.a";
    constexpr std::string_view hardwareVersion = "0B";

    clearScreen(canvas);
    drawText8(canvas, 0, 0, "FW:", textRGB, black);
    drawText8(canvas, 26, 0, firmwareVersion, textRGB, black);
    drawText8(canvas, 0, 10, "HW:", textRGB, black);
    drawText8(canvas, 26, 10, hardwareVersion, textRGB, black);
    fillRect(canvas, 2, 20, 159, 79, black);
    drawBitmap(canvas, resources::startingArtLeft, 112, 57, 2, 25);
    drawBitmap(canvas, resources::startingArtRight, 46, 76, 114, 9);
}

void drawFirmwareUpdate(DisplayCanvas& canvas)
{
    static const PackedPicture picture(resources::firmwareUpdateScreen);
    clearScreen(canvas);
    drawPacked(canvas, picture, PackedPictureArea::whole);
}

} // namespace

void drawSpecialScreen(const DisplayFields& fields, DisplayCanvas& canvas)
{
    switch (fields.specialMode) {
    case DisplaySimulatorSpecialMode::none:
        break;
    case DisplaySimulatorSpecialMode::knob:
        drawKnob(fields, canvas);
        break;
    case DisplaySimulatorSpecialMode::error:
        drawError(fields, canvas);
        break;
    case DisplaySimulatorSpecialMode::starting:
        drawStarting(canvas);
        break;
    case DisplaySimulatorSpecialMode::firmwareUpdate:
        drawFirmwareUpdate(canvas);
        break;
    }
}

} // namespace orvim
