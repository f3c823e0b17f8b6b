#include "pages/UserWaveActions.h"

#include "MIDIOutManager.h"
#include "core/tone/ToneUserMessages.h"
#include "pages/Report.h"
#include "pages/ToneEditorModel.h"

namespace orvim {

using tonavelle::UserWaveform;
using tonavelle::UserWaveformError;
namespace UserWaveformBuilder = tonavelle::UserWaveformBuilder;

UserWaveActions::UserWaveActions(ToneEditorModel& model, MIDIOutManager& midiOutManager)
    : m_model(model), m_midiOutManager(midiOutManager)
{
}

void UserWaveActions::selectUserWave(int slot)
{
    m_model.select(&ToneEditorState::selectedUserWave, slot);
}

void UserWaveActions::setSamples(const UserWaveform& samples)
{
    setSamples(m_model.state().selectedUserWave, samples);
}

void UserWaveActions::setSamples(int slot, const UserWaveform& samples)
{
    const auto index = static_cast<std::size_t>(slot);
    m_lastEdits[index] = {m_model.state().instrument.userWaveforms[index], samples};
    m_model.change(ToneEditorPart::userWave,
                   [&](ToneEditorState& state) { state.instrument.userWaveforms[index] = samples; });
}

void UserWaveActions::undo()
{
    const ToneEditorState& state = m_model.state();
    const Edit& last = m_lastEdits[static_cast<std::size_t>(state.selectedUserWave)];
    if (state.userWave() == last.after) setSamples(UserWaveform(last.before));
}

void UserWaveActions::apply(const WaveOperation& operation)
{
    setSamples(operation.apply(m_model.state().userWave()));
}

void UserWaveActions::typeFormula(const QString& formula)
{
    if (m_model.state().isUpdatingUserWaveFormulaProgrammatically) return;
    m_model.change(ToneEditorPart::userWave, [&](ToneEditorState& state) {
        state.userWaveFormula = formula;
        state.userWaveFormulaStatus.clear();
    });
}

void UserWaveActions::evaluateFormula()
{
    QString status = QString::fromUtf8(goodFormulaStatus);
    try {
        setSamples(UserWaveformBuilder::samplesFromFormula(m_model.state().userWaveFormula.toStdString()));
    } catch (const UserWaveformError& error) {
        status = QString::fromUtf8(error.what());
    }
    m_model.change(ToneEditorPart::userWave, [&](ToneEditorState& state) { state.userWaveFormulaStatus = status; });
}

void UserWaveActions::chooseFormula(const QString& formula)
{
    m_model.change({}, [](ToneEditorState& state) { state.isUpdatingUserWaveFormulaProgrammatically = true; });
    m_model.change(ToneEditorPart::userWave, [&](ToneEditorState& state) { state.userWaveFormula = formula; });
    m_model.change({}, [](ToneEditorState& state) { state.isUpdatingUserWaveFormulaProgrammatically = false; });
    evaluateFormula();
}

void UserWaveActions::presentFormulaHelp(bool presented)
{
    m_model.change(ToneEditorPart::help,
                   [&](ToneEditorState& state) { state.isUserWaveFormulaHelpPresented = presented; });
}

void UserWaveActions::send(int slot)
{
    if (slot >= 0 && slot < UserWaveformBuilder::slotCount) selectUserWave(slot);
    // While the send waits for room the selection and the slot may change; what was sent is what stood here before.
    const UserWaveform samples = m_model.state().userWave();
    try {
        m_midiOutManager.send(UserWaveformBuilder::sysExMessages(slot, samples),
                              QString::fromUtf8(tonavelle::userWaveformLabel));
    } catch (const UserWaveformError& error) {
        return report(m_midiOutManager, QString::fromUtf8(error.what()));
    }
    m_model.change(ToneEditorPart::userWave,
                   [&](ToneEditorState& state) { state.sentUserWaveforms[static_cast<std::size_t>(slot)] = samples; });
    report(m_midiOutManager, QStringLiteral("User Wave %1 を送信しました。").arg(slot + 1));
}

} // namespace orvim
