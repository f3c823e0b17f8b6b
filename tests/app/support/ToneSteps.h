#pragma once

#include "core/tone/ToneParameterTable.h"
#include "tests/support/Bytes.h"

#include <array>
#include <initializer_list>

namespace orvim::test {

using ID = tonavelle::ToneParameterID;

inline tonavelle::Batch batch(std::initializer_list<const char*> messages)
{
    tonavelle::Batch result;
    for (const char* const message : messages)
        result.push_back(bytes(message));
    return result;
}

/// One step of a control from its default, and what it sends.
struct ToneStep {
    ID id;
    double value;
    const char* label;
    std::initializer_list<const char*> messages;
};

// clang-format off
/// Every control of a channel but the three that choose its sound, on channel 3.
inline const std::array<ToneStep, 30> channelSteps{{
    {ID::reverbSend,       21, "Reverb",           {"B2 5B 15"}},
    {ID::chorusSend,        1, "Chorus",           {"B2 5D 01"}},
    {ID::delaySend,         1, "Delay",            {"B2 5E 01"}},
    {ID::distortionType,    1, "Dist Type",        {"B2 63 08", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::distortionLevel, 126, "Dist Level",       {"B2 63 08", "B2 62 01", "B2 06 7E", "B2 26 00"}},
    {ID::distortionGain,   65, "Dist Gain",        {"B2 63 08", "B2 62 02", "B2 06 41", "B2 26 00"}},
    {ID::cutOff,            1, "Cut Off",          {"B2 4A 41"}},
    {ID::resonance,        -1, "Resonance",        {"B2 47 3F"}},
    {ID::unisonNumber,      1, "Unison Num",       {"B2 63 09", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::unisonDetune,     -1, "Unison Detune",    {"B2 63 09", "B2 62 01", "B2 06 3F", "B2 26 00"}},
    {ID::volume,          101, "Volume",           {"B2 07 65"}},
    {ID::expression,      126, "Expression",       {"B2 0B 7E"}},
    {ID::panpot,            1, "Panpot",           {"B2 0A 41"}},
    {ID::vibratoRate,       1, "Vibrato Rate",     {"B2 4C 41"}},
    {ID::pitchBendSensitivity, 3, "PB Sensitivity", {"B2 65 00", "B2 64 00", "B2 06 03", "B2 26 00"}},
    {ID::fineTuning,       -1, "Fine Tuning",      {"B2 65 00", "B2 64 01", "B2 06 3F", "B2 26 7F"}},
    {ID::coarseTuning,      1, "Coarse Tuning",    {"B2 65 00", "B2 64 02", "B2 06 41", "B2 26 00"}},
    {ID::waveType,          1, "Wave Type",        {"B2 63 02", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::waveNumber,        1, "Wave Num",         {"B2 63 02", "B2 62 01", "B2 06 01", "B2 26 00"}},
    {ID::ringModMultiply,  32, "Ringmod Multiply", {"B2 63 03", "B2 62 00", "B2 06 20", "B2 26 00"}},
    {ID::ringModGain,      71, "Ringmod Gain",     {"B2 63 03", "B2 62 01", "B2 06 47", "B2 26 00"}},
    {ID::attack,            1, "Attack Time",      {"B2 49 01"}},
    {ID::decay,             6, "Decay Time",       {"B2 4B 06"}},
    {ID::sustainLevel,     91, "Sustain Level",    {"B2 63 06", "B2 62 01", "B2 06 5B", "B2 26 00"}},
    {ID::sustainRate,      13, "Sustain Rate",     {"B2 63 06", "B2 62 00", "B2 06 0D", "B2 26 00"}},
    {ID::release,           1, "Release Time",     {"B2 48 01"}},
    {ID::isReleaseActive,   0, "Release Active",   {"B2 63 06", "B2 62 0A", "B2 06 01", "B2 26 00"}},
    {ID::sweepType,         1, "Sweep Type",       {"B2 63 04", "B2 62 00", "B2 06 01", "B2 26 00"}},
    {ID::sweepSpeed,        1, "Sweep Speed",      {"B2 63 04", "B2 62 01", "B2 06 01", "B2 26 00"}},
    {ID::outputGain,       49, "Output Gain",      {"B2 63 02", "B2 62 02", "B2 06 31", "B2 26 00"}},
}};

/// Every control of the master values.
inline const std::array<ToneStep, 6> masterSteps{{
    {ID::reverbType,          1, "Reverb Type",         {"B0 63 07", "B0 62 14", "B0 06 01", "B0 26 00"}},
    {ID::chorusDepth,        99, "Chorus Depth",        {"B0 63 07", "B0 62 0A", "B0 06 63", "B0 26 00"}},
    {ID::chorusFrequency,    10, "Chorus Freq",         {"B0 63 07", "B0 62 0B", "B0 06 0A", "B0 26 00"}},
    {ID::delayTime,         126, "Delay Time",          {"B0 63 07", "B0 62 00", "B0 06 7E", "B0 26 00"}},
    {ID::delayFeedbackGain, 121, "Delay Feedback Gain", {"B0 63 07", "B0 62 01", "B0 06 79", "B0 26 00"}},
    {ID::masterVolume,      126, "Master Volume",       {"F0 7F 7F 04 01 00 7E F7"}},
}};
// clang-format on

} // namespace orvim::test
