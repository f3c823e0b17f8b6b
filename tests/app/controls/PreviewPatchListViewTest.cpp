#include "controls/PreviewPatchListView.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace orvim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PreviewPatchListViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QStringList rows;
        for (int row = 0; row < 128; ++row)
            rows << QStringLiteral("%1:Row").arg(row + 1, 3, 10, QLatin1Char('0'));
        list->setItems(rows);
        list->setSelectedIndex(0);
        QObject::connect(list, &PreviewPatchListView::rowSelected, list, [this](int row) { note("select", row); });
        QObject::connect(list, &PreviewPatchListView::rowReached, list, [this](int row) { note("reach", row); });
        QObject::connect(list, &PreviewPatchListView::rowPressed, list, [this](int row) { note("press", row); });
        QObject::connect(list, &PreviewPatchListView::rowReleased, list, [this] { told.emplace_back("release"); });
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(list);
        layout->addWidget(field);
        window.resize(240, 300);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void note(const char* what, int row) { told.push_back(std::string(what) + " " + std::to_string(row)); }
    QPoint middleOf(int row) const { return list->visualRect(list->model()->index(row, 0)).center(); }
    void sendSpaceBar(QEvent::Type type, quint64 time, bool isMarkedRepetition = false)
    {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), isMarkedRepetition);
        event.setTimestamp(time);
        QApplication::sendEvent(list, &event);
    }
    void pressRow(int row) { QTest::mousePress(list->viewport(), Qt::LeftButton, {}, middleOf(row)); }
    void releaseRow(int row) { QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, middleOf(row)); }

    std::vector<std::string> told;
    QWidget window;
    PreviewPatchListView* list = new PreviewPatchListView;
    QLineEdit* field = new QLineEdit;
};

TEST_F(PreviewPatchListViewTest, APressChoosesTheRowAndHoldsItUntilTheRelease)
{
    pressRow(3);
    EXPECT_EQ(list->pressedIndex(), 3);
    releaseRow(3);
    EXPECT_THAT(told, ElementsAre("select 3", "press 3", "release"));
    EXPECT_EQ(list->pressedIndex(), std::nullopt);
}

TEST_F(PreviewPatchListViewTest, AClickWithAModifierKeyKeepsTheMark)
{
    for (const auto modifier : {Qt::ControlModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifier, middleOf(3));
        EXPECT_TRUE(list->selectionModel()->isSelected(list->model()->index(3, 0)));
        EXPECT_EQ(list->selectionModel()->selectedIndexes().size(), 1);
    }
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_TRUE(list->selectionModel()->isSelected(list->model()->index(list->selectedIndex(), 0)));
}

TEST_F(PreviewPatchListViewTest, TheProgramMarksAgainARowThatLostItsMark)
{
    list->setSelectedIndex(7);
    list->clearSelection();
    list->setSelectedIndex(7);
    EXPECT_TRUE(list->selectionModel()->isSelected(list->model()->index(7, 0)));
}

TEST_F(PreviewPatchListViewTest, ADragOverOtherRowsKeepsTheFirst)
{
    pressRow(2);
    QTest::mouseMove(list->viewport(), middleOf(5));
    releaseRow(5);
    EXPECT_THAT(told, ElementsAre("select 2", "press 2", "release"));
    EXPECT_EQ(list->selectedIndex(), 2);
}

TEST_F(PreviewPatchListViewTest, ArrowsChooseAndTheSpaceBarPlays)
{
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyPress(list, Qt::Key_Space);
    EXPECT_EQ(list->pressedIndex(), 1);
    QTest::keyRelease(list, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !list->pressedIndex(); }));
    EXPECT_THAT(told, ElementsAre("select 1", "reach 1", "press 1", "release"));
}

TEST_F(PreviewPatchListViewTest, ASpaceBarHeldDownPlaysOnce)
{
    list->setFocus();
    sendSpaceBar(QEvent::KeyPress, 1000);
    for (const quint64 time : {1500, 1530, 1560}) {
        // Some repetitions bear the mark of one, some do not.
        const bool isMarked = time != 1530;
        sendSpaceBar(QEvent::KeyRelease, time, isMarked);
        sendSpaceBar(QEvent::KeyPress, time, isMarked);
    }
    EXPECT_THAT(told, ElementsAre("press 0"));
    sendSpaceBar(QEvent::KeyRelease, 1580);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !list->pressedIndex(); }));
    EXPECT_THAT(told, ElementsAre("press 0", "release"));
}

TEST_F(PreviewPatchListViewTest, ASpaceBarStruckAgainAtOncePlaysAgain)
{
    list->setFocus();
    sendSpaceBar(QEvent::KeyPress, 1000);
    sendSpaceBar(QEvent::KeyRelease, 1009);
    sendSpaceBar(QEvent::KeyPress, 1010);
    EXPECT_THAT(told, ElementsAre("press 0", "release", "press 0"));
}

