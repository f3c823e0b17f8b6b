#pragma once

#include "core/protocol/SysExBuilder.h"
#include "pages/DotStroke.h"

#include <QObject>
#include <QPointF>
#include <QString>

#include <cstdint>

namespace orvim {

class DisplaySimulatorState;
class MIDIOutManager;

/// What stands in the fields of the command page.
struct CommandPageState {
    double red = 63; ///< 0...127, as the next two
    double green = 63;
    double blue = 63;
    int eyebrow = 0; ///< 0...3
    int eye = 0;     ///< 0...6
    int mouth = 0;   ///< 0...8
    QString asciiText;
    QString japaneseUpper;
    QString japaneseLower;
    DotGrid dotValues{};
    bool isResettingRipSync = false; ///< the pickers follow a reset of the face and must not send
    DotStroke stroke;
};

/// One of the five resets: what is sent, and the name under which the screen shows it.
struct ResetCommand {
    const char* title; ///< of the button, and the label of the send
    const char* displayName;
    tonavelle::Message (*message)();
};

/// What the command page does: each action sends at once and moves the simulated screen beside it, whether or not
/// anything could be sent.
class CommandPageActions : public QObject
{
    Q_OBJECT

public:
    CommandPageActions(MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator,
                       QObject* parent = nullptr);

    const CommandPageState& state() const { return m_state; }

    void reset(const ResetCommand& command);
    void setUIType(unsigned value);
    void setRed(double value);
    void setGreen(double value);
    void setBlue(double value);
    /// `value` is the position in the picker of `part`.
    void setFacePart(tonavelle::UIFacePart part, int value);
    void resetFace();
    void setFaceBlinking(bool on);
    void setJapaneseMode(bool on);
    /// Each row is sent whole on every change of its text.
    void setAsciiText(const QString& text);
    void setJapaneseText(tonavelle::JapaneseCharacterLine line, const QString& text);
    /// One event of a stroke over the dot grid, in the grid's own coordinates.
    void dragDot(QPointF position);
    void endDotStroke();
    void toggleDot(DotCell cell);
    void fillDots(bool on);
    void invertDots();
    void sendDots();
    void panic();
    void setDebugMode(bool on);
    void showVersion();

Q_SIGNALS:
    /// The face's pickers or the dot grid have taken other values than the user gave them.
    void faceChanged();
    void dotsChanged();

private:
    void setColorComponent(double CommandPageState::*component, double value);
    int& facePart(tonavelle::UIFacePart part);
    void changeDots(const DotGrid& dots);

    MIDIOutManager& m_midiOutManager;
    DisplaySimulatorState& m_displaySimulator;
    CommandPageState m_state;
};

/// What the row "ASCII：" lets through: printable ASCII, the first 32 characters of it.
QString filteredASCII(const QString& text);

} // namespace orvim
