#pragma once

#include <array>

namespace orvim {

/// One blink cycle is 72 ticks of 0.07 s: a single blink at its start, a double one in its middle.
inline constexpr int blinkCycleTicks = 72;

/// From tick `state` on the face shows the eye bitmap `eye`: 0 open, 1 half closed, 2 closed.
struct BlinkStep {
    int state = 0;
    int eye = 0;
};

inline constexpr std::array<BlinkStep, 11> blinkSteps{{
    {0, 0},
    {1, 1},
    {2, 2},
    {3, 0},
    {34, 0},
    {35, 1},
    {36, 2},
    {37, 0},
    {38, 1},
    {39, 2},
    {40, 0},
}};

} // namespace orvim
