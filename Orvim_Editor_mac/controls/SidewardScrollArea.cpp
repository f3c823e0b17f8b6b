#include "controls/SidewardScrollArea.h"

#include <QCoreApplication>
#include <QResizeEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace orvim {

SidewardScrollArea::SidewardScrollArea(QWidget* content, QWidget* parent)
    : PageScrollArea(Scrollbars::permanent, parent), m_middle(content->width() / 2)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::NoFocus); // the content has it
    setFixedHeight(content->height());
    setWidget(content);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (!m_isResizing) m_middle = value + viewport()->width() / 2;
    });
}

void SidewardScrollArea::resizeEvent(QResizeEvent* event)
{
    m_isResizing = true;
    PageScrollArea::resizeEvent(event);
    horizontalScrollBar()->setValue(m_middle - viewport()->width() / 2);
    m_isResizing = false;
    const bool fits = width() >= widget()->width();
    setFixedHeight(widget()->height() + (fits ? 0 : horizontalScrollBar()->sizeHint().height()));
}

void SidewardScrollArea::wheelEvent(QWheelEvent* event)
{
    // The bar takes both axes; at its ends, and where nothing scrolls, it leaves the event to the page.
    QCoreApplication::sendEvent(horizontalScrollBar(), event);
}

} // namespace orvim
