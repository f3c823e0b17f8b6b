#include "PageScaffold.h"

#include "controls/IconLabel.h"
#include "controls/SymbolIcon.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace orvim {

namespace {

constexpr int toolbarSymbolSize = 28;
constexpr QSize toolbarSymbolFrame(44, 32);
constexpr QSize toolbarTitleFrame(58, 20);
constexpr int toolbarTitlePixelSize = 11;
constexpr int toolbarTitlePadding = 8;
constexpr int headerTitlePixelSize = 16;
constexpr int headerSymbolSize = 20;
constexpr int headerSpacing = 10;

QFrame* makeRule(QWidget* parent)
{
    auto* const rule = new QFrame(parent);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

} // namespace

EditorToolbarButton::EditorToolbarButton(const QString& title, const QString& systemImage, QWidget* parent)
    : QToolButton(parent)
{
    setObjectName(systemImage);
    setAccessibleName(title);
    setText(title);
    setIcon(symbolIcon(systemImage));
    setIconSize({toolbarSymbolSize, toolbarSymbolSize});
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    QFont small = font();
    small.setPixelSize(toolbarTitlePixelSize);
    setFont(small);
    setFixedHeight(toolbarSymbolFrame.height() + toolbarTitleFrame.height());
}

QSize EditorToolbarButton::sizeHint() const
{
    // A longer title widens its button rather than being cut.
    const int titleWidth = fontMetrics().horizontalAdvance(text()) + toolbarTitlePadding;
    return {std::max(toolbarTitleFrame.width(), titleWidth), toolbarSymbolFrame.height() + toolbarTitleFrame.height()};
}

QSize EditorToolbarButton::minimumSizeHint() const
{
    return sizeHint();
}

EditorPageHeader::EditorPageHeader(EditorPage page, QWidget* parent) : QWidget(parent)
{
    m_line = new QHBoxLayout(this);
    m_line->setContentsMargins(14, 8, 14, 8);
    m_line->setSpacing(headerSpacing);
    auto* const layout = new QHBoxLayout;
    layout->setSpacing(headerSpacing);
    m_line->addLayout(layout);
    m_line->setAlignment(layout, Qt::AlignLeft);

    auto* const symbolLabel = new IconLabel(headerSymbolSize, this);
    symbolLabel->setIcon(symbolIcon(symbol(page)));
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
    m_line->addLayout(m_toolbar);
    m_line->setAlignment(m_toolbar, Qt::AlignLeft);
    m_line->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
}

/// Where both do not fit beside each other the toolbar stands below the menus.
void EditorPageHeader::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const QMargins margins = m_line->contentsMargins();
    int width = margins.left() + margins.right();
    for (int i = 0; i < m_line->count(); ++i)
        width += m_line->itemAt(i)->sizeHint().width() + (i > 0 ? m_line->spacing() : 0);
    m_line->setDirection(width <= event->size().width() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

QMenu* EditorPageHeader::addMenu(const QString& title)
{
    auto* const button = new QToolButton(this);
    button->setText(title);
    button->setObjectName(title);
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
