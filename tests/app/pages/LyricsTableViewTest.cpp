#include "pages/LyricsTableView.h"

#include "tests/app/support/LyricsPageWindow.h"

#include <QAccessible>
#include <QClipboard>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <limits>

namespace orvim {
namespace {

using test::bytes;
using test::lyricMeta;
using test::metaEvent;
using test::songOf;
using test::songOfLyrics;
using testing::ElementsAre;
using tonavelle::LyricsCommand;

using LyricsTableViewTest = test::LyricsPageWindowTest;

TEST_F(LyricsTableViewTest, TypingReplacesACellAndReturnGoesDown)
{
    open(songOfLyrics(3));
    goTo(0, LyricsColumn::text);
    type(QStringLiteral("la"));
    ASSERT_TRUE(editor());
    EXPECT_EQ(row(0).text, "0") << "nothing is taken over yet";
    press(Qt::Key_Return);
    EXPECT_FALSE(editor());
    EXPECT_EQ(row(0).text, "la");
    EXPECT_TRUE(isAt(1, LyricsColumn::text));
    type(QStringLiteral("lo"));
    press(Qt::Key_Return);
    EXPECT_EQ(row(1).text, "lo");
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(2)});
}

TEST_F(LyricsTableViewTest, TabCommitsAndGoesRightAndBacktabLeft)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::bar);
    type(QStringLiteral("3"));
    press(Qt::Key_Tab);
    EXPECT_EQ(row(0).bar, 3);
    EXPECT_TRUE(isAt(0, LyricsColumn::ticks));
    type(QStringLiteral("-40"));
    press(Qt::Key_Backtab);
    EXPECT_EQ(row(0).ticks, -40);
    EXPECT_TRUE(isAt(0, LyricsColumn::bar));
}

TEST_F(LyricsTableViewTest, AWideNegativeNumberOfAnInputMethodIsTaken)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::ticks);
    press(Qt::Key_F2);
    editor()->clear();
    compose({}, QStringLiteral("\u2212１０"));
    press(Qt::Key_Return);
    EXPECT_EQ(row(0).ticks, -10);
}

TEST_F(LyricsTableViewTest, TabGoesFromAnEditedCellAsFromAnyOther)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::text);
    type(QStringLiteral("a"));
    press(Qt::Key_Tab);
    EXPECT_TRUE(isAt(0, LyricsColumn::preview));
    goTo(1, LyricsColumn::bar);
    type(QStringLiteral("5"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(row(1).bar, 5);
    EXPECT_TRUE(isAt(0, LyricsColumn::preview)) << "back to the row above";
    goTo(1, LyricsColumn::ticks);
    type(QStringLiteral("6"));
    press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(row(1).ticks, 6);
    EXPECT_TRUE(isAt(1, LyricsColumn::bar));
    goTo(0, LyricsColumn::bar);
    type(QStringLiteral("7"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(row(0).bar, 7);
    EXPECT_FALSE(table().hasFocus()) << "out of the table at its beginning";
}

TEST_F(LyricsTableViewTest, CtrlTabLeavesTheTableFromAnEditedCell)
{
    open(songOfLyrics(2));
    for (const auto modifiers : {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
        goTo(1, LyricsColumn::text);
        type(QStringLiteral("x"));
        press(Qt::Key_Tab, modifiers);
        EXPECT_EQ(row(1).text, "x");
        EXPECT_FALSE(editor());
        EXPECT_FALSE(table().hasFocus());
        EXPECT_TRUE(isAt(1, LyricsColumn::text));
    }
}

TEST_F(LyricsTableViewTest, F2OnThePreviewButtonSendsNothing)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::preview);
    plugged.system.forgetSent();
    press(Qt::Key_F2);
    EXPECT_TRUE(plugged.sent().empty());
    EXPECT_TRUE(isAt(0, LyricsColumn::preview));
}

TEST_F(LyricsTableViewTest, CtrlSpaceChoosesTheCurrentRowInEveryColumn)
{
    open(songOfLyrics(1));
    table().setFocus();
    plugged.system.forgetSent();
    for (int column = 0; column < lyricsColumnCount; ++column) {
        table().selectionModel()->setCurrentIndex(cell(0, static_cast<LyricsColumn>(column)),
                                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        press(Qt::Key_Space, Qt::ControlModifier);
        EXPECT_TRUE(state().selectedRowIDs.isEmpty());
        press(Qt::Key_Space, Qt::ControlModifier);
        EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(0)});
        EXPECT_FALSE(editor());
        EXPECT_FALSE(menu());
    }
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(LyricsTableViewTest, InsertAddsARowBehindEachSelectedOne)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::text);
    press(Qt::Key_Insert);
    EXPECT_THAT(texts(), ElementsAre("0", "", "1"));
    EXPECT_TRUE(isAt(1, LyricsColumn::text));
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(state().rows.size(), 3u) << "a key of its own";
}

