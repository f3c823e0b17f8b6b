#pragma once

#include <vector>

namespace orvim {

/// The controls of an envelope, 0...127 each.
struct ADSRParameters {
    int attack = 0;
    int decay = 0;
    int sustainLevel = 0;
    int sustainRate = 0;
    int release = 0;
    bool releaseActive = true; ///< whether the note ends, and not the graph

    bool operator==(const ADSRParameters&) const = default;
};

struct EnvelopePoint {
    int time = 0;  ///< 0...192,000
    int level = 0; ///< 0...255

    bool operator==(const EnvelopePoint&) const = default;
};

/// The module's envelope, which goes by whole steps, as the corners of its curve.
namespace ADSREnvelope {

inline constexpr int duration = 192'000;
inline constexpr int noteOffTime = 96'000;
inline constexpr int fullLevel = 255;

/// From (0, 0) to (`duration`, 0). A step that is due exactly at the note's end or at the graph's is still taken.
std::vector<EnvelopePoint> points(const ADSRParameters& parameters);

} // namespace ADSREnvelope

} // namespace orvim
