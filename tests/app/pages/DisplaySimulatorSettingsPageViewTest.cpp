#include "pages/DisplaySimulatorSettingsPageView.h"

#include "DisplaySimulatorState.h"
#include "controls/SegmentedPicker.h"
#include "controls/VerticalIndicatorSlider.h"
#include "simulator/DisplaySimulatorPreviewView.h"
#include "tests/app/support/Wheel.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using Special = DisplaySimulatorSpecialMode;

struct Shown {
    Shown()
    {
        page.resize(1100, 900);
        page.show();
        page.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page));
    }

    template <typename Control>
    Control& control(const char* name)
    {
        auto* found = page.findChild<Control*>(QString::fromUtf8(name));
        if (!found) throw std::logic_error(std::string("no control ") + name);
        return *found;
    }
    void press(const char* title) { control<QPushButton>(title).click(); }
    /// Chooses an entry as the user does, by keys.
    void pick(const char* name, int index)
    {
        auto& picker = control<QComboBox>(name);
        picker.setFocus();
        QTest::keyClick(&picker, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            QTest::keyClick(&picker, Qt::Key_Down);
    }
    void settle() { QCoreApplication::processEvents(); }
    const DisplayFields& fields() const { return state.fields(); }

    DisplaySimulatorState state;
    DisplaySimulatorSettingsPageView page{state};
};

QStringList entries(const QComboBox& picker)
{
    QStringList all;
    for (int i = 0; i < picker.count(); ++i)
        all << picker.itemText(i);
    return all;
}

QStringList utf8(std::initializer_list<const char*> texts)
{
    QStringList all;
    for (const char* text : texts)
        all << QString::fromUtf8(text);
    return all;
}

// What stands on the page

TEST(DisplaySimulatorSettingsPageView, HeadSaysThatTheModuleIsNotReached)
{
    Shown shown;
    QStringList texts;
    for (const auto* label : shown.control<QGroupBox>("使い方").findChildren<QLabel*>())
        texts << label->text();
    EXPECT_EQ(texts, utf8({"画面シミュレータ用の設定です。Tonavelle™ mini実機には反映されません。"}));
}

TEST(DisplaySimulatorSettingsPageView, GroupsHaveTheirWidths)
{
    Shown shown;
    for (const char* title : {"使い方", "シミュレータウィンドウ", "インジケーター"})
        EXPECT_EQ(shown.control<QGroupBox>(title).width(), 650) << title;
    for (const char* title : {"特殊画面", "その他"})
        EXPECT_EQ(shown.control<QGroupBox>(title).width(), 390) << title;
    EXPECT_NE(shown.control<QGroupBox>("インジケーター").findChild<QGroupBox*>(QStringLiteral("オシロスコープ画面")),
              nullptr);
}

TEST(DisplaySimulatorSettingsPageView, PickersHaveTheirWidthsAndEntries)
{
    Shown shown;
    struct Row {
        const char* name;
        int width;
        QStringList entries;
    };
    for (const auto& row : {
             Row{"解像度", 160, utf8({"100%", "200%", "300%"})},
             Row{"色モード", 150, utf8({"Default", "GM2", "GS", "XG", "User"})},
             Row{"画面タイプ", 180,
                 utf8({"初期画面", "リップシンク", "ピアノロール", "オシロスコープ", "任意画像表示", "演奏モニタ",
                       "ウォーターフォール"})},
         }) {
        EXPECT_EQ(shown.control<QComboBox>(row.name).width(), row.width) << row.name;
        EXPECT_EQ(entries(shown.control<QComboBox>(row.name)), row.entries) << row.name;
    }
    EXPECT_EQ(entries(shown.control<QComboBox>("Errorの種類")), utf8({"VBUS_LOW", "PSRAM_INIT", "PSRAM_TEST", "DAC"}));
}

TEST(DisplaySimulatorSettingsPageView, EveryControlHasAnAccessibleName)
{
    Shown shown;
    int controls = 0;
    for (const auto* widget : shown.page.findChildren<QWidget*>()) {
        // The stepper's own field carries its name, and what scrolls has none.
        const bool isInner = qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QScrollArea*>(widget);
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() || isInner) continue;
        auto* interface = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        ASSERT_NE(interface, nullptr);
        EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty()) << widget->metaObject()->className();
        ++controls;
    }
    EXPECT_GE(controls, 16 + 3 + 1 + 4 + 4 + 7 + 3) << "bars, sliders, stepper, pickers, boxes, buttons, segments";
}

// The window's group

