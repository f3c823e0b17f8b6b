#pragma once

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

namespace orvim::test {

/// Turns the wheel over the widget's middle by `angle` eighths of a degree, 120 a notch, as the window system would:
/// what the widget does not take goes to the page around it.
inline void turnWheel(QWidget& widget, int angle)
{
    const auto middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(&widget, &event);
}

} // namespace orvim::test
