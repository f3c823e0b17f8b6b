#include "pages/SoundTransferPageActions.h"

#include "MIDIOutManager.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "core/protocol/MIDIMessageBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "platform/BackgroundWork.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orvim {

using tonavelle::SamplingSoundItem;
namespace SamplingSoundBuilder = tonavelle::SamplingSoundBuilder;
namespace TransferMIDIFileBuilder = tonavelle::TransferMIDIFileBuilder;

namespace {

constexpr double mostSeconds = 50.0;

const TransferListWords soundWords{
    .fileKind = FileKind::wave,
    .extensions = {"wav"},
    .addFromMenu = "音声を開く",
    .addFromToolbar = "音声追加",
    .addSymbol = "waveform.badge.plus",
    .restoreFromMenu = "MIDIから音声を復元",
    .runOnModule = "実機で再生",
    .dropHint = "ここにWAVファイルをドラッグして下さい",
    .clearQuestion = "現在の音声リストを破棄して初期化しますか？",
    .clearCancelled = "音声リストのクリアをキャンセルしました。",
    .cleared = "音声リストをクリアしました。",
    .noneFound = "対応するWAVファイルが見つかりません。",
    .cannotLoad = "WAVファイルを読み込めません。",
    .registered = "音声ファイルを登録しました。",
    .deleted = "音声を削除しました。",
    .exportName = "sound_output.mid",
    .exportCancelled = "音声MIDI保存をキャンセルしました。",
    .exported = "音声MIDIを書き出しました。",
    .exportFailed = "音声MIDIを書き出せません。",
    .importCancelled = "音声のインポートをキャンセルしました。",
    .nothingToImport = "MIDIファイル中に音声が見つかりません。",
    .importQuestion = "現在の音声リストを破棄して読み込みますか？",
    .imported = "MIDIファイルから音声をインポートしました。",
};

/// A value in the middle of two is rounded to the even one, which QString does otherwise.
QString twoDecimals(double value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed, 2).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

double seconds(const std::vector<std::uint8_t>& pcm16LittleEndian)
{
    return static_cast<double>(pcm16LittleEndian.size() / 2) / SamplingSoundBuilder::sampleRate;
}

} // namespace

SoundTransferPageActions::SoundTransferPageActions(MIDIOutManager& midiOutManager, Dialogs& dialogs)
    : TransferListActions(soundWords, midiOutManager, dialogs)
{
}

double SoundTransferPageActions::totalSeconds() const
{
    double total = 0;
    for (const auto& item : m_state.items)
        total += seconds(item.pcm16LittleEndian);
    return total;
}

int SoundTransferPageActions::itemCount() const
{
    return static_cast<int>(m_state.items.size());
}

TransferRow SoundTransferPageActions::row(int index) const
{
    const auto& item = m_state.items.at(static_cast<std::size_t>(index));
    const QString length = twoDecimals(seconds(item.pcm16LittleEndian)) + QStringLiteral(" sec");
    return {item.id, item.soundNumber, {}, item.filePath, length};
}

QString SoundTransferPageActions::headerText() const
{
    return QStringLiteral("登録音声数：%1/32  合計時間：%2/50.00sec")
        .arg(itemCount(), 2, 10, QLatin1Char('0'))
        .arg(twoDecimals(totalSeconds()));
}

std::vector<TransferOption> SoundTransferPageActions::options()
{
    return {{"リセット命令を書き出し", &m_state.writeReset},
            {"再生コマンドを書き出し", &m_state.writePlayCommand},
            {"音量を下げる（推奨）", &m_state.reduceVolume}};
}

void SoundTransferPageActions::clearItems()
{
    m_state.items.clear();
}

void SoundTransferPageActions::removeItems(const QSet<QUuid>& ids)
{
    std::erase_if(m_state.items, [&](const auto& item) { return ids.contains(item.id); });
}

void SoundTransferPageActions::renumber()
{
    int number = 0;
    for (auto& item : m_state.items)
        item.soundNumber = number++;
}

bool SoundTransferPageActions::addFile(const QString& path)
{
    std::optional<std::vector<std::uint8_t>> pcm;
    if (!runInBackground([&] { pcm = loadAudioFile(path); })) return false;
    // A sound that does not fit is passed over without a word: a shorter one behind it can still fit.
    if (pcm && totalSeconds() + seconds(*pcm) <= mostSeconds)
        m_state.items.push_back({QUuid::createUuid(), itemCount(), path, std::move(*pcm)});
    return true;
}

std::vector<SamplingSoundItem> SoundTransferPageActions::sounds() const
{
    std::vector<SamplingSoundItem> result;
    for (const auto& item : m_state.items)
        result.push_back({item.pcm16LittleEndian});
    return result;
}

std::vector<std::uint8_t> SoundTransferPageActions::exportedBytes() const
{
    const auto items = sounds();
    const auto sections = SamplingSoundBuilder::buildSendDataSections(items, m_state.reduceVolume);
    const auto settings = SamplingSoundBuilder::buildSettings(items);
    const auto events = TransferMIDIFileBuilder::samplingSoundEvents(sections, settings, itemCount(),
                                                                     m_state.writeReset, m_state.writePlayCommand);
    return tonavelle::SimpleMIDIFileBuilder::wpfStyleSequence(events, TransferMIDIFileBuilder::ticksPerQuarterNote);
}

std::function<void()> SoundTransferPageActions::readReplacement(const QString& path)
{
    auto items = readSoundItemsFromMIDIFile(path);
    if (items.empty()) return {};
    return [this, items = std::move(items)]() mutable { m_state.items = std::move(items); };
}

void SoundTransferPageActions::sendToModule(const QUuid& id)
{
    const auto row = std::ranges::find(m_state.items, id, &SoundTransferItem::id);
    if (row == m_state.items.end()) return;
    try {
        send(static_cast<std::size_t>(row - m_state.items.begin()));
    } catch (const std::exception&) {
        report("音声プレビューを送信できません。");
    }
}

void SoundTransferPageActions::send(std::size_t index)
{
    // The whole list is encoded, so that the sections at the sound's ends hold their neighbours' codes too.
    const auto items = sounds();
    const auto settings = SamplingSoundBuilder::buildSettings(items);
    const auto sections = SamplingSoundBuilder::buildSendDataSections(items, m_state.reduceVolume);
    std::size_t start = 0;
    for (std::size_t i = 0; i < index; ++i)
        start += items[i].sampleCount();
    const std::size_t last = start + std::max<std::size_t>(items[index].sampleCount(), 1) - 1;
    const std::size_t firstSection = start / SamplingSoundBuilder::sectionSampleCount;
    const std::size_t lastSection = std::min(last / SamplingSoundBuilder::sectionSampleCount, sections.size() - 1);

    midiOutManager().send(settings.at(index), QStringLiteral("Sampling Sound Setting"));
    for (std::size_t i = firstSection; i <= lastSection; ++i) {
        showProgress(i - firstSection + 1, lastSection - firstSection + 1);
        midiOutManager().send(sections[i], QStringLiteral("Sampling Sound Send Data"));
    }
    midiOutManager().send(tonavelle::MIDIMessageBuilder::samplingSoundPlay(static_cast<int>(index)),
                          QStringLiteral("Sampling Sound Play"));
}

} // namespace orvim
