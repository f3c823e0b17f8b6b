#include "MIDIOutManager.h"

#include "MIDIOutLogStore.h"
#include "tests/app/support/RecordingMIDISystem.h"
#include "tests/support/Bytes.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <thread>

namespace orvim {
namespace {

using test::bytes;
using test::RecordingMIDISystem;

class MIDIOutManagerTest : public testing::Test
{
protected:
    MIDIOutManager& plugged(const std::vector<std::string>& names)
    {
        system.plug(names);
        return start();
    }

    MIDIOutManager& start()
    {
        manager = std::make_unique<MIDIOutManager>(store, system);
        return *manager;
    }

    void expectError(const QString& text) const
    {
        EXPECT_EQ(manager->statusMessage(), text);
        EXPECT_EQ(manager->lastErrorMessage(), text);
        EXPECT_TRUE(store.text().endsWith(QStringLiteral(" エラー: ") + text + QLatin1Char('\n')))
            << qPrintable(store.text());
    }

    void expectNormal(const QString& text) const
    {
        EXPECT_EQ(manager->statusMessage(), text);
        EXPECT_EQ(manager->lastErrorMessage(), std::nullopt);
    }

    MIDIOutLogStore store;
    RecordingMIDISystem system;
    std::unique_ptr<MIDIOutManager> manager;
};

TEST_F(MIDIOutManagerTest, OpensTheClientAndThePortUnderTheirNames)
{
    plugged({"Tonavelle_mini"});
    EXPECT_EQ(system.clientName, "Orvim Editor Mac");
    EXPECT_EQ(system.portName, "Orvim Editor Mac Output");
}

TEST_F(MIDIOutManagerTest, DisposesThePortBeforeTheClient)
{
    plugged({"Tonavelle_mini"});
    manager.reset();
    EXPECT_EQ(system.disposals, (std::vector<std::string>{"port", "client"}));
}

TEST_F(MIDIOutManagerTest, WithoutAnyDeviceTheStatusSaysSoAndAButtonSaysNothingIsSelected)
{
    start();
    EXPECT_EQ(manager->statusMessage(), QStringLiteral("MIDI OUTが見つかりません。"));
    EXPECT_EQ(manager->lastErrorMessage(), QStringLiteral("MIDI OUTが見つかりません。"));
    EXPECT_EQ(store.text(), QString()) << "an empty list is a status, not an entry of the log";
    manager->send(bytes("F0 F7"), QStringLiteral("x"));
    expectError(QStringLiteral("MIDI OUTが未選択です。"));
}

TEST_F(MIDIOutManagerTest, WithADeviceItIsReadyToSend)
{
    plugged({"Tonavelle_mini"});
    expectNormal(QStringLiteral("送信準備完了"));
}

TEST_F(MIDIOutManagerTest, TheSecondPortOfTheModuleIsPreferred)
{
    plugged({"Tonavelle_mini", "MIDIOUT2 (Tonavelle_mini)"});
    EXPECT_EQ(manager->selectedDestinationID(), 2u);
}

TEST_F(MIDIOutManagerTest, ANameThatContainsTheModulesNameIsChosenBeforeOthers)
{
    plugged({"My Tonavelle_mini at home", "Other"});
    EXPECT_EQ(manager->selectedDestinationID(), 1u);
    plugged({"Other", "My Tonavelle_mini at home"});
    EXPECT_EQ(manager->selectedDestinationID(), 2u);
}

TEST_F(MIDIOutManagerTest, OfOtherNamesTheFirstIsChosen)
{
    plugged({"Other", "Another"});
    EXPECT_EQ(manager->selectedDestinationID(), 1u);
}

TEST_F(MIDIOutManagerTest, AModulePluggedInLaterDoesNotTakeOver)
{
    plugged({"Other"});
    system.endpoints.push_back({7, "MIDIOUT2 (Tonavelle_mini)", {}});
    manager->refreshDestinations();
    EXPECT_EQ(manager->selectedDestinationID(), 1u);
    EXPECT_EQ(manager->destinations().size(), 2u);
}

TEST_F(MIDIOutManagerTest, ADestinationChosenByHandStaysAfterARefresh)
{
    plugged({"Tonavelle_mini", "Other"});
    manager->setSelectedDestinationID(2);
    manager->refreshDestinations();
    EXPECT_EQ(manager->selectedDestinationID(), 2u);
}

TEST_F(MIDIOutManagerTest, UnpluggingTheSelectedOneChoosesAnotherAtOnce)
{
    plugged({"Tonavelle_mini", "Other"});
    system.endpoints.erase(system.endpoints.begin());
    manager->refreshDestinations();
    EXPECT_EQ(manager->selectedDestinationID(), 2u);
    expectNormal(QStringLiteral("送信準備完了"));
}

TEST_F(MIDIOutManagerTest, UnpluggingTheOnlyOneShowsThatNoneIsThere)
{
    plugged({"Tonavelle_mini"});
    system.plug({});
    manager->refreshDestinations();
    EXPECT_EQ(manager->selectedDestinationID(), std::nullopt);
    EXPECT_EQ(manager->lastErrorMessage(), QStringLiteral("MIDI OUTが見つかりません。"));
}

TEST_F(MIDIOutManagerTest, ANotificationRefreshesTheListOnTheMainThread)
{
    start();
    system.plug({"Tonavelle_mini"});
    std::thread([this] { system.setupChanged(); }).join();
    EXPECT_TRUE(manager->destinations().empty()) << "the notification itself touches nothing";
    QCoreApplication::processEvents();
    EXPECT_EQ(manager->selectedDestinationID(), 1u);
}

TEST_F(MIDIOutManagerTest, ANotificationThatOutlivesTheManagerDoesNothing)
{
    start();
    const auto changed = system.setupChanged;
    changed();
    manager.reset();
    changed();
    QCoreApplication::processEvents();
    EXPECT_EQ(system.disposals.size(), 2u);
}

TEST_F(MIDIOutManagerTest, NamesFallBackFromDisplayNameToNameToNumber)
{
    system.endpoints = {{1, "Shown", "Plain"}, {2, std::nullopt, "Plain"}, {3, std::nullopt, std::nullopt}};
    start();
    const auto& rows = manager->destinations();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].name, QStringLiteral("Shown"));
    EXPECT_EQ(rows[1].name, QStringLiteral("Plain"));
    EXPECT_EQ(rows[2].name, QStringLiteral("MIDI OUT 3"));
}

