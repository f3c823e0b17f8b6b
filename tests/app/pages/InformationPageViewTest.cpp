#include "pages/InformationPageView.h"

#include "WebPages.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

/// Stands in for the browser and keeps the addresses that it is asked to open.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser()
    {
        for (const auto* const scheme : schemes)
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "open");
    }

    ~Browser() override
    {
        for (const auto* const scheme : schemes)
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl& address) { opened << address; }

private:
    static constexpr std::array<const char*, 3> schemes{"file", "http", "https"};
};

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
    Browser browser;
    InformationPageView page;
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    for (const auto* const title : {"オンラインマニュアル", "本体ソフトウェア更新ページ", "M+ BITMAP FONTS", "Qt"}) {
        auto* const link = page.findChild<QPushButton*>(QString::fromUtf8(title));
        ASSERT_NE(link, nullptr) << title;
        link->setFocus(Qt::TabFocusReason);
        QTest::keyClick(link, Qt::Key_Return);
    }
    EXPECT_EQ(browser.opened, (QList<QUrl>{manualPage(), firmwareUpdatePage(), fontPage(), toolkitPage()}));
}

TEST(WebPages, AnInvalidAddressOpensNothing)
{
    Browser browser;
    openWebPage(QUrl());
    EXPECT_TRUE(browser.opened.isEmpty());
}

} // namespace
} // namespace orvim

#include "InformationPageViewTest.moc"
