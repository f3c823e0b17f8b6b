#include "core/tone/FactoryDrumTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tonavelle {
namespace {

constexpr std::uint8_t sine = 0, square = 1, triangle = 2, saw = 3, whiteNoise = 4, pcm = 6;
constexpr std::uint8_t sweepUp = 0, sweepDown = 1, noSweep = 2;

struct DrumRow {
    std::string_view name;
    std::uint8_t waveType, waveNumber, ringModMultiply, ringModGain, sweepType, sweepSpeed;
    std::uint8_t attack, decay, sustainLevel, sustainRate, release, outputGain, noteNumber;
};

constexpr int firstNote = 35;

// The low pitches of Vibraslap and the two Guiros are meant: their noise is slowed down by them.
// clang-format off
constexpr std::array<DrumRow, 47> drumRows{{
    // name                wave    number mult gain  sweep      speed A   D   SL   SR  R  gain pitch
    {"Acoustic Bass Drum",  pcm,         4,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 78, 69},
    {"Bass Drum 1",         pcm,         5,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 78, 69},
    {"Side Stick",          pcm,         3,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 78, 69},
    {"Acoustic Snare",      pcm,         1,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 78, 69},
    {"Hand Clap",           pcm,         6,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 78, 65},
    {"Electric Snare",      pcm,         2,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 65, 69},
    {"Low Floor Tom",       pcm,         0,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 65, 60},
    {"Closed Hi Hat",       pcm,        11,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 91, 69},
    {"High Floor Tom",      pcm,         0,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 65, 63},
    {"Pedal Hi-Hat",        pcm,        12,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 78, 69},
    {"Low Tom",             pcm,         0,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 65, 66},
    {"Open Hi-Hat",         pcm,        10,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 58, 69},
    {"Low-Mid Tom",         pcm,         0,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 65, 69},
    {"Hi-Mid Tom",          pcm,         0,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 65, 72},
    {"Crash Cymbal 1",      pcm,         9,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 80, 69},
    {"High Tom",            pcm,         0,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 50, 75},
    {"Ride Cymbal 1",       pcm,         8,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 91, 65},
    {"Chinese Cymbal",      pcm,         9,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 80, 55},
    {"Ride Bell",           pcm,         8,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 91, 67},
    {"Tambourine",          whiteNoise,  0,  31,  80, noSweep,     0, 0,  6,  25, 127, 0, 60, 80},
    {"Splash Cymbal",       pcm,         7,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 65, 69},
    {"Cowbell",             triangle,    0, 118, 120, noSweep,     0, 1,  3,  25,  70, 0, 60, 71},
    {"Crash Cymbal 2",      pcm,         9,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 80, 72},
    {"Vibraslap",           whiteNoise,  0,  20, 127, noSweep,     0, 1,  3,  75,  37, 0, 45, 15},
    {"Ride Cymbal 2",       pcm,         8,  31,   0, noSweep,     0, 0,  0, 127,   0, 0, 91, 69},
    {"Hi Bongo",            sine,        0,  55, 127, noSweep,     0, 0, 13,  10,  40, 0, 45, 71},
    {"Low Bongo",           sine,        0,  55, 127, noSweep,     0, 0, 13,  10,  40, 0, 60, 60},
    {"Mute Hi Conga",       sine,        0,  55, 127, noSweep,     0, 0,  5,  15,  50, 0, 60, 56},
    {"Open Hi Conga",       sine,        0,  55, 127, noSweep,     0, 0,  5,  15,  40, 0, 60, 64},
    {"Low Conga",           sine,        0,  55, 127, noSweep,     0, 0,  2,  25,  80, 0, 60, 60},
    {"High Timbale",        triangle,    0,  70, 127, noSweep,     0, 0,  2,  45, 120, 0, 60, 62},
    {"Low Timbale",         triangle,    0,  70, 127, noSweep,     0, 0,  2,  45, 120, 0, 60, 59},
    {"High Agogo",          triangle,    0, 122, 127, noSweep,     0, 0,  3,  30, 127, 0, 60, 81},
    {"Low Agogo",           triangle,    0, 122, 127, noSweep,     0, 0,  3,  30, 127, 0, 60, 75},
    {"Cabasa",              whiteNoise,  0, 127, 127, noSweep,     0, 6,  3,  25, 127, 0, 45, 75},
    {"Maracas",             whiteNoise,  0, 127, 127, sweepDown, 127, 2,  3,  25, 127, 0, 45, 75},
    {"Short Whistle",       saw,         0,  97, 127, noSweep,     0, 2,  3,  25, 127, 0, 60, 87},
    {"Long Whistle",        saw,         0,  97, 127, noSweep,    17, 2,  3,  25,  10, 0, 60, 83},
    {"Short Guiro",         whiteNoise,  0, 120, 127, noSweep,    45, 1,  3,  25,  10, 0, 45, 19},
    {"Long Guiro",          whiteNoise,  0, 120, 127, sweepUp,    17, 1,  3,  25,  10, 0, 60, 19},
    {"Claves",              sine,        0, 100, 127, noSweep,   110, 0,  1,  50,   0, 0, 45, 84},
    {"Hi Wood Block",       triangle,    0,  88, 120, noSweep,    60, 0,  1,  40, 127, 0, 60, 82},
    {"Low Wood Block",      triangle,    0,  88, 120, noSweep,    60, 0,  1,  40, 127, 0, 60, 77},
    {"Mute Cuica",          square,      0, 100, 127, noSweep,    45, 1,  5,  30,  80, 0, 38, 77},
    {"Open Cuica",          square,      0, 100, 127, noSweep,    45, 1,  5,  30,  80, 0, 38, 71},
    {"Mute Triangle",       square,      0,  86, 120, noSweep,    80, 0,  3,  30,   0, 0, 38, 90},
    {"Open Triangle",       square,      0,  86, 120, noSweep,     0, 0,  3,  30,  20, 0, 38, 90},
}};
// clang-format on

constexpr DrumRow otherNotes{"", square, 0, 31, 127, sweepDown, 64, 0, 0, 127, 0, 0, 60, 38};

const DrumRow& row(int note)
{
    const auto index = static_cast<std::size_t>(note - firstNote); // a note below the first wraps past the end
    return index < drumRows.size() ? drumRows[index] : otherNotes;
}

} // namespace

UserDrumDefaultPatch defaultUserDrumPatch(int note)
{
    const DrumRow& drum = row(note);
    return {
        .name = std::string(drum.name),
        .parameters = ChannelToneParameters({
            .isReleaseActive = false,
            .waveType = drum.waveType,
            .waveNumber = drum.waveNumber,
            .ringModMultiply = drum.ringModMultiply,
            .ringModGain = drum.ringModGain,
            .sweepType = drum.sweepType,
            .sweepSpeed = drum.sweepSpeed,
            .attack = drum.attack,
            .decay = drum.decay,
            .sustainLevel = drum.sustainLevel,
            .sustainRate = drum.sustainRate,
            .release = drum.release,
            .outputGain = drum.outputGain,
        }),
        .noteNumber = drum.noteNumber,
    };
}

} // namespace tonavelle
