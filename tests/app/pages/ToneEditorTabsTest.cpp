#include "tests/app/support/LogLabels.h"
#include "tests/app/support/ToneEditorPageTest.h"
#include "tests/app/support/Wheel.h"

namespace orvim {
namespace {

using Tab = ToneEditorTab;
using test::logLabels;

class ToneEditorTabsTest : public test::ToneEditorPageTest
{
};

TEST_F(ToneEditorTabsTest, HaveTheirCaptions)
{
    QStringList captions;
    for (int i = 0; i < tabs().count(); ++i)
        captions << tabs().tabText(i);
    EXPECT_EQ(captions, (QStringList{QStringLiteral("マスター設定"), QStringLiteral("チャンネル設定"),
                                     QStringLiteral("ユーザー楽器"), QStringLiteral("ユーザードラム"),
                                     QStringLiteral("ユーザー波形")}));
}

TEST_F(ToneEditorTabsTest, TheWheelOverThemChangesNothing)
{
    tabs().setFocus();
    for (const int angle : {-120, 120, -360})
        test::turnWheel(tabs(), angle);
    settle();
    EXPECT_EQ(tabs().currentIndex(), 0);
    EXPECT_EQ(state().selectedToneTab, Tab::master);
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(ToneEditorTabsTest, AClickOnTheOpenTabOpensItAnew)
{
    click(Tab::userDrum);
    click(Tab::userDrum);
    const auto drum = QStringLiteral("Select User Drum Patch");
    EXPECT_EQ(logLabels(plugged.log()), (QStringList{drum, drum}));
    forget();
    click(Tab::channel);
    click(Tab::channel);
    EXPECT_EQ(logLabels(plugged.log()), QStringList(4, QStringLiteral("Restore Channel From Preview")));
}

TEST_F(ToneEditorTabsTest, OnlyTheLeftButtonOpensThem)
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        for (const Tab tab : {Tab::master, Tab::userDrum})
            QTest::mouseClick(&tabs(), button, {}, tabs().tabRect(static_cast<int>(tab)).center());
    QTest::mouseClick(&tabs(), Qt::LeftButton, {}, QPoint(tabs().width() - 2, 5));
    settle();
    EXPECT_EQ(state().selectedToneTab, Tab::master);
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(ToneEditorTabsTest, AnArrowKeyOpensTheNextOnce)
{
    open(Tab::userMelody);
    tabs().setFocus();
    QTest::keyClick(&tabs(), Qt::Key_Right);
    settle();
    EXPECT_EQ(logLabels(plugged.log()), QStringList{QStringLiteral("Select User Drum Patch")});
}

} // namespace
} // namespace orvim
