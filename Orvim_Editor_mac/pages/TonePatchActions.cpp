#include "pages/TonePatchActions.h"

#include "DisplaySimulatorState.h"
#include "MIDIOutManager.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneEditorBuilder.h"
#include "core/tone/ToneNames.h"
#include "core/tone/ToneUserMessages.h"
#include "pages/ToneChannelActions.h"
#include "pages/ToneEditorModel.h"

#include <algorithm>
#include <cmath>

namespace orvim {

using tonavelle::ChannelToneParameters;
using tonavelle::ToneBankKind;
using tonavelle::ToneDrumTrackSetting;
using tonavelle::ToneParameter;
using tonavelle::ToneParameterID;
using tonavelle::UserTonePatch;
namespace ToneEditorBuilder = tonavelle::ToneEditorBuilder;

namespace {

UserTonePatch& selectedUserMelody(ToneEditorState& state)
{
    return state.instrument.userMelodies[static_cast<std::size_t>(state.selectedUserMelody)];
}

UserTonePatch& selectedUserDrum(ToneEditorState& state)
{
    return state.instrument.userDrums[static_cast<std::size_t>(state.selectedUserDrum)];
}

/// A sound that was changed by hand is no longer that of a preset.
void setSound(UserTonePatch& patch, ToneParameterID id, double value)
{
    const ToneParameter& parameter = tonavelle::toneParameter(id);
    tonavelle::setValue(parameter, patch.parameters, wholeValue(parameter, value));
    patch.presetProgram.reset();
}

} // namespace

QString limitedName(const QString& text)
{
    return QString::fromStdString(tonavelle::limitedPatchName(text.toStdString()));
}

TonePatchActions::TonePatchActions(ToneEditorModel& model, MIDIOutManager& midiOutManager,
                                   DisplaySimulatorState& displaySimulator)
    : m_model(model), m_midiOutManager(midiOutManager), m_displaySimulator(displaySimulator)
{
}

void TonePatchActions::selectUserMelody(int row)
{
    m_model.select(&ToneEditorState::selectedUserMelody, row);
}

void TonePatchActions::setUserMelodyName(const QString& name)
{
    m_model.change(ToneEditorPart::userMelody | ToneEditorPart::names,
                   [&](ToneEditorState& state) { selectedUserMelody(state).name = limitedName(name).toStdString(); });
    const UserTonePatch& patch = m_model.state().userMelody();
    m_midiOutManager.send(ToneEditorBuilder::userPatchName(false, patch.id, patch.name),
                          QString::fromUtf8(tonavelle::userPatchNameLabel));
    m_displaySimulator.updateUserPartNames(false, static_cast<std::uint8_t>(patch.id),
                                           tonavelle::userMelodyDisplayName(patch));
}

void TonePatchActions::choosePreset(int row)
{
    const int last = static_cast<int>(tonavelle::factoryMelodyPresets().size()) - 1;
    m_model.change(ToneEditorPart::userMelody, [&](ToneEditorState& state) {
        UserTonePatch& patch = selectedUserMelody(state);
        patch.presetProgram = std::clamp(row, 0, last);
        tonavelle::applyFactoryPreset(*patch.presetProgram, patch.parameters);
    });
    sendUserMelody();
}

void TonePatchActions::setUserMelody(ToneParameterID id, double value)
{
    m_model.change(ToneEditorPart::userMelody,
                   [&](ToneEditorState& state) { setSound(selectedUserMelody(state), id, value); });
    sendUserMelody();
}

void TonePatchActions::sendUserMelody()
{
    const UserTonePatch& patch = m_model.state().userMelody();
    m_midiOutManager.send(ToneEditorBuilder::userPatchParam(false, patch.id, 0, patch.parameters, std::nullopt),
                          QString::fromUtf8(tonavelle::userPatchParamLabel));
}

void TonePatchActions::selectUserDrum(int row)
{
    m_model.select(&ToneEditorState::selectedUserDrum, row);
}

void TonePatchActions::setDrumSetName(const QString& name)
{
    m_model.change(ToneEditorPart::userDrum | ToneEditorPart::names,
                   [&](ToneEditorState& state) { state.instrument.drumSetName = limitedName(name).toStdString(); });
    const std::string& drumSetName = m_model.state().instrument.drumSetName;
    m_midiOutManager.send(ToneEditorBuilder::userPatchName(true, 0, drumSetName),
                          QStringLiteral("User Drum Name Send"));
    const ChannelToneParameters userDrumChannel(
        {.drumTrackSetting = ToneDrumTrackSetting::drum, .bankKind = ToneBankKind::user});
    const std::string shownName = tonavelle::channelDisplayName(userDrumChannel, {}, drumSetName);
    for (const std::uint8_t program : userDrumPrograms())
        m_displaySimulator.updateUserPartNames(true, program, shownName);
}

std::set<std::uint8_t> TonePatchActions::userDrumPrograms() const
{
    std::set<std::uint8_t> programs{0};
    for (const ChannelToneParameters& channel : m_model.state().instrument.channels)
        if (channel.drumTrackSetting == ToneDrumTrackSetting::drum && channel.bankKind == ToneBankKind::user)
            programs.insert(channel.programChange);
    return programs;
}

void TonePatchActions::setUserDrumName(const QString& name)
{
    m_model.change(ToneEditorPart::userDrum | ToneEditorPart::names,
                   [&](ToneEditorState& state) { selectedUserDrum(state).name = name.toStdString(); });
}

void TonePatchActions::setUserDrumNoteNumber(double value)
{
    m_model.change(ToneEditorPart::userDrum, [&](ToneEditorState& state) {
        UserTonePatch& patch = selectedUserDrum(state);
        patch.noteNumber = static_cast<std::uint8_t>(std::clamp<double>(std::round(value), 0, highestNoteNumber));
        patch.presetProgram.reset();
    });
    sendUserDrum();
}

void TonePatchActions::setUserDrum(ToneParameterID id, double value)
{
    m_model.change(ToneEditorPart::userDrum,
                   [&](ToneEditorState& state) { setSound(selectedUserDrum(state), id, value); });
    sendUserDrum();
}

void TonePatchActions::sendUserDrum()
{
    const UserTonePatch& patch = m_model.state().userDrum();
    m_midiOutManager.send(ToneEditorBuilder::userPatchParam(true, 0, patch.noteNumber, patch.parameters, patch.id),
                          QStringLiteral("User Drum Param Send"));
}

} // namespace orvim
