#include "controls/ToneKeyboardGeometry.h"
#include "controls/ToneKeyboardNSView.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace orvim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ToneKeyboardGeometry::blackKeyX;
using ToneKeyboardGeometry::noteAt;
using ToneKeyboardGeometry::whiteNote;

TEST(ToneKeyboardGeometry, HasSeventyFiveWhiteKeysUpToNote127)
{
    EXPECT_EQ(whiteNote(0), 0);
    EXPECT_EQ(whiteNote(6), 11);
    EXPECT_EQ(whiteNote(7), 12);
    EXPECT_EQ(whiteNote(35), 60);
    EXPECT_EQ(whiteNote(74), 127);
}

TEST(ToneKeyboardGeometry, PutsTheBlackKeysAtTheirPlaces)
{
    EXPECT_EQ(blackKeyX(0), std::nullopt);
    EXPECT_EQ(blackKeyX(1), 6);
    EXPECT_EQ(blackKeyX(3), 15);
    EXPECT_EQ(blackKeyX(6), 33);
    EXPECT_EQ(blackKeyX(8), 42);
    EXPECT_EQ(blackKeyX(10), 51);
    EXPECT_EQ(blackKeyX(13), 69);
    EXPECT_EQ(blackKeyX(126), 663);
}

TEST(ToneKeyboardGeometry, TheTopOfABlackKeyIsItsNoteAndSixteenLowerIsTheWhiteKey)
{
    EXPECT_EQ(noteAt(6, 0), 1);
    EXPECT_EQ(noteAt(6, 16), 0);
    EXPECT_EQ(noteAt(6, 15.9), 1);
}

TEST(ToneKeyboardGeometry, EdgesAreHalfOpen)
{
    EXPECT_EQ(noteAt(5.9, 0), 0);
    EXPECT_EQ(noteAt(12, 0), 2);
    EXPECT_EQ(noteAt(11.9, 0), 1);
    EXPECT_EQ(noteAt(9, 20), 2);
    EXPECT_EQ(noteAt(674.9, 23.9), 127);
    EXPECT_EQ(noteAt(675, 10), std::nullopt);
    EXPECT_EQ(noteAt(10, 24), std::nullopt);
    EXPECT_EQ(noteAt(-0.1, 10), std::nullopt);
    EXPECT_EQ(noteAt(10, -0.1), std::nullopt);
}

TEST(ToneKeyboardGeometry, FindsTheWhiteKeyAtOrLeftOfANote)
{
    for (int key = 0; key < ToneKeyboardGeometry::whiteKeyCount; ++key)
        EXPECT_EQ(ToneKeyboardGeometry::whiteKeyOf(whiteNote(key)), key);
    EXPECT_EQ(ToneKeyboardGeometry::whiteKeyOf(61), 35);
}

class ToneKeyboardNSViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(keyboard);
        layout->addWidget(field);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void press(int x, int y) { QTest::mousePress(keyboard, Qt::LeftButton, {}, {x, y}); }
    void drag(QPoint point)
    {
        QMouseEvent event(QEvent::MouseMove, point, keyboard->mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(keyboard, &event);
    }
    void release(int x, int y) { QTest::mouseRelease(keyboard, Qt::LeftButton, {}, {x, y}); }

    std::vector<std::string> played;
    QWidget window;
    ToneKeyboardNSView* keyboard = new ToneKeyboardNSView(
        [this](int channel, int note) {
            played.push_back("on " + std::to_string(channel) + " " + std::to_string(note));
        },
        [this](int channel, int note) {
            played.push_back("off " + std::to_string(channel) + " " + std::to_string(note));
        });
    QLineEdit* field = new QLineEdit;
};

TEST_F(ToneKeyboardNSViewTest, APressPlaysUntilTheRelease)
{
    press(4, 20);
    EXPECT_EQ(keyboard->activeNote(), 0);
    EXPECT_TRUE(keyboard->hasFocus());
    release(4, 20);
    EXPECT_THAT(played, ElementsAre("on 0 0", "off 0 0"));
    EXPECT_EQ(keyboard->activeNote(), std::nullopt);
}