TEST_F(LyricsTableViewTest, APickerOpenedByKeyComesWithItsRow)
{
    open(songOfLyrics(1'000));
    goTo(0, LyricsColumn::command);
    table().scrollToBottom();
    press(Qt::Key_Space);
    ASSERT_TRUE(menu());
    EXPECT_EQ(table().verticalScrollBar()->value(), 0);
    const QPoint below = table().visualRect(cell(0, LyricsColumn::command)).bottomLeft();
    EXPECT_EQ(menu()->pos(), table().viewport()->mapToGlobal(below));
    menu()->close();
}

TEST_F(LyricsTableViewTest, F2AndReturnEditWhatIsThereAndEscapeGivesItUp)
{
    open(songOfLyrics(1));
    for (const auto key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        goTo(0, LyricsColumn::text);
        press(key);
        ASSERT_TRUE(editor());
        EXPECT_EQ(editor()->text(), QStringLiteral("0"));
        press(Qt::Key_End);
        type(QStringLiteral("x"));
        EXPECT_EQ(editor()->text(), QStringLiteral("0x"));
        press(Qt::Key_Escape);
        EXPECT_FALSE(editor());
        EXPECT_EQ(row(0).text, "0");
        EXPECT_TRUE(isAt(0, LyricsColumn::text));
        EXPECT_TRUE(table().hasFocus());
    }
}

TEST_F(LyricsTableViewTest, ArrowsMoveThroughCellsAndCommitAnEdit)
{
    open(songOfLyrics(3));
    goTo(0, LyricsColumn::bar);
    press(Qt::Key_Right);
    EXPECT_TRUE(isAt(0, LyricsColumn::ticks));
    press(Qt::Key_Down);
    EXPECT_TRUE(isAt(1, LyricsColumn::ticks));
    type(QStringLiteral("5"));
    press(Qt::Key_Down);
    EXPECT_EQ(row(1).ticks, 5);
    EXPECT_TRUE(isAt(2, LyricsColumn::ticks));
    type(QStringLiteral("6"));
    press(Qt::Key_Up);
    EXPECT_EQ(row(2).ticks, 6);
    EXPECT_TRUE(isAt(1, LyricsColumn::ticks));
}

TEST_F(LyricsTableViewTest, ReturnInTheLastRowCommitsAndStays)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::text);
    type(QStringLiteral("end"));
    press(Qt::Key_Return);
    EXPECT_EQ(row(0).text, "end");
    EXPECT_TRUE(isAt(0, LyricsColumn::text));
}

TEST_F(LyricsTableViewTest, TabLeavesTheTableAtItsEndsAndWithCtrlAtOnce)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::preview);
    press(Qt::Key_Tab);
    EXPECT_TRUE(isAt(1, LyricsColumn::bar)) << "on to the next row";
    goTo(1, LyricsColumn::preview);
    press(Qt::Key_Tab);
    EXPECT_FALSE(table().hasFocus());
    goTo(0, LyricsColumn::bar);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_FALSE(table().hasFocus());
    goTo(0, LyricsColumn::text);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(table().hasFocus());
}

TEST_F(LyricsTableViewTest, ADoubleClickEditsACell)
{
    open(songOfLyrics(2));
    click(1, LyricsColumn::text);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, middle(1, LyricsColumn::text));
    ASSERT_TRUE(editor());
    type(QStringLiteral("x"));
    click(0, LyricsColumn::text);
    EXPECT_EQ(row(1).text, "x") << "a click elsewhere takes the edit over";
}

