// The module is pulled out and plugged in again: at rest, in the middle of a transfer, and over and over.

#include "Editor.h"
#include "KernelModule.h"
#include "Messages.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

#include <QTest>

#include <iostream>

namespace orvim::test {

using namespace std::chrono_literals;

TEST(Unplug, AtRestClearsTheSelection)
{
    USBModule module({});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    module.unplug();
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor.selectedName().empty(); }, 10'000));
    EXPECT_EQ(editor.status(), "MIDI OUTが見つかりません。");
    EXPECT_TRUE(editor.manager().lastErrorMessage());
    editor.manager().send(numberedMessage(1), QStringLiteral("Test"));
    EXPECT_EQ(editor.loggedErrors(), Lines{"MIDI OUTが未選択です。"});
}

TEST(Unplug, InMidTransferIsReportedAtOnceAndTheReplugIsFound)
{
    const Lines pulledOut{"Test の送信に失敗しました: -19"};
    Editor editor;
    {
        USBModule module({.bytesPerSecond = 200'000, .unplugsAt = 50'000});
        ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
        editor.sendOneByOne(numberedMessages(3000));
        const auto reported = editor.firstErrorTime(10s);
        ASSERT_TRUE(reported);
        ASSERT_TRUE(module.unpluggedAt());
        const std::chrono::duration<double> time = *reported - *module.unpluggedAt();
        std::cout << "  reported after " << time.count() << " s\n";
        EXPECT_LT(time, 3s); // not as late as a module that hangs
        EXPECT_EQ(editor.loggedErrors(), pulledOut);
        EXPECT_TRUE(isBeginning(module.port(1).bytes(), joined(editor.loggedMessages())));
        EXPECT_TRUE(QTest::qWaitFor([&] { return editor.selectedName().empty(); }, 10'000));
    }
    const USBModule module({});
    EXPECT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    EXPECT_EQ(editor.status(), "送信準備完了");
    editor.sendOneByOne(numberedMessages(20));
    waitForBytes(module.port(1), 20 * 137);
    EXPECT_EQ(editor.loggedErrors(), pulledOut);
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), joined(numberedMessages(20))));
}

TEST(Unplug, FiftyRoundsEachFindTheModuleAgain)
{
    Editor editor;
    KernelModule module;
    for (std::size_t round = 0; round < 50; ++round) {
        if (round > 0) module.plug();
        ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort)) << "round " << round;
        editor.manager().send(numberedMessage(round), QStringLiteral("Test"));
        waitForBytes(module.port(1), (round + 1) * 137);
        ASSERT_EQ(editor.loggedErrors(), Lines()) << "round " << round;
        ASSERT_EQ(module.port(1).size(), (round + 1) * 137) << "round " << round;
        module.unplug();
        ASSERT_TRUE(QTest::qWaitFor([&] { return editor.selectedName().empty(); }, 10'000)) << "round " << round;
    }
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), joined(numberedMessages(50))));
}

} // namespace orvim::test
