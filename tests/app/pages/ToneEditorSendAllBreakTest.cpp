#include "pages/ToneEditorSendAll.h"
#include "tests/app/support/ToneEditorTest.h"

#include <functional>

namespace orvim {
namespace {

using test::bytes;
using Tab = ToneEditorTab;
using ID = tonavelle::ToneParameterID;

constexpr std::size_t messageCount = 2'365;

/// What may happen while everything is sent: the window lives on while a slow output takes it.
class ToneEditorSendAllBreakTest : public test::ToneEditorTest
{
protected:
    void SetUp() override
    {
        plugged.runtime.logStore().setRestrictLineCount(false);
        actions.waves.chooseFormula(QStringLiteral("0"));
    }

    /// Sends everything; `happens` with the message behind the first `count`.
    void sendAllWhile(std::size_t count, const std::function<void()>& happens)
    {
        forget();
        std::size_t messages = 0;
        plugged.system.onSend = [&, count] {
            if (messages++ == count) happens();
        };
        actions.sending.sendAll();
        plugged.system.onSend = {};
    }

    void listOutputs(const std::vector<test::RecordingMIDISystem::Endpoint>& endpoints)
    {
        plugged.system.endpoints = endpoints;
        manager().refreshDestinations();
    }

    MIDIOutManager& manager() { return plugged.runtime.midiOutManager(); }
    QString lastLine() const { return plugged.log().trimmed().split(QLatin1Char('\n')).back().trimmed(); }

    const QString stopped = QStringLiteral("全音色データ送信を中断しました。");
};

TEST_F(ToneEditorSendAllBreakTest, AnotherOutputGetsNothingOfIt)
{
    sendAllWhile(500, [&] { listOutputs({{7, "Another", {}}}); });
    EXPECT_EQ(manager().selectedDestinationID(), 7U);
    EXPECT_EQ(sent().size(), 501U);
    for (const auto& entry : plugged.system.sent())
        EXPECT_EQ(entry.endpoint, 1U);
    EXPECT_TRUE(state().isUserWaveUnsent());
    EXPECT_EQ(manager().progressFraction(), std::nullopt);
    EXPECT_EQ(status(), stopped);
    EXPECT_EQ(lastLine(), stopped);
}

TEST_F(ToneEditorSendAllBreakTest, TheSameModulePluggedInAgainGetsNothingMore)
{
    sendAllWhile(500, [&] {
        listOutputs({});
        listOutputs({{2, "Tonavelle_mini", {}}});
    });
    EXPECT_EQ(sent().size(), 501U);
    EXPECT_EQ(status(), stopped);
    actions.sending.sendAll();
    EXPECT_EQ(sent().size(), 501U + messageCount);
    EXPECT_FALSE(state().isUserWaveUnsent());
}

TEST_F(ToneEditorSendAllBreakTest, WithoutAnyOutputItGoesOnAndEachSendIsReported)
{
    sendAllWhile(500, [&] { listOutputs({}); });
    EXPECT_EQ(sent().size(), 501U);
    EXPECT_EQ(plugged.log().count(QStringLiteral("エラー: MIDI OUTが未選択です。")), messageCount - 501);
    EXPECT_EQ(status(), QStringLiteral("MIDI OUTが未選択です。"));
    EXPECT_FALSE(state().isUserWaveUnsent());
}

TEST_F(ToneEditorSendAllBreakTest, AnotherOutputInTheListAloneDoesNotStopIt)
{
    sendAllWhile(500, [&] { listOutputs({{7, "Another", {}}, {1, "Tonavelle_mini", {}}}); });
    EXPECT_EQ(sent().size(), messageCount);
    EXPECT_FALSE(state().isUserWaveUnsent());
}

TEST_F(ToneEditorSendAllBreakTest, TheEndOfTheApplicationStopsItAtOnce)
{
    forget();
    plugged.system.failAfterMessages(500, midiSendCancelled);
    const auto attemptedBefore = plugged.system.attempted().size();
    actions.sending.sendAll();
    EXPECT_EQ(sent().size(), 500U);
    EXPECT_EQ(plugged.system.attempted().size(), attemptedBefore + 501);
    EXPECT_EQ(plugged.log().count(QStringLiteral("エラー: ")), 1);
    EXPECT_EQ(lastLine(), stopped);
    EXPECT_TRUE(state().isUserWaveUnsent());
    EXPECT_EQ(manager().progressFraction(), std::nullopt);
}

TEST_F(ToneEditorSendAllBreakTest, AFailureOfOneSendDoesNotStopTheOthers)
{
    forget();
    plugged.system.failAfterMessages(500, -110);
    actions.sending.sendAll();
    EXPECT_EQ(plugged.log().count(QStringLiteral("エラー: ")), messageCount - 500);
}

TEST_F(ToneEditorSendAllBreakTest, ASecondOneMeanwhileDoesNothing)
{
    sendAllWhile(500, [&] { actions.sending.sendAll(); });
    EXPECT_EQ(sent().size(), messageCount);
    EXPECT_EQ(static_cast<std::size_t>(labels().size()), messageCount);
}

TEST_F(ToneEditorSendAllBreakTest, AnEditMeanwhileIsKeptAndAWaveformDrawnMeanwhileIsUnsent)
{
    const auto before = state().userWave();
    sendAllWhile(100, [&] {
        actions.waves.chooseFormula(QStringLiteral("saw(t)"));
        actions.channels.setChannel(ID::volume, 7);
    });
    EXPECT_EQ(state().sentUserWaveforms[0], before);
    EXPECT_TRUE(state().isUserWaveUnsent());
    EXPECT_EQ(state().channel().volume, 7);
    const auto all = sent();
    ASSERT_EQ(all.size(), messageCount + 1);
    EXPECT_EQ(all[101], bytes("B0 07 07"));
}

TEST_F(ToneEditorSendAllBreakTest, ATabOpenedMeanwhileHasItsPreviewInTheEnd)
{
    sendAllWhile(100, [&] { actions.previews.openTab(Tab::userDrum); });
    EXPECT_EQ(labels().back(), QStringLiteral("Select User Drum Patch"));
    EXPECT_EQ(part(9).name, "001:User Drum");
}

TEST_F(ToneEditorSendAllBreakTest, NewMeanwhileLeavesWhatTheModuleHasNowAsUnsent)
{
    dialogs.answer = true;
    sendAllWhile(100, [&] { actions.files.newToneData(); });
    EXPECT_EQ(sent().size(), messageCount);
    EXPECT_EQ(state().instrument, tonavelle::factoryToneInstrument());
    EXPECT_TRUE(state().isUserWaveUnsent());
}

} // namespace
} // namespace orvim