TEST_F(MIDIOutManagerTest, AnIndexWithoutAnEndpointIsSkippedButCounted)
{
    system.endpoints = {{1, "First", {}}, {0, "Nothing", {}}, {3, std::nullopt, std::nullopt}};
    start();
    ASSERT_EQ(manager->destinations().size(), 2u);
    EXPECT_EQ(manager->destinations()[1].name, QStringLiteral("MIDI OUT 3"));
}

TEST_F(MIDIOutManagerTest, ASentSysExIsLoggedAndShownInTheStatus)
{
    plugged({"Tonavelle_mini"});
    manager->send(bytes("F0 00 48 05 7F 03 04 F7"), QStringLiteral("UI Type Set"));
    EXPECT_EQ(system.sentMessages(), tonavelle::Batch{bytes("F0 00 48 05 7F 03 04 F7")});
    EXPECT_EQ(store.text(), QStringLiteral(" [SysEx: UI Type Set]\n   F0H 00H 48H 05H 7FH 03H 04H F7H\n"));
    expectNormal(QStringLiteral("UI Type Set を送信しました。"));
}

TEST_F(MIDIOutManagerTest, ABatchOfControlChangesIsLoggedUnderItsBareLabel)
{
    plugged({"Tonavelle_mini"});
    manager->send(tonavelle::Batch{bytes("B0 07 64"), bytes("B0 0A 40"), bytes("B0 0B 7F")}, QStringLiteral("Volume"));
    EXPECT_EQ(store.text(), QStringLiteral(" [Volume]\n   B0H 07H 64H\n   B0H 0AH 40H\n   B0H 0BH 7FH\n"));
}

