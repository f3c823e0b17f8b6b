#pragma once

#include "core/tone/ToneParameterTable.h"

namespace orvim {

class DisplaySimulatorState;
class MIDIOutManager;
class ToneEditorModel;

/// What the tabs of the master values and of the channels do. Each change is sent at once, whether or not anything is
/// there to receive it; values are rounded and limited to their range.
class ToneChannelActions
{
public:
    ToneChannelActions(ToneEditorModel& model, MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator);

    void setMaster(tonavelle::ToneParameterID id, double value);
    void selectChannel(int channel);
    /// Of the selected channel, as the next one.
    void setChannel(tonavelle::ToneParameterID id, double value);
    void chooseProgram(int row);

private:
    void sendLive(tonavelle::ToneParameterID id);
    void showName();

    ToneEditorModel& m_model;
    MIDIOutManager& m_midiOutManager;
    DisplaySimulatorState& m_displaySimulator;
};

/// The whole number that a control's value stands for, within the parameter's range.
int wholeValue(const tonavelle::ToneParameter& parameter, double value);

} // namespace orvim
