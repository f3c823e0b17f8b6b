#include "controls/ToneKeyboardGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvim::ToneKeyboardGeometry {

namespace {

constexpr int notesPerOctave = 12;
constexpr std::array<int, 7> whiteSteps{0, 2, 4, 5, 7, 9, 11};

struct BlackKey {
    int pitchClass;
    int offset; ///< from the octave's left edge
};
constexpr std::array<BlackKey, 5> blackKeys{{{1, 6}, {3, 15}, {6, 33}, {8, 42}, {10, 51}}};

} // namespace

int whiteNote(int key)
{
    const int note = notesPerOctave * (key / 7) + whiteSteps[static_cast<std::size_t>(key % 7)];
    return std::min(note, lastNote);
}

std::optional<int> blackKeyX(int note)
{
    const auto* const key = std::ranges::find(blackKeys, note % notesPerOctave, &BlackKey::pitchClass);
    if (key == blackKeys.end()) return std::nullopt;
    return octaveWidth * (note / notesPerOctave) + key->offset;
}

std::optional<int> noteAt(double x, double y)
{
    if (x < 0 || x >= keyboardWidth || y < 0 || y >= whiteHeight) return std::nullopt;
    if (y < blackHeight) {
        for (int note = 0; note <= lastNote; ++note)
            if (const auto left = blackKeyX(note); left && x >= *left && x < *left + blackWidth) return note;
    }
    return whiteNote(std::clamp(static_cast<int>(std::floor(x / whiteWidth)), 0, whiteKeyCount - 1));
}

int whiteKeyOf(int note)
{
    const auto above = std::ranges::upper_bound(whiteSteps, note % notesPerOctave);
    return 7 * (note / notesPerOctave) + static_cast<int>(above - whiteSteps.begin()) - 1;
}

} // namespace orvim::ToneKeyboardGeometry
