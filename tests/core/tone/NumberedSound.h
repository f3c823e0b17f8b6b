#pragma once

#include "core/tone/ToneRecords.h"

namespace tonavelle::test {

/// A sound whose values rise by one in the order of the patch message, so that a swap of two shows.
inline ChannelToneParameters numberedSound()
{
    return ChannelToneParameters({.isReleaseActive = false,
                                  .waveType = 1,
                                  .waveNumber = 2,
                                  .ringModMultiply = 3,
                                  .ringModGain = 4,
                                  .sweepType = 0,
                                  .sweepSpeed = 6,
                                  .attack = 7,
                                  .decay = 8,
                                  .sustainLevel = 9,
                                  .sustainRate = 10,
                                  .release = 11,
                                  .outputGain = 13});
}

} // namespace tonavelle::test
