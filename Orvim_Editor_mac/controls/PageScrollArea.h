#pragma once

#include <QScrollArea>

namespace orvim {

enum class Scrollbars {
    permanent, ///< visible wherever the content is longer than the area, never hidden by inactivity
    hidden,    ///< never visible; the content still scrolls
};

/// The frameless scroll area around a page or a list; its content takes the area's width.
class PageScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit PageScrollArea(Scrollbars scrollbars, QWidget* parent = nullptr);
};

/// Lets the wheel scroll the page while `control` has no focus, instead of changing its value.
void scrollPageUnlessFocused(QWidget& control);

} // namespace orvim
