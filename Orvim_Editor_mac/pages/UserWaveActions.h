#pragma once

#include "core/tone/UserWaveformBuilder.h"

#include <QString>

#include <array>
#include <span>

namespace orvim {

class MIDIOutManager;
class ToneEditorModel;

/// One of the operations on the selected slot's samples, with its button.
struct WaveOperation {
    const char* title;
    tonavelle::UserWaveform (*apply)(std::span<const std::int16_t> waveform);
};

inline constexpr std::array<WaveOperation, 4> waveOperations{{
    {"Norm", tonavelle::UserWaveformBuilder::normalized},
    {"Norm(offset)", tonavelle::UserWaveformBuilder::normalizedWithOffset},
    {"Invert", tonavelle::UserWaveformBuilder::inverted},
    {"Abs", tonavelle::UserWaveformBuilder::absolute},
}};

/// What stands beside a formula that could be evaluated, in place of what is wrong with it.
inline constexpr const char* goodFormulaStatus = "OK";

/// What the tab of the user waveforms does. Edits stay in the editor: a waveform is 128 messages, and goes out only
/// when it is asked for.
class UserWaveActions
{
public:
    UserWaveActions(ToneEditorModel& model, MIDIOutManager& midiOutManager);

    void selectUserWave(int slot);
    /// Of the selected slot, or of `slot` (0...3).
    void setSamples(const tonavelle::UserWaveform& samples);
    void setSamples(int slot, const tonavelle::UserWaveform& samples);
    void apply(const WaveOperation& operation);
    /// Brings back what the selected slot held before its last edit, or takes that back. Does nothing when the slot
    /// holds anything but what the edit left.
    void undo();

    /// What is being typed; the samples follow on `evaluateFormula`.
    void typeFormula(const QString& formula);
    void evaluateFormula();
    /// Puts a shape's or an example's formula into the field and evaluates it.
    void chooseFormula(const QString& formula);
    void presentFormulaHelp(bool presented);

    void send(int slot);

private:
    struct Edit {
        tonavelle::UserWaveform before;
        tonavelle::UserWaveform after;
    };

    ToneEditorModel& m_model;
    MIDIOutManager& m_midiOutManager;
    std::array<Edit, tonavelle::UserWaveformBuilder::slotCount> m_lastEdits; ///< one a slot
};

} // namespace orvim
