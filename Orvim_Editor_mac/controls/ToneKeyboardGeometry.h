#pragma once

#include <optional>

namespace orvim {

/// The drawing of the on-screen keyboard: 75 white keys, the notes 0...127. Edges are half open.
namespace ToneKeyboardGeometry {

inline constexpr int whiteWidth = 9;
inline constexpr int whiteHeight = 24;
inline constexpr int blackWidth = 6;
inline constexpr int blackHeight = 16;
inline constexpr int whiteKeyCount = 75;
inline constexpr int octaveWidth = 7 * whiteWidth;
inline constexpr int keyboardWidth = whiteKeyCount * whiteWidth;
inline constexpr int lastNote = 127;

/// The note of a white key, counted from the left.
int whiteNote(int key);

/// Where a black key begins, from the left; nothing for the note of a white one.
std::optional<int> blackKeyX(int note);

/// The note under a point of the keyboard's coordinates, `y` from the top; nothing outside the keyboard.
std::optional<int> noteAt(double x, double y);

/// The white key on which a note stands, or to the right of which it does.
int whiteKeyOf(int note);

} // namespace ToneKeyboardGeometry

} // namespace orvim
