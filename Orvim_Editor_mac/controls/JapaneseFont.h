#pragma once

#include <QFont>

namespace orvim {

/// The font with faces of Japanese shapes in front of its own: without them kanji come out in Chinese shapes or as
/// boxes on systems that are not set up for Japanese.
QFont withJapaneseFirst(const QFont& font);
/// A fixed-width font that takes its kanji from Japanese faces.
QFont japaneseFixedFont();

} // namespace orvim
