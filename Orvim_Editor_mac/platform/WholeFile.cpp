#include "platform/WholeFile.h"

#include <QSaveFile>

namespace orvim {

bool writeWholeFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.write(bytes);
    return file.commit();
}

} // namespace orvim
