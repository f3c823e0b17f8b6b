#pragma once

#include "core/tone/UserWaveform.h"

#include <cstdint>
#include <optional>

/// The arithmetic of a surface on which a waveform is drawn by hand: view coordinates to points of the waveform and
/// back.
namespace tonavelle::WaveformDrawing {

/// A point of a waveform.
struct Point {
    int index = 0; ///< 0...2047
    std::int16_t value = 0;

    bool operator==(const Point&) const = default;
};

/// The size of the surface in its own units.
struct Size {
    double width = 0;
    double height = 0;
};

/// The point under a pointer at `x` from the left and `fromTop` from the top; both are limited to the surface.
Point pointAt(double x, double fromTop, Size size);

/// Draws the waveform from the running drag's last point to `point`, or `point` alone at a drag's start, so that a fast
/// drag leaves no gaps. False, and no change, unless the waveform has 2,048 samples.
bool drawTo(UserWaveform& samples, std::optional<Point> last, Point point);

/// The place of a grid line at `index` (0...2048), from the left.
double gridX(int index, double width);

/// The index of the sample that the column `x` of the surface shows.
int indexAtColumn(int x, double width);

/// The height at which a sample is shown, from the bottom.
double heightOf(std::int16_t sample, double height);

} // namespace tonavelle::WaveformDrawing
