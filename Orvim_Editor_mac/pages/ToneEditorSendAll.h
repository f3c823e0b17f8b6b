#pragma once

#include "platform/MIDISystem.h"

#include <optional>

namespace tonavelle {
struct ToneInstrument;
}

namespace orvim {

class DisplaySimulatorState;
class MIDIOutManager;
class ToneEditorModel;
class ToneEditorPreviews;

/// Sends everything that the editor holds, so that the module becomes what the editor believes it to be: some 2,400
/// messages, each an entry of the log. What is sent is the state at the start, also where the window lives on while a
/// slow output takes it. It stops where another output is chosen meanwhile, which has nothing of what went before, and
/// where the application quits; without any output it goes on, as every other send does.
class ToneEditorSendAll
{
public:
    ToneEditorSendAll(ToneEditorModel& model, ToneEditorPreviews& previews, MIDIOutManager& midiOutManager,
                      DisplaySimulatorState& displaySimulator);

    void sendAll();

private:
    /// False: it had to stop.
    bool send(const tonavelle::ToneInstrument& instrument);
    bool goesOnTo(std::optional<MIDIEndpointRef> destination) const;

    ToneEditorModel& m_model;
    ToneEditorPreviews& m_previews;
    MIDIOutManager& m_midiOutManager;
    DisplaySimulatorState& m_displaySimulator;
    bool m_isSending = false;
};

} // namespace orvim
