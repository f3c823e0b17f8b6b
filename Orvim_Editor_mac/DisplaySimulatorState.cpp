#include "DisplaySimulatorState.h"

#include "simulator/DotBars.h"
#include "simulator/FaceBlink.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

namespace orvim {

namespace {

using namespace std::chrono_literals;

constexpr auto blinkPeriod = 70ms;
constexpr auto displayPeriod = 100ms;
constexpr int displayTicks = 17; ///< a text or a dot picture stands for 1.7 s
constexpr std::size_t letterLimit = 32;
constexpr int lowestLevel = 0, highestLevel = 63;
constexpr int highestVoiceCount = 60;
constexpr int highestKnobValue = 40;

void prepare(QTimer& timer, std::chrono::milliseconds period)
{
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(period);
}

std::string_view firstCharacters(std::string_view utf8, std::size_t count)
{
    std::size_t end = 0;
    for (; end < utf8.size(); ++end) {
        const bool startsCharacter = (static_cast<unsigned char>(utf8[end]) & 0xC0) != 0x80;
        if (!startsCharacter) continue;
        if (count == 0) break;
        --count;
    }
    return utf8.substr(0, end);
}

DisplaySimulatorColorMode colorModeAfterReset(std::string_view name)
{
    if (name == "GM2 System ON") return DisplaySimulatorColorMode::gm2;
    if (name == "GS Reset") return DisplaySimulatorColorMode::gs;
    if (name == "XG System ON") return DisplaySimulatorColorMode::xg;
    return DisplaySimulatorColorMode::standard;
}

std::optional<DotGrid> dotGrid(const std::vector<std::vector<bool>>& rows)
{
    if (rows.size() != dotGridSize) return std::nullopt;
    DotGrid grid{};
    for (std::size_t y = 0; y < dotGridSize; ++y) {
        if (rows[y].size() != dotGridSize) return std::nullopt;
        std::copy(rows[y].begin(), rows[y].end(), grid[y].begin());
    }
    return grid;
}

int roundedLevel(double level)
{
    if (std::isnan(level)) return lowestLevel;
    return static_cast<int>(std::round(std::clamp(level, double{lowestLevel}, double{highestLevel})));
}

} // namespace

DisplaySimulatorState::DisplaySimulatorState(QObject* parent) : QObject(parent)
{
    prepare(m_blinkTimer, blinkPeriod);
    prepare(m_asciiTimer, displayPeriod);
    prepare(m_dotbarTimer, displayPeriod);
    connect(&m_blinkTimer, &QTimer::timeout, this, &DisplaySimulatorState::blinkTick);
    connect(&m_asciiTimer, &QTimer::timeout, this, &DisplaySimulatorState::asciiTick);
    connect(&m_dotbarTimer, &QTimer::timeout, this, &DisplaySimulatorState::dotTick);
    applyBars(BarValues(m_fields.barValues));
    setColorMode(DisplaySimulatorColorMode::standard);
}

void DisplaySimulatorState::setDisplayType(unsigned rawType)
{
    constexpr auto last = static_cast<unsigned>(DisplaySimulatorType::waterfall);
    const auto type = rawType > last ? DisplaySimulatorType::initial : static_cast<DisplaySimulatorType>(rawType);
    assign(m_fields.displayType, type);
    if (type != DisplaySimulatorType::lipSync) {
        stopBlinking(false);
    } else if (m_fields.isBlinking) {
        startBlinkTimer();
    }
    setSpecialMode(DisplaySimulatorSpecialMode::none);
}

// Colours

void DisplaySimulatorState::setColorMode(DisplaySimulatorColorMode mode)
{
    assign(m_fields.colorMode, mode);
    if (const auto scheme = storedColorScheme(mode)) {
        applyScheme(*scheme, true);
    } else if (mode == DisplaySimulatorColorMode::gm2) {
        applyColor565(gm2Color565, mode, true);
    } else {
        applyColor565(rgb565FromRGB(m_fields.baseRGB), mode, true);
    }
    if (mode == DisplaySimulatorColorMode::standard) assign(m_fields.lcdColorSet, DisplayFields().lcdColorSet);
}

void DisplaySimulatorState::setLcdColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    const auto component = [](std::uint8_t value) { return (value & 127) / 127.0; };
    assign(m_fields.lcdColorSet, DisplayColor{component(red), component(green), component(blue), 1});
    applyColor565(rgb565FromSevenBits(red, green, blue), DisplaySimulatorColorMode::user, false);
}

