#include "controls/SegmentedPicker.h"

#include <QAbstractButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

struct Shown {
    Shown()
    {
        picker.show();
        picker.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&picker));
    }

    QAbstractButton* segment(const char* title) { return picker.findChild<QAbstractButton*>(QLatin1String(title)); }
    QList<int> picked() const
    {
        QList<int> all;
        for (const auto& arguments : spy)
            all << arguments[0].toInt();
        return all;
    }

    SegmentedPicker picker{{QStringLiteral("None"), QStringLiteral("Over"), QStringLiteral("Clip")}};
    QSignalSpy spy{&picker, &SegmentedPicker::picked};
};

TEST(SegmentedPicker, AClickChoosesOneSegmentAndTellsOnce)
{
    Shown shown;
    EXPECT_EQ(shown.picker.currentIndex(), 0);
    QTest::mouseClick(shown.segment("Clip"), Qt::LeftButton);
    QTest::mouseClick(shown.segment("Clip"), Qt::LeftButton);
    EXPECT_EQ(shown.picked(), QList{2});
    EXPECT_TRUE(shown.segment("Clip")->isChecked());
    EXPECT_FALSE(shown.segment("None")->isChecked());
}

TEST(SegmentedPicker, ArrowKeysMoveTheChoice)
{
    Shown shown;
    shown.segment("None")->setFocus();
    QTest::keyClick(shown.segment("None"), Qt::Key_Right);
    EXPECT_EQ(shown.picked(), QList{1});
    EXPECT_TRUE(shown.segment("Over")->hasFocus());
}

TEST(SegmentedPicker, TheProgramsChoiceIsSilent)
{
    Shown shown;
    shown.picker.setCurrentIndex(1);
    EXPECT_EQ(shown.picker.currentIndex(), 1);
    EXPECT_TRUE(shown.picked().isEmpty());
    QTest::mouseClick(shown.segment("None"), Qt::LeftButton);
    EXPECT_EQ(shown.picked(), QList{0});
}

TEST(SegmentedPicker, OfAChoiceOutsideTheRowNothingIsShownAndEachSegmentCanBePicked)
{
    for (const char* const title : {"None", "Over", "Clip"}) {
        Shown shown;
        for (const int outside : {7, -2, 7}) {
            shown.picker.setCurrentIndex(outside);
            EXPECT_EQ(shown.picker.currentIndex(), SegmentedPicker::none);
        }
        EXPECT_TRUE(shown.picked().isEmpty());
        QTest::mouseClick(shown.segment(title), Qt::LeftButton);
        EXPECT_EQ(shown.picked(), QList{shown.picker.currentIndex()});
        EXPECT_TRUE(shown.segment(title)->isChecked());
    }
}

TEST(SegmentedPicker, TheKeysChooseFromNothingChosen)
{
    Shown shown;
    shown.picker.setCurrentIndex(7);
    shown.segment("Over")->setFocus();
    QTest::keyClick(shown.segment("Over"), Qt::Key_Space);
    EXPECT_EQ(shown.picked(), QList{1});
    QTest::keyClick(shown.segment("Over"), Qt::Key_Left);
    EXPECT_EQ(shown.picked(), (QList{1, 0}));
}

} // namespace
} // namespace orvim
