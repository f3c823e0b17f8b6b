#include "pages/DroppedFiles.h"

#include <QFileInfo>

#include <algorithm>

namespace orvim {

namespace {

/// A remote address stays what it is: no file has that path, and so it is reported like one that cannot be read.
QString filePath(const QUrl& url)
{
    return url.isLocalFile() ? url.toLocalFile() : url.toString();
}

} // namespace

QStringList droppedFiles(const QList<QUrl>& urls, std::span<const char* const> extensions)
{
    QStringList paths;
    for (const QUrl& url : urls) {
        const QString extension = QFileInfo(url.path()).suffix().toLower();
        const auto isKnown = [&](const char* known) { return extension == QLatin1String(known); };
        if (std::ranges::any_of(extensions, isKnown)) paths << filePath(url);
    }
    return paths;
}

} // namespace orvim