TEST_F(LyricsTableViewTest, NumberCellsTakeDigitsAloneAndKeepTheFormerNumberForNone)
{
    open(songOfLyrics(2));
    goTo(1, LyricsColumn::ticks);
    type(QStringLiteral("abc"));
    press(Qt::Key_Return);
    EXPECT_EQ(row(1).ticks, 480);
    goTo(1, LyricsColumn::ticks);
    press(Qt::Key_F2);
    press(Qt::Key_Backspace);
    EXPECT_EQ(editor()->text(), QString());
    press(Qt::Key_Return);
    EXPECT_EQ(row(1).ticks, 480);
    goTo(1, LyricsColumn::ticks);
    type(QStringLiteral("-12x"));
    press(Qt::Key_Return);
    EXPECT_EQ(row(1).ticks, -12);
}

TEST_F(LyricsTableViewTest, ANumberBeyondTheRangeIsHeldAtItsEnd)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::bar);
    type(QStringLiteral("99999999999999999999999"));
    press(Qt::Key_Tab);
    EXPECT_EQ(row(0).bar, std::numeric_limits<std::int64_t>::max());
    type(QStringLiteral("-99999999999999999999999"));
    press(Qt::Key_Tab);
    EXPECT_EQ(row(0).ticks, std::numeric_limits<std::int64_t>::min());
}

TEST_F(LyricsTableViewTest, NumbersStandAtTheRight)
{
    open(songOfLyrics(1));
    const auto alignment = cell(0, LyricsColumn::ticks).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    EXPECT_TRUE(alignment & Qt::AlignRight);
    goTo(0, LyricsColumn::ticks);
    press(Qt::Key_F2);
    EXPECT_TRUE(editor()->alignment() & Qt::AlignRight);
}

TEST_F(LyricsTableViewTest, JapaneseIsTypedThroughAnInputMethodIntoACellThatIsOnlyChosen)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::text);
    compose(QStringLiteral("は"));
    ASSERT_TRUE(editor());
    compose(QStringLiteral("はる"));
    EXPECT_EQ(row(0).text, "0");
    compose(QString(), QStringLiteral("春"));
    compose(QStringLiteral("の"));
    compose(QString(), QStringLiteral("の"));
    EXPECT_EQ(editor()->text(), QStringLiteral("春の"));
    press(Qt::Key_Return);
    EXPECT_EQ(row(0).text, "春の");
    EXPECT_TRUE(isAt(1, LyricsColumn::text));
}

TEST_F(LyricsTableViewTest, OnlyTextCellsTakeAnInputMethod)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::text);
    EXPECT_TRUE(table().testAttribute(Qt::WA_InputMethodEnabled));
    press(Qt::Key_Left);
    EXPECT_FALSE(table().testAttribute(Qt::WA_InputMethodEnabled));
    goTo(0, LyricsColumn::bar);
    EXPECT_FALSE(table().testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_F(LyricsTableViewTest, DigitsOfAnInputMethodAreDigits)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::ticks);
    press(Qt::Key_F2);
    editor()->selectAll();
    compose(QString(), QStringLiteral("１２０"));
    press(Qt::Key_Return);
    EXPECT_EQ(row(0).ticks, 120);
}

TEST_F(LyricsTableViewTest, ATextThatIsLookedAtStaysAsItIs)
{
    open(songOf({metaEvent(0, lyricMeta, "a\r\nb")}));
    goTo(0, LyricsColumn::text);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_EQ(row(0).text, "a\r\nb");
}

TEST_F(LyricsTableViewTest, ACommandIsPickedByClick)
{
    open(songOfLyrics(1));
    click(0, LyricsColumn::command);
    ASSERT_TRUE(menu());
    QStringList labels;
    for (const QAction* const action : menu()->actions())
        labels << action->text();
    EXPECT_EQ(labels.join(QLatin1Char(' ')), QStringLiteral("ADD_HI ADD_LO DEL_HL DEL_HI DEL_LO"));
    EXPECT_TRUE(menu()->actions()[0]->isChecked());
    QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(menu()->actions()[3]).center());
    EXPECT_EQ(row(0).command, LyricsCommand::deleteUpper);
    EXPECT_EQ(row(0).text, "0") << "the text stays for another change of mind";
}

TEST_F(LyricsTableViewTest, ACommandIsPickedByKeys)
{
    open(songOfLyrics(1));
    for (const auto key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_F2}) {
        goTo(0, LyricsColumn::command);
        press(key);
        ASSERT_TRUE(menu());
        QTest::keyClick(menu(), Qt::Key_Down);
        QTest::keyClick(menu(), Qt::Key_Return);
    }
    EXPECT_EQ(row(0).command, LyricsCommand::deleteUpper);
    press(Qt::Key_Return);
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Escape);
    EXPECT_EQ(row(0).command, LyricsCommand::deleteUpper);
}

