#include "pages/ToneChannelActions.h"

#include "MIDIOutManager.h"
#include "controls/CoreText.h"
#include "core/tone/FactoryMelodyTable.h"
#include "core/tone/ToneEditorBuilder.h"
#include "core/tone/ToneNames.h"
#include "pages/ToneChannelName.h"
#include "pages/ToneEditorModel.h"

#include <algorithm>
#include <cmath>

namespace orvim {

using tonavelle::ChannelToneParameters;
using tonavelle::ToneDrumTrackSetting;
using tonavelle::ToneParameter;
using tonavelle::ToneParameterID;
namespace ToneEditorBuilder = tonavelle::ToneEditorBuilder;

namespace {

ChannelToneParameters& selectedChannel(ToneEditorState& state)
{
    return state.instrument.channels[static_cast<std::size_t>(state.selectedChannel)];
}

bool decidesTheSound(ToneParameterID id)
{
    return id == ToneParameterID::drumTrackSetting || id == ToneParameterID::bankKind;
}

} // namespace

int wholeValue(const ToneParameter& parameter, double value)
{
    return static_cast<int>(std::clamp<double>(std::round(value), parameter.range.lowest, parameter.range.highest));
}

ToneChannelActions::ToneChannelActions(ToneEditorModel& model, MIDIOutManager& midiOutManager,
                                       DisplaySimulatorState& displaySimulator)
    : m_model(model), m_midiOutManager(midiOutManager), m_displaySimulator(displaySimulator)
{
}

void ToneChannelActions::setMaster(ToneParameterID id, double value)
{
    const ToneParameter& parameter = tonavelle::toneParameter(id);
    m_model.change(ToneEditorPart::master, [&](ToneEditorState& state) {
        tonavelle::setValue(parameter, state.instrument.master, wholeValue(parameter, value));
    });
    m_midiOutManager.send(ToneEditorBuilder::liveMessages(id, m_model.state().instrument.master),
                          fromCore(parameter.label));
}

void ToneChannelActions::selectChannel(int channel)
{
    m_model.select(&ToneEditorState::selectedChannel, channel);
}

void ToneChannelActions::setChannel(ToneParameterID id, double value)
{
    const ToneParameter& parameter = tonavelle::toneParameter(id);
    m_model.change(ToneEditorPart::channel, [&](ToneEditorState& state) {
        ChannelToneParameters& channel = selectedChannel(state);
        tonavelle::setValue(parameter, channel, wholeValue(parameter, value));
        // A drum channel has one set of either kind, and its program is that one.
        if (decidesTheSound(id) && channel.drumTrackSetting == ToneDrumTrackSetting::drum) channel.programChange = 0;
    });
    sendLive(id);
    if (decidesTheSound(id)) showName();
}

void ToneChannelActions::chooseProgram(int row)
{
    m_model.change(ToneEditorPart::channel, [&](ToneEditorState& state) {
        ChannelToneParameters& channel = selectedChannel(state);
        const auto items =
            tonavelle::presetMenuItems(channel, state.instrument.userMelodies, state.instrument.drumSetName);
        if (items.empty()) return;
        const auto& item = items[static_cast<std::size_t>(std::clamp(row, 0, static_cast<int>(items.size()) - 1))];
        channel.programChange = static_cast<std::uint8_t>(item.programIndex);
        // The module loads the sound with the program, so the controls follow and nothing of it is sent.
        if (ToneEditorBuilder::sendsVoiceEdit(channel)) tonavelle::applyFactoryPreset(item.programIndex, channel);
    });
    sendLive(ToneParameterID::programChange);
    showName();
}

void ToneChannelActions::sendLive(ToneParameterID id)
{
    const ToneEditorState& state = m_model.state();
    m_midiOutManager.send(ToneEditorBuilder::liveMessages(id, state.selectedChannel, state.channel()),
                          fromCore(tonavelle::toneParameter(id).label));
}

void ToneChannelActions::showName()
{
    const ToneEditorState& state = m_model.state();
    showChannelName(m_displaySimulator, state.selectedChannel, state.channel(), state.instrument);
}

} // namespace orvim
