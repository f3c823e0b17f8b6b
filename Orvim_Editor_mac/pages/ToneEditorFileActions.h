#pragma once

#include <QString>

namespace orvim {

class Dialogs;
class DisplaySimulatorState;
class MIDIOutManager;
class ToneEditorModel;

/// New, open and save of the tone data, and the WAV files of the selected waveform. Nothing here sends: the module
/// follows when everything is sent.
class ToneEditorFileActions
{
public:
    ToneEditorFileActions(ToneEditorModel& model, Dialogs& dialogs, MIDIOutManager& midiOutManager,
                          DisplaySimulatorState& displaySimulator);

    void newToneData();
    void open();
    void save();
    void importWAV();
    void exportWAV();

private:
    void report(const QString& text);
    void loadUserWaveTab();

    ToneEditorModel& m_model;
    Dialogs& m_dialogs;
    MIDIOutManager& m_midiOutManager;
    DisplaySimulatorState& m_displaySimulator;
};

} // namespace orvim
