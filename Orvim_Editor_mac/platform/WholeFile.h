#pragma once

#include <QByteArray>
#include <QString>

namespace orvim {

/// Writes a file whole or not at all: into a temporary beside it that then takes its name. Where the folder allows no
/// new file, an existing one is written over. False when nothing could be written.
bool writeWholeFile(const QString& path, const QByteArray& bytes);

} // namespace orvim
