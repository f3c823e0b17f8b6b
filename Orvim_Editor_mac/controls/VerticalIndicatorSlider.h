#pragma once

#include "controls/TickSnappingSlider.h"

namespace orvim {

/// An upright slider with a tick mark beside its track for each value it can take.
class VerticalIndicatorSlider : public TickSnappingSlider
{
    Q_OBJECT

public:
    VerticalIndicatorSlider(double lower, double upper, double step, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace orvim
