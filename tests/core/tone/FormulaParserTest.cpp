#include "core/tone/FormulaParser.h"

#include "core/tone/UserWaveformBuilder.h"
#include "core/tone/UserWaveformError.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <numbers>

namespace tonavelle {
namespace {

constexpr double pi = std::numbers::pi;

/// The word with which the formula fails; empty where it does not.
std::string wordOf(std::string_view formula)
{
    try {
        evaluateFormula(formula);
    } catch (const UserWaveformError& error) {
        EXPECT_EQ(error.kind(), UserWaveformError::Kind::formula);
        return error.what();
    }
    return "";
}

UserWaveform constant(std::int16_t sample)
{
    return UserWaveform(2048, sample);
}

std::string repeated(std::string_view text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

/// Expects the formula's samples to be those of `function` of t, which stays within -1...1.
void expectSamples(std::string_view formula, const std::function<double(double)>& function)
{
    const UserWaveform samples = evaluateFormula(formula);
    ASSERT_EQ(samples.size(), 2048u);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double value = function(static_cast<double>(i) * 2 * pi / 2048);
        const double expected = std::nearbyint(value * (value < 0 ? 32768 : 32767));
        ASSERT_EQ(samples[i], static_cast<std::int16_t>(expected)) << formula << " at " << i;
    }
}

TEST(Formula, ConstantsFillTheWaveformAndAreLimited)
{
    EXPECT_EQ(evaluateFormula("0"), constant(0));
    EXPECT_EQ(evaluateFormula("1"), constant(32767));
    EXPECT_EQ(evaluateFormula("-1"), constant(-32768));
    EXPECT_EQ(evaluateFormula("2"), constant(32767));
    EXPECT_EQ(evaluateFormula("-2"), constant(-32768));
}

TEST(Formula, HalvesRoundToEvenOnTheirOwnScale)
{
    EXPECT_EQ(evaluateFormula("0.5"), constant(16384));
    EXPECT_EQ(evaluateFormula("-0.5"), constant(-16384));
}

TEST(Formula, JustBelowMinusOneStillReachesTheEnd)
{
    EXPECT_EQ(evaluateFormula("-0.99999999"), constant(-32768));
    EXPECT_EQ(evaluateFormula("-0.0"), constant(0));
}

TEST(Formula, SineReachesBothEndsExactly)
{
    const UserWaveform samples = evaluateFormula("sin(t)");
    EXPECT_EQ(samples[0], 0);
    EXPECT_EQ(samples[512], 32767);
    EXPECT_EQ(samples[1536], -32768);
}

TEST(Formula, DivisionByZeroAtAnyTimeFailsTheWhole)
{
    EXPECT_EQ(wordOf("1/sin(t)"), "0除算");
    EXPECT_EQ(wordOf("1/(t-t)"), "0除算");
    EXPECT_EQ(wordOf("1/-0"), "0除算");
    EXPECT_EQ(wordOf("1/(t - pi)"), "0除算");
    EXPECT_EQ(wordOf("0*(1/0)"), "0除算");
}

TEST(Formula, AValueThatIsNotFiniteFails)
{
    EXPECT_EQ(wordOf("pow(0-1, 0.5)"), "数値エラー");
    EXPECT_EQ(wordOf("pow(10, 400)"), "数値エラー");
    EXPECT_EQ(wordOf("pow(t - pi, 0.5)"), "数値エラー");
}

TEST(Formula, TheEarliestFailingTimeGivesTheWord)
{
    // Not a number at the first time; divided by zero only at the middle.
    EXPECT_EQ(wordOf("pow(t - pi, 0.5) + 1/(t - pi)"), "数値エラー");
    // Divided by zero at the first time, where the value would not be a number either.
    EXPECT_EQ(wordOf("pow(t - pi, 0.5) + 1/t"), "0除算");
    // Both in one block of times, the division first.
    EXPECT_EQ(wordOf("1/(t - 3*pi/1024) + pow(4*pi/1024 - t, 0.5)"), "0除算");
    EXPECT_EQ(wordOf("1/(t - 8*pi/1024) + pow(4*pi/1024 - t, 0.5)"), "数値エラー");
}

TEST(Formula, AnIntermediateValueThatIsNotFiniteDoesNotFail)
{
    EXPECT_EQ(evaluateFormula("1/pow(10, 400)"), constant(0));
    EXPECT_EQ(evaluateFormula("squ(pow(0-1, 0.5))"), constant(-32768));
}

TEST(Formula, CapitalsMeanTheSameAsSmallLetters)
{
    EXPECT_EQ(evaluateFormula("PI/4"), evaluateFormula("pi/4"));
    EXPECT_EQ(evaluateFormula("Pi/4"), evaluateFormula("pi/4"));
    EXPECT_EQ(evaluateFormula("SIN(T) * 1E0"), evaluateFormula("sin(t)"));
}

TEST(Formula, EachFaultHasItsWord)
{
    EXPECT_EQ(wordOf("sin t"), "未対応の変数");
    EXPECT_EQ(wordOf("sin()"), "式エラー");
    EXPECT_EQ(wordOf("sin(t"), "閉じ括弧なし");
    EXPECT_EQ(wordOf("sin(t,t)"), "引数が多い");
    EXPECT_EQ(wordOf("foo(1)"), "未対応の関数");
    EXPECT_EQ(wordOf("pow(1)"), "引数不足");
    EXPECT_EQ(wordOf("1 +"), "式が途中");
    EXPECT_EQ(wordOf("1 ? 2"), "未対応の記号");
    EXPECT_EQ(wordOf("$"), "式エラー");
}

TEST(Formula, AnEmptyTextIsBlank)
{
    for (const char* text : {"", " ", "\t\r\n", "\u3000\u00A0\u2028"})
        EXPECT_EQ(wordOf(text), "空欄") << text;
}

TEST(Formula, WhiteSpaceOfAnyKindStandsBetweenTokens)
{
    EXPECT_EQ(evaluateFormula(" \u3000sin\n(\tt\r\n) \u2003"), evaluateFormula("sin(t)"));
    EXPECT_EQ(evaluateFormula("pow ( 0.5 , 2 )"), constant(8192));
}

TEST(Formula, EndsEarlyWhereAValueIsNeeded)
{
    for (const char* text : {"-", "(", "1*", "sin(", "pow(1,", "2 - "})
        EXPECT_EQ(wordOf(text), "式が途中") << text;
}

TEST(Formula, ALoneIdentifierIsAnUnknownVariable)
{
    for (const char* text : {"x", "sin", "t2", "t_", "pi2", "あ", "tt + 1"})
        EXPECT_EQ(wordOf(text), "未対応の変数") << text;
}

TEST(Formula, ThereIsNoImpliedMultiplicationAndNoPowerOperator)
{
    for (const char* text : {"2t", "2 pi", "(1)(2)", "t(1)", "2^2", "1)", "2e", "2e+", "1..5"})
        EXPECT_EQ(wordOf(text), "未対応の記号") << text;
}

TEST(Formula, SignsRepeatAndStandInsideATerm)
{
    EXPECT_EQ(evaluateFormula("--1"), constant(32767));
    EXPECT_EQ(evaluateFormula("-+-+1"), constant(32767));
    EXPECT_EQ(evaluateFormula("2 * -3"), constant(-32768)) << "-6, limited";
    EXPECT_EQ(evaluateFormula("2 * -3 / 12"), constant(-16384));
    EXPECT_EQ(evaluateFormula("2 * -3 + 6.5"), constant(16384));
}

TEST(Formula, OperatorsBindAsUsualAndToTheLeft)
{
    EXPECT_EQ(evaluateFormula("1 - 0.25 - 0.25"), constant(16384));
    EXPECT_EQ(evaluateFormula("8 / 4 / 4"), constant(16384));
    EXPECT_EQ(evaluateFormula("0.25 + 0.5 * 0.5"), constant(16384));
    EXPECT_EQ(evaluateFormula("(0.25 + 0.75) * 0.5"), constant(16384));
}

TEST(Formula, NumbersMayLackDigitsOnOneSideOfThePoint)
{
    EXPECT_EQ(evaluateFormula(".5"), constant(16384));
    EXPECT_EQ(evaluateFormula("5. / 10"), constant(16384));
    EXPECT_EQ(evaluateFormula("5e-1"), constant(16384));
    EXPECT_EQ(evaluateFormula("0.05E+1"), constant(16384));
    EXPECT_EQ(evaluateFormula("5.e-1"), constant(16384));
}

TEST(Formula, WhatIsReadAsANumberButIsNoneFailsAtItsConversion)
{
    // A point alone, full-width digits, an ideograph with a value, a digit with a mark, a full-width exponent.
    for (const char* text : {".", ".e5", "５", "1５", "万", "5\u0301", "5\uFE0F\u20E3", "2e３", "½"})
        EXPECT_EQ(wordOf(text), "数値形式エラー") << text;
}

TEST(Formula, AMarkMakesAnotherCharacterOfTheOneBeforeIt)
{
    EXPECT_EQ(wordOf("t\u0302"), "未対応の変数");
    EXPECT_EQ(wordOf("1 +\u0302 1"), "未対応の記号");
    EXPECT_EQ(wordOf("(\u03021)"), "式エラー");
    EXPECT_EQ(wordOf(".\u03025"), "式エラー");
}

TEST(Formula, AMarkAfterASpaceBelongsToTheSpace)
{
    EXPECT_EQ(evaluateFormula("1 \u0302/ 2"), constant(16384));
    EXPECT_EQ(wordOf(" \u0302"), "式が途中");
    EXPECT_EQ(wordOf("\n\u0302"), "式エラー");
}

TEST(Formula, NumbersOutOfRangeBecomeInfinityOrZero)
{
    EXPECT_EQ(wordOf("1e400"), "数値エラー");
    EXPECT_EQ(wordOf("1e99999999999999999999"), "数値エラー");
    EXPECT_EQ(wordOf(std::string("1") + repeated("0", 400)), "数値エラー");
    EXPECT_EQ(wordOf("0.0001e400"), "数値エラー");
    EXPECT_EQ(wordOf("1/1e-400"), "0除算");
    EXPECT_EQ(wordOf(std::string("1/0.") + repeated("0", 400) + "1"), "0除算");
    EXPECT_EQ(wordOf("1/1000e-99999999999999999999"), "0除算");
    EXPECT_EQ(evaluateFormula("1e-400"), constant(0));
    EXPECT_EQ(evaluateFormula("1/1e400"), constant(0));
    EXPECT_EQ(evaluateFormula("0e99999"), constant(0));
    EXPECT_EQ(evaluateFormula(std::string("0.") + repeated("0", 400) + "5e400"), constant(16384));
}

TEST(Formula, AClosingBracketIsMissedBeforeNameAndCountAreLookedAt)
{
    for (const char* text : {"pow(1,2,3)", "foo(1", "pow(1", "sin(1,2", "foo(1;2)", "(1", "(1 2)"})
        EXPECT_EQ(wordOf(text), "閉じ括弧なし") << text;
}

TEST(Formula, AnUnknownNameIsReportedBeforeItsArgumentCount)
{
    EXPECT_EQ(wordOf("foo(1, 2)"), "未対応の関数");
    EXPECT_EQ(wordOf("squ2(t)"), "引数不足");
    EXPECT_EQ(wordOf("abs(1, 2)"), "引数が多い");
    EXPECT_EQ(wordOf("sin2(1)"), "未対応の関数");
}

TEST(Formula, ADivisionByZeroThatStandsBeforeAFaultComesFirst)
{
    EXPECT_EQ(wordOf("1/0 $"), "0除算");
    EXPECT_EQ(wordOf("1/t +"), "0除算");
    EXPECT_EQ(wordOf("foo(1/0)"), "0除算");
    EXPECT_EQ(wordOf("$ 1/0"), "式エラー");
    // The division is read, but what divides is only known behind the fault.
    EXPECT_EQ(wordOf("1/(0 $)"), "閉じ括弧なし");
    // The division by zero at the middle is never reached.
    EXPECT_EQ(wordOf("1/(t - pi) $"), "未対応の記号");
    // Left-over characters are noticed before the value is looked at.
    EXPECT_EQ(wordOf("pow(0-1, 0.5) $"), "未対応の記号");
}

TEST(Formula, FunctionsOfOneArgument)
{
    const auto saw = [](double t) { return 2 * t / (2 * pi) - 1; };
    const auto tri = [](double t) { return t < pi ? 2 * t / pi - 1 : 1 - 2 * (t - pi) / pi; };
    expectSamples("sin(t)", [](double t) { return std::sin(t); });
    expectSamples("cos(t)", [](double t) { return std::cos(t); });
    expectSamples("saw(t)", saw);
    expectSamples("squ(t)", [](double t) { return t < pi ? 1.0 : -1.0; });
    expectSamples("tri(t)", tri);
    expectSamples("abs(sin(t))", [](double t) { return std::abs(std::sin(t)); });
    expectSamples("pow(sin(t), 3)", [](double t) { return std::pow(std::sin(t), 3); });
}

TEST(Formula, ThePhaseOfANegativeAngleIsBroughtAboveZero)
{
    const UserWaveform samples = evaluateFormula("saw(-t)");
    EXPECT_EQ(samples[0], -32768);
    EXPECT_EQ(samples[512], 16384);
    EXPECT_EQ(samples[1536], -16384);
    EXPECT_EQ(evaluateFormula("squ(t - 4*pi)"), evaluateFormula("squ(t)"));
}

TEST(Formula, TheFirstArgumentOfSqu2IsTheDuty)
{
    UserWaveform quarter = constant(-32768);
    std::fill_n(quarter.begin(), 512, std::int16_t{32767});
    EXPECT_EQ(evaluateFormula("squ2(0.25, t)"), quarter);
    EXPECT_NE(evaluateFormula("squ2(t, 0.25)"), quarter);
    EXPECT_EQ(evaluateFormula("squ2(0, t)"), constant(-32768));
    EXPECT_EQ(evaluateFormula("squ2(-3, t)"), constant(-32768));
    EXPECT_EQ(evaluateFormula("squ2(1, t)"), constant(32767));
    EXPECT_EQ(evaluateFormula("squ2(7, t)"), constant(32767));
}

TEST(Formula, AFullDutyIsFullWhereThePhaseRoundsUpToAWholeTurn)
{
    EXPECT_EQ(evaluateFormula("squ2(1, -1e-300)"), constant(32767));
}

TEST(Formula, TheHelpNamesAllThatTheLanguageOffers)
{
    EXPECT_EQ(
        formulaHelpText,
        "数式を入力できます。\n\n関数:\nsin(rad): サイン波\ncos(rad): コサイン波\nsaw(rad): のこぎり波\n"
        "squ(rad): 矩形波\nsqu2(duty, rad): 矩形波(duty比0〜1)\ntri(rad): 三角波\nabs(x): 絶対値\n"
        "pow(x,y): xのy乗\n\n定数:\npi: 円周率\n\n変数:\nt: 時間軸。0以上2π未満まで動く。\n\n演算:\n+, -, *, /, ( )");
}

TEST(Formula, TheSamplesOfferedToTheUserAreValid)
{
    EXPECT_THAT(UserWaveformBuilder::formulaSamples,
                testing::ElementsAre(
                    "pow( ( (t - pi) / pi) , 3)", "sin(7 * t) * saw(t)",
                    "abs( (squ(t) / 2 + 0.5) * tri( 2 * t + pi / 2) ) - abs( (-squ(t) / 2 + 0.5) * sin(2 * t) )"));
    expectSamples(UserWaveformBuilder::formulaSamples[0], [](double t) { return std::pow((t - pi) / pi, 3); });
    expectSamples(UserWaveformBuilder::formulaSamples[1],
                  [](double t) { return std::sin(7 * t) * (2 * t / (2 * pi) - 1); });
    const UserWaveform third = evaluateFormula(UserWaveformBuilder::formulaSamples[2]);
    EXPECT_EQ(third[512], 0);
    EXPECT_EQ(third[1280], -32768);
}

TEST(Formula, NestsAsDeepAsItSays)
{
    EXPECT_EQ(evaluateFormula(repeated("(", 1000) + std::string("1") + repeated(")", 1000)), constant(32767));
    EXPECT_EQ(wordOf(repeated("(", 1001) + std::string("1") + repeated(")", 1001)), "式エラー");
    EXPECT_EQ(evaluateFormula(repeated("-", 1000) + "1"), constant(32767));
    EXPECT_EQ(wordOf(repeated("+", 1001) + "1"), "式エラー");
    EXPECT_EQ(evaluateFormula(repeated("abs(", 1000) + std::string("1") + repeated(")", 1000)), constant(32767));
    EXPECT_EQ(wordOf(repeated("abs(", 1001) + std::string("1") + repeated(")", 1001)), "式エラー");
}

TEST(Formula, BracketsSideBySideDoNotCountAsNested)
{
    EXPECT_EQ(evaluateFormula(std::string("1") + repeated("*(-1)*abs(1)", 2000)), constant(32767));
}

TEST(Formula, AHundredThousandBracketsOrSignsAreAnError)
{
    for (const char* text : {"(", "-", "+", "sin(", "pow(1,"})
        EXPECT_EQ(wordOf(repeated(text, 100'000) + "1"), "式エラー") << text;
}

TEST(Formula, IllFormedTextIsASymbol)
{
    EXPECT_EQ(wordOf("\xE3\x81"), "式エラー");
    EXPECT_EQ(wordOf("1 \xFF"), "未対応の記号");
    EXPECT_EQ(wordOf(std::string_view("1\0", 2)), "未対応の記号");
}

} // namespace
} // namespace tonavelle
