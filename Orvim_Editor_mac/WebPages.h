#pragma once

#include <QUrl>

namespace orvim {

/// The manual that is installed with the editor.
QUrl manualPage();
/// The manual's page on bringing the module's own software up to date.
QUrl firmwareUpdatePage();
/// The home of the fonts that the simulated screen is written in.
QUrl fontPage();
/// The home of the toolkit that the windows are made with.
QUrl toolkitPage();

/// Opens the page in the default browser; an address that cannot be formed does nothing.
void openWebPage(const QUrl& address);

} // namespace orvim
