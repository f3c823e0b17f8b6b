#pragma once

class QApplication;

namespace orvim {

/// Makes a Qt application a Japanese one on any desktop: its name, icon and desktop entry, faces with Japanese shapes
/// first, and the toolkit's own dialogs in Japanese whatever the system's language is.
void applyApplicationStyle(QApplication& application);

} // namespace orvim
