#pragma once

#include "controls/PageScrollArea.h"

namespace orvim {

/// The scroll area around one wide control of a fixed size: as high as the control, and higher by its bar only where it
/// is narrower. The control stands in the middle where there is room; elsewhere its middle comes into view first, and
/// either axis of the wheel scrolls it.
class SidewardScrollArea : public PageScrollArea
{
    Q_OBJECT

public:
    explicit SidewardScrollArea(QWidget* content, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int m_middle = 0; ///< the place of the content that stays in the middle when the width changes
    bool m_isResizing = false;
};

} // namespace orvim
