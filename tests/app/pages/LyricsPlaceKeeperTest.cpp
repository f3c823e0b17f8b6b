// Where the keys go on in the table once the row of its current cell is gone, or all rows are others.

#include "pages/LyricsPlaceKeeper.h"

#include "tests/app/support/LyricsPageWindow.h"

#include <QScrollBar>

namespace orvim {
namespace {

using test::songOfLyrics;
using testing::ElementsAre;

using LyricsPlaceKeeperTest = test::LyricsPageWindowTest;

TEST_F(LyricsPlaceKeeperTest, AfterADeletionTheKeysGoOnFromTheSamePlace)
{
    open(songOfLyrics(5));
    goTo(2, LyricsColumn::text);
    press(Qt::Key_Delete);
    EXPECT_TRUE(isAt(2, LyricsColumn::text));
    EXPECT_TRUE(state().selectedRowIDs.isEmpty());
    press(Qt::Key_Down);
    EXPECT_EQ(texts(), (std::vector<std::string>{"0", "1", "3", "4"}));
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(3)});
}

TEST_F(LyricsPlaceKeeperTest, AfterADeletionOfRowsApartTheKeysGoOnWhereTheCurrentOneWas)
{
    open(songOfLyrics(8));
    click(1, LyricsColumn::text);
    click(2, LyricsColumn::text, Qt::ControlModifier);
    click(6, LyricsColumn::text, Qt::ControlModifier);
    click(4, LyricsColumn::text, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_THAT(texts(), ElementsAre("0", "3", "5", "7"));
    EXPECT_TRUE(isAt(2, LyricsColumn::text)) << "where 4 was";
}

TEST_F(LyricsPlaceKeeperTest, AnInsertionThatAddsNothingKeepsTheCurrentCell)
{
    open(songOfLyrics(3));
    click(1, LyricsColumn::text);
    open(songOfLyrics(3));
    table().setFocus();
    ASSERT_TRUE(isAt(0, LyricsColumn::text));
    press(Qt::Key_Insert);
    EXPECT_EQ(state().rows.size(), 3u);
    EXPECT_TRUE(isAt(0, LyricsColumn::text));
}

TEST_F(LyricsPlaceKeeperTest, AfterADeletionInManyPlacesTheKeysGoOnFromTheSamePlace)
{
    open(songOfLyrics(1'000));
    goTo(900, LyricsColumn::bar);
    QItemSelection everySecondRow;
    for (int row = 0; row < 1'000; row += 2)
        everySecondRow.select(cell(row, LyricsColumn::bar), cell(row, LyricsColumn::preview));
    table().selectionModel()->select(everySecondRow, QItemSelectionModel::ClearAndSelect);
    press(Qt::Key_Delete);
    ASSERT_EQ(state().rows.size(), 500u);
    EXPECT_TRUE(isAt(450, LyricsColumn::bar));
    EXPECT_EQ(row(450).text, "901");
}

TEST_F(LyricsPlaceKeeperTest, AnotherSongBeginsInItsFirstRow)
{
    open(songOfLyrics(1'000));
    goTo(900, LyricsColumn::text);
    open(songOfLyrics(1'000));
    EXPECT_TRUE(isAt(0, LyricsColumn::text));
    EXPECT_EQ(table().verticalScrollBar()->value(), 0);
}

TEST_F(LyricsPlaceKeeperTest, ANewSongIsSeenFromItsFirstColumnOnInANarrowWindow)
{
    window.resize(420, 400);
    QCoreApplication::processEvents();
    open(songOfLyrics(3));
    QCoreApplication::processEvents();
    ASSERT_GT(table().horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(table().horizontalScrollBar()->value(), 0);
}

} // namespace
} // namespace orvim