TEST(DisplaySimulatorSettingsPageView, ButtonAsksForTheWindow)
{
    Shown shown;
    QSignalSpy spy(&shown.page, &DisplaySimulatorSettingsPageView::windowRequested);
    shown.press("画面シミュレータを表示");
    EXPECT_TRUE(shown.fields().displayWindowIsVisible);
    EXPECT_EQ(spy.count(), 1);
}

TEST(DisplaySimulatorSettingsPageView, BoxesMoveTheirFieldsAndFollowThem)
{
    Shown shown;
    struct Row {
        const char* name;
        bool DisplayFields::*field;
        void (DisplaySimulatorState::*set)(bool);
        bool initial;
    };
    for (const auto& row : {Row{"境界表示", &DisplayFields::displayWindowShowsBorder,
                                &DisplaySimulatorState::setWindowShowsBorder, false},
                            Row{"常に最前面に表示", &DisplayFields::displayWindowAlwaysOnTop,
                                &DisplaySimulatorState::setWindowAlwaysOnTop, false},
                            Row{"USB表示", &DisplayFields::showsUSB, &DisplaySimulatorState::setShowsUSB, true},
                            Row{"Trigger", &DisplayFields::isOscilloscopeTriggered,
                                &DisplaySimulatorState::setOscilloscopeTriggered, false}}) {
        auto& box = shown.control<QCheckBox>(row.name);
        EXPECT_EQ(box.isChecked(), row.initial) << row.name;
        box.click();
        EXPECT_EQ(shown.fields().*row.field, !row.initial) << row.name;
        (shown.state.*row.set)(row.initial);
        shown.settle();
        EXPECT_EQ(box.isChecked(), row.initial) << row.name;
    }
}

TEST(DisplaySimulatorSettingsPageView, ScaleMovesAndFollows)
{
    Shown shown;
    shown.pick("解像度", 2);
    EXPECT_EQ(shown.fields().displayWindowScale, 3);
    shown.state.setWindowScale(2);
    shown.settle();
    EXPECT_EQ(shown.control<QComboBox>("解像度").currentIndex(), 1);
}

TEST(DisplaySimulatorSettingsPageView, ColorModeMovesAndFollows)
{
    Shown shown;
    shown.pick("色モード", 2);
    EXPECT_EQ(shown.fields().colorMode, DisplaySimulatorColorMode::gs);
    EXPECT_EQ(shown.fields().baseRGB, 0xFF6F0C);
    shown.state.setLcdColor(1, 2, 3);
    shown.settle();
    EXPECT_EQ(shown.control<QComboBox>("色モード").currentText(), QStringLiteral("User"));
    EXPECT_EQ(shown.fields().colorMode, DisplaySimulatorColorMode::user);
}

// Indicators

TEST(DisplaySimulatorSettingsPageView, LevelsMoveAndFollow)
{
    Shown shown;
    auto& left = shown.control<TickSnappingSlider>("L");
    auto& right = shown.control<TickSnappingSlider>("R");
    EXPECT_EQ(left.range(), (SliderRange{0, 63, 1}));
    shown.state.setSpecialMode(Special::error);
    QTest::keyClick(&left, Qt::Key_End);
    EXPECT_EQ(shown.fields().leftLevel, 63);
    EXPECT_EQ(shown.fields().rightLevel, 53);
    EXPECT_EQ(shown.fields().specialMode, Special::none);
    QTest::keyClick(&right, Qt::Key_Left);
    EXPECT_EQ(shown.fields().rightLevel, 52);
    shown.state.setIndicators(5, 6, 7, DisplaySimulatorSubDisplay::over);
    shown.settle();
    EXPECT_EQ(left.value(), 5);
    EXPECT_EQ(right.value(), 6);
}

TEST(DisplaySimulatorSettingsPageView, SubDisplayMovesAndFollows)
{
    Shown shown;
    shown.state.setSpecialMode(Special::error);
    auto& picker = shown.control<SegmentedPicker>("サブ表示");
    QTest::mouseClick(picker.findChild<QAbstractButton*>(QStringLiteral("Clip")), Qt::LeftButton);
    EXPECT_EQ(shown.fields().subDisplay, DisplaySimulatorSubDisplay::clip);
    EXPECT_EQ(shown.fields().specialMode, Special::none);
    shown.state.resetIndicators();
    shown.settle();
    EXPECT_EQ(picker.currentIndex(), 0);
}

