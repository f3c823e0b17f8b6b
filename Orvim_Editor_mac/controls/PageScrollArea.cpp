#include "controls/PageScrollArea.h"

#include <QApplication>
#include <QEvent>
#include <QProxyStyle>
#include <QScrollBar>

namespace orvim {

namespace {

/// Some styles fade their scroll bars out when nothing moves; these stay.
class PermanentBarStyle : public QProxyStyle
{
public:
    PermanentBarStyle() : QProxyStyle(QApplication::style()->name()) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        return hint == SH_ScrollBar_Transient ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
    }
};

class WheelGuard : public QObject
{
public:
    explicit WheelGuard(QWidget& control) : QObject(&control), m_control(control) {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel || m_control.hasFocus()) return false;
        event->ignore();
        return true;
    }

private:
    QWidget& m_control;
};

} // namespace

PageScrollArea::PageScrollArea(Scrollbars scrollbars, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    if (scrollbars == Scrollbars::hidden) {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        return;
    }
    auto* style = new PermanentBarStyle;
    style->setParent(this);
    horizontalScrollBar()->setStyle(style);
    verticalScrollBar()->setStyle(style);
}

void scrollPageUnlessFocused(QWidget& control)
{
    control.setFocusPolicy(Qt::StrongFocus);
    control.installEventFilter(new WheelGuard(control));
}

} // namespace orvim
