#include "pages/InformationPageView.h"

#include "WebPages.h"
#include "controls/LinkButton.h"
#include "controls/PageScrollArea.h"

#include <QLabel>
#include <QVBoxLayout>

namespace orvim {

namespace {

constexpr int pageMargin = 20;
constexpr int rowSpacing = 10;
constexpr int headingSpacing = 18;
constexpr int textPixelSize = 14;
constexpr int headingPixelSize = 17;

QLabel* makeText(const QString& text, int pixelSize)
{
    auto* const label = new QLabel(text);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    label->setFont(font);
    label->setWordWrap(true);
    return label;
}

LinkButton* makeLink(const QString& title, const QUrl& address)
{
    auto* const link = new LinkButton(title);
    link->setToolTip(address.toDisplayString());
    QFont font = link->font();
    font.setPixelSize(textPixelSize);
    link->setFont(font);
    QObject::connect(link, &LinkButton::clicked, link, [address] { openWebPage(address); });
    return link;
}

QLabel* makeHeading(const QString& text)
{
    auto* const heading = makeText(text, headingPixelSize);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

} // namespace

InformationPageView::InformationPageView(QWidget* parent) : QWidget(parent)
{
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    column->setSpacing(rowSpacing);
    fill(*column);
    column->addStretch(1);

    auto* const scrollArea = new PageScrollArea(Scrollbars::permanent, this);
    scrollArea->setWidget(content);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scrollArea);
}

void InformationPageView::fill(QVBoxLayout& column)
{
    column.addWidget(makeLink(tr("オンラインマニュアル"), manualPage()), 0, Qt::AlignLeft);
    column.addWidget(makeLink(tr("本体ソフトウェア更新ページ"), firmwareUpdatePage()), 0, Qt::AlignLeft);
    column.addSpacing(headingSpacing);
    column.addWidget(makeHeading(tr("謝辞")));
    column.addWidget(makeText(
        tr("「M+ Bitmap Fonts for FONTX2」より、MPLZN10X.FNT, MPLHN10x.FNTを使用させて頂きました。"), textPixelSize));
    column.addWidget(makeLink(tr("M+ BITMAP FONTS"), fontPage()), 0, Qt::AlignLeft);
    column.addWidget(makeText(tr("画面の作成に、Qtを使用させて頂きました。"), textPixelSize));
    column.addWidget(makeLink(tr("Qt"), toolkitPage()), 0, Qt::AlignLeft);
}

} // namespace orvim
