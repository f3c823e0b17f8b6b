#pragma once

namespace orvim {

/// Makes every TickSnappingSlider known to assistive programs as a slider with its value; further calls do nothing.
void installSliderAccessibility();

} // namespace orvim
