#include "PageScaffold.h"

#include "controls/SymbolIcon.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvim {

namespace {

constexpr int toolbarSymbolSize = 28;
constexpr QSize toolbarSymbolFrame(44, 32);
constexpr QSize toolbarTitleFrame(58, 20);
constexpr int toolbarTitlePixelSize = 11;
constexpr int headerTitlePixelSize = 16;
constexpr int headerSymbolSize = 20;

QFrame* makeRule(QWidget* parent)
{
    auto* const rule = new QFrame(parent);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

} // namespace

EditorToolbarButton::EditorToolbarButton(const QString& title, const QString& systemImage, QWidget* parent)
    : QWidget(parent)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    auto* const symbol = new QToolButton(this);
    symbol->setObjectName(systemImage);
    symbol->setIcon(symbolIcon(systemImage));
    symbol->setIconSize({toolbarSymbolSize, toolbarSymbolSize});
    symbol->setFixedSize(toolbarSymbolFrame);
    symbol->setAutoRaise(true);
    symbol->setFocusPolicy(Qt::StrongFocus);
    symbol->setAccessibleName(title);
    symbol->setToolTip(title);
    layout->addWidget(symbol, 0, Qt::AlignHCenter);
    connect(symbol, &QToolButton::clicked, this, &EditorToolbarButton::clicked);

    auto* const caption = new QLabel(title, this);
    QFont font = caption->font();
    font.setPixelSize(toolbarTitlePixelSize);
    caption->setFont(font);
    caption->setAlignment(Qt::AlignCenter);
    caption->setMinimumSize(toolbarTitleFrame);
    caption->setFixedHeight(toolbarTitleFrame.height());
    layout->addWidget(caption, 0, Qt::AlignHCenter);
}

EditorPageHeader::EditorPageHeader(EditorPage page, QWidget* parent) : QWidget(parent)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(14, 8, 14, 8);
    layout->setSpacing(10);

    auto* const symbolLabel = new QLabel(this);
    symbolLabel->setPixmap(symbolIcon(symbol(page)).pixmap({headerSymbolSize, headerSymbolSize}, devicePixelRatioF()));
    layout->addWidget(symbolLabel);

    auto* const titleLabel = new QLabel(title(page), this);
    QFont font = titleLabel->font();
    font.setPixelSize(headerTitlePixelSize);
    font.setBold(true);
    titleLabel->setFont(font);
    layout->addWidget(titleLabel);
    layout->addSpacing(12);

    m_menus = new QHBoxLayout;
    m_menus->setSpacing(4);
    layout->addLayout(m_menus);
    m_toolbar = new QHBoxLayout;
    m_toolbar->setSpacing(4);
    layout->addLayout(m_toolbar);
    layout->addStretch(1);
}

QMenu* EditorPageHeader::addMenu(const QString& title)
{
    auto* const button = new QToolButton(this);
    button->setText(title);
    button->setAccessibleName(title);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::StrongFocus);
    auto* const menu = new QMenu(button);
    button->setMenu(menu);
    m_menus->addWidget(button);
    return menu;
}

EditorToolbarButton* EditorPageHeader::addToolbarButton(const QString& title, const QString& systemImage)
{
    auto* const button = new EditorToolbarButton(title, systemImage, this);
    m_toolbar->addWidget(button);
    return button;
}

PageScaffold::PageScaffold(EditorPage page, QWidget* parent) : QWidget(parent), m_page(page)
{
    setObjectName(rawValue(page));
    setAccessibleName(title(page));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_header = new EditorPageHeader(page, this);
    layout->addWidget(m_header);
    layout->addWidget(makeRule(this));
}

void PageScaffold::setContent(QWidget* content)
{
    static_cast<QVBoxLayout*>(layout())->addWidget(content, 1);
}

} // namespace orvim
