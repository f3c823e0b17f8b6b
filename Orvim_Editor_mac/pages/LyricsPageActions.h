#pragma once

#include "pages/LyricsTableModel.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>

namespace orvim {

class Dialogs;
class DisplaySimulatorState;
class MIDIOutManager;

/// What the lyrics page does, without a window. While a song is read or written the window stays alive; songs dropped
/// meanwhile are opened afterwards.
class LyricsPageActions : public QObject
{
    Q_OBJECT

public:
    LyricsPageActions(MIDIOutManager& midiOutManager, DisplaySimulatorState& displaySimulator, Dialogs& dialogs);

    const LyricsPageState& state() const { return m_state; }
    /// The rows of the state; cells are edited through it.
    LyricsTableModel& table() { return m_table; }
    QString headerText() const;

    /// An action has the rows, or waits for a file.
    bool isBusy() const { return m_isBusy; }
    /// The user's choice of rows; what a view's selection does while the rows change under it is none, and is ignored.
    void setSelectedRowIDs(const QSet<LyricsRowID>& ids);
    void setAddJapaneseModeOn(bool on) { m_state.addJapaneseModeOn = on; }

    void openByPanel();
    void openDropped(const QList<QUrl>& urls);
    void load(const QString& path);
    /// Fails where the open song is gone or no longer as it was opened: its rows belong to the bars and tracks read
    /// then.
    void save();
    void insert();
    void insertBehind(LyricsRowID id);
    void deleteSelected();
    void deleteRow(LyricsRowID id);
    void setJapaneseMode(bool on, const QString& label);
    /// Shows the row on the module and on the simulated screen.
    void preview(LyricsRowID id);

    /// Whether one of the dropped files is a song.
    static bool takes(const QList<QUrl>& urls);

Q_SIGNALS:
    /// The rows, the selection or the open file are others.
    void listChanged();
    /// New rows are in the table, and selected.
    void rowsAdded();

private:
    void report(const char* text);
    void whileBusy(const std::function<void()>& action);
    bool inBackground(const std::function<void()>& work);
    void readAndShow(const QString& path);
    void show(const QString& path, const tonavelle::SimpleMIDIFile& file, std::vector<tonavelle::LyricsRow> rows);
    std::vector<std::uint8_t> fileBytes(std::span<const tonavelle::LyricsRow> rows) const;
    std::optional<tonavelle::SimpleMIDIFile> openedSong() const;
    QString proposedName() const;
    std::optional<std::size_t> positionOf(LyricsRowID id) const;
    /// A new row at the time and in the track of `model`.
    LyricsTableRow newRow(const tonavelle::LyricsRow& model);
    /// Puts new rows in and selects them alone.
    void insertAndSelect(std::span<const LyricsInsertion> insertions);

    MIDIOutManager& m_midiOutManager;
    DisplaySimulatorState& m_displaySimulator;
    Dialogs& m_dialogs;
    LyricsPageState m_state;
    LyricsTableModel m_table{m_state.rows};
    LyricsRowID m_lastID = 0;
    QByteArray m_openedDigest; ///< of the bytes of the open song
    bool m_isBusy = false;
    QStringList m_waitingDrops;
};

} // namespace orvim