TEST_F(MIDIOutManagerTest, ABatchOfSysExIsLoggedAsSuch)
{
    plugged({"Tonavelle_mini"});
    manager->send(tonavelle::Batch{bytes("F0 01 F7"), bytes("F0 02 F7")}, QStringLiteral("Rows"));
    EXPECT_EQ(store.text(), QStringLiteral(" [SysEx: Rows]\n   F0H 01H F7H\n   F0H 02H F7H\n"));
}

TEST_F(MIDIOutManagerTest, OneOtherOrEmptyMessageTurnsTheEntryToThePlainForm)
{
    plugged({"Tonavelle_mini"});
    manager->send(tonavelle::Batch{bytes("F0 01 F7"), bytes("C0 05")}, QStringLiteral("A"));
    manager->send(tonavelle::Batch{bytes("F0 01 F7"), {}}, QStringLiteral("B"));
    EXPECT_TRUE(store.text().startsWith(QStringLiteral(" [A]\n")));
    EXPECT_TRUE(store.text().endsWith(QStringLiteral(" [B]\n   F0H 01H F7H\n   \n")));
}

TEST_F(MIDIOutManagerTest, ABatchOfOneLogsLikeASingleMessage)
{
    plugged({"Tonavelle_mini"});
    manager->send(bytes("F0 01 F7"), QStringLiteral("One"));
    const QString single = store.text();
    store.clear();
    manager->send(tonavelle::Batch{bytes("F0 01 F7")}, QStringLiteral("One"));
    EXPECT_EQ(store.text(), single);
}

TEST_F(MIDIOutManagerTest, AnEmptyBatchDoesNothingAtAll)
{
    start();
    const QString status = manager->statusMessage();
    manager->send(tonavelle::Batch{}, QStringLiteral("Nothing"));
    EXPECT_EQ(store.text(), QString()) << "not even the test for a destination is made";
    EXPECT_EQ(manager->statusMessage(), status);
}

TEST_F(MIDIOutManagerTest, AMessageOfOneThousandAndTenBytesIsSentAndALongerOneOnlyReported)
{
    plugged({"Tonavelle_mini"});
    manager->send(tonavelle::Message(1010, 0xF0), QStringLiteral("Fits"));
    ASSERT_EQ(system.sentMessages().size(), 1u);
    EXPECT_EQ(system.sentMessages()[0].size(), 1010u);
    manager->send(tonavelle::Message(1011, 0xF0), QStringLiteral("Long"));
    EXPECT_EQ(system.sentMessages().size(), 1u);
    expectNormal(QStringLiteral("Long を送信しました。"));
    EXPECT_TRUE(store.text().contains(QStringLiteral("[SysEx: Long]")));
}

TEST_F(MIDIOutManagerTest, AFailedSendIsReportedWithItsCodeAndNotLoggedAsSent)
{
    plugged({"Tonavelle_mini"});
    system.failAfterMessages(0, -19);
    manager->send(bytes("F0 F7"), QStringLiteral("Row"));
    expectError(QStringLiteral("Row の送信に失敗しました: -19"));
    EXPECT_EQ(store.text(), QStringLiteral(" エラー: Row の送信に失敗しました: -19\n"));
    EXPECT_EQ(manager->selectedDestinationID(), 1u) << "a failure keeps the selection";
}