void DisplaySimulatorState::applyColor565(std::uint16_t base565, DisplaySimulatorColorMode mode, bool fillsImage)
{
    assign(m_fields.colorMode, mode);
    applyScheme(colorSchemeOf565(base565), fillsImage);
}

void DisplaySimulatorState::applyScheme(const ColorScheme& scheme, bool fillsImage)
{
    const bool baseChanges = m_fields.baseRGB != scheme.base;
    assign(m_fields.foregroundRGB, scheme.foreground);
    assign(m_fields.backgroundRGB, scheme.background);
    assign(m_fields.baseRGB, scheme.base);
    assign(m_fields.oscilloscopeWaveRGB, scheme.oscilloscopeWave);
    assign(m_fields.oscilloscopeUntriggeredRGB, scheme.oscilloscopeUntriggered);
    if (fillsImage && baseChanges) fillArbitraryImage(scheme.base);
}

void DisplaySimulatorState::fillArbitraryImage(std::int32_t rgb)
{
    std::vector<std::uint8_t> image(arbitraryImageByteCount);
    for (std::size_t i = 0; i < image.size(); i += 3) {
        image[i] = static_cast<std::uint8_t>(rgb >> 16);
        image[i + 1] = static_cast<std::uint8_t>(rgb >> 8);
        image[i + 2] = static_cast<std::uint8_t>(rgb);
    }
    assign(m_fields.arbitraryImageRGB, image);
}

// The lip-sync face

void DisplaySimulatorState::setFace(int part, int value)
{
    switch (part) {
    case 0:
        resetFace();
        break;
    case 1:
        assign(m_fields.eyebrow, std::clamp(value, 0, 3));
        break;
    case 2:
        assign(m_fields.steadyEye, std::clamp(value, 0, 6));
        assign(m_fields.eye, m_fields.steadyEye);
        assign(m_fields.blinkState, 0);
        break;
    default:
        assign(m_fields.mouth, std::clamp(value, 0, 8));
    }
    assign(m_fields.displayType, DisplaySimulatorType::lipSync);
    setSpecialMode(DisplaySimulatorSpecialMode::none);
}

void DisplaySimulatorState::resetFace()
{
    for (int* index : {&m_fields.eyebrow, &m_fields.eye, &m_fields.steadyEye, &m_fields.mouth})
        assign(*index, 0);
    stopBlinking(true);
}

void DisplaySimulatorState::setFaceBlinking(bool on)
{
    assign(m_fields.isBlinking, on);
    assign(m_fields.displayType, DisplaySimulatorType::lipSync);
    if (on) {
        assign(m_fields.blinkState, 0);
        startBlinkTimer();
    } else {
        stopBlinking(true);
    }
}

void DisplaySimulatorState::startBlinkTimer()
{
    m_blinkTimer.start();
}

void DisplaySimulatorState::stopBlinking(bool restoreEye)
{
    m_blinkTimer.stop();
    assign(m_fields.isBlinking, false);
    assign(m_fields.blinkState, 0);
    if (restoreEye) assign(m_fields.eye, m_fields.steadyEye);
}

void DisplaySimulatorState::blinkTick()
{
    if (!m_fields.isBlinking || m_fields.displayType != DisplaySimulatorType::lipSync) {
        stopBlinking(false);
        return;
    }
    const auto step = std::find_if(blinkSteps.begin(), blinkSteps.end(),
                                   [this](const BlinkStep& s) { return s.state == m_fields.blinkState; });
    if (step != blinkSteps.end()) assign(m_fields.eye, step->eye);
    assign(m_fields.blinkState, (m_fields.blinkState + 1) % blinkCycleTicks);
}

// Text

void DisplaySimulatorState::setAsciiText(std::string_view text)
{
    if (m_fields.isJapaneseMode) return;
    assign(m_fields.asciiText, text);
    setSpecialMode(DisplaySimulatorSpecialMode::none);
    restartAsciiTimer();
}