TEST_F(ToneKeyboardNSViewTest, ADragOverTheKeysIsAGlissando)
{
    press(4, 20);
    drag({5, 20});
    drag({13, 20});
    drag({22, 20});
    release(22, 20);
    EXPECT_THAT(played, ElementsAre("on 0 0", "off 0 0", "on 0 2", "off 0 2", "on 0 4", "off 0 4"));
}

TEST_F(ToneKeyboardNSViewTest, DraggingOffEndsTheNoteAndDraggingBackStartsANewOne)
{
    press(4, 20);
    drag({4, 24});
    EXPECT_THAT(played, ElementsAre("on 0 0", "off 0 0"));
    drag({4, 40});
    EXPECT_EQ(played.size(), 2U);
    drag({13, 20});
    EXPECT_EQ(played.back(), "on 0 2");
    release(13, 20);
    EXPECT_EQ(played.back(), "off 0 2");
}

TEST_F(ToneKeyboardNSViewTest, LosingTheFocusEndsTheNote)
{
    press(4, 20);
    field->setFocus();
    drag({13, 20});
    EXPECT_THAT(played, ElementsAre("on 0 0", "off 0 0"));
    release(4, 20);
    EXPECT_EQ(played.size(), 2U);
}

TEST_F(ToneKeyboardNSViewTest, ADragWhoseReleaseWasLostIsOver)
{
    press(4, 20);
    QMouseEvent event(QEvent::MouseMove, QPointF(13, 20), keyboard->mapToGlobal(QPoint(13, 20)), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(keyboard, &event);
    drag({13, 20});
    EXPECT_THAT(played, ElementsAre("on 0 0", "off 0 0"));
}

TEST_F(ToneKeyboardNSViewTest, ThePointerTakesOverFromTheSpaceBarWhoseReleaseThenDoesNothing)
{
    keyboard->setFocus();
    QTest::keyPress(keyboard, Qt::Key_Space);
    press(4, 20);
    QTest::keyRelease(keyboard, Qt::Key_Space);
    EXPECT_THAT(played, ElementsAre("on 0 60", "off 0 60", "on 0 0"));
    QTest::keyPress(keyboard, Qt::Key_Space);
    QTest::keyRelease(keyboard, Qt::Key_Space);
    EXPECT_EQ(keyboard->activeNote(), 0);
    release(4, 20);
    EXPECT_THAT(played, ElementsAre("on 0 60", "off 0 60", "on 0 0", "off 0 0"));
}

TEST_F(ToneKeyboardNSViewTest, BeingHiddenEndsTheNote)
{
    press(4, 20);
    keyboard->hide();
    EXPECT_EQ(played.back(), "off 0 0");
}

TEST_F(ToneKeyboardNSViewTest, ANoteEndsOnTheChannelOnWhichItBegan)
{
    press(4, 20);
    keyboard->setChannel(9);
    drag({13, 20});
    release(13, 20);
    EXPECT_THAT(played, ElementsAre("on 0 0", "off 0 0", "on 9 2", "off 9 2"));
}

TEST_F(ToneKeyboardNSViewTest, TheSpaceBarPlaysTheKeyThatArrowsChoose)
{
    keyboard->setFocus();
    QTest::keyClick(keyboard, Qt::Key_Right);
    QTest::keyClick(keyboard, Qt::Key_Up);
    QTest::keyPress(keyboard, Qt::Key_Space);
    EXPECT_THAT(played, ElementsAre("on 0 73"));
    QTest::keyRelease(keyboard, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !keyboard->activeNote(); }));
    EXPECT_EQ(played.back(), "off 0 73");
    QTest::keyClick(keyboard, Qt::Key_Home);
    QTest::keyClick(keyboard, Qt::Key_Left);
    EXPECT_TRUE(keyboard->accessibleDescription().contains(QStringLiteral("(0)")));
    EXPECT_EQ(keyboard->accessibleName(), QStringLiteral("鍵盤"));
}

TEST_F(ToneKeyboardNSViewTest, OtherButtonsPlayNothing)
{
    QTest::mouseClick(keyboard, Qt::RightButton, {}, {4, 20});
    EXPECT_THAT(played, IsEmpty());
}

} // namespace
} // namespace orvim
