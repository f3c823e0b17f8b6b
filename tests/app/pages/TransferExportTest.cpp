// Exports of pictures and of sounds onto a disk that is full and into a folder that takes no file.

#include "pages/ImageTransferPageActions.h"
#include "pages/SoundTransferPageActions.h"
#include "tests/app/support/HostileDisk.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/app/support/WaveFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <gtest/gtest.h>

namespace orvim {
namespace {

class TransferExport : public testing::Test
{
protected:
    void SetUp() override
    {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(sources.filePath(QStringLiteral("a.png"))));
        images.registerFiles({sources.filePath(QStringLiteral("a.png"))});
        test::writeFile(sources.filePath(QStringLiteral("a.wav")),
                        test::waveFile(std::vector<std::int16_t>(24'000, 1'000)));
        sounds.registerFiles({sources.filePath(QStringLiteral("a.wav"))});
        ASSERT_EQ(images.itemCount(), 1);
        ASSERT_EQ(sounds.itemCount(), 1);
    }

    QString target() const { return folder.filePath(QStringLiteral("出力.mid")); }
    QStringList names() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
    QString status() { return plugged.runtime.midiOutManager().statusMessage(); }

    QByteArray content() const
    {
        QFile file(target());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

    /// What the page reports of an export, which leaves its list as it is.
    QString exported(TransferListActions& page)
    {
        dialogs.pathToSave = target();
        page.exportMIDI();
        EXPECT_EQ(page.itemCount(), 1);
        return status();
    }

    QString exportedToFullDisk(TransferListActions& page)
    {
        const test::FullDisk disk(2'000);
        return exported(page);
    }

    /// Nothing where the user can not be kept out of the folder.
    std::optional<QString> exportedToLockedFolder(TransferListActions& page)
    {
        const QByteArray place = QFile::encodeName(folder.path());
        EXPECT_EQ(::chmod(place.constData(), 0555), 0);
        std::optional<QString> report;
        {
            const test::OrdinaryUser user;
            if (user.isOrdinary()) report = exported(page);
        }
        EXPECT_EQ(::chmod(place.constData(), 0700), 0);
        return report;
    }

    QTemporaryDir sources;
    QTemporaryDir folder;
    test::PluggedRuntime plugged;
    test::RecordingDialogs dialogs;
    ImageTransferPageActions images{plugged.runtime.midiOutManager(), plugged.runtime.displaySimulator(), dialogs};
    SoundTransferPageActions sounds{plugged.runtime.midiOutManager(), dialogs};
};

TEST_F(TransferExport, ReplacesAnOldFileAsAWhole)
{
    test::writeFile(target(), QByteArray(200'000, 'o'));
    EXPECT_EQ(exported(images), QStringLiteral("画像MIDIを書き出しました。"));
    const QByteArray pictures = content();
    EXPECT_TRUE(pictures.startsWith("MThd"));
    EXPECT_LT(pictures.size(), 10'000);
    EXPECT_EQ(exported(sounds), QStringLiteral("音声MIDIを書き出しました。"));
    EXPECT_TRUE(content().startsWith("MThd"));
    EXPECT_NE(content(), pictures);
    EXPECT_EQ(names().size(), 1) << "no temporary is left";
}

TEST_F(TransferExport, OnAFullDiskTheOldFileStaysWhole)
{
    test::writeFile(target(), "old");
    EXPECT_EQ(exportedToFullDisk(images), QStringLiteral("画像MIDIを書き出せません。"));
    EXPECT_EQ(content(), QByteArray("old"));
    EXPECT_EQ(exportedToFullDisk(sounds), QStringLiteral("音声MIDIを書き出せません。"));
    EXPECT_EQ(content(), QByteArray("old"));
    EXPECT_EQ(names().size(), 1) << "no temporary is left";
}

TEST_F(TransferExport, OnAFullDiskNoNewFileIsLeft)
{
    EXPECT_EQ(exportedToFullDisk(images), QStringLiteral("画像MIDIを書き出せません。"));
    EXPECT_EQ(exportedToFullDisk(sounds), QStringLiteral("音声MIDIを書き出せません。"));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(TransferExport, AFolderThatTakesNoFileIsReportedAndKeepsTheOldOne)
{
    test::writeFile(target(), "old");
    ASSERT_TRUE(QFile::setPermissions(target(), QFile::ReadOwner | QFile::ReadOther));
    const auto report = exportedToLockedFolder(images);
    if (!report) GTEST_SKIP() << "the root user could not become an ordinary one";
    EXPECT_EQ(*report, QStringLiteral("画像MIDIを書き出せません。"));
    EXPECT_EQ(exportedToLockedFolder(sounds), QStringLiteral("音声MIDIを書き出せません。"));
    EXPECT_EQ(content(), QByteArray("old"));
    EXPECT_EQ(names().size(), 1);
}

TEST_F(TransferExport, AFolderThatIsMissingIsReported)
{
    dialogs.pathToSave = folder.filePath(QStringLiteral("missing/a.mid"));
    images.exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("画像MIDIを書き出せません。"));
    sounds.exportMIDI();
    EXPECT_EQ(status(), QStringLiteral("音声MIDIを書き出せません。"));
}

} // namespace
} // namespace orvim
