#include "pages/LyricsPageActions.h"

#include "DisplaySimulatorState.h"
#include "MIDIOutManager.h"
#include "core/media/LyricsSysExBuilder.h"
#include "core/protocol/SimpleMIDIFileReader.h"
#include "core/protocol/SysExBuilder.h"
#include "pages/DroppedFiles.h"
#include "pages/Report.h"
#include "platform/BackgroundWork.h"
#include "platform/Dialogs.h"
#include "platform/WholeFile.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <exception>
#include <stdexcept>
#include <utility>

namespace orvim {

using tonavelle::LyricsRow;

namespace {

constexpr std::array<const char*, 2> songExtensions{"mid", "midi"};

QByteArray digestOf(const std::vector<std::uint8_t>& bytes)
{
    const auto content =
        QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

} // namespace

LyricsPageActions::LyricsPageActions(MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator,
                                     Dialogs& dialogs)
    : m_midiOutManager(midiOutManager), m_displaySimulator(displaySimulator), m_dialogs(dialogs)
{
}

QString LyricsPageActions::headerText() const
{
    return QStringLiteral("歌詞イベント数：%1  ").arg(m_table.rowCount(), 5, 10, QLatin1Char('0')) +
           (m_state.openedMIDIPath.isEmpty() ? QStringLiteral("MIDI未読込") : m_state.openedMIDIPath);
}

void LyricsPageActions::setSelectedRowIDs(const QSet<LyricsRowID>& ids)
{
    if (!m_isBusy) m_state.selectedRowIDs = ids;
}

void LyricsPageActions::report(const char* text)
{
    orvim::report(m_midiOutManager, QString::fromUtf8(text));
}

/// The rows belong to one action at a time; drops that come meanwhile follow it.
void LyricsPageActions::whileBusy(const std::function<void()>& action)
{
    if (m_isBusy) return;
    {
        m_isBusy = true;
        const auto end = qScopeGuard([this] { m_isBusy = false; });
        action();
    }
    if (!m_waitingDrops.isEmpty()) load(m_waitingDrops.takeFirst());
}

/// False: the application is to quit, and what waits is given up.
bool LyricsPageActions::inBackground(const std::function<void()>& work)
{
    const bool goesOn = runInBackground(work);
    if (!goesOn) m_waitingDrops.clear();
    return goesOn;
}

void LyricsPageActions::openByPanel()
{
    whileBusy([this] {
        const auto path = m_dialogs.openPath(FileKind::midi);
        if (!path) return report("MIDIファイル読込をキャンセルしました。");
        readAndShow(*path);
    });
}

bool LyricsPageActions::takes(const QList<QUrl>& urls)
{
    return !droppedFiles(urls, songExtensions).isEmpty();
}

void LyricsPageActions::openDropped(const QList<QUrl>& urls)
{
    const QStringList paths = droppedFiles(urls, songExtensions);
    if (!paths.isEmpty()) load(paths.first());
}

void LyricsPageActions::load(const QString& path)
{
    if (m_isBusy) m_waitingDrops << path;
    whileBusy([&] { readAndShow(path); });
}

void LyricsPageActions::readAndShow(const QString& path)
{
    tonavelle::SimpleMIDIFile file;
    std::vector<LyricsRow> rows;
    QByteArray digest;
    try {
        const bool goesOn = inBackground([&] {
            const auto bytes = readWholeFile(path);
            file = tonavelle::SimpleMIDIFileReader::read(bytes);
            rows = tonavelle::readLyricRows(file);
            digest = digestOf(bytes);
        });
        if (!goesOn) return;
    } catch (const std::exception&) {
        return report("MIDIファイルを開けません。");
    }
    m_openedDigest = digest;
    show(path, file, std::move(rows));
    report("MIDIファイルを読み込みました。");
}

void LyricsPageActions::show(const QString& path, const tonavelle::SimpleMIDIFile& file, std::vector<LyricsRow> rows)
{
    std::vector<LyricsTableRow> tableRows;
    tableRows.reserve(rows.size());
    for (auto& row : rows)
        tableRows.push_back({++m_lastID, std::move(row)});
    m_state.lyricsTicksPerBar = tonavelle::lyricsTicksPerBar(file);
    m_state.openedMIDIPath = path;
    m_state.hasOpenedMIDI = true;
    m_table.setRows(std::move(tableRows));
    Q_EMIT listChanged();
}

QString LyricsPageActions::proposedName() const
{
    if (m_state.openedMIDIPath.isEmpty()) return QStringLiteral("lyrics_output.mid");
    return QFileInfo(m_state.openedMIDIPath).completeBaseName() + QStringLiteral("_out.mid");
}

void LyricsPageActions::save()
{
    whileBusy([this] {
        const auto path = m_dialogs.savePath(proposedName(), FileKind::midi);
        if (!path) return report("MIDI保存をキャンセルしました。");
        std::vector<LyricsRow> rows;
        for (const auto& row : m_state.rows)
            rows.push_back(row.lyrics);
        bool isWritten = false;
        QByteArray digest;
        try {
            const bool goesOn = inBackground([&] {
                const auto bytes = fileBytes(rows);
                digest = digestOf(bytes);
                isWritten = writeWholeFile(*path, bytes);
            });
            if (!goesOn) return;
        } catch (const std::exception&) {
            isWritten = false;
        }
        const bool isOpenedSong = QFileInfo(*path) == QFileInfo(m_state.openedMIDIPath);
        if (isWritten && isOpenedSong) m_openedDigest = digest;
        report(isWritten ? "MIDIファイルを保存しました。" : "MIDIファイルを保存できません。");
    });
}

std::vector<std::uint8_t> LyricsPageActions::fileBytes(std::span<const LyricsRow> rows) const
{
    return tonavelle::buildLyricFile(rows, m_state.addJapaneseModeOn, openedSong(), m_state.lyricsTicksPerBar);
}

std::optional<tonavelle::SimpleMIDIFile> LyricsPageActions::openedSong() const
{
    if (!m_state.hasOpenedMIDI || m_state.openedMIDIPath.isEmpty()) return std::nullopt;
    const auto bytes = readWholeFile(m_state.openedMIDIPath);
    if (digestOf(bytes) != m_openedDigest) throw std::runtime_error("the song is no longer the one that was opened");
    return tonavelle::SimpleMIDIFileReader::read(bytes);
}

LyricsTableRow LyricsPageActions::newRow(const LyricsRow& model)
{
    return {++m_lastID, {.bar = model.bar, .ticks = model.ticks, .trackIndex = model.trackIndex}};
}

void LyricsPageActions::insert()
{
    whileBusy([this] {
        std::vector<LyricsInsertion> insertions;
        for (std::size_t i = 0; i < m_state.rows.size(); ++i) {
            const auto& row = m_state.rows[i];
            if (m_state.selectedRowIDs.contains(row.id)) insertions.push_back({i + 1, newRow(row.lyrics)});
        }
        if (m_state.selectedRowIDs.isEmpty())
            insertions.push_back({0, newRow(m_state.rows.empty() ? LyricsRow{} : m_state.rows.front().lyrics)});
        insertAndSelect(insertions);
    });
}

void LyricsPageActions::insertBehind(LyricsRowID id)
{
    whileBusy([&] {
        const auto position = positionOf(id);
        if (!position) return;
        insertAndSelect(std::array{LyricsInsertion{*position + 1, newRow(m_state.rows[*position].lyrics)}});
    });
}

void LyricsPageActions::insertAndSelect(std::span<const LyricsInsertion> insertions)
{
    m_state.selectedRowIDs.clear();
    for (const auto& insertion : insertions)
        m_state.selectedRowIDs.insert(insertion.row.id);
    m_table.insert(insertions);
    Q_EMIT listChanged();
    Q_EMIT rowsAdded();
    report("歌詞行を挿入しました。");
}

void LyricsPageActions::deleteSelected()
{
    whileBusy([this] {
        if (m_state.selectedRowIDs.isEmpty()) return report("削除する歌詞行が選択されていません。");
        m_table.remove(std::exchange(m_state.selectedRowIDs, {}));
        Q_EMIT listChanged();
        report("歌詞行を削除しました。");
    });
}

void LyricsPageActions::deleteRow(LyricsRowID id)
{
    whileBusy([&] {
        m_table.remove({id});
        m_state.selectedRowIDs.remove(id);
        Q_EMIT listChanged();
        report("歌詞行を削除しました。");
    });
}

void LyricsPageActions::setJapaneseMode(bool on, const QString& label)
{
    m_midiOutManager.send(tonavelle::SysExBuilder::japaneseCharacterMode(on), label);
    m_displaySimulator.setJapaneseMode(on);
}

std::optional<std::size_t> LyricsPageActions::positionOf(LyricsRowID id) const
{
    const auto row = std::ranges::find(m_state.rows, id, &LyricsTableRow::id);
    if (row == m_state.rows.end()) return std::nullopt;
    return static_cast<std::size_t>(row - m_state.rows.begin());
}

void LyricsPageActions::preview(LyricsRowID id)
{
    const auto position = positionOf(id);
    if (!position) return;
    // The output may wait for its receiver, and rows may change meanwhile.
    const LyricsRow row = m_state.rows[*position].lyrics;
    m_midiOutManager.send(tonavelle::LyricsSysExBuilder::sysEx(row.command, row.text),
                          isAddCommand(row.command) ? QStringLiteral("Japanese Character Add")
                                                    : QStringLiteral("Japanese Character Delete"));
    m_displaySimulator.applyLyricCommand(static_cast<int>(row.command), row.text);
}

} // namespace orvim