void DisplaySimulatorState::showLetters(std::string_view text)
{
    assign(m_fields.isJapaneseMode, false);
    setAsciiText(firstCharacters(text, letterLimit));
}

void DisplaySimulatorState::restartAsciiTimer()
{
    if (m_fields.isJapaneseMode) return;
    m_asciiTicks = 0;
    m_asciiTimer.start();
}

void DisplaySimulatorState::stopAsciiTimer()
{
    m_asciiTimer.stop();
    m_asciiTicks = 0;
}

void DisplaySimulatorState::asciiTick()
{
    if (m_fields.isJapaneseMode) {
        stopAsciiTimer();
        return;
    }
    if (++m_asciiTicks < displayTicks) return;
    stopAsciiTimer();
    assign(m_fields.asciiText, displayBanner);
}

void DisplaySimulatorState::setJapaneseMode(bool on)
{
    assign(m_fields.isJapaneseMode, on);
    if (on) {
        stopAsciiTimer();
    } else {
        assign(m_fields.japaneseUpper, "");
        assign(m_fields.japaneseLower, "");
    }
}

void DisplaySimulatorState::addJapaneseText(std::string_view text, int line)
{
    assign(m_fields.isJapaneseMode, true);
    auto& row = line == 1 ? m_fields.japaneseLower : m_fields.japaneseUpper;
    assign(row, row + std::string(text));
    setSpecialMode(DisplaySimulatorSpecialMode::none);
}

void DisplaySimulatorState::deleteJapaneseText(int which)
{
    assign(m_fields.isJapaneseMode, true);
    if (which == 0 || which == 1) assign(m_fields.japaneseUpper, "");
    if (which != 1) assign(m_fields.japaneseLower, "");
}

void DisplaySimulatorState::applyLyricCommand(int command, std::string_view text)
{
    constexpr int firstDelete = 2, lastDelete = 4;
    if (command == 0 || command == 1) {
        addJapaneseText(text, command);
    } else {
        deleteJapaneseText((command == 2 || command == 3 ? command : lastDelete) - firstDelete);
    }
}

// Bars and dots

void DisplaySimulatorState::setDotDisplay(const std::vector<std::vector<bool>>& rows)
{
    const auto grid = dotGrid(rows);
    if (!grid) return;
    assign(m_fields.dotValues, *grid);
    assign(m_fields.showsDotDisplay, true);
    setSpecialMode(DisplaySimulatorSpecialMode::none);
    restartDotTimer();
}

void DisplaySimulatorState::restartDotTimer()
{
    m_dotTicks = 0;
    if (!m_dotbarTimer.isActive()) m_dotbarTimer.start();
}

void DisplaySimulatorState::stopDotbarTimer()
{
    m_dotbarTimer.stop();
    m_dotTicks = 0;
}

void DisplaySimulatorState::dotTick()
{
    if (++m_dotTicks < displayTicks) return;
    stopDotbarTimer();
    assign(m_fields.dotValues, m_fields.dotBarValues);
}

void DisplaySimulatorState::applyBars(std::span<const int> values)
{
    assign(m_fields.barValues, normalizedBarValues(values));
    assign(m_fields.dotBarValues, dotGridOfBars(m_fields.barValues));
    assign(m_fields.dotValues, m_fields.dotBarValues);
    assign(m_fields.showsDotDisplay, true);
    setSpecialMode(DisplaySimulatorSpecialMode::none);
}

void DisplaySimulatorState::setArbitraryImage(std::span<const std::uint8_t> rgb888)
{
    if (rgb888.size() != arbitraryImageByteCount) return;
    assign(m_fields.arbitraryImageRGB, std::vector(rgb888.begin(), rgb888.end()));
    assign(m_fields.displayType, DisplaySimulatorType::arbitraryImage);
    setSpecialMode(DisplaySimulatorSpecialMode::none);
}

// Resets

void DisplaySimulatorState::resetForMessage(std::string_view name)
{
    setColorMode(colorModeAfterReset(name));
    fillArbitraryImage(m_fields.baseRGB);
    for (int* index : {&m_fields.eyebrow, &m_fields.steadyEye, &m_fields.eye, &m_fields.mouth})
        assign(*index, 0);
    assign(m_fields.performanceMonitor, tonavelle::PerformanceMonitorState());
    setAsciiText(name);
}

