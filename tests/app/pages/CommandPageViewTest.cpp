#include "pages/CommandPageView.h"

#include "controls/TickSnappingSlider.h"
#include "controls/ValidatedTextField.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/support/Bytes.h"

#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;
using test::PluggedRuntime;
using tonavelle::Batch;

/// One button of the page and what its press sends.
struct ButtonCase {
    const char* title;
    const char* message; ///< the first one sent
    const char* label;
};

constexpr std::array<ButtonCase, 20> buttonCases{{
    {"Tonavelle Reset", "F0 00 48 05 7F 00 00 F7", "Tonavelle Reset"},
    {"GMシステムオン", "F0 7E 7F 09 01 F7", "GMシステムオン"},
    {"GM2システムオン", "F0 7E 7F 09 03 F7", "GM2システムオン"},
    {"GSリセット", "F0 41 10 42 12 40 00 7F 00 41 F7", "GSリセット"},
    {"XGシステムオン", "F0 43 10 4C 00 00 7E 00 F7", "XGシステムオン"},
    {"初期画面", "F0 00 48 05 7F 03 00 F7", "UI Type Set (0)"},
    {"リップシンク", "F0 00 48 05 7F 03 01 F7", "UI Type Set (1)"},
    {"ピアノロール", "F0 00 48 05 7F 03 02 F7", "UI Type Set (2)"},
    {"オシロスコープ", "F0 00 48 05 7F 03 03 F7", "UI Type Set (3)"},
    {"任意画像表示", "F0 00 48 05 7F 03 04 F7", "UI Type Set (4)"},
    {"演奏モニタ", "F0 00 48 05 7F 03 05 F7", "UI Type Set (5)"},
    {"ウォーターフォール", "F0 00 48 05 7F 03 06 F7", "UI Type Set (6)"},
    {"ON", "F0 00 48 05 7F 04 01 F7", "ON"},
    {"OFF", "F0 00 48 05 7F 04 00 F7", "OFF"},
    {"日本語表示OFF", "F0 00 48 05 7F 05 00 F7", "日本語表示OFF"},
    {"日本語表示ON", "F0 00 48 05 7F 05 01 F7", "日本語表示ON"},
    {"パニック", "B0 78 00", "All Sound Off"},
    {"デバッグ情報OFF", "F0 00 48 05 7F 70 00 F7", "デバッグ情報OFF"},
    {"デバッグ情報ON", "F0 00 48 05 7F 70 01 F7", "デバッグ情報ON"},
    {"バージョン表示", "F0 00 48 05 7F 71 F7", "バージョン表示"},
}};

class CommandPageViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        page.resize(1000, 900);
        page.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    }

    template <typename Control>
    Control& control(const QString& name)
    {
        auto* const found = page.findChild<Control*>(name);
        EXPECT_NE(found, nullptr) << qPrintable(name);
        page.findChild<QScrollArea*>()->ensureWidgetVisible(found);
        return *found;
    }

    void press(const QString& title) { QTest::mouseClick(&control<QPushButton>(title), Qt::LeftButton); }

    PluggedRuntime plugged;
    CommandPageView page{plugged.runtime};
};

TEST_F(CommandPageViewTest, EveryButtonSendsItsMessageUnderItsLabel)
{
    for (const ButtonCase& expected : buttonCases) {
        SCOPED_TRACE(expected.title);
        plugged.system.forgetSent();
        plugged.runtime.logStore().clear();
        press(QString::fromUtf8(expected.title));
        ASSERT_FALSE(plugged.sent().empty());
        EXPECT_EQ(plugged.sent().front(), bytes(expected.message));
        const QString label = QString::fromUtf8(expected.label);
        const bool isSysEx = plugged.sent().front().front() == 0xF0;
        const QString header = (isSysEx ? QStringLiteral(" [SysEx: %1]\n") : QStringLiteral(" [%1]\n")).arg(label);
        EXPECT_TRUE(plugged.log().startsWith(header)) << qPrintable(plugged.log());
        EXPECT_EQ(plugged.runtime.midiOutManager().statusMessage(), label + QStringLiteral(" を送信しました。"));
    }
}

TEST_F(CommandPageViewTest, EachResetIsShownUnderItsEnglishName)
{
    constexpr std::array<std::pair<const char*, const char*>, 5> cases{{
        {"Tonavelle Reset", "Tonavelle Reset"},
        {"GMシステムオン", "GM System ON"},
        {"GM2システムオン", "GM2 System ON"},
        {"GSリセット", "GS Reset"},
        {"XGシステムオン", "XG System ON"},
    }};
    for (const auto& [title, name] : cases) {
        press(QString::fromUtf8(title));
        EXPECT_EQ(plugged.screen().asciiText, name);
    }
    EXPECT_EQ(plugged.screen().colorMode, DisplaySimulatorColorMode::xg);
}