TEST_F(MIDIOutManagerTest, ABatchStopsAtItsFirstFailureWithOneReport)
{
    plugged({"Tonavelle_mini"});
    system.failAfterMessages(1, -110);
    manager->send(tonavelle::Batch{bytes("F0 01 F7"), bytes("F0 02 F7"), bytes("F0 03 F7")}, QStringLiteral("Rows"));
    EXPECT_EQ(system.sentMessages(), tonavelle::Batch{bytes("F0 01 F7")});
    EXPECT_EQ(store.text(), QStringLiteral(" エラー: Rows の送信に失敗しました: -110\n"));
}

TEST_F(MIDIOutManagerTest, ASuccessAfterAFailureTakesTheErrorLookAway)
{
    plugged({"Tonavelle_mini"});
    manager->setStatus(QStringLiteral("bad"), true);
    manager->send(bytes("F0 F7"), QStringLiteral("Row"));
    expectNormal(QStringLiteral("Row を送信しました。"));
}

TEST_F(MIDIOutManagerTest, ADeliveryThatFailsLaterIsReportedUnderTheLastLabel)
{
    plugged({"Tonavelle_mini"});
    manager->send(bytes("F0 F7"), QStringLiteral("Row"));
    system.deliveryFailed(1, MIDILane::normal, -110);
    expectError(QStringLiteral("Row の送信に失敗しました: -110"));
    system.deliveryFailed(1, MIDILane::realtime, -19);
    expectError(QStringLiteral("リアルタイムMIDI送信に失敗しました: -19"));
}

TEST_F(MIDIOutManagerTest, ADeliveryThatFailsLaterIsReportedUnderTheLastLabelOfItsOwnDestination)
{
    plugged({"Tonavelle_mini", "Other"});
    manager->send(bytes("F0 01 F7"), QStringLiteral("Transfer"));
    manager->setSelectedDestinationID(2);
    manager->send(bytes("F0 02 F7"), QStringLiteral("Row"));
    system.deliveryFailed(1, MIDILane::normal, -110);
    expectError(QStringLiteral("Transfer の送信に失敗しました: -110"));
    system.deliveryFailed(2, MIDILane::normal, -19);
    expectError(QStringLiteral("Row の送信に失敗しました: -19"));
}

TEST_F(MIDIOutManagerTest, ASendMadeWhileAnotherWaitsHasItsTurnAfterTheWholeBatch)
{
    plugged({"Tonavelle_mini"});
    system.onSend = [this] {
        system.onSend = nullptr;
        manager->send(bytes("F0 03 F7"), QStringLiteral("Inner"));
        manager->send(bytes("F0 04 F7"), QStringLiteral("Last"));
        EXPECT_EQ(store.text(), QString());
    };
    manager->send(tonavelle::Batch{bytes("F0 01 F7"), bytes("F0 02 F7")}, QStringLiteral("Outer"));
    EXPECT_EQ(system.sentMessages(),
              (tonavelle::Batch{bytes("F0 01 F7"), bytes("F0 02 F7"), bytes("F0 03 F7"), bytes("F0 04 F7")}));
    EXPECT_EQ(store.text(), QStringLiteral(" [SysEx: Outer]\n   F0H 01H F7H\n   F0H 02H F7H\n"
                                           " [SysEx: Inner]\n   F0H 03H F7H\n [SysEx: Last]\n   F0H 04H F7H\n"));
    expectNormal(QStringLiteral("Last を送信しました。"));
}

TEST_F(MIDIOutManagerTest, ASendMadeWhileAFailingOneWaitsHasItsTurnAsWell)
{
    plugged({"Tonavelle_mini"});
    system.failAfterMessages(0, -71);
    system.onSend = [this] {
        system.onSend = nullptr;
        manager->send(bytes("F0 03 F7"), QStringLiteral("Inner"));
    };
    manager->send(bytes("F0 01 F7"), QStringLiteral("Outer"));
    EXPECT_EQ(store.text(), QStringLiteral(" エラー: Outer の送信に失敗しました: -71\n"
                                           " エラー: Inner の送信に失敗しました: -71\n"));
    system.failAfterMessages(1, -71);
    manager->send(bytes("F0 05 F7"), QStringLiteral("Next"));
    expectNormal(QStringLiteral("Next を送信しました。"));
}

