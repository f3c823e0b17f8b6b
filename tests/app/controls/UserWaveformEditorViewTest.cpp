#include "controls/UserWaveformEditorView.h"

#include "controls/UserWaveformNSView.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace orvim {
namespace {

using tonavelle::UserWaveform;

class UserWaveformEditorViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        view.resize(2'048, 257); // one sample a pixel
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
        view.setSamples(UserWaveform(2'048, 1));
        QObject::connect(&view, &UserWaveformEditorView::edited, &view,
                         [this](const UserWaveform& samples) { edits.push_back(samples); });
        surface = view.findChild<UserWaveformNSView*>();
        ASSERT_EQ(surface->width(), 2'048);
    }

    void press(int x, int y) { QTest::mousePress(surface, Qt::LeftButton, {}, {x, y}); }
    void release(int x, int y) { QTest::mouseRelease(surface, Qt::LeftButton, {}, {x, y}); }
    void drag(QPointF point)
    {
        QMouseEvent event(QEvent::MouseMove, point, surface->mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(surface, &event);
    }

    std::vector<UserWaveform> edits;
    UserWaveformEditorView view;
    UserWaveformNSView* surface = nullptr;
};

TEST_F(UserWaveformEditorViewTest, AClickWritesOneSampleAndEndsOnce)
{
    press(1'000, 0);
    EXPECT_TRUE(surface->isEditing());
    release(1'000, 0);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0][1'000], 32'767);
    EXPECT_EQ(edits[0][999], 1);
    EXPECT_EQ(edits[0][1'001], 1);
}

TEST_F(UserWaveformEditorViewTest, ADragLeavesNoGaps)
{
    press(100, 0);
    drag({90, 256});
    release(90, 256);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0][100], 32'767);
    EXPECT_EQ(edits[0][90], -32'768);
    EXPECT_EQ(edits[0][89], 1);
    EXPECT_EQ(edits[0][101], 1);
    for (std::size_t i = 91; i <= 100; ++i)
        EXPECT_GT(edits[0][i], edits[0][i - 1]);
}

TEST_F(UserWaveformEditorViewTest, LeavingTheSurfaceEndsTheEditAndTheReleaseDoesNothing)
{
    press(10, 100);
    drag({10, 300});
    EXPECT_EQ(edits.size(), 1U);
    EXPECT_FALSE(surface->isEditing());
    drag({50, 100});
    release(50, 100);
    EXPECT_EQ(edits.size(), 1U);
    EXPECT_EQ(view.samples()[50], 1);
}

TEST_F(UserWaveformEditorViewTest, TheProgramsSamplesAreSilentAndTheSameAgainLeaveAStroke)
{
    view.setSamples(UserWaveform(2'048, 5));
    EXPECT_TRUE(edits.empty());
    press(10, 0);
    view.setSamples(UserWaveform(2'048, 5));
    EXPECT_EQ(view.samples()[10], 32'767);
    release(10, 0);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0][10], 32'767);
}

TEST_F(UserWaveformEditorViewTest, OtherSamplesOfTheProgramGiveAStrokeUp)
{
    press(10, 0);
    view.setSamples(UserWaveform(2'048, 9));
    EXPECT_FALSE(surface->isEditing());
    drag({20, 0});
    release(20, 0);
    EXPECT_TRUE(edits.empty());
    EXPECT_EQ(view.samples(), UserWaveform(2'048, 9));
}

TEST_F(UserWaveformEditorViewTest, LosingTheFocusOrTheReleaseEndsTheStroke)
{
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    press(10, 0);
    surface->clearFocus();
    EXPECT_EQ(edits.size(), 1U);
    EXPECT_FALSE(surface->isEditing());
    press(20, 0);
    QMouseEvent event(QEvent::MouseMove, QPointF(30, 0), surface->mapToGlobal(QPoint(30, 0)), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(surface, &event);
    EXPECT_EQ(edits.size(), 2U);
    EXPECT_EQ(view.samples()[30], 1);
}

TEST_F(UserWaveformEditorViewTest, APressAfterALostReleaseStartsAStrokeOfItsOwn)
{
    press(10, 0);
    press(30, 0);
    release(30, 0);
    ASSERT_EQ(edits.size(), 2U);
    EXPECT_EQ(edits[1][20], 1);
}

TEST_F(UserWaveformEditorViewTest, TheSurfaceEndsAtItsEdgeOnAFinerDisplayToo)
{
    press(2'000, 100);
    drag({2'047.5, 100});
    drag({2'000, 256.5});
    EXPECT_TRUE(edits.empty());
    drag({2'000, 257});
    EXPECT_EQ(edits.size(), 1U);
    press(10, 100);
    drag({-0.1, 100});
    EXPECT_EQ(edits.size(), 2U);
}

TEST_F(UserWaveformEditorViewTest, AWaveformThatIsNotWholeIsNotDrawnOn)
{
    view.setSamples(UserWaveform(100, 5));
    press(10, 100);
    release(10, 100);
    EXPECT_EQ(view.samples(), UserWaveform(100, 5));
    QTest::keyClick(surface, Qt::Key_Up);
    EXPECT_EQ(view.samples(), UserWaveform(100, 5));
}

TEST_F(UserWaveformEditorViewTest, KeysChooseASampleAndChangeIt)
{
    surface->setFocus();
    QTest::keyClick(surface, Qt::Key_Right);
    QTest::keyClick(surface, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(surface, Qt::Key_Up);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0][65], 257);
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(surface, Qt::Key_PageDown);
    EXPECT_EQ(edits.back()[65], -32'768);
    EXPECT_TRUE(surface->accessibleDescription().contains(QStringLiteral("-32768")));
    EXPECT_EQ(surface->accessibleName(), QStringLiteral("波形エディタ"));
}

} // namespace
} // namespace orvim
