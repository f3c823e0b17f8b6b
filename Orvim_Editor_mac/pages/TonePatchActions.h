#pragma once

#include "core/tone/ToneParameterTable.h"

#include <QString>

#include <cstdint>
#include <set>

namespace orvim {

class DisplaySimulatorState;
class MIDIOutManager;
class ToneEditorModel;

/// The highest pitch at which the module plays a drum.
inline constexpr int highestNoteNumber = 127;

/// What the tabs of the user melodies and drums do to the selected patch. A sound goes out whole at each change.
class TonePatchActions
{
public:
    TonePatchActions(ToneEditorModel& model, MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator);

    void selectUserMelody(int row);
    /// Keeps the first 12 characters, a blank for each that the module lacks.
    void setUserMelodyName(const QString& name);
    void choosePreset(int row);
    void setUserMelody(tonavelle::ToneParameterID id, double value);

    void selectUserDrum(int row);
    /// Limited as the name of a melody.
    void setDrumSetName(const QString& name);
    /// The editor's own: the module has no name for a note, and nothing is sent.
    void setUserDrumName(const QString& name);
    /// The pitch, 0...`highestNoteNumber`, at which the module plays the note.
    void setUserDrumNoteNumber(double value);
    void setUserDrum(tonavelle::ToneParameterID id, double value);

private:
    void sendUserMelody();
    void sendUserDrum();
    /// The programs under which channels play the user drum set. There is but one set, yet a file may give a channel
    /// any number.
    std::set<std::uint8_t> userDrumPrograms() const;

    ToneEditorModel& m_model;
    MIDIOutManager& m_midiOutManager;
    DisplaySimulatorState& m_displaySimulator;
};

/// What a field for a patch name lets through.
QString limitedName(const QString& text);

} // namespace orvim
