// The list by keyboard: where the focus goes, stays and is seen, and what the keys do.

#include "tests/app/support/TransferPageTest.h"

#include <QComboBox>
#include <QMenu>
#include <QScrollBar>
#include <QWindow>

namespace orvim {
namespace {

class TransferListViewTest : public test::ImageTransferPageTest
{
protected:
    /// As the keyboard gives it, to whatever has the focus.
    void type(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }

    void focus(QWidget& widget)
    {
        widget.setFocus();
        ASSERT_TRUE(widget.hasFocus());
    }

    bool isInView(QWidget& button)
    {
        QWidget& viewport = *list().viewport();
        return viewport.rect().contains(QRect(button.mapTo(&viewport, QPoint()), button.size()));
    }

    /// Walks with Tab from the list through as many buttons to what follows the page, and back with Shift.
    void expectTabOrder(int rows)
    {
        auto& next = *window.findChild<QComboBox*>(QStringLiteral("destinationPicker"));
        focus(list());
        for (int row = 0; row < rows; ++row) {
            type(Qt::Key_Tab);
            EXPECT_TRUE(buttonAt(row).hasFocus()) << row;
        }
        type(Qt::Key_Tab);
        EXPECT_TRUE(next.hasFocus());
        for (int row = rows - 1; row >= 0; --row) {
            type(Qt::Key_Backtab, Qt::ShiftModifier);
            EXPECT_TRUE(buttonAt(row).hasFocus()) << row;
        }
        type(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(list().hasFocus());
        type(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(toolbarButton("square.and.arrow.down").hasFocus());
    }

    void deleteByMenuOf(QWidget& focused)
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(&focused, &event);
        auto* const menu = list().findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        delete menu;
    }

    /// The list has the focus and that current row, and the arrow keys work in it.
    void expectToBeAt(int row)
    {
        EXPECT_TRUE(list().hasFocus());
        EXPECT_EQ(list().currentRow(), row);
        type(Qt::Key_Up);
        type(Qt::Key_Down);
        EXPECT_TRUE(list().hasFocus());
        EXPECT_EQ(plugged.runtime.selectedPage(), EditorPage::imageTransfer);
    }

    void clear()
    {
        dialogs.answer = true;
        type(Qt::Key_N, Qt::ControlModifier);
        EXPECT_EQ(list().count(), 0);
    }

    void restore()
    {
        dialogs.pathToOpen = exportTo(QStringLiteral("out.mid"));
        dialogs.answer = true;
        actions().restoreFromMIDI();
        EXPECT_EQ(status(), QStringLiteral("MIDIファイルから画像をインポートしました。"));
    }

    bool isShown(int row)
    {
        return plugged.screen().arbitraryImageRGB == items().at(static_cast<std::size_t>(row)).rgb888;
    }
};

TEST_F(TransferListViewTest, TabGoesFromTheListThroughTheButtonsOfTheRowsToWhatFollowsThePage)
{
    addPictures(3);
    expectTabOrder(3);
}

TEST_F(TransferListViewTest, TabFollowsTheRowsAlsoAfterDeletionsAdditionsAndARestore)
{
    addPictures(4);
    actions().deleteOne(items()[1].id);
    expectTabOrder(3);
    addPictures(2);
    expectTabOrder(5);
    actions().deleteOne(items()[0].id);
    expectTabOrder(4);
    restore();
    expectTabOrder(4);
    clear();
    expectTabOrder(0);
    addPictures(2);
    expectTabOrder(2);
}

TEST_F(TransferListViewTest, AButtonThatIsReachedByTabIsScrolledIntoView)
{
    addPictures(32);
    focus(list());
    EXPECT_FALSE(isInView(buttonAt(31)));
    for (int row = 0; row < 32; ++row) {
        type(Qt::Key_Tab);
        EXPECT_TRUE(buttonAt(row).hasFocus()) << row;
        EXPECT_TRUE(isInView(buttonAt(row))) << row;
    }
    for (int row = 30; row >= 0; --row) {
        type(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(buttonAt(row).hasFocus()) << row;
        EXPECT_TRUE(isInView(buttonAt(row))) << row;
    }
}

TEST_F(TransferListViewTest, AButtonAtTheEdgeStaysUnderThePointerThatPressesIt)
{
    addPictures(32);
    QScrollBar& bar = *list().verticalScrollBar();
    const QRect button(buttonAt(20).mapTo(list().viewport(), QPoint()), buttonAt(20).size());
    bar.setValue(button.center().y() - list().viewport()->height());
    const int before = bar.value();
    ASSERT_FALSE(isInView(buttonAt(20)));
    QTest::mouseClick(&buttonAt(20), Qt::LeftButton, {}, QPoint(5, 2));
    EXPECT_EQ(bar.value(), before);
    EXPECT_TRUE(buttonAt(20).hasFocus());
    EXPECT_TRUE(isShown(20));
}

TEST_F(TransferListViewTest, ARowDeletedByTheMenuOfItsButtonLeavesTheFocusToTheRowInItsPlace)
{
    addPictures(4);
    focus(buttonAt(1));
    deleteByMenuOf(buttonAt(1));
    EXPECT_EQ(list().count(), 3);
    expectToBeAt(1);
    focus(buttonAt(2));
    deleteByMenuOf(buttonAt(2));
    EXPECT_EQ(list().count(), 2);
    expectToBeAt(1);
}

TEST_F(TransferListViewTest, RowsDeletedByKeyWhileOneOfTheirButtonsHasTheFocusLeaveItInTheList)
{
    addPictures(5);
    for (const int row : {1, 2, 3})
        list().item(row)->setSelected(true);
    focus(buttonAt(2));
    type(Qt::Key_Delete);
    EXPECT_EQ(list().count(), 2);
    expectToBeAt(1);
}

TEST_F(TransferListViewTest, TheCurrentRowGivesItsPlaceToTheNext)
{
    addPictures(4);
    focus(list());
    list().setCurrentRow(1);
    const QUuid next = items()[2].id;
    type(Qt::Key_Delete);
    expectToBeAt(1);
    EXPECT_EQ(items()[1].id, next);
}

TEST_F(TransferListViewTest, AButtonKeepsTheFocusWhenAnotherRowGoesOrComes)
{
    addPictures(4);
    list().setCurrentRow(0);
    focus(buttonAt(2));
    const QPushButton& button = buttonAt(2);
    type(Qt::Key_Backspace);
    EXPECT_EQ(list().count(), 3);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_EQ(&button, &buttonAt(1));
    addPictures(1);
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(TransferListViewTest, RowsKeepTheirPlaceInTheViewWhenOneOfThemGoes)
{
    addPictures(32);
    list().setCurrentRow(0);
    QScrollBar& bar = *list().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int before = bar.value();
    actions().deleteOne(items()[31].id);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar.value(), before);
    EXPECT_EQ(list().currentRow(), 0);
}

TEST_F(TransferListViewTest, AClearedListKeepsTheFocusOfItsButtons)
{
    addPictures(3);
    focus(buttonAt(1));
    clear();
    expectToBeAt(-1);
    addPictures(1);
    EXPECT_EQ(list().currentRow(), 0);
}

TEST_F(TransferListViewTest, ARestoredListKeepsTheFocusOfItsButtons)
{
    addPictures(3);
    focus(buttonAt(1));
    restore();
    expectToBeAt(0);
}

TEST_F(TransferListViewTest, TheFocusStaysInTheListAlsoWhereTheRowsGoBehindAnotherWindow)
{
    addPictures(3);
    focus(buttonAt(1));
    QWidget question;
    question.show();
    question.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&question));
    actions().deleteOne(items()[1].id);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    question.close();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    expectToBeAt(1);
}

TEST_F(TransferListViewTest, EnterShowsTheCurrentRowOnTheModule)
{
    addPictures(3);
    focus(list());
    list().setCurrentRow(2);
    type(Qt::Key_Return);
    EXPECT_TRUE(isShown(2));
    type(Qt::Key_Up);
    type(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_TRUE(isShown(1));
}

TEST_F(TransferListViewTest, EnterOnAButtonShowsItsRowWhateverTheCurrentOne)
{
    addPictures(3);
    list().setCurrentRow(0);
    focus(buttonAt(2));
    type(Qt::Key_Return);
    EXPECT_TRUE(isShown(2));
}

TEST_F(TransferListViewTest, EnterSendsNothingWhereItIsHeldDownOrComesWithControlOrFindsNoRow)
{
    focus(list());
    type(Qt::Key_Return);
    addPictures(1);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&list(), &repeated);
    type(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(TransferListViewTest, SpaceSelectsTheCurrentRowAndSendsNothing)
{
    addPictures(2);
    focus(list());
    list().setCurrentRow(1, QItemSelectionModel::NoUpdate);
    type(Qt::Key_Space);
    EXPECT_TRUE(list().item(1)->isSelected());
    EXPECT_TRUE(plugged.sent().empty());
}

} // namespace
} // namespace orvim
