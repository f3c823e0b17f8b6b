#include "pages/InformationPageView.h"

#include "WebPages.h"
#include "controls/LinkButton.h"
#include "tests/app/support/Browser.h"

#include <QFile>
#include <QLabel>
#include <QTest>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace orvim {
namespace {

TEST(InformationPageView, ThanksStandInTheirOwnWords)
{
    const InformationPageView page;
    QStringList texts;
    for (const QLabel* const label : page.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("謝辞")));
    EXPECT_TRUE(texts.contains(
        QStringLiteral("「M+ Bitmap Fonts for FONTX2」より、MPLZN10X.FNT, MPLHN10x.FNTを使用させて頂きました。")));
}

TEST(InformationPageView, EachLinkOpensItsPageByKeyboard)
{
    test::Browser browser;
    InformationPageView page;
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    for (const auto* const title : {"オンラインマニュアル", "本体ソフトウェア更新ページ", "M+ BITMAP FONTS", "Qt"}) {
        auto* const link = page.findChild<LinkButton*>(QString::fromUtf8(title));
        ASSERT_NE(link, nullptr) << title;
        link->setFocus(Qt::TabFocusReason);
        QTest::keyClick(link, Qt::Key_Return);
    }
    EXPECT_EQ(browser.opened, (QList<QUrl>{manualPage(), firmwareUpdatePage(), fontPage(), toolkitPage()}));
}

TEST(InformationPageView, ReadsFromTheManualDownToTheThanks)
{
    InformationPageView page;
    page.show();
    const auto heightOf = [&page](const QString& text) {
        for (const QWidget* const widget : page.findChildren<QWidget*>()) {
            const auto* const label = qobject_cast<const QLabel*>(widget);
            if ((label && label->text() == text) || widget->objectName() == text)
                return widget->mapTo(&page, QPoint()).y();
        }
        return -1;
    };
    const std::array<int, 4> heights{heightOf(QStringLiteral("オンラインマニュアル")),
                                     heightOf(QStringLiteral("本体ソフトウェア更新ページ")),
                                     heightOf(QStringLiteral("謝辞")), heightOf(QStringLiteral("M+ BITMAP FONTS"))};
    EXPECT_GE(heights.front(), 0);
    EXPECT_TRUE(std::ranges::is_sorted(heights));
}

TEST(WebPages, TheManualsPagesComeWithTheEditor)
{
    EXPECT_TRUE(manualPage().path().endsWith(QLatin1String("share/orvim-editor/manual/index.html")));
    EXPECT_TRUE(firmwareUpdatePage().path().endsWith(QLatin1String("share/orvim-editor/manual/firmware.html")));
    for (const auto* const name : {"index.html", "firmware.html", "manual.css"})
        EXPECT_TRUE(QFile::exists(QStringLiteral(ORVIM_SOURCE_DIR "/resources/manual/") + QString::fromLatin1(name)));
}

TEST(WebPages, AnInvalidAddressOpensNothing)
{
    test::Browser browser;
    openWebPage(QUrl());
    EXPECT_TRUE(browser.opened.isEmpty());
}

} // namespace
} // namespace orvim
