// A module that stops taking data: for a while, which must cost nothing but the time, and for ever, which is an error.

#include "Editor.h"
#include "Messages.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

#include <QTest>

#include <iostream>

namespace orvim::test {

using namespace std::chrono_literals;

namespace {

/// Fills the queue: up to here sends do not wait and the window does not get its turn in between.
constexpr std::size_t messagesAtOnce = 500;

/// Beats of the window come every 50 ms, but late where the machine is busy; a window that waits for the module would
/// miss them for 3 s and more.
constexpr auto noticeable = 2s;

} // namespace

TEST(Hang, OfThreeSecondsLosesNothing)
{
    const USBModule module({.bytesPerSecond = 200'000, .hangsAt = 50'000, .hangsFor = 3s});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    editor.sendOneByOne(numberedMessages(messagesAtOnce));
    const Heartbeat heartbeat;
    editor.sendOneByOne(numberedMessages(1000));
    waitForBytes(module.port(1), (messagesAtOnce + 1000) * 137);
    const auto longestGap = heartbeat.longestGap();

    EXPECT_EQ(editor.loggedErrors(), Lines());
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), joined(editor.loggedMessages())));
    EXPECT_EQ(editor.loggedMessages().size(), messagesAtOnce + 1000);
    EXPECT_LT(longestGap, noticeable);
}

TEST(Hang, ForEverIsReportedAfterFiveSecondsWithTheWindowAlive)
{
    const USBModule module({.bytesPerSecond = 200'000, .hangsAt = 20'000, .hangsFor = 1h});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    editor.sendOneByOne(numberedMessages(messagesAtOnce));
    const Heartbeat heartbeat;
    editor.sendOneByOne(numberedMessages(1500));
    const auto reported = editor.firstErrorTime(20s);
    const auto longestGap = heartbeat.longestGap();

    ASSERT_TRUE(reported);
    const std::chrono::duration<double> time = *reported - module.port(1).lastArrival();
    std::cout << "  reported " << time.count() << " s after the last byte, longest time without a beat "
              << longestGap.count() << " ms\n";
    EXPECT_GT(time, 4.9s);
    EXPECT_LT(time, 8s);
    EXPECT_LT(longestGap, noticeable);
    EXPECT_EQ(editor.loggedErrors(), Lines{"Test の送信に失敗しました: -110"});
    EXPECT_TRUE(isBeginning(module.port(1).bytes(), joined(editor.loggedMessages())));
}

TEST(Hang, ForEverDelaysTheEndOfTheEditorByASecondAtMost)
{
    const USBModule module({.hangsAt = 1, .hangsFor = 1h});
    Clock::time_point begin;
    {
        Editor editor;
        ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
        editor.sendOneByOne(numberedMessages(300));
        begin = Clock::now();
    }
    EXPECT_LT(Clock::now() - begin, 6s); // a busy machine adds to it; the kernel's own wait would make it 10 s
}

} // namespace orvim::test
