// Long transfers at every pace: what the editor's log says it sent is what came out at the far end, byte for byte.

#include "Editor.h"
#include "KernelModule.h"
#include "Messages.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

#include <iostream>

namespace orvim::test {

using namespace std::chrono_literals;

namespace {

/// Sends `messages` to the second port and compares everything that came with everything that was logged.
template <typename Module>
void expectWholeTransfer(const Module& module, const tonavelle::Batch& messages)
{
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    const auto begin = Clock::now();
    editor.sendOneByOne(messages);
    const auto sent = joined(messages);
    waitForBytes(module.port(1), sent.size());
    const std::chrono::duration<double> time = module.port(1).lastArrival() - begin;
    std::cout << "  " << static_cast<long>(static_cast<double>(sent.size()) / time.count()) << " bytes/s\n";

    EXPECT_EQ(editor.loggedErrors(), Lines());
    EXPECT_EQ(editor.loggedMessages(), messages);
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), sent));
    EXPECT_EQ(module.port(0).size(), 0U);
}

} // namespace

TEST(LongTransfer, ArrivesWholeAtFullSpeed)
{
    const USBModule module({});
    expectWholeTransfer(module, numberedMessages(9375));
}

TEST(LongTransfer, ArrivesWholeAtTheKernelsOwnModule)
{
    const KernelModule module;
    expectWholeTransfer(module, numberedMessages(9375));
    EXPECT_EQ(module.overruns(), 0U);
}

TEST(LongTransfer, ArrivesWholeAt100000BytesPerSecond)
{
    const USBModule module({.bytesPerSecond = 100'000});
    expectWholeTransfer(module, numberedMessages(2500));
}

TEST(LongTransfer, ArrivesWholeAt3125BytesPerSecond)
{
    const USBModule module({.bytesPerSecond = 3125});
    expectWholeTransfer(module, numberedMessages(150));
}

TEST(LongTransfer, ArrivesWholeInMessagesOf1010Bytes)
{
    const USBModule module({});
    expectWholeTransfer(module, numberedMessages(500, 1010));
}

TEST(LongTransfer, MessageOf1011BytesIsLoggedAndGoesNowhere)
{
    const USBModule module({});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    editor.sendOneByOne({numberedMessage(1, 1010), numberedMessage(2, 1011), numberedMessage(3, 12)});
    const auto expected = joined({numberedMessage(1, 1010), numberedMessage(3, 12)});
    waitForBytes(module.port(1), expected.size());
    waitUntilQuiet(module.port(1));

    EXPECT_EQ(editor.loggedErrors(), Lines());
    EXPECT_EQ(editor.loggedMessages().size(), 3U);
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), expected));
}

TEST(LongTransfer, WhatIsQueuedArrivesBeforeTheEditorEnds)
{
    // Far less than what leaves in the second that is given to it, also where the machine is busy.
    const USBModule module({.bytesPerSecond = 25'000});
    const auto messages = numberedMessages(100);
    {
        Editor editor;
        ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
        editor.sendOneByOne(messages);
    }
    waitForBytes(module.port(1), joined(messages).size());
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), joined(messages)));
}

} // namespace orvim::test