TEST_F(MIDIOutManagerTest, AfterASendGivenUpAtTheEndOfTheApplicationOnlyGesturesGoOut)
{
    auto& out = plugged({"Tonavelle_mini"});
    system.failAfterMessages(1, midiSendCancelled);
    out.send({bytes("B0 63 07"), bytes("B0 62 0A")}, QStringLiteral("batch"));
    EXPECT_TRUE(out.isQuitting());
    // Room that is found again takes nothing that has lost its beginning.
    system.failAfterMessages(10, 0);
    out.send(bytes("B0 06 63"), QStringLiteral("rest"));
    out.sendRealtimeNow({bytes("80 3C 00")});
    EXPECT_EQ(system.sentMessages(), (tonavelle::Batch{bytes("B0 63 07"), bytes("80 3C 00")}));
    EXPECT_EQ(store.text().count(QStringLiteral("エラー: ")), 1);
}

TEST_F(MIDIOutManagerTest, AnyOtherFailureLetsTheNextSendTryAgain)
{
    auto& out = plugged({"Tonavelle_mini"});
    system.failAfterMessages(0, -110);
    out.send(bytes("B0 07 01"), QStringLiteral("x"));
    EXPECT_FALSE(out.isQuitting());
    out.send(bytes("B0 07 02"), QStringLiteral("x"));
    EXPECT_EQ(system.attempted().size(), 2U);
}

TEST_F(MIDIOutManagerTest, WithoutAClientThePortIsNotAttemptedAndSendsSayItIsNotInitialised)
{
    system.clientStatus = -2;
    plugged({"Tonavelle_mini"});
    EXPECT_EQ(system.createdPorts, 0);
    EXPECT_EQ(store.text(), QStringLiteral(" エラー: MIDIクライアントを作成できませんでした: -2\n"));
    expectNormal(QStringLiteral("送信準備完了")); // The refresh overwrites the status; the log keeps the error.
    manager->send(bytes("F0 F7"), QStringLiteral("Row"));
    expectError(QStringLiteral("MIDI OUTポートが初期化されていません。"));
    manager.reset();
    EXPECT_TRUE(system.disposals.empty());
}

TEST_F(MIDIOutManagerTest, AFailedPortIsReported)
{
    system.portStatus = -13;
    start();
    EXPECT_EQ(store.text(), QStringLiteral(" エラー: MIDI OUTポートを作成できませんでした: -13\n"));
    manager->sendRealtimeNow({bytes("90 3C 7F")});
    expectError(QStringLiteral("MIDI OUTポートが初期化されていません。"));
}

TEST_F(MIDIOutManagerTest, ARealtimeSendLeavesNoTraceInLogAndStatus)
{
    plugged({"Tonavelle_mini"});
    manager->setStatus(QStringLiteral("before"), false);
    manager->sendRealtime({bytes("90 3C 64"), bytes("80 3C 00")});
    EXPECT_TRUE(QTest::qWaitFor([this] { return system.sentMessages().size() == 2; }));
    manager->sendRealtimeNow({bytes("90 40 7F")});
    const auto sent = system.sent();
    ASSERT_EQ(sent.size(), 3u);
    for (const auto& entry : sent)
        EXPECT_EQ(entry.lane, MIDILane::realtime);
    EXPECT_EQ(sent[0].message, bytes("90 3C 64"));
    EXPECT_EQ(sent[2].message, bytes("90 40 7F"));
    EXPECT_EQ(store.text(), QString());
    expectNormal(QStringLiteral("before"));
}

