#include "PageScaffold.h"

#include "controls/ElidedLabel.h"

#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

TEST(EditorToolbarButton, ShowsItsSymbolWithItsTitleBelowAndIsPressedOnBoth)
{
    EditorToolbarButton button(QStringLiteral("保存"), QStringLiteral("square.and.arrow.down"));
    button.resize(button.sizeHint());
    button.show();
    EXPECT_EQ(button.size(), QSize(58, 52));
    EXPECT_EQ(button.iconSize(), QSize(28, 28));
    QSignalSpy presses(&button, &EditorToolbarButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton, {}, {29, 10});
    QTest::mouseClick(&button, Qt::LeftButton, {}, {29, 45});
    EXPECT_EQ(presses.count(), 2);
}

TEST(EditorToolbarButton, ALongTitleWidensIt)
{
    const EditorToolbarButton button(QStringLiteral("とても長い名前のボタン"), QStringLiteral("photo"));
    EXPECT_GT(button.sizeHint().width(), 58);
}

TEST(PageScaffold, MenusStandAtTheLeftOfTheToolbarUnderThePagesTitle)
{
    PageScaffold page(EditorPage::lyrics);
    auto* const toolbarButton = page.header().addToolbarButton(QStringLiteral("開く"), QStringLiteral("folder"));
    QMenu* const menu = page.header().addMenu(QStringLiteral("ファイル"));
    auto* const content = new QLabel(QStringLiteral("content"));
    page.setContent(content);
    page.resize(800, 600);
    page.show();
    const auto* const menuButton = qobject_cast<QWidget*>(menu->parent());
    EXPECT_LT(menuButton->mapTo(&page, QPoint()).x(), toolbarButton->mapTo(&page, QPoint()).x());
    EXPECT_GE(content->y(), page.header().height());
    EXPECT_EQ(content->width(), 800);
    EXPECT_EQ(page.header().findChild<ElidedLabel*>()->text(), QStringLiteral("歌詞編集"));
}

class NarrowHeaderTest : public testing::Test
{
protected:
    NarrowHeaderTest()
    {
        for (const char* const name : {"ファイル", "設定", "送信"})
            menus.push_back(qobject_cast<QWidget*>(header.addMenu(QString::fromUtf8(name))->parent()));
        for (const char* const name : {"新規", "開く", "保存", "全送信"})
            buttons.push_back(header.addToolbarButton(QString::fromUtf8(name), QStringLiteral("folder")));
        page.setContent(new QWidget);
        window.resize(1000, 400);
        window.show();
        settle();
    }

    void resize(int width)
    {
        page.resize(width, 400);
        settle();
    }

    /// Shows the buttons that were added since and lays them out: a layout leaves both for the next turn of the events.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCoreApplication::processEvents();
    }

    /// Each menu and button is whole, inside of the page and under none of the others.
    void expectAllWhole() const
    {
        std::vector<const QWidget*> all(menus.begin(), menus.end());
        all.insert(all.end(), buttons.begin(), buttons.end());
        std::vector<QRect> places;
        for (const QWidget* const widget : all)
            places.push_back(QRect(widget->mapTo(&page, QPoint()), widget->size()));
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_GE(places[i].width(), all[i]->sizeHint().width()) << i;
            EXPECT_TRUE(header.geometry().contains(places[i])) << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(places[i].intersects(places[j])) << i << ", " << j;
        }
    }

    bool isToolbarBelow() const
    {
        return buttons[0]->mapTo(&page, QPoint()).y() >= menus[0]->mapTo(&page, QPoint(0, menus[0]->height())).y();
    }

    // The page stands in a window of one size: a window manager tells a window of its former sizes late.
    QWidget window;
    PageScaffold page{EditorPage::displaySimulatorSettings, &window};
    EditorPageHeader& header = page.header();
    ElidedLabel& title = *header.findChild<ElidedLabel*>();
    std::vector<QWidget*> menus;
    std::vector<EditorToolbarButton*> buttons;
};

TEST_F(NarrowHeaderTest, InAWidePageAllStandsInOneLine)
{
    resize(900);
    expectAllWhole();
    EXPECT_FALSE(isToolbarBelow());
    EXPECT_EQ(title.toolTip(), QString());
}

TEST_F(NarrowHeaderTest, AMenuTakesNoMoreRoomThanItsTitleAsksFor)
{
    resize(900);
    const QFontMetrics metrics = menus[0]->fontMetrics();
    EXPECT_EQ(menus[0]->width() - menus[1]->width(), metrics.horizontalAdvance(QStringLiteral("ファイル")) -
                                                         metrics.horizontalAdvance(QStringLiteral("設定")));
}

TEST_F(NarrowHeaderTest, TheToolbarGoesBelowWhereItDoesNotFitAndComesBack)
{
    resize(900);
    const int height = header.height();
    resize(480);
    expectAllWhole();
    EXPECT_TRUE(isToolbarBelow());
    EXPECT_GT(header.height(), height);
    resize(900);
    EXPECT_FALSE(isToolbarBelow());
    EXPECT_EQ(header.height(), height);
}

TEST_F(NarrowHeaderTest, InEitherPlaceTheButtonsOfTheToolbarHaveTheirFullSize)
{
    for (const int width : {900, 480, 900}) {
        resize(width);
        EXPECT_EQ(isToolbarBelow(), width == 480);
        for (const auto* const button : buttons)
            EXPECT_EQ(button->size(), QSize(58, 52));
    }
}

TEST_F(NarrowHeaderTest, InAVeryNarrowPageNoTitleOfTheToolbarIsCut)
{
    for (const char* const name : {"日本語オン", "日本語オフ", "日本語"})
        buttons.push_back(header.addToolbarButton(QString::fromUtf8(name), QStringLiteral("folder")));
    settle();
    resize(page.minimumSizeHint().width());
    EXPECT_TRUE(isToolbarBelow());
    EXPECT_LT(buttons[0]->width(), 58);
    for (const auto* const button : buttons) {
        EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()))
            << qPrintable(button->text());
        EXPECT_TRUE(page.rect().contains(QRect(button->mapTo(&page, QPoint()), button->size())));
    }
    resize(900);
    EXPECT_EQ(buttons[0]->size(), QSize(58, 52));
}

TEST_F(NarrowHeaderTest, ThenTheTitleGivesWayAndItsToolTipHoldsIt)
{
    resize(page.minimumSizeHint().width() + 40);
    expectAllWhole();
    EXPECT_LT(title.width(), title.sizeHint().width());
    EXPECT_EQ(title.toolTip(), title.text());
    EXPECT_LT(page.width(), 400);
}

} // namespace
} // namespace orvim
