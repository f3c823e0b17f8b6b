#include "WebPages.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>

namespace orvim {

namespace {

/// The build tree and an installation keep the same places beside each other: the program, and ../share.
QUrl manualChapter(const QString& anchor)
{
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString path = programs.absoluteFilePath(QStringLiteral("../share/orvim-editor/manual/index.html"));
    QUrl address = QUrl::fromLocalFile(QDir::cleanPath(path));
    address.setFragment(anchor);
    return address;
}

} // namespace

QUrl manualPage()
{
    return manualChapter(QString());
}

QUrl firmwareUpdatePage()
{
    return manualChapter(QStringLiteral("firmware"));
}

QUrl fontPage()
{
    return QUrl(QStringLiteral("https://mplus-fonts.osdn.jp/mplus-bitmap-fonts/"));
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
