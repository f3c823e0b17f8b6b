#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

namespace orvim {

/// A file's bytes. Throws std::filesystem::filesystem_error when it is missing, no plain file, not readable, or larger
/// than 512 MiB, which nothing that the editor reads as a whole comes near.
std::vector<std::uint8_t> readWholeFile(const QString& path);

/// Writes a file whole or not at all: into a temporary beside it that then takes its name. Where the folder allows no
/// new file, an existing one is written over. False when nothing could be written.
bool writeWholeFile(const QString& path, const QByteArray& bytes);
bool writeWholeFile(const QString& path, const std::vector<std::uint8_t>& bytes);

} // namespace orvim