TEST(DisplaySimulatorSettingsPageView, VoicesMoveAndFollow)
{
    Shown shown;
    auto& voices = shown.control<QSpinBox>("Voice");
    EXPECT_EQ(voices.text(), QStringLiteral("Voice 24"));
    EXPECT_EQ(voices.minimum(), 0);
    EXPECT_EQ(voices.maximum(), 60);
    shown.state.setSpecialMode(Special::error);
    QTest::keyClick(&voices, Qt::Key_Up);
    EXPECT_EQ(shown.fields().voiceCount, 25);
    EXPECT_EQ(shown.fields().specialMode, Special::none);
    shown.state.resetIndicators();
    shown.state.setSpecialMode(Special::error);
    shown.settle();
    EXPECT_EQ(voices.text(), QStringLiteral("Voice 24"));
    EXPECT_EQ(shown.fields().specialMode, Special::error) << "following is no write";
}

TEST(DisplaySimulatorSettingsPageView, ACountMayBeTypedWhileTheFaceBlinks)
{
    Shown shown;
    auto& voices = shown.control<QSpinBox>("Voice");
    voices.setFocus();
    voices.selectAll();
    shown.state.setFaceBlinking(true);
    QSignalSpy changes(&shown.state, &DisplaySimulatorState::changed);
    QTest::keyClicks(&voices, QStringLiteral("4"));
    shown.state.blinkTick();
    shown.settle();
    EXPECT_GT(changes.count(), 0) << "the state has moved meanwhile";
    QTest::keyClicks(&voices, QStringLiteral("5"));
    QTest::keyClick(&voices, Qt::Key_Return);
    EXPECT_EQ(shown.fields().voiceCount, 45);
}

