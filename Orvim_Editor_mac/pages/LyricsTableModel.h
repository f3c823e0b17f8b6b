#pragma once

#include "pages/LyricsPageState.h"

#include <QAbstractTableModel>

#include <span>

namespace orvim {

enum class LyricsColumn { bar, ticks, command, text, preview };
inline constexpr int lyricsColumnCount = 5;

/// A row to be put in before the row that stands at `position`, or at the end.
struct LyricsInsertion {
    std::size_t position = 0;
    LyricsTableRow row;
};

/// The rows of the lyrics page as a table, and the only one to change them. Numbers and texts are edited as strings,
/// commands as their numbers. Of enormous texts a cell shows the beginning, and its tool tip more.
class LyricsTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The rows must outlive the model.
    explicit LyricsTableModel(std::vector<LyricsTableRow>& rows, QObject* parent = nullptr);

    const LyricsTableRow& row(int index) const { return m_rows.at(static_cast<std::size_t>(index)); }
    QModelIndex cell(int row, LyricsColumn column) const { return index(row, static_cast<int>(column)); }

    void setRows(std::vector<LyricsTableRow> rows);
    /// By rising position; each position is one before the change.
    void insert(std::span<const LyricsInsertion> insertions);
    void remove(const QSet<LyricsRowID>& ids);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// False, and nothing changes, where the value is none for the column.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    QString shownText(const tonavelle::LyricsRow& row, LyricsColumn column) const;

    std::vector<LyricsTableRow>& m_rows;
};

/// The number that a person has typed, in digits of either width; one beyond the range counts as the nearest in it.
std::optional<std::int64_t> typedNumber(const QString& text);

} // namespace orvim
