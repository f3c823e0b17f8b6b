#include "core/tone/FactoryDrumTable.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>

namespace tonavelle {
namespace {

struct DrumRow {
    int note;
    const char* name;
    std::uint8_t waveType, waveNumber, ringModMultiply, ringModGain, sweepType, sweepSpeed;
    std::uint8_t attack, decay, sustainLevel, sustainRate, release, outputGain, noteNumber;
};

// clang-format off
constexpr std::array<DrumRow, 47> percussionMap{{
    // note, name, wave, number, multiply, gain, sweep, speed, attack, decay, level, rate, release, output, pitch
    {35, "Acoustic Bass Drum", 6,  4,  31,   0, 2,   0, 0,  0, 127,   0, 0, 78, 69},
    {36, "Bass Drum 1",        6,  5,  31,   0, 2,   0, 0,  0, 127,   0, 0, 78, 69},
    {37, "Side Stick",         6,  3,  31,   0, 2,   0, 0,  0, 127,   0, 0, 78, 69},
    {38, "Acoustic Snare",     6,  1,  31,   0, 2,   0, 0,  0, 127,   0, 0, 78, 69},
    {39, "Hand Clap",          6,  6,  31,   0, 2,   0, 0,  0, 127,   0, 0, 78, 65},
    {40, "Electric Snare",     6,  2,  31,   0, 2,   0, 0,  0, 127,   0, 0, 65, 69},
    {41, "Low Floor Tom",      6,  0,  31,   0, 2,   0, 0,  0, 127,   0, 0, 65, 60},
    {42, "Closed Hi Hat",      6, 11,  31,   0, 2,   0, 0,  0, 127,   0, 0, 91, 69},
    {43, "High Floor Tom",     6,  0,  31,   0, 2,   0, 0,  0, 127,   0, 0, 65, 63},
    {44, "Pedal Hi-Hat",       6, 12,  31,   0, 2,   0, 0,  0, 127,   0, 0, 78, 69},
    {45, "Low Tom",            6,  0,  31,   0, 2,   0, 0,  0, 127,   0, 0, 65, 66},
    {46, "Open Hi-Hat",        6, 10,  31,   0, 2,   0, 0,  0, 127,   0, 0, 58, 69},
    {47, "Low-Mid Tom",        6,  0,  31,   0, 2,   0, 0,  0, 127,   0, 0, 65, 69},
    {48, "Hi-Mid Tom",         6,  0,  31,   0, 2,   0, 0,  0, 127,   0, 0, 65, 72},
    {49, "Crash Cymbal 1",     6,  9,  31,   0, 2,   0, 0,  0, 127,   0, 0, 80, 69},
    {50, "High Tom",           6,  0,  31,   0, 2,   0, 0,  0, 127,   0, 0, 50, 75},
    {51, "Ride Cymbal 1",      6,  8,  31,   0, 2,   0, 0,  0, 127,   0, 0, 91, 65},
    {52, "Chinese Cymbal",     6,  9,  31,   0, 2,   0, 0,  0, 127,   0, 0, 80, 55},
    {53, "Ride Bell",          6,  8,  31,   0, 2,   0, 0,  0, 127,   0, 0, 91, 67},
    {54, "Tambourine",         4,  0,  31,  80, 2,   0, 0,  6,  25, 127, 0, 60, 80},
    {55, "Splash Cymbal",      6,  7,  31,   0, 2,   0, 0,  0, 127,   0, 0, 65, 69},
    {56, "Cowbell",            2,  0, 118, 120, 2,   0, 1,  3,  25,  70, 0, 60, 71},
    {57, "Crash Cymbal 2",     6,  9,  31,   0, 2,   0, 0,  0, 127,   0, 0, 80, 72},
    {58, "Vibraslap",          4,  0,  20, 127, 2,   0, 1,  3,  75,  37, 0, 45, 15},
    {59, "Ride Cymbal 2",      6,  8,  31,   0, 2,   0, 0,  0, 127,   0, 0, 91, 69},
    {60, "Hi Bongo",           0,  0,  55, 127, 2,   0, 0, 13,  10,  40, 0, 45, 71},
    {61, "Low Bongo",          0,  0,  55, 127, 2,   0, 0, 13,  10,  40, 0, 60, 60},
    {62, "Mute Hi Conga",      0,  0,  55, 127, 2,   0, 0,  5,  15,  50, 0, 60, 56},
    {63, "Open Hi Conga",      0,  0,  55, 127, 2,   0, 0,  5,  15,  40, 0, 60, 64},
    {64, "Low Conga",          0,  0,  55, 127, 2,   0, 0,  2,  25,  80, 0, 60, 60},
    {65, "High Timbale",       2,  0,  70, 127, 2,   0, 0,  2,  45, 120, 0, 60, 62},
    {66, "Low Timbale",        2,  0,  70, 127, 2,   0, 0,  2,  45, 120, 0, 60, 59},
    {67, "High Agogo",         2,  0, 122, 127, 2,   0, 0,  3,  30, 127, 0, 60, 81},
    {68, "Low Agogo",          2,  0, 122, 127, 2,   0, 0,  3,  30, 127, 0, 60, 75},
    {69, "Cabasa",             4,  0, 127, 127, 2,   0, 6,  3,  25, 127, 0, 45, 75},
    {70, "Maracas",            4,  0, 127, 127, 1, 127, 2,  3,  25, 127, 0, 45, 75},
    {71, "Short Whistle",      3,  0,  97, 127, 2,   0, 2,  3,  25, 127, 0, 60, 87},
    {72, "Long Whistle",       3,  0,  97, 127, 2,  17, 2,  3,  25,  10, 0, 60, 83},
    {73, "Short Guiro",        4,  0, 120, 127, 2,  45, 1,  3,  25,  10, 0, 45, 19},
    {74, "Long Guiro",         4,  0, 120, 127, 0,  17, 1,  3,  25,  10, 0, 60, 19},
    {75, "Claves",             0,  0, 100, 127, 2, 110, 0,  1,  50,   0, 0, 45, 84},
    {76, "Hi Wood Block",      2,  0,  88, 120, 2,  60, 0,  1,  40, 127, 0, 60, 82},
    {77, "Low Wood Block",     2,  0,  88, 120, 2,  60, 0,  1,  40, 127, 0, 60, 77},
    {78, "Mute Cuica",         1,  0, 100, 127, 2,  45, 1,  5,  30,  80, 0, 38, 77},
    {79, "Open Cuica",         1,  0, 100, 127, 2,  45, 1,  5,  30,  80, 0, 38, 71},
    {80, "Mute Triangle",      1,  0,  86, 120, 2,  80, 0,  3,  30,   0, 0, 38, 90},
    {81, "Open Triangle",      1,  0,  86, 120, 2,   0, 0,  3,  30,  20, 0, 38, 90},
}};
// clang-format on

TEST(FactoryDrumTable, HoldsThePercussionMap)
{
    for (const DrumRow& row : percussionMap) {
        const ChannelToneParameters sound({.isReleaseActive = false,
                                           .waveType = row.waveType,
                                           .waveNumber = row.waveNumber,
                                           .ringModMultiply = row.ringModMultiply,
                                           .ringModGain = row.ringModGain,
                                           .sweepType = row.sweepType,
                                           .sweepSpeed = row.sweepSpeed,
                                           .attack = row.attack,
                                           .decay = row.decay,
                                           .sustainLevel = row.sustainLevel,
                                           .sustainRate = row.sustainRate,
                                           .release = row.release,
                                           .outputGain = row.outputGain});
        EXPECT_EQ(defaultUserDrumPatch(row.note), (UserDrumDefaultPatch{row.name, sound, row.noteNumber}))
            << row.note << " " << row.name;
    }
}

TEST(FactoryDrumTable, Note81IsTheOpenTriangle)
{
    const UserDrumDefaultPatch patch = defaultUserDrumPatch(81);
    EXPECT_EQ(patch.name, "Open Triangle");
    EXPECT_EQ(patch.noteNumber, 90);
    EXPECT_EQ(patch.parameters, ChannelToneParameters({.isReleaseActive = false,
                                                       .waveType = 1,
                                                       .waveNumber = 0,
                                                       .ringModMultiply = 86,
                                                       .ringModGain = 120,
                                                       .sweepType = 2,
                                                       .sweepSpeed = 0,
                                                       .attack = 0,
                                                       .decay = 3,
                                                       .sustainLevel = 30,
                                                       .sustainRate = 20,
                                                       .release = 0,
                                                       .outputGain = 38}));
}

TEST(FactoryDrumTable, NotesOutsideTheMapShareOneNamelessSound)
{
    const UserDrumDefaultPatch patch = defaultUserDrumPatch(34);
    EXPECT_EQ(patch.name, "");
    EXPECT_EQ(patch.noteNumber, 38);
    EXPECT_EQ(patch.parameters, ChannelToneParameters({.isReleaseActive = false,
                                                       .waveType = 1,
                                                       .waveNumber = 0,
                                                       .ringModMultiply = 31,
                                                       .ringModGain = 127,
                                                       .sweepType = 1,
                                                       .sweepSpeed = 64,
                                                       .attack = 0,
                                                       .decay = 0,
                                                       .sustainLevel = 127,
                                                       .sustainRate = 0,
                                                       .release = 0,
                                                       .outputGain = 60}));
    for (const int note : {0, 33, 82, 127})
        EXPECT_EQ(defaultUserDrumPatch(note), patch) << note;
}

} // namespace
} // namespace tonavelle