TEST(DisplaySimulatorSettingsPageView, BarsMoveAndFollowWithTheirCaptions)
{
    Shown shown;
    shown.state.setSpecialMode(Special::knob);
    auto& bar = shown.control<VerticalIndicatorSlider>("バー3");
    EXPECT_EQ(bar.range(), (SliderRange{0, 16, 1}));
    QTest::keyClick(&bar, Qt::Key_Up);
    EXPECT_EQ(shown.fields().barValues, (std::array{1, 1, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(shown.fields().specialMode, Special::none);
    shown.state.applyBars(std::array{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
    shown.settle();
    QStringList captions;
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(shown.page.findChild<VerticalIndicatorSlider*>(QStringLiteral("バー%1").arg(i + 1))->value(), i);
        captions << shown.page.findChild<QLabel*>(QStringLiteral("バー%1の値").arg(i + 1))->text();
    }
    EXPECT_EQ(captions.join(QLatin1Char(' ')), QStringLiteral("00 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15"));
}

// Special screens and the rest

TEST(DisplaySimulatorSettingsPageView, ButtonsChooseTheSpecialScreen)
{
    Shown shown;
    for (const auto& [title, mode] : {std::pair{"Volume", Special::knob},
                                      {"Error", Special::error},
                                      {"Starting", Special::starting},
                                      {"FW Update", Special::firmwareUpdate},
                                      {"元に戻す", Special::none}}) {
        shown.press(title);
        EXPECT_EQ(shown.fields().specialMode, mode) << title;
    }
}

TEST(DisplaySimulatorSettingsPageView, ReturningKeepsTheIndicators)
{
    Shown shown;
    shown.state.setIndicators(1, 2, 3, DisplaySimulatorSubDisplay::clip);
    shown.state.setKnobValue(11);
    auto expected = shown.fields();
    expected.specialMode = Special::none;
    shown.press("元に戻す");
    EXPECT_EQ(shown.fields(), expected);
}

TEST(DisplaySimulatorSettingsPageView, VolumeSliderEntersTheKnobScreenAndAMessageLeavesIt)
{
    Shown shown;
    auto& slider = shown.control<TickSnappingSlider>("Volumeの値");
    EXPECT_EQ(slider.range(), (SliderRange{0, 40, 1}));
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(shown.fields().knobValue, 21);
    EXPECT_EQ(shown.fields().specialMode, Special::knob);
    shown.state.setDisplayType(0);
    EXPECT_EQ(shown.fields().specialMode, Special::none);
    shown.state.setKnobValue(7);
    shown.settle();
    EXPECT_EQ(slider.value(), 7);
}

TEST(DisplaySimulatorSettingsPageView, ErrorKindMovesAndFollowsWithoutShowingIt)
{
    Shown shown;
    shown.pick("Errorの種類", 3);
    EXPECT_EQ(shown.fields().errorKind, DisplaySimulatorErrorKind::dac);
    EXPECT_EQ(shown.fields().specialMode, Special::none);
    shown.state.setErrorKind(DisplaySimulatorErrorKind::psramInit);
    shown.settle();
    EXPECT_EQ(shown.control<QComboBox>("Errorの種類").currentIndex(), 1);
}

TEST(DisplaySimulatorSettingsPageView, DisplayTypeIsWrittenAsItIs)
{
    Shown shown;
    shown.state.setFaceBlinking(true);
    shown.state.setSpecialMode(Special::error);
    shown.pick("画面タイプ", 6);
    EXPECT_EQ(shown.fields().displayType, DisplaySimulatorType::waterfall);
    EXPECT_EQ(shown.fields().specialMode, Special::error);
    EXPECT_TRUE(shown.state.blinkTimer().isActive());
    shown.state.setDisplayType(3);
    shown.settle();
    EXPECT_EQ(shown.control<QComboBox>("画面タイプ").currentIndex(), 3);
}

TEST(DisplaySimulatorSettingsPageView, ResetRestoresIndicatorsAndKeepsColoursAndType)
{
    Shown shown;
    shown.state.setLcdColor(1, 2, 3);
    shown.state.setFace(2, 4);
    shown.state.setDisplayType(5);
    shown.state.setAsciiText("Hello");
    shown.state.setWindowScale(2);
    auto expected = shown.fields();
    ASSERT_EQ(expected.colorMode, DisplaySimulatorColorMode::user);
    ASSERT_EQ(expected.displayType, DisplaySimulatorType::performanceMonitor);

    shown.state.setIndicators(1, 2, 3, DisplaySimulatorSubDisplay::clip);
    shown.state.applyBars(std::array{0, 16, 5});
    shown.state.setShowsUSB(false);
    shown.state.setOscilloscopeTriggered(true);
    shown.state.setErrorKind(DisplaySimulatorErrorKind::dac);
    shown.state.setKnobValue(3);
    ASSERT_EQ(shown.fields().specialMode, Special::knob);
    shown.press("上記をリセット");

    const auto& fields = shown.fields();
    EXPECT_EQ(fields.leftLevel, 20);
    EXPECT_EQ(fields.rightLevel, 53);
    EXPECT_EQ(fields.voiceCount, 24);
    EXPECT_EQ(fields.subDisplay, DisplaySimulatorSubDisplay::none);
    EXPECT_EQ(fields.barValues, (std::array{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    EXPECT_TRUE(fields.showsUSB);
    EXPECT_FALSE(fields.isOscilloscopeTriggered);
    EXPECT_EQ(fields.knobValue, 20);
    EXPECT_EQ(fields.errorKind, DisplaySimulatorErrorKind::vbusLow);
    EXPECT_EQ(fields.specialMode, Special::none);
    EXPECT_EQ(fields, expected) << "colours, type, text, face and window stay";
}

TEST(DisplaySimulatorSettingsPageView, FollowingWritesNothing)
{
    Shown shown;
    shown.state.setLcdColor(9, 8, 7);
    shown.state.setIndicators(9, 8, 7, DisplaySimulatorSubDisplay::over);
    shown.state.applyBars(std::array{16, 15});
    shown.state.setKnobValue(1);
    shown.state.setErrorKind(DisplaySimulatorErrorKind::psramTest);
    shown.state.writeDisplayType(DisplaySimulatorType::waterfall);
    const auto before = shown.fields();
    QSignalSpy spy(&shown.state, &DisplaySimulatorState::changed);
    shown.settle();
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(shown.fields(), before);
}

// The picture

TEST(DisplaySimulatorSettingsPageView, PictureStandsBesideTheGroupsOrAboveThem)
{
    Shown shown;
    const auto* picture = shown.page.findChild<DisplaySimulatorPreviewView*>();
    const auto* scrollArea = shown.page.findChild<QScrollArea*>();
    EXPECT_EQ(picture->geometry(), QRect(682, 16, 320, 170));
    EXPECT_EQ(scrollArea->geometry().top(), 0);
    shown.page.resize(790, 600);
    QTest::qWait(20);
    EXPECT_EQ(picture->geometry(), QRect(16, 16, 320, 170));
    EXPECT_EQ(scrollArea->geometry().top(), 186);
    EXPECT_TRUE(scrollArea->verticalScrollBar()->isVisible());
}

TEST(DisplaySimulatorSettingsPageView, WheelScrollsThePageAndMovesNothing)
{
    Shown shown;
    shown.page.resize(1100, 400);
    shown.settle();
    shown.control<QPushButton>("画面シミュレータを表示").setFocus();
    const auto before = shown.fields();
    auto& scrollBar = *shown.page.findChild<QScrollArea*>()->verticalScrollBar();
    for (const char* name : {"解像度", "L", "バー1", "Voice", "画面タイプ"}) {
        scrollBar.setValue(0);
        test::turnWheel(shown.control<QWidget>(name), -120);
        EXPECT_GT(scrollBar.value(), 0) << name;
    }
    EXPECT_EQ(shown.fields(), before);
}

} // namespace
} // namespace orvim