void DisplaySimulatorState::resetAll()
{
    assign(m_fields.displayType, DisplaySimulatorType::initial);
    setColorMode(DisplaySimulatorColorMode::standard);
    assign(m_fields.asciiText, displayBanner);
    setJapaneseMode(false);
    resetIndicators();
    resetFace();
    assign(m_fields.showsDotDisplay, false);
    fillArbitraryImage(m_fields.baseRGB);
    assign(m_fields.performanceMonitor, tonavelle::PerformanceMonitorState());
    stopAsciiTimer();
    stopDotbarTimer();
}

void DisplaySimulatorState::resetIndicators()
{
    const DisplayFields defaults;
    applyBars(defaults.barValues);
    setIndicators(defaults.leftLevel, defaults.rightLevel, defaults.voiceCount, defaults.subDisplay);
    assign(m_fields.showsUSB, defaults.showsUSB);
    assign(m_fields.isOscilloscopeTriggered, defaults.isOscilloscopeTriggered);
    assign(m_fields.specialMode, defaults.specialMode);
    assign(m_fields.knobValue, defaults.knobValue);
    assign(m_fields.errorKind, defaults.errorKind);
}

// The performance monitor

void DisplaySimulatorState::setPart(int index, std::string_view name, bool isUserBank, bool isDrum,
                                    std::uint8_t program)
{
    auto monitor = m_fields.performanceMonitor;
    monitor.setPart(index, name, isUserBank, isDrum, program);
    assign(m_fields.performanceMonitor, monitor);
}

bool DisplaySimulatorState::updateUserPartNames(bool isDrum, std::uint8_t program, std::string_view name)
{
    auto monitor = m_fields.performanceMonitor;
    const bool found = monitor.updateUserPartNames(isDrum, program, name);
    assign(m_fields.performanceMonitor, monitor);
    return found;
}

// The settings page and the window

void DisplaySimulatorState::setIndicators(double leftLevel, double rightLevel, int voiceCount,
                                          DisplaySimulatorSubDisplay subDisplay)
{
    assign(m_fields.leftLevel, roundedLevel(leftLevel));
    assign(m_fields.rightLevel, roundedLevel(rightLevel));
    assign(m_fields.voiceCount, std::clamp(voiceCount, 0, highestVoiceCount));
    assign(m_fields.subDisplay, subDisplay);
    setSpecialMode(DisplaySimulatorSpecialMode::none);
}

void DisplaySimulatorState::setShowsUSB(bool shows)
{
    assign(m_fields.showsUSB, shows);
}

void DisplaySimulatorState::setOscilloscopeTriggered(bool triggered)
{
    assign(m_fields.isOscilloscopeTriggered, triggered);
}

void DisplaySimulatorState::setKnobValue(int value)
{
    assign(m_fields.knobValue, std::clamp(value, 0, highestKnobValue));
    setSpecialMode(DisplaySimulatorSpecialMode::knob);
}

void DisplaySimulatorState::setErrorKind(DisplaySimulatorErrorKind kind)
{
    assign(m_fields.errorKind, kind);
}

void DisplaySimulatorState::setSpecialMode(DisplaySimulatorSpecialMode mode)
{
    assign(m_fields.specialMode, mode);
}

void DisplaySimulatorState::writeDisplayType(DisplaySimulatorType type)
{
    assign(m_fields.displayType, type);
}

void DisplaySimulatorState::setWindowScale(int scale)
{
    assign(m_fields.displayWindowScale, std::clamp(scale, 1, 3));
}

void DisplaySimulatorState::setWindowShowsBorder(bool shows)
{
    assign(m_fields.displayWindowShowsBorder, shows);
}

void DisplaySimulatorState::setWindowAlwaysOnTop(bool onTop)
{
    assign(m_fields.displayWindowAlwaysOnTop, onTop);
}

void DisplaySimulatorState::setWindowVisible(bool visible)
{
    assign(m_fields.displayWindowIsVisible, visible);
}

} // namespace orvim
