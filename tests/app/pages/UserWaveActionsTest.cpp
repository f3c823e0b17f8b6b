#include "pages/UserWaveActions.h"

#include "tests/app/support/ToneEditorTest.h"

#include <algorithm>

namespace orvim {
namespace {

using test::bytes;
using tonavelle::UserWaveform;

class UserWaveActionsTest : public test::ToneEditorTest
{
};

TEST_F(UserWaveActionsTest, AFormulaFillsTheSelectedSlotOnlyWhenItIsEvaluated)
{
    actions.waves.selectUserWave(2);
    actions.waves.typeFormula(QStringLiteral("1"));
    EXPECT_FALSE(state().isUserWaveUnsent());
    actions.waves.evaluateFormula();
    EXPECT_TRUE(std::ranges::all_of(state().userWave(), [](auto sample) { return sample == 32'767; }));
    EXPECT_EQ(state().userWaveFormulaStatus, QStringLiteral("OK"));
    EXPECT_TRUE(state().isUserWaveUnsent());
    EXPECT_TRUE(sent().empty());
    actions.waves.selectUserWave(1);
    EXPECT_FALSE(state().isUserWaveUnsent());
}

TEST_F(UserWaveActionsTest, AFormulaThatIsWrongShowsItsWordAndLeavesTheSamples)
{
    const std::array<std::pair<const char*, const char*>, 5> wrongs{{{"  ", "空欄"},
                                                                     {"1 +", "式が途中"},
                                                                     {"foo(1)", "未対応の関数"},
                                                                     {"1/sin(t)", "0除算"},
                                                                     {"pow(0-1, 0.5)", "数値エラー"}}};
    const UserWaveform before = state().userWave();
    for (const auto& [formula, word] : wrongs) {
        actions.waves.typeFormula(QString::fromUtf8(formula));
        actions.waves.evaluateFormula();
        EXPECT_EQ(state().userWaveFormulaStatus, QString::fromUtf8(word));
        EXPECT_EQ(state().userWave(), before);
    }
}

TEST_F(UserWaveActionsTest, TypingTakesTheFormerStatusAway)
{
    actions.waves.chooseFormula(QStringLiteral("0"));
    actions.waves.typeFormula(QStringLiteral("0 "));
    EXPECT_TRUE(state().userWaveFormulaStatus.isEmpty());
}

TEST_F(UserWaveActionsTest, AnExampleIsPutIntoTheFieldAndEvaluated)
{
    actions.waves.chooseFormula(QStringLiteral("saw(t)"));
    EXPECT_EQ(state().userWaveFormula, QStringLiteral("saw(t)"));
    EXPECT_EQ(state().userWave().front(), -32'768);
    EXPECT_FALSE(state().isUpdatingUserWaveFormulaProgrammatically);
}

TEST_F(UserWaveActionsTest, AFieldThatFollowsTheProgramDoesNotCountAsTyping)
{
    QObject::connect(&actions.model, &ToneEditorModel::changed, &actions.model, [this] {
        if (state().isUpdatingUserWaveFormulaProgrammatically) actions.waves.typeFormula(QStringLiteral("echo"));
    });
    actions.waves.chooseFormula(QStringLiteral("squ(t)"));
    EXPECT_EQ(state().userWaveFormula, QStringLiteral("squ(t)"));
}

TEST_F(UserWaveActionsTest, OperationsChangeTheSelectedSlot)
{
    actions.waves.chooseFormula(QStringLiteral("-0.5"));
    actions.waves.apply(waveOperations[3]);
    EXPECT_EQ(state().userWave().front(), 16'384);
    actions.waves.apply(waveOperations[2]);
    EXPECT_EQ(state().userWave().front(), -16'384);
    actions.waves.apply(waveOperations[0]);
    EXPECT_EQ(state().userWave().front(), -32'767);
}

TEST_F(UserWaveActionsTest, SendingASlotSelectsItSendsItsSectionsAndClearsTheMark)
{
    actions.waves.selectUserWave(3);
    actions.waves.chooseFormula(QStringLiteral("0"));
    actions.waves.selectUserWave(0);
    actions.waves.send(3);
    EXPECT_EQ(state().selectedUserWave, 3);
    ASSERT_EQ(sent().size(), 128U);
    EXPECT_EQ(sent()[5].size(), 73U);
    EXPECT_EQ(sent()[5][6], 3);
    EXPECT_EQ(sent()[5][7], 5);
    EXPECT_EQ(labels(), QStringList{QStringLiteral("SysEx: User Waveform Send Data")});
    EXPECT_TRUE(plugged.log().endsWith(QStringLiteral("\n User Wave 4 を送信しました。\n")));
    EXPECT_EQ(status(), QStringLiteral("User Wave 4 を送信しました。"));
    EXPECT_FALSE(state().isUserWaveUnsent());
}

TEST_F(UserWaveActionsTest, WhatCountsAsSentIsWhatStoodInTheSlotBeforeTheSend)
{
    actions.waves.selectUserWave(3);
    actions.waves.chooseFormula(QStringLiteral("0"));
    // While a send waits for room, timers and queued calls run.
    plugged.system.onSend = [this] {
        plugged.system.onSend = {};
        actions.waves.setSamples(UserWaveform(2'048, 5));
        actions.waves.selectUserWave(1);
    };
    actions.waves.send(3);
    EXPECT_EQ(state().sentUserWaveforms[3], UserWaveform(2'048, 0));
    EXPECT_EQ(state().sentUserWaveforms[1], tonavelle::UserWaveformBuilder::sine());
    EXPECT_EQ(status(), QStringLiteral("User Wave 4 を送信しました。"));
    actions.waves.selectUserWave(3);
    EXPECT_TRUE(state().isUserWaveUnsent());
}

TEST_F(UserWaveActionsTest, UndoTakesTheLastEditOfTheSlotBackAndForth)
{
    const UserWaveform before = state().userWave();
    actions.waves.undo();
    EXPECT_EQ(state().userWave(), before);
    actions.waves.chooseFormula(QStringLiteral("0"));
    actions.waves.selectUserWave(1);
    actions.waves.undo();
    EXPECT_EQ(state().userWave(), before);
    actions.waves.selectUserWave(0);
    actions.waves.undo();
    EXPECT_EQ(state().userWave(), before);
    actions.waves.undo();
    EXPECT_EQ(state().userWave(), UserWaveform(2'048, 0));
}

TEST_F(UserWaveActionsTest, UndoDoesNotReachBehindOtherData)
{
    actions.waves.chooseFormula(QStringLiteral("0"));
    actions.model.change(ToneEditorPart::userWave,
                         [](ToneEditorState& state) { state.instrument.userWaveforms[0] = UserWaveform(2'048, 9); });
    actions.waves.undo();
    EXPECT_EQ(state().userWave(), UserWaveform(2'048, 9));
}

TEST_F(UserWaveActionsTest, ASlotThatIsNoneIsReported)
{
    actions.waves.send(4);
    EXPECT_EQ(status(), QStringLiteral("スロット番号が不正"));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(state().selectedUserWave, 0);
}

TEST_F(UserWaveActionsTest, AWaveformThatIsNotWholeIsReported)
{
    actions.waves.setSamples(UserWaveform(100, 0));
    actions.waves.send(0);
    EXPECT_EQ(status(), QStringLiteral("サンプル数が不正"));
    EXPECT_TRUE(sent().empty());
}

} // namespace
} // namespace orvim
