#include "platform/WholeFile.h"

#include <QFile>
#include <QSaveFile>

#include <system_error>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace orvim {

namespace {

constexpr std::uintmax_t largestFileSize = 512 * 1024 * 1024;

bool fill(QFile& file, const QByteArray& bytes)
{
    return file.seek(0) && file.write(bytes) == bytes.size() && file.flush();
}

/// For a file that may be written in a folder that takes no new one. The room is taken first, so that a full disk is
/// found out while the old contents still stand.
bool overwriteInPlace(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) return false;
    const qint64 formerSize = file.size();
    const QByteArray former = file.read(bytes.size());
    const bool isReplaced = (bytes.isEmpty() || posix_fallocate(file.handle(), 0, bytes.size()) == 0) &&
                            fill(file, bytes) && file.resize(bytes.size()) && fsync(file.handle()) == 0;
    if (!isReplaced && fill(file, former)) file.resize(formerSize);
    return isReplaced;
}

[[noreturn]] void fail(const std::filesystem::path& file, int error)
{
    throw std::filesystem::filesystem_error("cannot read", file, std::error_code(error, std::generic_category()));
}

} // namespace

std::vector<std::uint8_t> readWholeFile(const QString& path)
{
    const std::filesystem::path file(QFile::encodeName(path).toStdString());
    const std::uintmax_t size = std::filesystem::file_size(file); // refuses what is no plain file, and so never waits
    if (size > largestFileSize) fail(file, EFBIG);
    std::ifstream stream(file, std::ios::binary);
    if (!stream) fail(file, errno);
    std::vector<std::uint8_t> bytes(size);
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    if (stream.bad()) fail(file, EIO);
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

bool writeWholeFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return overwriteInPlace(path, bytes);
    // A disk that fills up takes the first part of the bytes, which the file by itself counts as no failure.
    const bool isWhole = file.write(bytes) == bytes.size() && file.flush() && file.size() == bytes.size();
    if (!isWhole) file.cancelWriting();
    return file.commit();
}

bool writeWholeFile(const QString& path, const std::vector<std::uint8_t>& bytes)
{
    return writeWholeFile(path, QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                                        static_cast<qsizetype>(bytes.size())));
}

} // namespace orvim
