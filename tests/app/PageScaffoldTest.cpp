#include "PageScaffold.h"

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
    QStringList texts;
    for (const QLabel* const label : page.header().findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("歌詞編集")));
}

TEST(PageScaffold, WhereTheWidthIsShortTheToolbarStandsBelowTheMenusAtItsFullSize)
{
    PageScaffold page(EditorPage::lyrics);
    const auto* const menuButton = qobject_cast<QWidget*>(page.header().addMenu(QStringLiteral("ファイル"))->parent());
    auto* const toolbarButton = page.header().addToolbarButton(QStringLiteral("開く"), QStringLiteral("folder"));
    for (int i = 0; i < 4; ++i)
        page.header().addToolbarButton(QStringLiteral("保存"), QStringLiteral("folder"));
    page.show();
    for (const int width : {900, 400, 900}) {
        page.resize(width, 600);
        QCoreApplication::processEvents();
        const int menuBottom = menuButton->mapTo(&page, QPoint(0, menuButton->height())).y();
        const int toolbarTop = toolbarButton->mapTo(&page, QPoint()).y();
        EXPECT_EQ(toolbarTop >= menuBottom, width == 400);
        EXPECT_EQ(toolbarButton->size(), QSize(58, 52));
    }
}

} // namespace
} // namespace orvim
