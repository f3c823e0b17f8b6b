#include "pages/ToneEditorSendAll.h"

#include "DisplaySimulatorState.h"
#include "MIDIOutManager.h"
#include "controls/CoreText.h"
#include "core/protocol/SysExBuilder.h"
#include "core/tone/ToneEditorBuilder.h"
#include "core/tone/ToneUserMessages.h"
#include "pages/Report.h"
#include "pages/ToneChannelName.h"
#include "pages/ToneEditorModel.h"
#include "pages/ToneEditorPreviews.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace orvim {

using tonavelle::Batch;
using tonavelle::Message;
using tonavelle::ToneInstrument;
namespace SysExBuilder = tonavelle::SysExBuilder;
namespace ToneEditorBuilder = tonavelle::ToneEditorBuilder;

namespace {

constexpr std::string_view resetLabel = "Tonavelle Reset";

struct Entry {
    std::string_view label;
    Message message;
    std::optional<int> selectedChannel = {}; ///< whose sound is selected with this message
};

void add(std::vector<Entry>& entries, std::string_view label, Batch messages)
{
    for (Message& message : messages)
        entries.push_back({label, std::move(message)});
}

std::vector<Entry> entriesOf(const ToneInstrument& instrument)
{
    std::vector<Entry> entries;
    add(entries, resetLabel, {SysExBuilder::tonavelleReset()});
    add(entries, "Japanese Character Mode", {SysExBuilder::japaneseCharacterMode(false)});
    add(entries, "Master Parameters", ToneEditorBuilder::masterMessages(instrument.master, 0));
    for (tonavelle::LabelledMessage& entry : tonavelle::userMessages(instrument, tonavelle::everything))
        entries.push_back({entry.label, std::move(entry.message)});
    for (int channel = 0; const auto& parameters : instrument.channels) {
        add(entries, "Channel Parameters", ToneEditorBuilder::soundSelectionMessages(channel, parameters));
        entries.back().selectedChannel = channel;
        add(entries, "Channel Parameters", ToneEditorBuilder::channelSetupMessages(channel, parameters));
        ++channel;
    }
    return entries;
}

} // namespace

ToneEditorSendAll::ToneEditorSendAll(ToneEditorModel& model, ToneEditorPreviews& previews,
                                     MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator)
    : m_model(model), m_previews(previews), m_midiOutManager(midiOutManager), m_displaySimulator(displaySimulator)
{
}

void ToneEditorSendAll::sendAll()
{
    if (m_isSending) return;
    const QScopedValueRollback sending(m_isSending, true);
    const ToneInstrument instrument = m_model.state().instrument;
    if (!send(instrument)) return report(m_midiOutManager, QStringLiteral("全音色データ送信を中断しました。"));
    m_model.change(ToneEditorPart::userWave,
                   [&](ToneEditorState& state) { state.sentUserWaveforms = instrument.userWaveforms; });
    m_previews.installOpenTab();
}

bool ToneEditorSendAll::send(const ToneInstrument& instrument)
{
    const auto end = qScopeGuard([this] { m_midiOutManager.setProgressFraction(std::nullopt); });
    const auto destination = m_midiOutManager.selectedDestinationID();
    const std::vector<Entry> entries = entriesOf(instrument);
    const Message reset = SysExBuilder::tonavelleReset();
    std::size_t sent = 0;
    for (const Entry& entry : entries) {
        m_midiOutManager.setProgressFraction(static_cast<double>(++sent) / static_cast<double>(entries.size()));
        m_midiOutManager.send(entry.message, fromCore(entry.label));
        if (!goesOnTo(destination)) return false;
        if (entry.message == reset) m_displaySimulator.resetForMessage(resetLabel);
        if (const auto channel = entry.selectedChannel) {
            const auto& parameters = instrument.channels[static_cast<std::size_t>(*channel)];
            showChannelName(m_displaySimulator, *channel, parameters, instrument);
        }
    }
    return true;
}

bool ToneEditorSendAll::goesOnTo(std::optional<MIDIEndpointRef> destination) const
{
    const auto selected = m_midiOutManager.selectedDestinationID();
    return !m_midiOutManager.isQuitting() && (!selected || selected == destination);
}

} // namespace orvim