TEST_F(CommandPageViewTest, EveryScreenButtonShowsItsScreen)
{
    constexpr std::array<const char*, 7> titles{"初期画面",     "リップシンク", "ピアノロール",      "オシロスコープ",
                                                "任意画像表示", "演奏モニタ",   "ウォーターフォール"};
    for (std::size_t i = titles.size(); i-- > 0;) {
        press(QString::fromUtf8(titles[i]));
        EXPECT_EQ(static_cast<std::size_t>(plugged.screen().displayType), i) << titles[i];
    }
}

TEST_F(CommandPageViewTest, AColorSliderSendsWithEachStepOfAnArrowKey)
{
    auto& red = control<TickSnappingSlider>(QStringLiteral("R"));
    red.setFocus();
    QTest::keyClick(&red, Qt::Key_Right);
    QTest::keyClick(&red, Qt::Key_Right);
    EXPECT_EQ(plugged.sent(), (Batch{bytes("F0 00 48 05 7F 2A 40 3F 3F F7"), bytes("F0 00 48 05 7F 2A 41 3F 3F F7")}));
}

TEST_F(CommandPageViewTest, ADragOfAColorSliderGivesAStreamOfMessages)
{
    auto& blue = control<TickSnappingSlider>(QStringLiteral("B"));
    const QPoint knob = blue.knobRect().center().toPoint();
    QTest::mousePress(&blue, Qt::LeftButton, {}, knob);
    for (int i = 1; i <= 10; ++i)
        QTest::mouseMove(&blue, knob + QPoint(10 * i, 0));
    QTest::mouseRelease(&blue, Qt::LeftButton, {}, knob + QPoint(100, 0));
    EXPECT_GE(plugged.sent().size(), 9u);
    EXPECT_GT(plugged.sent().back()[8], 0x3F);
}

TEST_F(CommandPageViewTest, ResettingTheFaceBringsThePickersBackWithoutAnyFaceSetMessage)
{
    auto& eyebrow = control<QComboBox>(QStringLiteral("眉："));
    auto& eye = control<QComboBox>(QStringLiteral("目："));
    auto& mouth = control<QComboBox>(QStringLiteral("口："));
    for (QComboBox* const picker : {&eyebrow, &mouth, &eye}) {
        picker->setFocus();
        QTest::keyClick(picker, Qt::Key_Down);
        QTest::keyClick(picker, Qt::Key_Down);
        EXPECT_EQ(picker->currentIndex(), 2);
    }
    EXPECT_EQ(plugged.sent().back(), bytes("F0 00 48 05 7F 10 02 02 F7"));
    EXPECT_EQ(plugged.screen().eye, 2);

    plugged.system.forgetSent();
    press(QStringLiteral("表情を初期化"));
    QCoreApplication::processEvents();
    EXPECT_EQ(plugged.sent(), (Batch{bytes("F0 00 48 05 7F 03 01 F7"), bytes("F0 00 48 05 7F 10 00 00 F7"),
                                     bytes("F0 00 48 05 7F 04 00 F7")}));
    EXPECT_EQ(eyebrow.currentText(), QStringLiteral("普通"));
    EXPECT_EQ(eye.currentText(), QStringLiteral("開く"));
    EXPECT_EQ(mouth.currentText(), QStringLiteral("閉じる"));
}

TEST_F(CommandPageViewTest, PickersNameTheirPartsInOrder)
{
    const auto names = [this](const QString& label) {
        QStringList texts;
        const auto& picker = control<QComboBox>(label);
        for (int i = 0; i < picker.count(); ++i)
            texts << picker.itemText(i);
        return texts.join(QLatin1Char(' '));
    };
    EXPECT_EQ(names(QStringLiteral("眉：")), QStringLiteral("普通 優しげ 悲しみ 怒り"));
    EXPECT_EQ(names(QStringLiteral("目：")), QStringLiteral("開く 中間 閉じる スマイル ＞＜ しいたけ ウィンク"));
    EXPECT_EQ(names(QStringLiteral("口：")), QStringLiteral("閉じる あ い う え お 舌 文句 中割り"));
}

TEST_F(CommandPageViewTest, EachKeystrokeInTheASCIIRowSendsTheWholeRow)
{
    auto& field = control<ValidatedTextField>(QStringLiteral("ASCII："));
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("Hi"));
    EXPECT_EQ(plugged.sent(),
              (Batch{bytes("F0 41 10 45 12 10 00 00 48 28 F7"), bytes("F0 41 10 45 12 10 00 00 48 69 3F F7")}));
    EXPECT_EQ(plugged.screen().asciiText, "Hi");
}

