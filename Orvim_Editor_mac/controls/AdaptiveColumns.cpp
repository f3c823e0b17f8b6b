#include "controls/AdaptiveColumns.h"

#include <QBoxLayout>

#include <algorithm>

namespace orvim {

namespace {

constexpr int columnSpacing = 14;

} // namespace

AdaptiveColumns::AdaptiveColumns(QWidget* parent)
    : QWidget(parent), m_columns(new QBoxLayout(QBoxLayout::LeftToRight, this))
{
    m_columns->setContentsMargins(0, 0, 0, 0);
    m_columns->setSpacing(columnSpacing);
}

void AdaptiveColumns::addColumn(QWidget* column)
{
    m_columns->addWidget(column, 1, Qt::AlignTop);
}

int AdaptiveColumns::narrowest() const
{
    int width = 0;
    for (int i = 0; i < m_columns->count(); ++i)
        width = std::max(width, m_columns->itemAt(i)->minimumSize().width());
    return width;
}

QSize AdaptiveColumns::minimumSizeHint() const
{
    return {narrowest(), m_columns->minimumSize().height()};
}

void AdaptiveColumns::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int count = m_columns->count();
    const bool fits = width() >= count * narrowest() + (count - 1) * columnSpacing;
    m_columns->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

} // namespace orvim
