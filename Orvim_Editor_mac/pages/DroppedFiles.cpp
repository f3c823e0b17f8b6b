#include "pages/DroppedFiles.h"

#include <algorithm>

namespace orvim {

namespace {

/// A remote address stays what it is: no file has that path, and so it is reported like one that cannot be read.
QString filePath(const QUrl& url)
{
    return url.isLocalFile() ? url.toLocalFile() : url.toString();
}

/// In lower case. A folder may come with a slash behind its name, and a name that only begins with a dot has none.
QString extension(const QUrl& url)
{
    const QString name = url.adjusted(QUrl::StripTrailingSlash).fileName();
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? name.mid(dot + 1).toLower() : QString();
}

} // namespace

QStringList droppedFiles(const QList<QUrl>& urls, std::span<const char* const> extensions)
{
    QStringList paths;
    for (const QUrl& url : urls) {
        const auto isKnown = [found = extension(url)](const char* known) { return found == QLatin1String(known); };
        if (std::ranges::any_of(extensions, isKnown)) paths << filePath(url);
    }
    return paths;
}

} // namespace orvim
