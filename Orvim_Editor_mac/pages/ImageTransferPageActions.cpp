#include "pages/ImageTransferPageActions.h"

#include "DisplaySimulatorState.h"
#include "MIDIOutManager.h"
#include "core/media/ImageTransferBuilder.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/protocol/SysExBuilder.h"
#include "platform/BackgroundWork.h"

#include <algorithm>

namespace orvim {

using tonavelle::Batch;
namespace SysExBuilder = tonavelle::SysExBuilder;
namespace TransferMIDIFileBuilder = tonavelle::TransferMIDIFileBuilder;

namespace {

constexpr std::uint8_t arbitraryImageUIType = 4;

const TransferListWords imageWords{
    .fileKind = FileKind::picture,
    .extensions = {"bmp", "jpg", "jpeg", "png"},
    .addFromMenu = "画像を開く",
    .addFromToolbar = "画像追加",
    .addSymbol = "photo.badge.plus",
    .restoreFromMenu = "MIDIから画像を復元",
    .runOnModule = "実機で表示",
    .dropHint = "ここに画像ファイルをドラッグして下さい\nbmp, jpg, pngに対応",
    .clearQuestion = "現在の画像リストを破棄して初期化しますか？",
    .clearCancelled = "画像リストのクリアをキャンセルしました。",
    .cleared = "画像リストをクリアしました。",
    .noneFound = "対応する画像ファイルが見つかりません。",
    .cannotLoad = "画像ファイルを読み込めません。",
    .registered = "画像ファイルを登録しました。",
    .deleted = "画像を削除しました。",
    .exportName = "image_output.mid",
    .exportCancelled = "画像MIDI保存をキャンセルしました。",
    .exported = "画像MIDIを書き出しました。",
    .exportFailed = "画像MIDIを書き出せません。",
    .importCancelled = "画像のインポートをキャンセルしました。",
    .nothingToImport = "MIDIファイル中に画像が見つかりません。",
    .importQuestion = "現在の画像リストを破棄して読み込みますか？",
    .imported = "MIDIファイルから画像をインポートしました。",
};

Batch rowMessages(const ImageTransferItem& item)
{
    return tonavelle::ImageTransferBuilder::imageTransferRows(static_cast<std::uint8_t>(item.screenNumber),
                                                              item.rgb888);
}

} // namespace

ImageTransferPageActions::ImageTransferPageActions(MIDIOutManager& midiOutManager,
                                                   DisplaySimulatorState& displaySimulator, Dialogs& dialogs)
    : TransferListActions(imageWords, midiOutManager, dialogs), m_displaySimulator(displaySimulator)
{
}

int ImageTransferPageActions::itemCount() const
{
    return static_cast<int>(m_state.items.size());
}

TransferRow ImageTransferPageActions::row(int index) const
{
    const auto& item = m_state.items.at(static_cast<std::size_t>(index));
    return {item.id, item.screenNumber, item.previewImage, item.filePath, {}};
}

QString ImageTransferPageActions::headerText() const
{
    return QStringLiteral("登録画像数：%1/32").arg(itemCount(), 2, 10, QLatin1Char('0'));
}

std::vector<TransferOption> ImageTransferPageActions::options()
{
    return {{"リセット命令を書き出し", &m_state.writeReset},
            {"UI Type Setを書き出し", &m_state.writeUITypeSet},
            {"描画コマンドを書き出し", &m_state.writeDrawCommand}};
}

void ImageTransferPageActions::clearItems()
{
    m_state.items.clear();
}

void ImageTransferPageActions::removeItems(const QSet<QUuid>& ids)
{
    std::erase_if(m_state.items, [&](const auto& item) { return ids.contains(item.id); });
}

void ImageTransferPageActions::renumber()
{
    int number = 0;
    for (auto& item : m_state.items)
        item.screenNumber = number++;
}

bool ImageTransferPageActions::addFile(const QString& path)
{
    ImageTransferItem item{QUuid::createUuid(), itemCount(), path, {}, {}};
    const bool goesOn = runInBackground([&] {
        item.rgb888 = loadPicture(path);
        item.previewImage = previewOrEmpty(item.rgb888);
    });
    if (goesOn) m_state.items.push_back(std::move(item));
    return goesOn;
}

std::vector<std::uint8_t> ImageTransferPageActions::exportedBytes() const
{
    std::vector<Batch> rowsByImage;
    for (const auto& item : m_state.items)
        rowsByImage.push_back(rowMessages(item));
    const auto events = TransferMIDIFileBuilder::imageTransferEvents(rowsByImage, m_state.writeReset,
                                                                     m_state.writeUITypeSet, m_state.writeDrawCommand);
    return tonavelle::SimpleMIDIFileBuilder::wpfStyleSequence(events, TransferMIDIFileBuilder::ticksPerQuarterNote);
}

std::function<void()> ImageTransferPageActions::readReplacement(const QString& path)
{
    auto items = readImageItemsFromMIDIFile(path);
    if (items.empty()) return {};
    return [this, items = std::move(items)]() mutable { m_state.items = std::move(items); };
}

void ImageTransferPageActions::sendToModule(const QUuid& id)
{
    const auto row = std::ranges::find(m_state.items, id, &ImageTransferItem::id);
    if (row == m_state.items.end()) return;
    try {
        send(*row);
    } catch (const std::exception&) {
        report("画像プレビューを送信できません。");
    }
}

void ImageTransferPageActions::send(const ImageTransferItem& item)
{
    midiOutManager().send(SysExBuilder::uiTypeSet(arbitraryImageUIType), QStringLiteral("UI Type Set"));
    const Batch messages = rowMessages(item);
    for (std::size_t i = 0; i < messages.size(); ++i) {
        showProgress(i + 1, messages.size());
        midiOutManager().send(messages[i], QStringLiteral("Image Transfer color 64x64"));
    }
    midiOutManager().send(SysExBuilder::imageDraw64x64(static_cast<std::uint8_t>(item.screenNumber)),
                          QStringLiteral("Image Draw 64x64"));
    m_displaySimulator.setArbitraryImage(item.rgb888);
}

} // namespace orvim
