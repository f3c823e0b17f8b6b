#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

namespace orvim {

/// A file's bytes. Throws std::filesystem::filesystem_error when it is missing, no plain file, not readable, or larger
/// than 512 MiB, which nothing that the editor reads as a whole comes near.
std::vector<std::uint8_t> readWholeFile(const QString& path);

/// Writes a file whole or not at all: into a temporary beside it that then takes its name, so also an old file in a
/// folder that takes no new one stays as it is. False when nothing was written.
bool writeWholeFile(const QString& path, const QByteArray& bytes);
bool writeWholeFile(const QString& path, const std::vector<std::uint8_t>& bytes);

} // namespace orvim
