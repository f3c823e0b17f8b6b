#include "platform/WholeFile.h"

#include "tests/app/support/HostileDisk.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <gtest/gtest.h>
#include <optional>

namespace orvim {
namespace {

using test::FullDisk;
using test::OrdinaryUser;

class WriteWholeFile : public testing::Test
{
protected:
    QString path() const { return folder.filePath(QStringLiteral("画面.png")); }

    void writeOld()
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(old);
    }

    QByteArray content() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

    QStringList names() const { return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

    /// Writes while everyone may enter the folder and nobody may change what stands in it. Nothing where the user can
    /// not be kept out.
    std::optional<bool> writeIntoLockedFolder(const QByteArray& bytes) const
    {
        const QByteArray place = QFile::encodeName(folder.path());
        EXPECT_EQ(::chmod(place.constData(), 0555), 0);
        std::optional<bool> isWritten;
        {
            const OrdinaryUser user;
            if (user.isOrdinary()) isWritten = writeWholeFile(path(), bytes);
        }
        EXPECT_EQ(::chmod(place.constData(), 0700), 0);
        return isWritten;
    }

    const QByteArray old = QByteArray(3000, 'o');
    const QByteArray fresh = QByteArray(100'000, 'n');
    QTemporaryDir folder;
};

TEST_F(WriteWholeFile, MakesANewFile)
{
    EXPECT_TRUE(writeWholeFile(path(), fresh));
    EXPECT_EQ(content(), fresh);
    EXPECT_EQ(names().size(), 1) << "no temporary is left";
}

TEST_F(WriteWholeFile, ReplacesALongerFile)
{
    writeOld();
    EXPECT_TRUE(writeWholeFile(path(), "short"));
    EXPECT_EQ(content(), QByteArray("short"));
    EXPECT_EQ(names().size(), 1);
}

TEST_F(WriteWholeFile, OnAFullDiskTheOldFileStaysWhole)
{
    writeOld();
    // The large one fails as it is written, the small one, which waits in a buffer, only afterwards.
    for (const QByteArray& bytes : {fresh, QByteArray(5000, 's')}) {
        bool isWritten = true;
        {
            const FullDisk disk(4096);
            isWritten = writeWholeFile(path(), bytes);
        }
        EXPECT_FALSE(isWritten);
        EXPECT_EQ(content(), old);
        EXPECT_EQ(names().size(), 1) << "no temporary is left";
    }
}

TEST_F(WriteWholeFile, OnAFullDiskNoNewFileIsLeft)
{
    bool isWritten = true;
    {
        const FullDisk disk(4096);
        isWritten = writeWholeFile(path(), fresh);
    }
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(WriteWholeFile, AFolderThatIsMissingOrAFolderInItsPlaceIsRefused)
{
    EXPECT_FALSE(writeWholeFile(folder.filePath(QStringLiteral("missing/a.png")), fresh));
    EXPECT_FALSE(writeWholeFile(folder.path(), fresh));
    EXPECT_FALSE(writeWholeFile(QString(), fresh));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(WriteWholeFile, AFolderThatTakesNoNewFileStaysEmpty)
{
    const auto isWritten = writeIntoLockedFolder(fresh);
    if (!isWritten) GTEST_SKIP() << "the root user could not become an ordinary one";
    EXPECT_FALSE(*isWritten);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(WriteWholeFile, InAFolderThatTakesNoNewFileAnOldOneThatMayBeWrittenIsReplaced)
{
    writeOld();
    EXPECT_TRUE(QFile::setPermissions(path(), QFile::Permissions(0x6666)));
    for (const QByteArray& bytes : {fresh, QByteArray("short"), QByteArray()}) {
        const auto isWritten = writeIntoLockedFolder(bytes);
        if (!isWritten) GTEST_SKIP() << "the root user could not become an ordinary one";
        EXPECT_TRUE(*isWritten);
        EXPECT_EQ(content(), bytes);
        EXPECT_EQ(names().size(), 1);
    }
}

TEST_F(WriteWholeFile, InAFolderThatTakesNoNewFileOneThatIsReadOnlyStaysWhole)
{
    writeOld();
    EXPECT_TRUE(QFile::setPermissions(path(), QFile::Permissions(0x4444)));
    const auto isWritten = writeIntoLockedFolder(fresh);
    if (!isWritten) GTEST_SKIP() << "the root user could not become an ordinary one";
    EXPECT_FALSE(*isWritten);
    EXPECT_EQ(content(), old);
}

TEST_F(WriteWholeFile, InAFolderThatTakesNoNewFileAnOldOneStaysWholeOnAFullDisk)
{
    writeOld();
    EXPECT_TRUE(QFile::setPermissions(path(), QFile::Permissions(0x6666)));
    // Full behind the old contents, and already within them.
    for (const rlim_t room : {rlim_t{4096}, rlim_t{1000}}) {
        std::optional<FullDisk> disk(room);
        const auto isWritten = writeIntoLockedFolder(fresh);
        disk.reset();
        if (!isWritten) GTEST_SKIP() << "the root user could not become an ordinary one";
        EXPECT_FALSE(*isWritten);
        EXPECT_EQ(content(), old);
        EXPECT_EQ(names().size(), 1);
    }
}

} // namespace
} // namespace orvim