TEST_F(MIDIOutManagerTest, ARealtimeFailureComesBackToTheMainThreadOnceAGesture)
{
    plugged({"Tonavelle_mini"});
    system.failAfterMessages(0, -19);
    manager->sendRealtime({bytes("90 3C 64"), bytes("90 40 64"), bytes("90 43 64")});
    EXPECT_TRUE(QTest::qWaitFor([this] { return manager->lastErrorMessage().has_value(); }));
    system.failAfterMessages(1, -19);
    manager->sendRealtime({bytes("80 3C 00")}); // Once this is sent, the first gesture has reported all that it will.
    EXPECT_TRUE(QTest::qWaitFor([this] { return !system.sentMessages().empty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(system.attempted(), (tonavelle::Batch{bytes("90 3C 64"), bytes("80 3C 00")}));
    EXPECT_EQ(store.text(), QStringLiteral(" エラー: リアルタイムMIDI送信に失敗しました: -19\n"));
}

TEST_F(MIDIOutManagerTest, ARealtimeSendMadeJustBeforeTheEndIsStillSent)
{
    plugged({"Tonavelle_mini"});
    manager->sendRealtime({bytes("90 3C 64")});
    manager->sendRealtime({bytes("80 3C 00")});
    manager.reset();
    EXPECT_EQ(system.sentMessages(), (tonavelle::Batch{bytes("90 3C 64"), bytes("80 3C 00")}));
}

TEST_F(MIDIOutManagerTest, ARealtimeSendAtOnceReportsItsFailureAtOnce)
{
    plugged({"Tonavelle_mini"});
    system.failAfterMessages(0, -19);
    manager->sendRealtimeNow({bytes("90 3C 64")});
    expectError(QStringLiteral("リアルタイムMIDI送信に失敗しました: -19"));
}

TEST_F(MIDIOutManagerTest, ARealtimeSendWithoutADestinationFailsLikeANormalOne)
{
    start();
    manager->sendRealtime({bytes("90 3C 64")});
    expectError(QStringLiteral("MIDI OUTが未選択です。"));
}

TEST_F(MIDIOutManagerTest, UITypeIsSentUnderItsValue)
{
    plugged({"Tonavelle_mini"});
    manager->sendUIType(127);
    EXPECT_EQ(system.sentMessages(), tonavelle::Batch{bytes("F0 00 48 05 7F 03 7F F7")});
    expectNormal(QStringLiteral("UI Type Set (127) を送信しました。"));
}

TEST_F(MIDIOutManagerTest, UITypeAbove127IsReportedAndNotSent)
{
    plugged({"Tonavelle_mini"});
    manager->sendUIType(128);
    manager->sendUIType(256);
    EXPECT_TRUE(system.sentMessages().empty());
    expectError(QStringLiteral("UI Typeは0〜127で指定してください。"));
}

TEST_F(MIDIOutManagerTest, ALogNoteKeepsTheStatusTextButEndsItsErrorLook)
{
    plugged({"Tonavelle_mini"});
    manager->setStatus(QStringLiteral("bad"), true);
    manager->logNote(QStringLiteral("note"));
    EXPECT_EQ(store.text(), QStringLiteral(" note\n"));
    expectNormal(QStringLiteral("bad"));
}

TEST_F(MIDIOutManagerTest, AnEqualStatusIsNotToldAgain)
{
    plugged({"Tonavelle_mini"});
    manager->setStatus(QStringLiteral("same"), true);
    QSignalSpy changes(manager.get(), &MIDIOutManager::statusChanged);
    manager->setStatus(QStringLiteral("same"), true);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(MIDIOutManagerTest, TheSystemIsToldWhichDestinationIsSelected)
{
    plugged({"Tonavelle_mini", "Other"});
    manager->setSelectedDestinationID(2);
    manager->setSelectedDestinationID(2);
    manager->setSelectedDestinationID(std::nullopt);
    EXPECT_EQ(system.selections, (std::vector<MIDIEndpointRef>{1, 2, 2, 0})) << "the same again asks for a new try";
}

} // namespace
} // namespace orvim