TEST_F(PreviewPatchListViewTest, ThePointerTakesOverFromTheSpaceBarWhoseReleaseThenDoesNothing)
{
    list->setSelectedIndex(2);
    list->setFocus();
    QTest::keyPress(list, Qt::Key_Space);
    pressRow(5);
    QTest::keyRelease(list, Qt::Key_Space);
    EXPECT_EQ(list->pressedIndex(), 5);
    EXPECT_THAT(told, ElementsAre("press 2", "select 5", "release", "press 5"));
    releaseRow(5);
    EXPECT_EQ(told.back(), "release");
    EXPECT_EQ(list->pressedIndex(), std::nullopt);
}

TEST_F(PreviewPatchListViewTest, TheSpaceBarDoesNothingWhileThePointerHoldsARow)
{
    pressRow(5);
    told.clear();
    QTest::keyPress(list, Qt::Key_Space);
    QTest::keyRelease(list, Qt::Key_Space);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(list->pressedIndex(), 5);
    releaseRow(5);
}

TEST_F(PreviewPatchListViewTest, TheHeldRowIsMarkedOnAnyThemeSelectedOrNot)
{
    list->setFocus();
    for (const QColor& ground : {QColor(Qt::white), QColor(0x20, 0x20, 0x20)}) {
        QPalette colors = list->palette();
        colors.setColor(QPalette::Base, ground);
        colors.setColor(QPalette::Highlight, QColor(0x1C, 0x71, 0xD8));
        colors.setColor(QPalette::HighlightedText, Qt::white);
        list->setPalette(colors);
        list->setSelectedIndex(2);
        QTest::keyPress(list, Qt::Key_Space);
        const auto markColor = [this] { return list->viewport()->grab().toImage().pixelColor(1, middleOf(2).y()); };
        EXPECT_EQ(markColor(), QColor(Qt::white));
        QTest::keyClick(list, Qt::Key_Down);
        ASSERT_EQ(list->pressedIndex(), 2);
        // The tint of the same colour over the mark of that colour leaves it as it is.
        EXPECT_EQ(markColor(), QColor(0x1C, 0x71, 0xD8));
        QTest::keyRelease(list, Qt::Key_Space);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !list->pressedIndex(); }));
    }
}

TEST_F(PreviewPatchListViewTest, RowsGrowWithTheFont)
{
    EXPECT_EQ(list->visualRect(list->model()->index(0, 0)).height(), list->rowHeight());
    QFont large = list->font();
    large.setPixelSize(40);
    list->setFont(large);
    QCoreApplication::processEvents();
    EXPECT_GE(list->rowHeight(), list->fontMetrics().height());
    EXPECT_EQ(list->visualRect(list->model()->index(0, 0)).height(), list->rowHeight());
}

TEST_F(PreviewPatchListViewTest, TheMarkedRowStaysInSightInALowerWindow)
{
    list->setSelectedIndex(list->indexAt({5, list->viewport()->height() - 3}).row());
    window.resize(240, 160);
    QCoreApplication::processEvents();
    EXPECT_TRUE(list->viewport()->rect().contains(middleOf(list->selectedIndex())));
}

TEST_F(PreviewPatchListViewTest, LosingTheFocusOrBeingHiddenLetsTheRowGo)
{
    list->setFocus();
    QTest::keyPress(list, Qt::Key_Space);
    field->setFocus();
    EXPECT_EQ(told.back(), "release");
    pressRow(1);
    told.clear();
    list->hide();
    EXPECT_THAT(told, ElementsAre("release"));
    list->show();
    releaseRow(1);
    EXPECT_THAT(told, ElementsAre("release"));
}

TEST_F(PreviewPatchListViewTest, TheProgramsSelectionIsSilentAndScrolledIntoView)
{
    list->setSelectedIndex(120);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_TRUE(list->viewport()->rect().contains(middleOf(120)));
    list->setSelectedIndex(500);
    EXPECT_EQ(list->selectedIndex(), 120);
}

TEST_F(PreviewPatchListViewTest, ARenamedRowKeepsTheSelectionAndThePlace)
{
    list->setSelectedIndex(90);
    const int top = list->indexAt({5, 5}).row();
    QStringList rows = list->items();
    rows[90] = QStringLiteral("091:Bell");
    list->setItems(rows);
    EXPECT_EQ(list->selectedIndex(), 90);
    EXPECT_EQ(list->indexAt({5, 5}).row(), top);
    EXPECT_EQ(list->items()[90], QStringLiteral("091:Bell"));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(PreviewPatchListViewTest, OtherButtonsAndEmptyGroundPlayNothing)
{
    QTest::mouseClick(list->viewport(), Qt::RightButton, {}, middleOf(2));
    list->setItems({QStringLiteral("only")});
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, {20, 200});
    EXPECT_THAT(told, IsEmpty());
}

} // namespace
} // namespace orvim
