#pragma once

#include "simulator/ColorScheme.h"
#include "simulator/DisplayFields.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace orvim {

/// The one model of the module's screen. The module never answers, so every action that sends a message calls the
/// matching operation here, whether or not the message reached anything. Main thread only.
///
/// Three timers move it by themselves, and each runs only while there is something to move: the blink (0.07 s) while
/// the face blinks, the text and the dot timer (0.1 s) for the 17 ticks after which the banner or the bars return.
/// Out-of-range numbers are limited and malformed input is ignored; nothing here reports.
class DisplaySimulatorState : public QObject
{
    Q_OBJECT

public:
    explicit DisplaySimulatorState(QObject* parent = nullptr);

    const DisplayFields& fields() const { return m_fields; }

    /// What messages do. Texts are UTF-8.

    /// 7 and above count as 0. Leaves any overlay; leaving the lip-sync screen ends the blinking.
    void setDisplayType(unsigned rawType);
    void setColorMode(DisplaySimulatorColorMode mode);
    /// Three values of 0...127. Unlike every other change of colour it leaves the 64 by 64 picture alone.
    void setLcdColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    void applyColor565(std::uint16_t base565, DisplaySimulatorColorMode mode, bool fillsImage);
    void fillArbitraryImage(std::int32_t rgb);
    /// Part 0 resets the face, 1 is the eyebrow (0...3), 2 the eye (0...6), any other the mouth (0...8).
    void setFace(int part, int value);
    void resetFace();
    void setFaceBlinking(bool on);
    void startBlinkTimer();
    void stopBlinking(bool restoreEye);
    /// Shows the text for 1.7 s; in Japanese mode nothing happens.
    void setAsciiText(std::string_view text);
    /// Shows the first 32 characters for 1.7 s and leaves Japanese mode.
    void showLetters(std::string_view text);
    void restartAsciiTimer();
    void setJapaneseMode(bool on);
    /// Line 1 is the lower row, any other the upper one.
    void addJapaneseText(std::string_view text, int line);
    /// 0 empties both rows, 1 the upper one, any other the lower one.
    void deleteJapaneseText(int which);
    /// 0 and 1 add to the upper and the lower row, 2 empties both, 3 the upper and any other the lower one.
    void applyLyricCommand(int command, std::string_view text);
    /// Shows a picture of exactly 16 rows of 16 dots for 1.7 s; any other is ignored.
    void setDotDisplay(const std::vector<std::vector<bool>>& rows);
    void restartDotTimer();
    /// Takes the first 16 values, 0...16 each; missing ones are 1.
    void applyBars(std::span<const int> values);
    /// Takes 64 by 64 pixels of R, G, B and shows them; any other count of bytes is ignored.
    void setArbitraryImage(std::span<const std::uint8_t> rgb888);
    /// A reset message by its English name, which the header shows for 1.7 s.
    void resetForMessage(std::string_view name);
    void resetAll();

    /// What the tone pages tell the performance monitor.

    void setPart(int index, std::string_view name, bool isUserBank, bool isDrum, std::uint8_t program);
    bool updateUserPartNames(bool isDrum, std::uint8_t program, std::string_view name);

    /// What the settings page and the simulator window force by hand.

    /// Stores levels (0...63, rounded), voices (0...60) and sub-display together and leaves any overlay.
    void setIndicators(double leftLevel, double rightLevel, int voiceCount, DisplaySimulatorSubDisplay subDisplay);
    void setShowsUSB(bool shows);
    void setOscilloscopeTriggered(bool triggered);
    /// 0...40; shows the knob screen.
    void setKnobValue(int value);
    void setErrorKind(DisplaySimulatorErrorKind kind);
    void setSpecialMode(DisplaySimulatorSpecialMode mode);
    /// The bare field: neither the blinking nor the overlay follows.
    void writeDisplayType(DisplaySimulatorType type);
    void resetIndicators();
    void setWindowScale(int scale); ///< 1...3
    void setWindowShowsBorder(bool shows);
    void setWindowAlwaysOnTop(bool onTop);
    void setWindowVisible(bool visible);

    /// One step of each timer. The timers call these; tests do so without waiting.

    void blinkTick();
    void asciiTick();
    void dotTick();

    const QTimer& blinkTimer() const { return m_blinkTimer; }
    const QTimer& asciiTimer() const { return m_asciiTimer; }
    const QTimer& dotbarTimer() const { return m_dotbarTimer; }

Q_SIGNALS:
    /// A field has taken another value. One operation may emit it several times: views repaint once a turn.
    void changed();

private:
    void applyScheme(const ColorScheme& scheme, bool fillsImage);
    void stopAsciiTimer();
    void stopDotbarTimer();

    template <typename Field, typename Value>
    void assign(Field& field, const Value& value)
    {
        if (field == value) return;
        field = value;
        Q_EMIT changed();
    }

    DisplayFields m_fields;
    QTimer m_blinkTimer;
    QTimer m_asciiTimer;
    QTimer m_dotbarTimer;
    int m_asciiTicks = 0; ///< since a text was shown
    int m_dotTicks = 0;   ///< since a dot picture was shown
};

} // namespace orvim
