#include "pages/ToneEditorFileActions.h"

#include "DisplaySimulatorState.h"
#include "core/tone/ToneDataFile.h"
#include "core/tone/UserWaveformBuilder.h"
#include "pages/Report.h"
#include "pages/ToneEditorModel.h"
#include "platform/BackgroundWork.h"
#include "platform/Dialogs.h"
#include "platform/WholeFile.h"

#include <QFileInfo>

#include <optional>
#include <stdexcept>

namespace orvim {

namespace UserWaveformBuilder = tonavelle::UserWaveformBuilder;

namespace {

/// Beyond this a file would be long to read and much to hold. Far above any song, and more than ten minutes of sound.
constexpr qint64 largestFile = 64 * 1024 * 1024;

constexpr std::uint32_t wavSampleRate = 48'000;

std::vector<std::uint8_t> readFile(const QString& path)
{
    if (QFileInfo(path).size() > largestFile) throw std::runtime_error("file too large");
    return readWholeFile(path);
}

/// What `make` gives, or nothing where it throws: whatever is wrong is told in the same words.
template <typename Make>
auto orNothing(Make make) -> std::optional<decltype(make())>
{
    try {
        return make();
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void setInstrument(ToneEditorState& state, tonavelle::ToneInstrument instrument)
{
    state.instrument = std::move(instrument);
    state.sentUserWaveforms = tonavelle::factoryToneInstrument().userWaveforms;
}

} // namespace

ToneEditorFileActions::ToneEditorFileActions(ToneEditorModel& model, Dialogs& dialogs, MIDIOutManager& midiOutManager,
                                             DisplaySimulatorState& displaySimulator)
    : m_model(model), m_dialogs(dialogs), m_midiOutManager(midiOutManager), m_displaySimulator(displaySimulator)
{
}

void ToneEditorFileActions::report(const QString& text)
{
    orvim::report(m_midiOutManager, text);
}

void ToneEditorFileActions::newToneData()
{
    if (!m_dialogs.askYesNo(QStringLiteral("現在の音色編集内容を破棄して初期化しますか？")))
        return report(QStringLiteral("音色データの新規作成をキャンセルしました。"));
    m_model.change(ToneEditorModel::everything,
                   [](ToneEditorState& state) { setInstrument(state, tonavelle::factoryToneInstrument()); });
    m_displaySimulator.resetAll();
    report(QStringLiteral("音色データを初期化しました。"));
}

void ToneEditorFileActions::open()
{
    const auto cancelled = QStringLiteral("音色データ読込をキャンセルしました。");
    if (!m_dialogs.askYesNo(QStringLiteral("現在の音色編集内容を破棄して音色データを開きますか？")))
        return report(cancelled);
    const auto path = m_dialogs.openPath(FileKind::midi);
    if (!path) return report(cancelled);
    std::optional<tonavelle::ToneInstrument> instrument;
    const auto read = [&] { instrument = orNothing([&] { return tonavelle::readToneDataFile(readFile(*path)); }); };
    if (!runInBackground(read)) return;
    if (!instrument) return report(QStringLiteral("音色データMIDIを読み込めません。"));
    // The simulated screen keeps its list of channels: it shows what the module plays, and that has not changed yet.
    m_model.change(ToneEditorModel::everything, [&](ToneEditorState& state) {
        setInstrument(state, std::move(*instrument));
        state.selectedUserWave = 0;
        state.userWaveFormula.clear();
        state.userWaveFormulaStatus.clear();
        state.loadedToneTabs.insert(state.selectedToneTab);
    });
    m_model.limitSelections();
    report(QStringLiteral("音色データを読み込みました。"));
}

void ToneEditorFileActions::save()
{
    const auto path = m_dialogs.savePath(QStringLiteral("tone_data.mid"), FileKind::midi);
    if (!path) return report(QStringLiteral("音色データ保存をキャンセルしました。"));
    const ToneEditorState& state = m_model.state();
    const auto bytes = orNothing([&] { return tonavelle::toneDataFile(state.instrument, state.dirtyOnly); });
    const bool isWritten = bytes && writeWholeFile(*path, *bytes);
    report(isWritten ? QStringLiteral("音色データMIDIを書き出しました。")
                     : QStringLiteral("音色データMIDIを書き出せません。"));
}

void ToneEditorFileActions::importWAV()
{
    const auto path = m_dialogs.openPath(FileKind::wave);
    if (!path) return report(QStringLiteral("WAV読み込みをキャンセルしました。"));
    std::optional<tonavelle::UserWaveform> samples;
    const auto read = [&] {
        samples = orNothing([&] { return UserWaveformBuilder::samplesFromWAVData(readFile(*path)); });
    };
    if (!runInBackground(read)) return;
    if (!samples) return report(QStringLiteral("WAV読み込みに失敗しました。"));
    m_model.change(ToneEditorPart::userWave, [&](ToneEditorState& state) {
        state.instrument.userWaveforms[static_cast<std::size_t>(state.selectedUserWave)] = std::move(*samples);
    });
    loadUserWaveTab();
    report(QStringLiteral("User Wave %1 にWAVを読み込みました。").arg(m_model.state().selectedUserWave + 1));
}

void ToneEditorFileActions::exportWAV()
{
    const int number = m_model.state().selectedUserWave + 1;
    const auto path = m_dialogs.savePath(QStringLiteral("UserWave%1.wav").arg(number), FileKind::wave);
    if (!path) return report(QStringLiteral("WAV保存をキャンセルしました。"));
    const auto bytes =
        orNothing([&] { return UserWaveformBuilder::wavData(m_model.state().userWave(), wavSampleRate); });
    if (!bytes || !writeWholeFile(*path, *bytes)) return report(QStringLiteral("WAV保存に失敗しました。"));
    loadUserWaveTab();
    report(QStringLiteral("User Wave %1 をWAV保存しました。").arg(number));
}

void ToneEditorFileActions::loadUserWaveTab()
{
    m_model.change(ToneEditorPart::tab,
                   [](ToneEditorState& state) { state.loadedToneTabs.insert(ToneEditorTab::userWave); });
}

} // namespace orvim
