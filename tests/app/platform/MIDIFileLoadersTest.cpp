#include "platform/MIDIFileLoaders.h"

#include "platform/Phase3FileError.h"
#include "platform/WholeFile.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"
#include "tests/support/Thrown.h"

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <gtest/gtest.h>

namespace orvim {
namespace {

using std::filesystem::filesystem_error;
using test::bytes;
using test::fileWithTrack;
using test::thrown;

class MIDIFileLoaders : public testing::Test
{
protected:
    /// The path of a new file of these bytes, with a name that needs its encoding.
    QString written(const tonavelle::Message& content)
    {
        const QString path = folder.filePath(QStringLiteral("歌 1.mid"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(reinterpret_cast<const char*>(content.data()), static_cast<qint64>(content.size()));
        return path;
    }

    QTemporaryDir folder;
};

TEST_F(MIDIFileLoaders, AFileIsReadWhole)
{
    EXPECT_EQ(readWholeFile(written(bytes("00 0A 0D FF"))), bytes("00 0A 0D FF"));
    EXPECT_EQ(readWholeFile(written({})), bytes(""));
}

TEST_F(MIDIFileLoaders, WhatIsNoPlainFileIsAnErrorOfTheFileSystem)
{
    EXPECT_THROW(readWholeFile(folder.filePath(QStringLiteral("missing.mid"))), filesystem_error);
    EXPECT_THROW(readWholeFile(folder.path()), filesystem_error);
    EXPECT_THROW(readWholeFile(QStringLiteral("/dev/zero")), filesystem_error);
    EXPECT_THROW(readWholeFile(QString()), filesystem_error);
}

TEST_F(MIDIFileLoaders, AFileLargerThanAnySongIsRefusedBeforeItIsRead)
{
    QFile file(written({}));
    ASSERT_TRUE(file.resize(qint64(1) << 40)) << "a sparse file";
    const auto error = thrown<filesystem_error>([&] { readWholeFile(file.fileName()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::file_too_large);
}

TEST_F(MIDIFileLoaders, EventsComeFromTheFile)
{
    const auto events = parseMIDIEvents(written(fileWithTrack("05 F0 03 01 02 F7")));
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].message(), bytes("F0 01 02 F7"));
}

TEST_F(MIDIFileLoaders, AFileThatIsNoSongIsRefusedWithTheLoadersOwnError)
{
    const QString path = written(bytes("4D 54 68 64 00"));
    EXPECT_EQ(thrown<Phase3FileError>([&] { parseMIDIEvents(path); }), Phase3FileError::cannotReadMIDI);
}

TEST_F(MIDIFileLoaders, AMissingFileIsNoFaultOfItsContent)
{
    EXPECT_THROW(parseMIDIEvents(folder.filePath(QStringLiteral("missing.mid"))), filesystem_error);
}

} // namespace
} // namespace orvim
