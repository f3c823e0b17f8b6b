// Sounds on a disk that fails. libsndfile reads its files by read(), which this file stands in for.

#include "platform/Phase3FileError.h"
#include "platform/SoundTransferItems.h"
#include "tests/app/support/WaveFile.h"
#include "tests/support/Thrown.h"

#include <QScopeGuard>
#include <QTemporaryDir>

#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>

namespace {

/// The place in any file from which this thread reads nothing but errors; absent while the disk is whole.
thread_local std::optional<off_t> damagedFrom;

} // namespace

extern "C" ssize_t read(int file, void* bytes, std::size_t size)
{
    if (damagedFrom && size > 0) {
        const off_t place = lseek(file, 0, SEEK_CUR);
        if (place >= *damagedFrom) {
            errno = EIO;
            return -1;
        }
        size = std::min(size, static_cast<std::size_t>(*damagedFrom - place));
    }
    return syscall(SYS_read, file, bytes, size);
}

namespace orvim {
namespace {

using test::thrown;

class SoundReadErrors : public testing::Test
{
protected:
    auto loadedFromDiskDamagedFrom(off_t place, const QByteArray& content)
    {
        const QString path = folder.filePath(QStringLiteral("a.wav"));
        test::writeFile(path, content);
        const auto repaired = qScopeGuard([] { damagedFrom.reset(); });
        damagedFrom = place;
        return loadAudioFile(path);
    }

    std::optional<Phase3FileError> errorOfDamageFrom(off_t place)
    {
        const QByteArray twoSeconds = test::waveFile(std::vector<std::int16_t>(48'000, 1'000));
        return thrown<Phase3FileError>([&] { loadedFromDiskDamagedFrom(place, twoSeconds); });
    }

    QTemporaryDir folder;
};

TEST_F(SoundReadErrors, ADiskThatFailsIsNotTheEndOfTheSound)
{
    EXPECT_EQ(errorOfDamageFrom(10), Phase3FileError::cannotReadAudio) << "in the header";
    EXPECT_EQ(errorOfDamageFrom(5'000), Phase3FileError::cannotReadAudio) << "in the first samples";
    EXPECT_EQ(errorOfDamageFrom(50'000), Phase3FileError::cannotReadAudio);
    EXPECT_EQ(errorOfDamageFrom(96'043), Phase3FileError::cannotReadAudio) << "in the last sample";
    EXPECT_EQ(errorOfDamageFrom(96'045), std::nullopt) << "behind it";
}

/// In 11 kilobytes there is a sound of three hours.
TEST_F(SoundReadErrors, OfASoundThatDoesNotFitTheHeaderAloneIsRead)
{
    const QByteArray threeHours = test::waveFile({test::WaveCoding::pcm, 1, 1, 8}, QByteArray(10'800, '\x80'));
    EXPECT_EQ(loadedFromDiskDamagedFrom(1'000, threeHours), std::nullopt);
}

} // namespace
} // namespace orvim
