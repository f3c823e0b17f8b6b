// Which of several devices and ports the editor lists and chooses by itself.

#include "Editor.h"
#include "KernelModule.h"
#include "Messages.h"
#include "SoftwareReceiver.h"
#include "usbmodule/USBModule.h"

#include <QTest>

#include <algorithm>
#include <filesystem>

namespace orvim::test {

namespace {

const std::string otherFirstPort = "Other Synth";
const std::string otherSecondPort = "MIDIOUT2 (Other Synth)";

bool waitUntilListed(const Editor& editor, const std::string& destination)
{
    const auto isListed = [&] { return std::ranges::count(editor.destinationNames(), destination) == 1; };
    return QTest::qWaitFor(isListed, 20'000);
}

} // namespace

TEST(AutomaticChoice, WithoutAnyDeviceThereIsNothingToChoose)
{
    const Editor editor;
    EXPECT_EQ(editor.destinationNames(), Lines());
    EXPECT_EQ(editor.status(), "MIDI OUTが見つかりません。");
    EXPECT_TRUE(editor.manager().lastErrorMessage());
}

TEST(AutomaticChoice, WithoutASequencerTheEditorStartsAndSaysSo)
{
    std::filesystem::rename("/dev/snd/seq", "/dev/snd/seq-away");
    Editor editor;
    std::filesystem::rename("/dev/snd/seq-away", "/dev/snd/seq");
    editor.manager().send(numberedMessage(1), QStringLiteral("Test"));
    EXPECT_EQ(editor.loggedErrors(),
              (Lines{"MIDIクライアントを作成できませんでした: -2", "MIDI OUTポートが初期化されていません。"}));
}

TEST(AutomaticChoice, TakesTheSecondPortOfTheModuleAmongSeveralDevices)
{
    const KernelModule other("Other Synth", 2);
    const SoftwareReceiver receiver({});
    {
        const Editor editor;
        ASSERT_TRUE(waitUntilListed(editor, otherSecondPort));
    }
    const USBModule module({});
    {
        const Editor editor;
        ASSERT_TRUE(waitUntilListed(editor, moduleSecondPort));
    }
    const Editor editor;
    EXPECT_EQ(editor.destinationNames(),
              (Lines{otherFirstPort, otherSecondPort, moduleFirstPort, moduleSecondPort, "Receiver: In"}));
    EXPECT_EQ(editor.selectedName(), moduleSecondPort);
    editor.manager().send(numberedMessage(1), QStringLiteral("Test"));
    waitForBytes(module.port(1), 137);
    waitUntilQuiet(module.port(1));
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), numberedMessage(1)));
    EXPECT_EQ(module.port(0).size() + other.port(0).size() + other.port(1).size() + receiver.received().size(), 0U);
}

TEST(AutomaticChoice, TakesTheOnlyPortOfAModuleThatHasOne)
{
    const KernelModule module("Tonavelle_mini", 1);
    const Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleFirstPort));
    EXPECT_EQ(editor.destinationNames(), Lines{moduleFirstPort});
    editor.manager().send(numberedMessage(1), QStringLiteral("Test"));
    waitForBytes(module.port(0), 137);
    EXPECT_TRUE(sameBytes(module.port(0).bytes(), numberedMessage(1)));
}

TEST(AutomaticChoice, StaysWithWhatIsSelectedUntilThatIsPulledOut)
{
    KernelModule other("Other Synth", 2);
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(otherFirstPort));
    editor.select(otherSecondPort);
    const USBModule module({});
    ASSERT_TRUE(waitUntilListed(editor, moduleSecondPort));
    EXPECT_EQ(editor.selectedName(), otherSecondPort);

    other.unplug();
    EXPECT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    EXPECT_EQ(editor.status(), "送信準備完了");
    EXPECT_EQ(editor.manager().lastErrorMessage(), std::nullopt);
    EXPECT_EQ(editor.loggedErrors(), Lines());
}

} // namespace orvim::test