TEST_F(LyricsTableViewTest, LettersTypedOnACommandOrAButtonDoNothing)
{
    open(songOf({metaEvent(0, lyricMeta, "a"), metaEvent(1, lyricMeta, "$DEL_HI$")}));
    for (const auto column : {LyricsColumn::command, LyricsColumn::preview}) {
        goTo(0, column);
        type(QStringLiteral("d3"));
        EXPECT_TRUE(isAt(0, column));
        EXPECT_TRUE(table().hasFocus());
        EXPECT_EQ(row(0).command, LyricsCommand::addUpper);
    }
}

TEST_F(LyricsTableViewTest, ThePreviewButtonActsOnReleaseInsideItAndKeepsTheSelection)
{
    open(songOfLyrics(3));
    click(0, LyricsColumn::text);
    const auto selected = state().selectedRowIDs;
    plugged.system.forgetSent();
    QTest::mousePress(table().viewport(), Qt::LeftButton, {}, middle(2, LyricsColumn::preview));
    EXPECT_TRUE(plugged.sent().empty());
    QTest::mouseMove(table().viewport(), middle(2, LyricsColumn::text));
    QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, middle(2, LyricsColumn::text));
    EXPECT_TRUE(plugged.sent().empty()) << "let go elsewhere";
    click(2, LyricsColumn::preview);
    EXPECT_THAT(plugged.sent(), ElementsAre(bytes("F0 00 48 05 7F 07 00 03 02 F7")));
    EXPECT_EQ(state().selectedRowIDs, selected);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, middle(2, LyricsColumn::preview));
    QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, middle(2, LyricsColumn::preview));
    EXPECT_EQ(plugged.sent().size(), 2u) << "each of two quick clicks counts";
}

TEST_F(LyricsTableViewTest, ThePreviewButtonActsBySpaceAndReturn)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::preview);
    plugged.system.forgetSent();
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    EXPECT_EQ(plugged.sent().size(), 2u);
}

TEST_F(LyricsTableViewTest, ThePreviewButtonShowsThatItIsHoveredAndHeld)
{
    open(songOfLyrics(1));
    const QRect button = table().visualRect(cell(0, LyricsColumn::preview));
    const auto picture = [&] { return table().viewport()->grab(button).toImage(); };
    const auto comesToDifferFrom = [&](const QImage& former) {
        return QTest::qWaitFor([&] { return picture() != former; });
    };
    // The pointer's own events take their time.
    QTest::mouseMove(table().viewport(), middle(0, LyricsColumn::text));
    QTest::qWait(50);
    const QImage idle = picture();
    QTest::mouseMove(table().viewport(), button.center());
    EXPECT_TRUE(comesToDifferFrom(idle));
    const QImage hovered = picture();
    QTest::mousePress(table().viewport(), Qt::LeftButton, {}, button.center());
    EXPECT_TRUE(comesToDifferFrom(hovered));
    const QImage held = picture();
    QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, button.center());
    EXPECT_TRUE(comesToDifferFrom(held));
}

TEST_F(LyricsTableViewTest, DeleteAndBackspaceRemoveTheSelectedRows)
{
    open(songOfLyrics(5));
    click(0, LyricsColumn::text);
    click(1, LyricsColumn::text, Qt::ShiftModifier);
    click(3, LyricsColumn::text, Qt::ControlModifier);
    EXPECT_EQ(state().selectedRowIDs, (QSet<LyricsRowID>{id(0), id(1), id(3)}));
    press(Qt::Key_Delete);
    EXPECT_THAT(texts(), ElementsAre("2", "4"));
    EXPECT_TRUE(state().selectedRowIDs.isEmpty());
    EXPECT_FALSE(table().selectionModel()->hasSelection());
    press(Qt::Key_Delete);
    EXPECT_EQ(status(), QStringLiteral("削除する歌詞行が選択されていません。"));
    click(1, LyricsColumn::text);
    press(Qt::Key_Backspace);
    EXPECT_THAT(texts(), ElementsAre("2"));
}

TEST_F(LyricsTableViewTest, InACellThatIsEditedTheDeleteKeysAreForItsText)
{
    open(songOf({metaEvent(0, lyricMeta, "abc")}));
    goTo(0, LyricsColumn::text);
    press(Qt::Key_F2);
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    EXPECT_THAT(texts(), ElementsAre("b"));
}

