#include "simulator/WindowPlacement.h"

#include <algorithm>

namespace orvim {

namespace {

constexpr int screenMargin = 16;
constexpr int smallestPart = 40; ///< of the window's width and height

} // namespace

QPoint topRightPlace(QSize size, const QRect& screen)
{
    const int x = screen.x() + screen.width() - screenMargin - size.width();
    return {std::max(x, screen.x()), screen.y() + screenMargin};
}

bool isWithinReach(const QRect& window, const QList<QRect>& screens)
{
    return std::any_of(screens.begin(), screens.end(), [&](const QRect& screen) {
        const auto part = window.intersected(screen);
        return part.width() >= smallestPart && part.height() >= smallestPart;
    });
}

} // namespace orvim
