#include "PageScaffold.h"

#include "controls/ElidedLabel.h"
#include "controls/IconLabel.h"
#include "controls/Rule.h"
#include "controls/SymbolIcon.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace orvim {

namespace {

constexpr int toolbarSymbolSize = 28;
constexpr QSize toolbarSymbolFrame(44, 32);
constexpr QSize toolbarTitleFrame(58, 20);
constexpr int toolbarTitlePixelSize = 11;
constexpr int toolbarTitlePadding = 8;
constexpr int menuButtonPadding = 16;
constexpr int headerSpacing = 10;
constexpr int headerTitlePixelSize = 16;
constexpr int headerSymbolSize = 20;

/// As wide as its title asks for, where styles give every button room for a longer one: a narrow window needs it for
/// the name of the page.
class MenuButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override
    {
        const int arrowWidth = style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, this);
        return {fontMetrics().horizontalAdvance(text()) + arrowWidth + menuButtonPadding,
                QPushButton::sizeHint().height()};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

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
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    QFont small = font();
    small.setPixelSize(toolbarTitlePixelSize);
    setFont(small);
    setFixedHeight(toolbarSymbolFrame.height() + toolbarTitleFrame.height());
}

QSize EditorToolbarButton::sizeHint() const
{
    return {std::max(toolbarTitleFrame.width(), titleWidth()), height()};
}

QSize EditorToolbarButton::minimumSizeHint() const
{
    return {std::max(toolbarSymbolFrame.width(), titleWidth()), height()};
}

/// A longer title widens its button rather than being cut.
int EditorToolbarButton::titleWidth() const
{
    return fontMetrics().horizontalAdvance(text()) + toolbarTitlePadding;
}

EditorPageHeader::EditorPageHeader(EditorPage page, QWidget* parent) : QWidget(parent)
{
    auto* const symbolLabel = new IconLabel(headerSymbolSize, this);
    symbolLabel->setIcon(symbolIcon(symbol(page)));

    auto* const titleLabel = new ElidedLabel(this);
    titleLabel->setObjectName(QStringLiteral("pageTitle"));
    titleLabel->setText(title(page));
    titleLabel->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    QFont font = titleLabel->font();
    font.setPixelSize(headerTitlePixelSize);
    font.setBold(true);
    titleLabel->setFont(font);

    m_menus = new QHBoxLayout;
    m_menus->setSpacing(4);
    m_firstLine = new QHBoxLayout;
    m_firstLine->setSpacing(headerSpacing);
    m_firstLine->addWidget(symbolLabel);
    m_firstLine->addWidget(titleLabel);
    m_firstLine->addSpacing(12);
    m_firstLine->addLayout(m_menus);

    m_toolbarBox = new QWidget(this);
    m_toolbar = new QHBoxLayout(m_toolbarBox);
    m_toolbar->setContentsMargins(0, 0, 0, 0);
    m_toolbar->setSpacing(4);

    m_lines = new QGridLayout(this);
    m_lines->setContentsMargins(14, 8, 14, 8);
    m_lines->setHorizontalSpacing(headerSpacing);
    m_lines->setColumnStretch(2, 1);
    m_lines->addLayout(m_firstLine, 0, 0);
    m_lines->addWidget(m_toolbarBox, 0, 1);
}

bool EditorPageHeader::event(QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) arrange();
    return QWidget::event(event);
}

void EditorPageHeader::arrange()
{
    const QMargins margins = m_lines->contentsMargins();
    const int widthInOneLine = margins.left() + m_firstLine->sizeHint().width() + headerSpacing +
                               m_toolbarBox->sizeHint().width() + margins.right();
    const bool isBelow = m_toolbar->count() > 0 && width() < widthInOneLine;
    if (m_isToolbarBelow == isBelow) return;
    m_isToolbarBelow = isBelow;
    m_lines->removeWidget(m_toolbarBox);
    if (isBelow)
        m_lines->addWidget(m_toolbarBox, 1, 0, 1, 3, Qt::AlignLeft);
    else
        m_lines->addWidget(m_toolbarBox, 0, 1);
}

QSize EditorPageHeader::minimumSizeHint() const
{
    const QMargins margins = m_lines->contentsMargins();
    const int widest = std::max(m_firstLine->minimumSize().width(), m_toolbarBox->minimumSizeHint().width());
    return {margins.left() + widest + margins.right(), QWidget::minimumSizeHint().height()};
}

QMenu* EditorPageHeader::addMenu(const QString& title)
{
    auto* const button = new MenuButton(title, this);
    button->setObjectName(title);
    button->setAccessibleName(title);
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