TEST_F(LyricsTableViewTest, DeleteKeysWithModifiersDeleteNoRowsWhetherACellIsEditedOrNot)
{
    open(songOfLyrics(3));
    for (const bool isEdited : {false, true}) {
        goTo(1, LyricsColumn::text);
        if (isEdited) type(QStringLiteral("typed"));
        ASSERT_EQ(editor() != nullptr, isEdited);
        for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace})
            for (const auto modifiers : {Qt::ControlModifier | Qt::ShiftModifier, Qt::AltModifier | Qt::NoModifier,
                                         Qt::MetaModifier | Qt::NoModifier, Qt::ControlModifier | Qt::AltModifier})
                press(key, modifiers);
        ASSERT_EQ(state().rows.size(), 3u);
        EXPECT_EQ(editor() != nullptr, isEdited);
    }
}

TEST_F(LyricsTableViewTest, TheKeypadsKeysInsertAndDelete)
{
    open(songOfLyrics(2));
    goTo(1, LyricsColumn::text);
    press(Qt::Key_Insert, Qt::KeypadModifier);
    EXPECT_THAT(texts(), ElementsAre("0", "1", ""));
    press(Qt::Key_Delete, Qt::KeypadModifier);
    EXPECT_THAT(texts(), ElementsAre("0", "1"));
}

TEST_F(LyricsTableViewTest, InsertTakesOverWhatIsBeingTyped)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::text);
    type(QStringLiteral("typed"));
    press(Qt::Key_Insert);
    EXPECT_FALSE(editor());
    EXPECT_THAT(texts(), ElementsAre("typed", "", "1"));
}

TEST_F(LyricsTableViewTest, CopyTakesTheCellsWholeText)
{
    const std::string text = "a\r\n" + std::string(600, 'b');
    open(songOf({metaEvent(0, lyricMeta, "$ADD_LO$" + text)}));
    goTo(0, LyricsColumn::text);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
    goTo(0, LyricsColumn::command);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("ADD_LO"));
}

TEST_F(LyricsTableViewTest, ArrowsWithShiftAndCtrlAChooseManyRows)
{
    open(songOfLyrics(4));
    goTo(1, LyricsColumn::text);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(state().selectedRowIDs, (QSet<LyricsRowID>{id(1), id(2)}));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(state().selectedRowIDs.size(), 4);
}

TEST_F(LyricsTableViewTest, AfterAnInsertionTheNewRowsAreSelectedAndTheFirstIsTheCurrent)
{
    open(songOfLyrics(6));
    click(1, LyricsColumn::text);
    click(4, LyricsColumn::text, Qt::ControlModifier);
    actions().insert();
    EXPECT_TRUE(table().selectionModel()->isRowSelected(2));
    EXPECT_TRUE(table().selectionModel()->isRowSelected(6));
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), 2);
    EXPECT_TRUE(isAt(2, LyricsColumn::text));
    EXPECT_EQ(state().selectedRowIDs, (QSet<LyricsRowID>{id(2), id(6)}));
}

TEST_F(LyricsTableViewTest, OpeningAnotherSongKeepsTheSelectionOfOldRowsToItself)
{
    open(songOfLyrics(3));
    click(1, LyricsColumn::text);
    const auto old = state().selectedRowIDs;
    open(songOfLyrics(3));
    EXPECT_EQ(state().selectedRowIDs, old);
    EXPECT_FALSE(table().selectionModel()->hasSelection());
    click(0, LyricsColumn::text);
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(0)});
}

