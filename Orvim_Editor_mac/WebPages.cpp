#include "WebPages.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>

namespace orvim {

namespace {

/// The build tree and an installation keep the same places beside each other: the program, and ../share.
QUrl manualFile(const QString& name)
{
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString path = programs.absoluteFilePath(QStringLiteral("../share/orvim-editor/manual/") + name);
    return QUrl::fromLocalFile(QDir::cleanPath(path));
}

} // namespace

QUrl manualPage()
{
    return manualFile(QStringLiteral("index.html"));
}

QUrl firmwareUpdatePage()
{
    return manualFile(QStringLiteral("firmware.html"));
}

QUrl fontPage()
{
    return QUrl(QStringLiteral("https://mplusfonts.github.io/"));
}

QUrl toolkitPage()
{
    return QUrl(QStringLiteral("https://www.qt.io/"));
}

void openWebPage(const QUrl& address)
{
    if (address.isValid()) QDesktopServices::openUrl(address);
}

} // namespace orvim
