#pragma once

#include <QList>
#include <QRect>

namespace orvim {

/// The top left corner of a window of `size` that stands in the top right corner of `screen`, a little inside.
QPoint topRightPlace(QSize size, const QRect& screen);

/// Whether enough of the window lies on one of the screens to be seen and taken hold of.
bool isWithinReach(const QRect& window, const QList<QRect>& screens);

} // namespace orvim