TEST_F(CommandPageViewTest, KanaInTheASCIIRowLeaveTheFieldAsItWasAndSendNothing)
{
    auto& field = control<ValidatedTextField>(QStringLiteral("ASCII："));
    field.setFocus();
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("あ"));
    QApplication::sendEvent(&field, &commit);
    EXPECT_EQ(field.text(), QString());
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(CommandPageViewTest, AJapaneseRowSendsOnlyWhatTheInputMethodConfirms)
{
    auto& field = control<ValidatedTextField>(QStringLiteral("日本語(上段)："));
    field.setFocus();
    QInputMethodEvent composing(QStringLiteral("にほん"), {});
    QApplication::sendEvent(&field, &composing);
    EXPECT_TRUE(plugged.sent().empty());
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("日本"));
    QApplication::sendEvent(&field, &commit);
    EXPECT_EQ(plugged.sent(),
              (Batch{bytes("F0 00 48 05 7F 06 01 F7"), bytes("F0 00 48 05 7F 07 00 09 03 0F 0A 09 06 07 0B F7")}));
    EXPECT_EQ(plugged.screen().japaneseUpper, "日本");
}

TEST_F(CommandPageViewTest, AClickOnTheDotGridTogglesOneCellAndADragALine)
{
    auto& grid = control<QWidget>(QStringLiteral("dotGrid"));
    QTest::mouseClick(&grid, Qt::LeftButton, {}, {10, 8});
    EXPECT_EQ(plugged.sent().size(), 1u);
    EXPECT_TRUE(plugged.screen().dotValues[0][0]);

    QTest::mousePress(&grid, Qt::LeftButton, {}, {5 + 16 * 3 + 4, 8});
    QTest::mouseMove(&grid, {5 + 16 * 9 + 4, 8});
    QTest::mouseRelease(&grid, Qt::LeftButton, {}, {5 + 16 * 9 + 4, 8});
    EXPECT_EQ(plugged.sent().size(), 3u);
    for (std::size_t x = 3; x <= 9; ++x)
        EXPECT_TRUE(plugged.screen().dotValues[0][x]) << x;
}

TEST_F(CommandPageViewTest, AStrokeEndsWhenThePageIsHiddenUnderThePressedButton)
{
    auto& grid = control<QWidget>(QStringLiteral("dotGrid"));
    QTest::mousePress(&grid, Qt::LeftButton, {}, {10, 8});
    page.hide();
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    QTest::mouseClick(&grid, Qt::LeftButton, {}, {5 + 16 * 9 + 4, 8});
    EXPECT_FALSE(plugged.screen().dotValues[0][5]) << "no line joins the two strokes";
    QTest::mouseClick(&grid, Qt::LeftButton, {}, {10, 8});
    EXPECT_FALSE(plugged.screen().dotValues[0][0]) << "a new stroke toggles the cell again";
}

TEST_F(CommandPageViewTest, TheDotGridIsDrawnWithTheKeyboardToo)
{
    auto& grid = control<QWidget>(QStringLiteral("dotGrid"));
    grid.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_End);
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_TRUE(plugged.screen().dotValues[1][15]);
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_FALSE(plugged.screen().dotValues[1][15]);
}

TEST_F(CommandPageViewTest, TheButtonsOfTheDotGridFillInvertClearAndSend)
{
    press(QStringLiteral("全点灯"));
    EXPECT_TRUE(plugged.screen().dotValues[7][7]);
    press(QStringLiteral("反転"));
    EXPECT_FALSE(plugged.screen().dotValues[7][7]);
    press(QStringLiteral("全消灯"));
    press(QStringLiteral("送信"));
    ASSERT_EQ(plugged.sent().size(), 4u);
    EXPECT_EQ(plugged.sent()[3], plugged.sent()[2]);
}

TEST_F(CommandPageViewTest, EveryControlHasANameForWhoCannotSeeIt)
{
    int controls = 0;
    for (const QWidget* const widget : page.findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()) continue;
        if (qobject_cast<const QAbstractScrollArea*>(widget)) continue;
        ++controls;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const QString name = button ? button->text() : widget->accessibleName();
        EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className() << qPrintable(widget->objectName());
        EXPECT_FALSE(widget->objectName().isEmpty()) << qPrintable(name);
    }
    EXPECT_GE(controls, 35);
}

TEST_F(CommandPageViewTest, TheWheelOverAPickerWithoutFocusChangesNothing)
{
    auto& mouth = control<QComboBox>(QStringLiteral("口："));
    page.setFocus();
    const QPointF middle = mouth.rect().center();
    QWheelEvent wheel(middle, mouth.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&mouth, &wheel);
    EXPECT_EQ(mouth.currentIndex(), 0);
    EXPECT_TRUE(plugged.sent().empty());
}

} // namespace
} // namespace orvim
