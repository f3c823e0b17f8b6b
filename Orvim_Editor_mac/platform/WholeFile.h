#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

namespace orvim {

/// A file's bytes. Throws std::filesystem::filesystem_error when it is missing, no plain file, not readable, or larger
/// than 512 MiB, which nothing that the editor reads as a whole comes near.
std::vector<std::uint8_t> readWholeFile(const QString& path);

/// Writes a file whole or not at all: into a temporary beside it that then takes its name, or over the old contents
/// where the folder takes no new file. False when the old file stands as it was.
bool writeWholeFile(const QString& path, const QByteArray& bytes);
bool writeWholeFile(const QString& path, const std::vector<std::uint8_t>& bytes);

} // namespace orvim
