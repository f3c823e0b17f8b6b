// Whether the modules of this test can be trusted: what is written straight to their sound card arrives.

#include "FileDescriptor.h"
#include "KernelModule.h"
#include "Messages.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

#include <QTest>

#include <fcntl.h>
#include <filesystem>

namespace orvim::test {

namespace {

/// The MIDI file of the sound card that a plugged module becomes on the host's side.
std::filesystem::path hostSide()
{
    for (const auto& entry : std::filesystem::directory_iterator("/proc/asound"))
        if (std::filesystem::exists(entry.path() / "usbid") && !entry.is_symlink())
            return "/dev/snd/midiC" + entry.path().filename().string().substr(4) + "D0";
    return {};
}

void writeToHostSide(const tonavelle::Message& message)
{
    ASSERT_TRUE(QTest::qWaitFor([] { return !hostSide().empty() && std::filesystem::exists(hostSide()); }, 10'000));
    const FileDescriptor file(::open(hostSide().c_str(), O_WRONLY | O_CLOEXEC));
    ASSERT_TRUE(file.isOpen());
    ASSERT_EQ(::write(file.get(), message.data(), message.size()), static_cast<ssize_t>(message.size()));
}

/// The module of an earlier test may still be on its way out: the kernel gives data on the way 10 s.
void waitUntilNothingIsPlugged()
{
    ASSERT_TRUE(QTest::qWaitFor([] { return hostSide().empty(); }, 20'000));
}

} // namespace

TEST(Rig, USBModuleTakesWhatIsWrittenToItsCard)
{
    waitUntilNothingIsPlugged();
    const USBModule module({});
    writeToHostSide(numberedMessage(1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return module.port(0).size() == 137; }, 10'000));
    EXPECT_TRUE(sameBytes(module.port(0).bytes(), numberedMessage(1)));
}

TEST(Rig, KernelModuleTakesWhatIsWrittenToItsCard)
{
    waitUntilNothingIsPlugged();
    const KernelModule module;
    writeToHostSide(numberedMessage(2));
    EXPECT_TRUE(QTest::qWaitFor([&] { return module.port(0).size() == 137; }, 10'000));
    EXPECT_TRUE(sameBytes(module.port(0).bytes(), numberedMessage(2)));
}

TEST(Rig, TakesAStreamApartIntoWholeMessagesAndStrayBytes)
{
    const Arrivals arrivals = takenApart(bytes("F0 01 02 F7  90 3C 7F  F0 01  90 3C 00  02 F7  C0 05"));
    EXPECT_EQ(arrivals.systemExclusive, tonavelle::Batch{bytes("F0 01 02 F7")});
    EXPECT_EQ(arrivals.others, (tonavelle::Batch{bytes("90 3C 7F"), bytes("90 3C 00"), bytes("C0 05")}));
    EXPECT_EQ(arrivals.otherOffsets, (std::vector<std::size_t>{4, 9, 14}));
    EXPECT_EQ(arrivals.strayBytes, 4U);
}

} // namespace orvim::test
