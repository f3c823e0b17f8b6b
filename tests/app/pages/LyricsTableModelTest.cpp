#include "pages/LyricsTableModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <limits>

namespace orvim {
namespace {

using testing::ElementsAre;
using tonavelle::LyricsCommand;

constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
constexpr auto largest = std::numeric_limits<std::int64_t>::max();

class LyricsTableModelTest : public testing::Test
{
protected:
    void setRows(int count)
    {
        std::vector<LyricsTableRow> newRows;
        for (int i = 0; i < count; ++i)
            newRows.push_back({static_cast<LyricsRowID>(i), {.bar = i, .text = std::to_string(i)}});
        model.setRows(std::move(newRows));
    }

    std::vector<LyricsRowID> ids() const
    {
        std::vector<LyricsRowID> result;
        for (const auto& row : rows)
            result.push_back(row.id);
        return result;
    }

    QString shown(int row, LyricsColumn column) const { return model.cell(row, column).data().toString(); }
    QString toolTip(int row) const { return model.cell(row, LyricsColumn::text).data(Qt::ToolTipRole).toString(); }
    bool set(LyricsColumn column, const QVariant& value) { return model.setData(model.cell(0, column), value); }

    std::vector<LyricsTableRow> rows;
    LyricsTableModel model{rows};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST(TypedNumber, SignsAreOptionalAndDigitsMayBeWide)
{
    EXPECT_EQ(typedNumber(QStringLiteral("12")), 12);
    EXPECT_EQ(typedNumber(QStringLiteral("-12")), -12);
    EXPECT_EQ(typedNumber(QStringLiteral("+007")), 7);
    EXPECT_EQ(typedNumber(QStringLiteral("－１２３")), -123);
    EXPECT_EQ(typedNumber(QStringLiteral("\u2212１２３")), -123) << "the minus sign of input methods";
    for (const char* bad : {"", "-", "1.5", "12a", "0x10", "1 2", "１a"})
        EXPECT_EQ(typedNumber(QString::fromUtf8(bad)), std::nullopt) << bad;
}

TEST(TypedNumber, WhatIsBeyondTheRangeCountsAsItsEnd)
{
    EXPECT_EQ(typedNumber(QStringLiteral("9223372036854775807")), largest);
    EXPECT_EQ(typedNumber(QStringLiteral("9223372036854775808")), largest);
    EXPECT_EQ(typedNumber(QStringLiteral("-9223372036854775808")), smallest);
    EXPECT_EQ(typedNumber(QStringLiteral("-9223372036854775809")), smallest);
    EXPECT_EQ(typedNumber(QString(1000, QLatin1Char('9'))), largest);
}

TEST_F(LyricsTableModelTest, HasTheFiveColumnsOfARow)
{
    setRows(1);
    ASSERT_EQ(model.columnCount(), 5);
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("小節"));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Ticks"));
    EXPECT_EQ(shown(0, LyricsColumn::command), QStringLiteral("ADD_HI"));
    EXPECT_EQ(shown(0, LyricsColumn::text), QStringLiteral("0"));
    EXPECT_EQ(shown(0, LyricsColumn::preview), QStringLiteral("プレビュー"));
    EXPECT_FALSE(model.flags(model.cell(0, LyricsColumn::preview)) & Qt::ItemIsEditable);
}

TEST_F(LyricsTableModelTest, TheFiveCommandsHaveTheirLabels)
{
    setRows(1);
    QStringList labels;
    for (int number = 0; number < 5; ++number) {
        EXPECT_TRUE(set(LyricsColumn::command, number));
        labels << shown(0, LyricsColumn::command);
    }
    EXPECT_EQ(labels.join(QLatin1Char(' ')), QStringLiteral("ADD_HI ADD_LO DEL_HL DEL_HI DEL_LO"));
}

TEST_F(LyricsTableModelTest, AnEditIsToldOnceAndTheSameValueNotAtAll)
{
    setRows(1);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(set(LyricsColumn::bar, QStringLiteral("-5")));
    EXPECT_TRUE(set(LyricsColumn::ticks, QStringLiteral("99")));
    EXPECT_TRUE(set(LyricsColumn::command, 3));
    EXPECT_TRUE(set(LyricsColumn::text, QStringLiteral("春")));
    EXPECT_EQ(changes.count(), 4);
    EXPECT_EQ(rows[0].lyrics, (tonavelle::LyricsRow{-5, 99, 0, LyricsCommand::deleteUpper, "春"}));
    EXPECT_TRUE(set(LyricsColumn::text, QStringLiteral("春")));
    EXPECT_EQ(changes.count(), 4);
}

TEST_F(LyricsTableModelTest, WhatIsNoValueOfAColumnIsRefused)
{
    setRows(1);
    const auto before = rows;
    EXPECT_FALSE(set(LyricsColumn::bar, QStringLiteral("x")));
    EXPECT_FALSE(set(LyricsColumn::ticks, QString()));
    EXPECT_FALSE(set(LyricsColumn::command, 5));
    EXPECT_FALSE(set(LyricsColumn::command, -1));
    EXPECT_FALSE(set(LyricsColumn::command, QStringLiteral("ADD")));
    EXPECT_FALSE(set(LyricsColumn::preview, QStringLiteral("x")));
    EXPECT_FALSE(model.setData({}, 1));
    EXPECT_EQ(rows, before);
}

TEST_F(LyricsTableModelTest, InsertionsAreToldPlaceByPlace)
{
    setRows(3);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    model.insert(std::vector<LyricsInsertion>{{0, {10, {}}}, {2, {11, {}}}, {3, {12, {}}}});
    EXPECT_THAT(ids(), ElementsAre(10, 0, 1, 11, 2, 12));
    ASSERT_EQ(inserted.count(), 3);
    EXPECT_EQ(inserted[0][1].toInt(), 3) << "from the end, so that no place moves";
    EXPECT_EQ(inserted[2][1].toInt(), 0);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(LyricsTableModelTest, RemovalsAreToldRangeByRange)
{
    setRows(7);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.remove({0, 1, 2, 5, 99});
    EXPECT_THAT(ids(), ElementsAre(3, 4, 6));
    ASSERT_EQ(removed.count(), 2);
    EXPECT_EQ(removed[1][1].toInt(), 0);
    EXPECT_EQ(removed[1][2].toInt(), 2);
}

TEST_F(LyricsTableModelTest, ChangesInVeryManyPlacesShowTheTableAnew)
{
    setRows(20'000);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    std::vector<LyricsInsertion> insertions;
    QSet<LyricsRowID> odd;
    for (std::size_t i = 0; i < 20'000; ++i) {
        insertions.push_back({i + 1, {100'000 + i, {}}});
        odd.insert(100'000 + i);
    }
    model.insert(insertions);
    EXPECT_EQ(reset.count(), 1);
    ASSERT_EQ(rows.size(), 40'000u);
    EXPECT_EQ(rows[0].id, 0u);
    EXPECT_EQ(rows[1].id, 100'000u);
    EXPECT_EQ(rows[39'998].id, 19'999u);
    EXPECT_EQ(rows[39'999].id, 119'999u);
    model.remove(odd);
    EXPECT_EQ(reset.count(), 2);
    ASSERT_EQ(rows.size(), 20'000u);
    EXPECT_EQ(rows[19'999].id, 19'999u);
}

TEST_F(LyricsTableModelTest, ALineEndIsSeenAsASignAndEditedAsItIs)
{
    setRows(1);
    rows[0].lyrics.text = std::string("a\r\nb\tc\0d", 8);
    EXPECT_EQ(shown(0, LyricsColumn::text), QStringLiteral("a↵↵b c d"));
    EXPECT_EQ(model.cell(0, LyricsColumn::text).data(Qt::EditRole).toString().toStdString(), rows[0].lyrics.text);
}

TEST_F(LyricsTableModelTest, OfATextOfMegabytesTheBeginningIsShown)
{
    setRows(1);
    rows[0].lyrics.text.clear();
    for (int i = 0; i < 1'000'000; ++i)
        rows[0].lyrics.text += "あ";
    EXPECT_EQ(shown(0, LyricsColumn::text), QString(499, QChar(u'あ')) + QStringLiteral("…"));
    EXPECT_EQ(toolTip(0), QString(4'999, QChar(u'あ')) + QStringLiteral("…"));
}

TEST_F(LyricsTableModelTest, ACutTextEndsWithAWholeCharacter)
{
    setRows(1);
    const std::string face = "😀";
    std::string faces;
    for (int i = 0; i < 300; ++i)
        faces += face;
    rows[0].lyrics.text = faces;
    EXPECT_EQ(shown(0, LyricsColumn::text), QStringLiteral("😀").repeated(249) + QStringLiteral("…"));
    EXPECT_EQ(toolTip(0), QStringLiteral("😀").repeated(300));
    rows[0].lyrics.text = "a" + faces;
    EXPECT_EQ(shown(0, LyricsColumn::text),
              QStringLiteral("a") + QStringLiteral("😀").repeated(249) + QStringLiteral("…"));
    rows[0].lyrics.text = std::string(500, 'x');
    EXPECT_EQ(shown(0, LyricsColumn::text), QString(500, QLatin1Char('x')));
}

} // namespace
} // namespace orvim