TEST_F(LyricsTableViewTest, TwentyThousandRowsNeedNoWidgetsAndTakeChangesEverywhere)
{
    open(songOfLyrics(20'000));
    table().scrollToBottom();
    QCoreApplication::processEvents();
    EXPECT_LT(table().findChildren<QWidget*>().size(), 30);
    goTo(0, LyricsColumn::text);
    press(Qt::Key_A, Qt::ControlModifier);
    actions().insert();
    EXPECT_EQ(state().rows.size(), 40'000u);
    EXPECT_EQ(state().selectedRowIDs.size(), 20'000);
    EXPECT_TRUE(table().selectionModel()->isRowSelected(39'999));
    EXPECT_TRUE(isAt(1, LyricsColumn::text));
    press(Qt::Key_Delete);
    EXPECT_EQ(state().rows.size(), 20'000u);
    EXPECT_EQ(row(19'999).text, "19999");
    EXPECT_TRUE(isAt(1, LyricsColumn::text));
    press(Qt::Key_Down);
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(2)});
}

TEST_F(LyricsTableViewTest, ARowDeletedByItsMenuLeavesTheViewWhereItIs)
{
    open(songOfLyrics(20'000));
    goTo(0, LyricsColumn::text);
    table().scrollToBottom();
    const int before = table().verticalScrollBar()->value();
    const QPoint position = middle(19'990, LyricsColumn::text);
    QTest::mousePress(table().viewport(), Qt::RightButton, {}, position);
    actions().deleteRow(id(19'990));
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(0)});
    EXPECT_TRUE(table().selectionModel()->isRowSelected(0));
    EXPECT_NEAR(table().verticalScrollBar()->value(), before, table().rowHeight(0));
    EXPECT_NEAR(table().currentIndex().row(), 19'990, 1);
}

TEST_F(LyricsTableViewTest, TheToolTipOfALongTextIsWhole)
{
    const std::string longText(600, 'x');
    open(songOf({metaEvent(0, lyricMeta, longText), metaEvent(1, lyricMeta, "short")}));
    const auto toolTipAt = [&](int row) {
        const QPoint position = middle(row, LyricsColumn::text);
        QHelpEvent event(QEvent::ToolTip, position, table().viewport()->mapToGlobal(position));
        QApplication::sendEvent(table().viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(toolTipAt(1), QString());
    EXPECT_TRUE(toolTipAt(0).contains(QString::fromStdString(longText)));
}

TEST_F(LyricsTableViewTest, ALongTextIsDrawnWithAnEllipsisAtItsEnd)
{
    const std::string longText(300, 'x');
    open(songOf({metaEvent(0, lyricMeta, longText), metaEvent(1, lyricMeta, "-"), metaEvent(2, lyricMeta, "-")}));
    const auto picture = [&](int row) {
        return table().viewport()->grab(table().visualRect(cell(row, LyricsColumn::text))).toImage();
    };
    const int room = table().columnWidth(static_cast<int>(LyricsColumn::text)) - 2 * lyricsCellMargin;
    const QString elided = table().fontMetrics().elidedText(QString::fromStdString(longText), Qt::ElideRight, room);
    ASSERT_TRUE(elided.endsWith(QChar(0x2026)));
    actions().table().setData(cell(2, LyricsColumn::text), elided, Qt::EditRole);
    EXPECT_TRUE(picture(2) == picture(0));
    actions().table().setData(cell(2, LyricsColumn::text), elided.chopped(1), Qt::EditRole);
    EXPECT_FALSE(picture(2) == picture(0));
}

TEST_F(LyricsTableViewTest, AScreenReaderIsToldWhatAPreviewButtonPlaysAndHowItIsPressed)
{
    open(songOf({metaEvent(0, lyricMeta, "$ADD_LO$lo"), metaEvent(1, lyricMeta, "la")}));
    const auto cellAt = [&](int row, LyricsColumn column) {
        QAccessibleInterface* const whole = QAccessible::queryAccessibleInterface(&table());
        return whole->tableInterface()->cellAt(row, static_cast<int>(column));
    };
    EXPECT_EQ(cellAt(0, LyricsColumn::preview)->text(QAccessible::Name), QStringLiteral("プレビュー、ADD_LO、lo"));
    EXPECT_EQ(cellAt(1, LyricsColumn::preview)->text(QAccessible::Name), QStringLiteral("プレビュー、ADD_HI、la"));
    EXPECT_EQ(cellAt(0, LyricsColumn::preview)->text(QAccessible::Description), QStringLiteral("スペースキーで実行"));
    EXPECT_EQ(cellAt(0, LyricsColumn::command)->text(QAccessible::Name), QStringLiteral("ADD_LO"));
    EXPECT_EQ(cellAt(0, LyricsColumn::command)->text(QAccessible::Description), QStringLiteral("スペースキーで選択"));
}

TEST_F(LyricsTableViewTest, TheTextTakesTheRoomThatTheOthersLeave)
{
    open(songOfLyrics(1));
    const int before = table().columnWidth(static_cast<int>(LyricsColumn::text));
    window.resize(1'100, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(table().columnWidth(static_cast<int>(LyricsColumn::text)), before + 200);
    EXPECT_FALSE(table().horizontalScrollBar()->isVisible());
}

} // namespace
} // namespace orvim
