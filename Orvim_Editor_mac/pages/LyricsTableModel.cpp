#include "pages/LyricsTableModel.h"

#include <QRegularExpression>

#include <array>
#include <iterator>
#include <limits>
#include <utility>

namespace orvim {

using tonavelle::LyricsCommand;
using tonavelle::LyricsRow;

namespace {

constexpr std::array<const char*, lyricsColumnCount> columnTitles{"小節", "Ticks", "コマンド", "歌詞", "プレビュー"};

// Views need a while for each place of a change; from so many on they look at the whole table anew.
constexpr std::size_t mostPlacesOfAChange = 64;

// More of a text is never seen in a cell or read in a tool tip, and laying out megabytes would hold up every picture.
constexpr qsizetype mostShownCharacters = 500;
constexpr qsizetype mostToolTipCharacters = 5'000;

struct RowRange {
    int first;
    int last;
};

LyricsColumn columnOf(const QModelIndex& index)
{
    return static_cast<LyricsColumn>(index.column());
}

/// At most so many UTF-16 units of the text, whole characters; an ellipsis at the end stands for the rest.
QString beginningOf(const std::string& text, qsizetype mostUnits)
{
    // A unit comes from up to three bytes, and four give two.
    const auto mostBytes = static_cast<std::size_t>(4 * mostUnits);
    QString beginning = QString::fromUtf8(text.data(), static_cast<qsizetype>(std::min(text.size(), mostBytes)));
    if (beginning.size() <= mostUnits) return beginning;
    beginning.truncate(mostUnits - 1);
    if (beginning.back().isHighSurrogate()) beginning.chop(1);
    return beginning + QChar(0x2026);
}

/// One line; its end-of-line characters are seen as signs.
QString oneLine(const std::string& text)
{
    QString line = beginningOf(text, mostShownCharacters);
    for (QChar& character : line) {
        const bool endsLine = character == QLatin1Char('\n') || character == QLatin1Char('\r');
        if (endsLine)
            character = QChar(0x21B5);
        else if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return line;
}

template <typename Field>
bool assign(Field& field, const Field& value)
{
    if (field == value) return false;
    field = value;
    return true;
}

} // namespace

std::optional<std::int64_t> typedNumber(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[+-]?[0-9]+\\z"));
    QString number = text.normalized(QString::NormalizationForm_KC).trimmed();
    number.replace(QChar(0x2212), QLatin1Char('-')); // the minus sign of input methods
    if (!pattern.match(number).hasMatch()) return std::nullopt;
    bool isInRange = false;
    const std::int64_t value = number.toLongLong(&isInRange);
    if (isInRange) return value;
    using Limits = std::numeric_limits<std::int64_t>;
    return number.startsWith(QLatin1Char('-')) ? Limits::min() : Limits::max();
}

LyricsTableModel::LyricsTableModel(std::vector<LyricsTableRow>& rows, QObject* parent)
    : QAbstractTableModel(parent), m_rows(rows)
{
}

void LyricsTableModel::setRows(std::vector<LyricsTableRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void LyricsTableModel::insert(std::span<const LyricsInsertion> insertions)
{
    if (insertions.size() <= mostPlacesOfAChange) {
        for (std::size_t i = insertions.size(); i-- > 0;) {
            const int position = static_cast<int>(insertions[i].position);
            beginInsertRows({}, position, position);
            m_rows.insert(m_rows.begin() + position, insertions[i].row);
            endInsertRows();
        }
        return;
    }
    std::vector<LyricsTableRow> joined;
    joined.reserve(m_rows.size() + insertions.size());
    auto rest = m_rows.begin();
    for (const auto& insertion : insertions) {
        const auto end = m_rows.begin() + static_cast<std::ptrdiff_t>(insertion.position);
        joined.insert(joined.end(), rest, end);
        joined.push_back(insertion.row);
        rest = end;
    }
    joined.insert(joined.end(), rest, m_rows.end());
    setRows(std::move(joined));
}

void LyricsTableModel::remove(const QSet<LyricsRowID>& ids)
{
    std::vector<RowRange> ranges;
    for (int i = 0; i < rowCount(); ++i) {
        if (!ids.contains(row(i).id)) continue;
        if (!ranges.empty() && ranges.back().last == i - 1)
            ranges.back().last = i;
        else
            ranges.push_back({i, i});
    }
    if (ranges.size() > mostPlacesOfAChange) {
        beginResetModel();
        std::erase_if(m_rows, [&](const LyricsTableRow& row) { return ids.contains(row.id); });
        return endResetModel();
    }
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
        beginRemoveRows({}, range->first, range->last);
        m_rows.erase(m_rows.begin() + range->first, m_rows.begin() + range->last + 1);
        endRemoveRows();
    }
}

int LyricsTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LyricsTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : lyricsColumnCount;
}

QVariant LyricsTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const LyricsRow& lyrics = row(index.row()).lyrics;
    const LyricsColumn column = columnOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return shownText(lyrics, column);
    case Qt::EditRole:
        if (column == LyricsColumn::text) return QString::fromStdString(lyrics.text);
        if (column == LyricsColumn::command) return static_cast<int>(lyrics.command);
        return shownText(lyrics, column);
    case Qt::ToolTipRole:
        if (column == LyricsColumn::text) return beginningOf(lyrics.text, mostToolTipCharacters);
        return shownText(lyrics, column);
    case Qt::AccessibleTextRole:
        if (column != LyricsColumn::preview) return {};
        return QStringList{shownText(lyrics, column), shownText(lyrics, LyricsColumn::command),
                           shownText(lyrics, LyricsColumn::text)}
            .join(QStringLiteral("、"));
    case Qt::AccessibleDescriptionRole:
        if (column == LyricsColumn::command) return tr("スペースキーで選択");
        if (column == LyricsColumn::preview) return tr("スペースキーで実行");
        return {};
    case Qt::TextAlignmentRole:
        if (column == LyricsColumn::bar || column == LyricsColumn::ticks)
            return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QString LyricsTableModel::shownText(const LyricsRow& row, LyricsColumn column) const
{
    switch (column) {
    case LyricsColumn::bar:
        return QString::number(row.bar);
    case LyricsColumn::ticks:
        return QString::number(row.ticks);
    case LyricsColumn::command: {
        const auto& names = tonavelle::lyricsCommandNames[static_cast<std::size_t>(row.command)];
        return QString::fromLatin1(names.label.data(), static_cast<qsizetype>(names.label.size()));
    }
    case LyricsColumn::text:
        return oneLine(row.text);
    case LyricsColumn::preview:
        return QString::fromUtf8(columnTitles.back());
    }
    return {};
}

QVariant LyricsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= lyricsColumnCount) return {};
    if (role == Qt::TextAlignmentRole && section <= static_cast<int>(LyricsColumn::ticks))
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::TextAlignmentRole && section == static_cast<int>(LyricsColumn::preview))
        return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    if (role == Qt::DisplayRole) return QString::fromUtf8(columnTitles[static_cast<std::size_t>(section)]);
    return {};
}

Qt::ItemFlags LyricsTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return columnOf(index) == LyricsColumn::preview ? flags : flags | Qt::ItemIsEditable;
}

bool LyricsTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid()) return false;
    LyricsRow& lyrics = m_rows[static_cast<std::size_t>(index.row())].lyrics;
    bool hasChanged = false;
    switch (columnOf(index)) {
    case LyricsColumn::bar:
    case LyricsColumn::ticks: {
        const auto number = typedNumber(value.toString());
        if (!number) return false;
        hasChanged = assign(columnOf(index) == LyricsColumn::bar ? lyrics.bar : lyrics.ticks, *number);
        break;
    }
    case LyricsColumn::command: {
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        if (!isNumber || number < 0 || number >= std::ssize(tonavelle::lyricsCommandNames)) return false;
        hasChanged = assign(lyrics.command, static_cast<LyricsCommand>(number));
        break;
    }
    case LyricsColumn::text:
        hasChanged = assign(lyrics.text, value.toString().toStdString());
        break;
    case LyricsColumn::preview:
        return false;
    }
    // The look of a text follows the command beside it.
    if (hasChanged) Q_EMIT dataChanged(index, cell(index.row(), LyricsColumn::text));
    return true;
}

} // namespace orvim
