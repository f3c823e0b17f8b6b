#include "pages/ToneEditorPreviews.h"

#include "MIDIOutManager.h"
#include "controls/CoreText.h"
#include "controls/OncePerTurn.h"
#include "core/protocol/MIDIMessageBuilder.h"
#include "core/tone/ToneDefaults.h"
#include "core/tone/ToneEditorBuilder.h"
#include "core/tone/UserWaveformBuilder.h"
#include "pages/Report.h"
#include "pages/ToneChannelName.h"
#include "pages/ToneEditorModel.h"

namespace orvim {

using tonavelle::Batch;
using tonavelle::ChannelToneParameters;
using tonavelle::ToneBankKind;
using tonavelle::ToneDrumTrackSetting;
namespace MIDIMessageBuilder = tonavelle::MIDIMessageBuilder;
namespace ToneEditorBuilder = tonavelle::ToneEditorBuilder;
namespace UserWaveformBuilder = tonavelle::UserWaveformBuilder;

namespace {

constexpr int testNote = 60;
constexpr int testVelocity = 127;

constexpr std::string_view melodySelection = "Select User Melody Patch";
constexpr std::string_view waveSelection = "Select User Wave Preview";

} // namespace

ToneEditorPreviews::ToneEditorPreviews(ToneEditorModel& model, MIDIOutManager& midiOutManager,
                                       DisplaySimulatorState& displaySimulator)
    : m_model(model), m_midiOutManager(midiOutManager), m_displaySimulator(displaySimulator),
      m_selection(new OncePerTurn(this, [this] { sendSelection(); }))
{
}

void ToneEditorPreviews::openTab(ToneEditorTab tab)
{
    m_model.change(ToneEditorPart::tab, [tab](ToneEditorState& state) {
        state.selectedToneTab = tab;
        state.loadedToneTabs.insert(tab);
    });
    QMetaObject::invokeMethod(
        this, [this, tab] { changeTab(tab); }, Qt::QueuedConnection);
}

void ToneEditorPreviews::changeTab(ToneEditorTab tab)
{
    releaseChannel();
    endPreviewsExcept(tab);
    if (tab == ToneEditorTab::channel) {
        restoreChannel(melodyPreviewChannel);
        restoreChannel(drumPreviewChannel);
    }
    install(tab);
}

void ToneEditorPreviews::installOpenTab()
{
    install(m_model.state().selectedToneTab);
}

void ToneEditorPreviews::install(ToneEditorTab tab)
{
    // The lists never shrink, and the model limits every selection to its list.
    if (tab == ToneEditorTab::userMelody) installUserMelody();
    if (tab == ToneEditorTab::userDrum) installUserDrum();
    if (tab == ToneEditorTab::userWave) installUserWave();
}

void ToneEditorPreviews::installUserMelody()
{
    const int program = m_model.state().selectedUserMelody;
    m_midiOutManager.send(ToneEditorBuilder::selectUserMelodyPatch(melodyPreviewChannel, program),
                          fromCore(melodySelection));
    showUserMelodyPreview(program);
}

void ToneEditorPreviews::installUserDrum()
{
    m_midiOutManager.send(ToneEditorBuilder::selectUserDrumPatch(drumPreviewChannel),
                          QStringLiteral("Select User Drum Patch"));
    showUserDrumPreview();
}

void ToneEditorPreviews::installUserWave()
{
    m_midiOutManager.send(UserWaveformBuilder::previewMessages(m_model.state().selectedUserWave, melodyPreviewChannel),
                          fromCore(waveSelection));
    showUserWavePreview();
}

void ToneEditorPreviews::followSelection()
{
    m_selection->request();
}

void ToneEditorPreviews::sendSelection()
{
    const ToneEditorState& state = m_model.state();
    if (state.selectedToneTab == ToneEditorTab::userMelody) selectUserMelody(state.selectedUserMelody);
    if (state.selectedToneTab == ToneEditorTab::userWave) selectUserWave(state.selectedUserWave);
    // All drums are in the one set that channel 10 has been playing since the tab was opened.
}

void ToneEditorPreviews::selectUserMelody(int row)
{
    select(ToneEditorBuilder::selectUserMelodyPatch(melodyPreviewChannel, row), melodySelection);
    showUserMelodyPreview(row);
}

void ToneEditorPreviews::selectUserWave(int row)
{
    select(UserWaveformBuilder::previewMessages(row, melodyPreviewChannel), waveSelection);
    showUserWavePreview();
}

void ToneEditorPreviews::select(const Batch& messages, std::string_view label)
{
    m_midiOutManager.sendRealtime(messages);
    // An older selection may be among what waits; the present one is to have the last word.
    if (m_midiOutManager.hasWaitingSends()) m_midiOutManager.send(messages, fromCore(label));
}

void ToneEditorPreviews::restoreChannel(int channel)
{
    const auto& instrument = m_model.state().instrument;
    const ChannelToneParameters& parameters = instrument.channels[static_cast<std::size_t>(channel)];
    m_midiOutManager.send(ToneEditorBuilder::restoreMessages(channel, parameters),
                          QStringLiteral("Restore Channel From Preview"));
    showChannelName(m_displaySimulator, channel, parameters, instrument);
}

void ToneEditorPreviews::endPreviewsExcept(ToneEditorTab tab)
{
    if (tab != ToneEditorTab::userMelody) releaseUserMelody();
    if (tab != ToneEditorTab::userDrum) releaseUserDrum();
    if (tab != ToneEditorTab::userWave) releaseUserWave();
}

void ToneEditorPreviews::playNote(std::optional<int> ToneEditorState::*sounding, int index, int channel, int note)
{
    m_model.change({}, [&](ToneEditorState& state) { state.*sounding = index; });
    m_midiOutManager.sendRealtime({MIDIMessageBuilder::noteOn(channel, note, testVelocity)});
}

void ToneEditorPreviews::endNote(std::optional<int> ToneEditorState::*sounding, int channel, int note)
{
    if (!(m_model.state().*sounding)) return;
    m_model.change({}, [&](ToneEditorState& state) { (state.*sounding).reset(); });
    m_midiOutManager.sendRealtime({MIDIMessageBuilder::noteOff(channel, note, 0)});
}

void ToneEditorPreviews::pressChannel(int row)
{
    if (row < 0 || row >= tonavelle::channelCount) return;
    releaseChannel();
    playNote(&ToneEditorState::previewChannel, row, row, testNote);
}

void ToneEditorPreviews::releaseChannel()
{
    endNote(&ToneEditorState::previewChannel, m_model.state().previewChannel.value_or(0), testNote);
}

void ToneEditorPreviews::pressUserMelody(int row)
{
    releaseUserMelody();
    if (row < 0 || static_cast<std::size_t>(row) >= m_model.state().instrument.userMelodies.size()) return;
    selectUserMelody(row);
    playNote(&ToneEditorState::userMelodyPreviewIndex, row, melodyPreviewChannel, testNote);
}

void ToneEditorPreviews::releaseUserMelody()
{
    endNote(&ToneEditorState::userMelodyPreviewIndex, melodyPreviewChannel, testNote);
}

void ToneEditorPreviews::pressUserDrum(int row)
{
    releaseUserDrum();
    const auto& drums = m_model.state().instrument.userDrums;
    if (row < 0 || static_cast<std::size_t>(row) >= drums.size()) return;
    const int note = drums[static_cast<std::size_t>(row)].id;
    m_midiOutManager.sendRealtime(ToneEditorBuilder::selectUserDrumPatch(drumPreviewChannel));
    showUserDrumPreview();
    playNote(&ToneEditorState::userDrumPreviewNote, note, drumPreviewChannel, note);
}

void ToneEditorPreviews::releaseUserDrum()
{
    endNote(&ToneEditorState::userDrumPreviewNote, drumPreviewChannel, m_model.state().userDrumPreviewNote.value_or(0));
}

void ToneEditorPreviews::pressUserWave(int row)
{
    releaseUserWave();
    try {
        selectUserWave(row);
    } catch (const tonavelle::UserWaveformError& error) {
        return report(m_midiOutManager, QString::fromUtf8(error.what()));
    }
    playNote(&ToneEditorState::userWavePreviewSlot, row, melodyPreviewChannel, testNote);
}

void ToneEditorPreviews::releaseUserWave()
{
    endNote(&ToneEditorState::userWavePreviewSlot, melodyPreviewChannel, testNote);
}

void ToneEditorPreviews::showPreview(int channel, const ChannelToneParameters& parameters)
{
    showChannelName(m_displaySimulator, channel, parameters, m_model.state().instrument);
}

void ToneEditorPreviews::showUserMelodyPreview(int program)
{
    showPreview(melodyPreviewChannel, ChannelToneParameters({.bankKind = ToneBankKind::user,
                                                             .programChange = static_cast<std::uint8_t>(program)}));
}

void ToneEditorPreviews::showUserDrumPreview()
{
    showPreview(drumPreviewChannel, ChannelToneParameters({.drumTrackSetting = ToneDrumTrackSetting::drum,
                                                           .bankKind = ToneBankKind::user}));
}

void ToneEditorPreviews::showUserWavePreview()
{
    showPreview(melodyPreviewChannel, ChannelToneParameters({.programChange = UserWaveformBuilder::previewProgram}));
}

} // namespace orvim
