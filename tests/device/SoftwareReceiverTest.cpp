// Other programs as destinations: slow ones, small ones, one that hangs for a while and one that crashes.

#include "SoftwareReceiver.h"

#include "Editor.h"
#include "Messages.h"

#include <QTest>
#include <QTimer>

namespace orvim::test {

using namespace std::chrono_literals;

namespace {

const std::string receiverName = "Receiver: In";

void expectWholeTransfer(const SoftwareReceiverPlan& plan, const tonavelle::Batch& messages)
{
    const SoftwareReceiver receiver(plan);
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(receiverName));
    editor.sendOneByOne(messages);
    const auto sent = joined(messages);
    [[maybe_unused]] const bool came = QTest::qWaitFor([&] { return receiver.receivedBytes() >= sent.size(); }, 20'000);
    EXPECT_EQ(editor.loggedErrors(), Lines());
    EXPECT_EQ(editor.loggedMessages(), messages);
    EXPECT_TRUE(sameBytes(receiver.received(), sent));
}

} // namespace

TEST(SoftwareDestination, TakesALongTransferWhole)
{
    expectWholeTransfer({}, numberedMessages(3000));
}

TEST(SoftwareDestination, ThatIsSlowGetsEverything)
{
    expectWholeTransfer({.pauseAfterEvent = 1ms}, numberedMessages(1000));
}

TEST(SoftwareDestination, WithASmallPoolGetsEverything)
{
    expectWholeTransfer({.pauseAfterEvent = 1ms, .poolCells = 50}, numberedMessages(300, 1010));
}

TEST(SoftwareDestination, ThatHangsForThreeSecondsGetsEverything)
{
    expectWholeTransfer({.hangsAfterEvents = 100, .hangsFor = 3s}, numberedMessages(1000));
}

TEST(SoftwareDestination, ThatCrashesInMidTransferIsReported)
{
    SoftwareReceiver receiver({.pauseAfterEvent = 2ms});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(receiverName));
    Clock::time_point killed;
    QTimer::singleShot(700ms, &editor, [&] {
        receiver.kill();
        killed = Clock::now();
    });
    editor.sendOneByOne(numberedMessages(3000));
    const auto reported = editor.firstErrorTime(10s);
    ASSERT_TRUE(reported);
    EXPECT_LT(*reported - killed, 3s); // not as late as a receiver that hangs
    EXPECT_EQ(editor.loggedErrors(), Lines{"Test の送信に失敗しました: -19"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor.selectedName().empty(); }, 10'000));

    const auto arrived = receiver.received();
    EXPECT_GT(arrived.size(), 0U);
    EXPECT_TRUE(isBeginning(arrived, joined(editor.loggedMessages())));
}

} // namespace orvim::test
