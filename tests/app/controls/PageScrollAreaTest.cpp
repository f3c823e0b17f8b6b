#include "controls/PageScrollArea.h"

#include "support/Wheel.h"

#include <QComboBox>
#include <QCommonStyle>
#include <QProxyStyle>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

QWidget* contentOf(QSize size)
{
    auto* content = new QWidget;
    content->setMinimumSize(size);
    return content;
}

void showAt(PageScrollArea& area, QSize size)
{
    area.resize(size);
    area.show();
    area.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&area));
}

TEST(PageScrollArea, BarsStandOnTheAxesThatAreLonger)
{
    PageScrollArea area(Scrollbars::permanent);
    area.setWidget(contentOf({100, 1000}));
    showAt(area, {300, 300});
    EXPECT_TRUE(area.verticalScrollBar()->isVisible());
    EXPECT_FALSE(area.horizontalScrollBar()->isVisible());
    area.widget()->setMinimumSize(1000, 100);
    QTest::qWait(0);
    EXPECT_FALSE(area.verticalScrollBar()->isVisible());
    EXPECT_TRUE(area.horizontalScrollBar()->isVisible());
}

/// A style of the kind that fades its scroll bars out.
class FadingStyle : public QCommonStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        return hint == SH_ScrollBar_Transient ? 1 : QCommonStyle::styleHint(hint, option, widget, result);
    }
};

TEST(PageScrollArea, BarsNeverFadeAwayWhateverTheStyle)
{
    PageScrollArea area(Scrollbars::permanent);
    for (auto* bar : {area.verticalScrollBar(), area.horizontalScrollBar()}) {
        auto* style = qobject_cast<QProxyStyle*>(bar->style());
        ASSERT_NE(style, nullptr);
        style->setBaseStyle(new FadingStyle);
        EXPECT_EQ(style->styleHint(QStyle::SH_ScrollBar_Transient, nullptr, bar), 0);
    }
}

TEST(PageScrollArea, HiddenBarsStayHiddenAndTheContentStillScrolls)
{
    PageScrollArea area(Scrollbars::hidden);
    area.setWidget(contentOf({1000, 1000}));
    showAt(area, {300, 300});
    EXPECT_FALSE(area.verticalScrollBar()->isVisible());
    EXPECT_FALSE(area.horizontalScrollBar()->isVisible());
    test::turnWheel(*area.viewport(), -120);
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
}

TEST(PageScrollArea, ContentTakesTheWidthOfThePage)
{
    PageScrollArea area(Scrollbars::permanent);
    area.setWidget(contentOf({100, 100}));
    showAt(area, {400, 300});
    EXPECT_EQ(area.widget()->width(), 400);
}

TEST(PageScrollArea, WheelOverAPickerWithoutFocusScrollsThePage)
{
    PageScrollArea area(Scrollbars::permanent);
    auto* content = contentOf({200, 2000});
    auto* picker = new QComboBox(content);
    picker->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    scrollPageUnlessFocused(*picker);
    area.setWidget(content);
    showAt(area, {300, 300});
    area.setFocus();
    test::turnWheel(*picker, -120);
    EXPECT_EQ(picker->currentIndex(), 0);
    EXPECT_GT(area.verticalScrollBar()->value(), 0);

    const int scrolled = area.verticalScrollBar()->value();
    picker->setFocus();
    test::turnWheel(*picker, -120);
    EXPECT_EQ(picker->currentIndex(), 1);
    EXPECT_EQ(area.verticalScrollBar()->value(), scrolled);
}

} // namespace
} // namespace orvim
