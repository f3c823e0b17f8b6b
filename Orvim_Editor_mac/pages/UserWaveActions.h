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

/// What the tab of the user waveforms does. Edits stay in the editor: a waveform is 128 messages, and goes out only
/// when it is asked for.
class UserWaveActions
{
public:
    UserWaveActions(ToneEditorModel& model, MIDIOutManager& midiOutManager);

    void selectUserWave(int slot);
    void setSamples(const tonavelle::UserWaveform& samples);
    void apply(const WaveOperation& operation);

    /// What is being typed; the samples follow on `evaluateFormula`.
    void typeFormula(const QString& formula);
    void evaluateFormula();
    /// Puts a shape's or an example's formula into the field and evaluates it.
    void chooseFormula(const QString& formula);
    void presentFormulaHelp(bool presented);

    void send(int slot);

private:
    ToneEditorModel& m_model;
    MIDIOutManager& m_midiOutManager;
};

} // namespace orvim
