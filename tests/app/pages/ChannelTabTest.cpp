#include "controls/SegmentedPicker.h"
#include "controls/SliderNumberField.h"
#include "controls/TickSnappingSlider.h"
#include "core/tone/ToneDataFile.h"
#include "tests/app/support/LogLabels.h"
#include "tests/app/support/ToneEditorPageTest.h"
#include "tests/app/support/ToneSteps.h"
#include "tests/app/support/WaveFile.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTemporaryDir>

#include <span>

namespace orvim {
namespace {

using test::batch;
using test::logLabels;
using test::ToneStep;
using tonavelle::Batch;
using tonavelle::ToneParameter;
using ID = tonavelle::ToneParameterID;

QString captionOf(const ToneParameter& parameter)
{
    return QString::fromUtf8(parameter.caption().data(), static_cast<qsizetype>(parameter.caption().size()));
}

/// The channel tab and the master tab, each control by the keys or the mouse.
class ChannelTabTest : public test::ToneEditorPageTest
{
protected:
    /// Moves the control by one step from its default towards `step.value`.
    void moveByKey(const ToneStep& step, int standard)
    {
        const bool isUp = step.value > standard;
        QWidget& widget = control<QWidget>(captionOf(tonavelle::toneParameter(step.id)));
        if (qobject_cast<TickSnappingSlider*>(&widget))
            press(widget, isUp ? Qt::Key_Right : Qt::Key_Left);
        else if (qobject_cast<QComboBox*>(&widget))
            press(widget, isUp ? Qt::Key_Down : Qt::Key_Up);
        else if (qobject_cast<QCheckBox*>(&widget))
            press(widget, Qt::Key_Space);
        else
            press(checkedSegment(widget), isUp ? Qt::Key_Right : Qt::Key_Left);
    }

    static void press(QWidget& widget, Qt::Key key)
    {
        widget.setFocus();
        ASSERT_TRUE(widget.hasFocus());
        QTest::keyClick(&widget, key);
    }

    static QWidget& checkedSegment(QWidget& picker)
    {
        for (auto* const segment : picker.findChildren<QAbstractButton*>())
            if (segment->isChecked()) return *segment;
        throw std::runtime_error("nothing is chosen");
    }

    template <typename Record>
    void expectEachStep(std::span<const ToneStep> steps, const Record& standard)
    {
        for (const ToneStep& step : steps) {
            forget();
            moveByKey(step, tonavelle::value(tonavelle::toneParameter(step.id), standard));
            settle();
            EXPECT_EQ(plugged.sent(), batch(step.messages)) << step.label;
            const auto label = QString::fromUtf8(step.label);
            EXPECT_EQ(logLabels(plugged.log()),
                      QStringList{step.id == ID::masterVolume ? QStringLiteral("SysEx: ") + label : label});
        }
    }

    void openFileWith(tonavelle::ToneInstrument instrument)
    {
        const auto file = tonavelle::toneDataFile(instrument, tonavelle::everything);
        const QString path = folder.filePath(QStringLiteral("tone_data.mid"));
        test::writeFile(path, QByteArray(reinterpret_cast<const char*>(file.data()), qsizetype(file.size())));
        dialogs.answer = true;
        dialogs.pathToOpen = path;
        actions().files.open();
        settle();
    }

    QTemporaryDir folder;
};

TEST_F(ChannelTabTest, EachControlOfTheSelectedChannelSendsOneStep)
{
    open(ToneEditorTab::channel);
    actions().channels.selectChannel(2);
    settle();
    expectEachStep(test::channelSteps, tonavelle::ChannelToneParameters());
    for (const ToneStep& step : test::channelSteps)
        EXPECT_EQ(tonavelle::value(tonavelle::toneParameter(step.id), state().instrument.channels[2]), step.value);
}

TEST_F(ChannelTabTest, EachMasterControlSendsOneStep)
{
    expectEachStep(test::masterSteps, tonavelle::MasterToneParameters());
}

TEST_F(ChannelTabTest, TheDrumTrackAndBankButtonsChooseTheSound)
{
    open(ToneEditorTab::channel);
    actions().channels.chooseProgram(50);
    settle();
    forget();
    QTest::mouseClick(&control<QAbstractButton>("User"), Qt::LeftButton);
    EXPECT_EQ(plugged.sent(), batch({"B0 00 10", "B0 20 00", "C0 32"}));
    forget();
    QTest::mouseClick(&control<QAbstractButton>("Drum"), Qt::LeftButton);
    EXPECT_EQ(plugged.sent(), batch({"B0 63 0A", "B0 62 00", "B0 06 01", "B0 26 00", "B0 00 10", "B0 20 00", "C0 00"}));
    forget();
    QTest::mouseClick(&control<QAbstractButton>("Preset"), Qt::LeftButton);
    EXPECT_EQ(plugged.sent(), batch({"B0 00 00", "B0 20 00", "C0 00"}));
    forget();
    QTest::mouseClick(&control<QAbstractButton>("Melody"), Qt::LeftButton);
    EXPECT_EQ(plugged.sent(), batch({"B0 63 0A", "B0 62 00", "B0 06 00", "B0 26 00", "B0 00 00", "B0 20 00", "C0 00"}));
}

TEST_F(ChannelTabTest, AProgramIsChosenFromTheMenuAndItsSoundShown)
{
    open(ToneEditorTab::channel);
    auto& programs = control<QComboBox>("音色リスト");
    for (int row = 0; row < 80; ++row)
        press(programs, Qt::Key_Down);
    settle();
    const Batch all = plugged.sent();
    ASSERT_EQ(all.size(), 80U * 3);
    EXPECT_EQ(Batch(all.end() - 3, all.end()), batch({"B0 00 00", "B0 20 00", "C0 50"}));
    EXPECT_EQ(control<QComboBox>("Wave Type").currentIndex(), 1);
    EXPECT_EQ(control<TickSnappingSlider>("Output Gain").value(), 30);
}

TEST_F(ChannelTabTest, OnADrumChannelTheMenuHasOneRowAndChoosingItSendsZero)
{
    open(ToneEditorTab::channel);
    actions().channels.selectChannel(9);
    settle();
    auto& programs = control<QComboBox>("音色リスト");
    ASSERT_EQ(programs.count(), 1);
    programs.showPopup();
    QTest::keyClick(programs.view(), Qt::Key_Return);
    EXPECT_EQ(plugged.sent(), batch({"B9 00 00", "B9 20 00", "C9 00"}));
}

TEST_F(ChannelTabTest, AnotherChannelsValuesAreShownSilently)
{
    open(ToneEditorTab::channel);
    for (const ToneStep& step : test::channelSteps)
        actions().channels.setChannel(step.id, step.value);
    settle();
    forget();
    actions().channels.selectChannel(9);
    settle();
    actions().channels.selectChannel(0);
    settle();
    EXPECT_TRUE(plugged.sent().empty());
    for (const ToneStep& step : test::channelSteps)
        if (auto* const slider = scaffold.findChild<TickSnappingSlider*>(QString::fromUtf8(step.label))) {
            EXPECT_EQ(slider->value(), step.value) << step.label;
        }
}

TEST_F(ChannelTabTest, TheListHasTheSixteenChannels)
{
    open(ToneEditorTab::channel);
    const QStringList rows = list("チャンネル").items();
    ASSERT_EQ(rows.size(), 16);
    EXPECT_EQ(rows[0], QStringLiteral("Ch 01"));
    EXPECT_EQ(rows[8], QStringLiteral("Ch 09"));
    EXPECT_EQ(rows[15], QStringLiteral("Ch 16"));
    EXPECT_GE(list("チャンネル").viewport()->width(), list("チャンネル").fontMetrics().horizontalAdvance(rows[15]));
}

TEST_F(ChannelTabTest, AllOfASoundThatIsNotTheChannelsOwnIsGreyUnderItsNote)
{
    open(ToneEditorTab::channel);
    auto& note = *scaffold.findChild<QLabel*>(QStringLiteral("voiceNote"));
    const auto expectSound = [&](double drum, double bank, const char* text) {
        actions().channels.setChannel(ID::drumTrackSetting, drum);
        actions().channels.setChannel(ID::bankKind, bank);
        settle();
        const bool isOwn = text == nullptr;
        EXPECT_EQ(note.isVisible(), !isOwn);
        EXPECT_EQ(note.text(), QString::fromUtf8(text));
        for (const ToneStep& step : test::channelSteps) {
            const ToneParameter& row = tonavelle::toneParameter(step.id);
            EXPECT_EQ(control<QWidget>(captionOf(row)).isEnabled(), isOwn || row.patchOffset == 0) << step.label;
        }
        for (const char* const graph : {"waveformGraph", "envelopeGraph"})
            EXPECT_EQ(control<QWidget>(graph).isEnabled(), isOwn);
    };
    expectSound(1, 1, "ユーザードラムタブで編集可");
    expectSound(0, 0, nullptr);
    expectSound(1, 0, "Drum Track SetがMelodyの場合のみ編集可");
    expectSound(0, 1, "ユーザー楽器タブで編集可");
    expectSound(0, 0, nullptr);
}

TEST_F(ChannelTabTest, ATypeThatHasNoNameLeavesTheButtonsFreeToChooseEach)
{
    auto odd = tonavelle::factoryToneInstrument();
    odd.master.reverbType = 50;
    for (const auto& [title, value] : {std::pair("Normal", 0), std::pair("Hall", 1), std::pair("Room", 2)}) {
        openFileWith(odd);
        EXPECT_EQ(state().instrument.master.reverbType, 50);
        EXPECT_EQ(control<SegmentedPicker>("Reverb Type").currentIndex(), SegmentedPicker::none);
        forget();
        QTest::mouseClick(&control<QAbstractButton>(title), Qt::LeftButton);
        EXPECT_EQ(state().instrument.master.reverbType, value);
        ASSERT_EQ(plugged.sent().size(), 4U);
        EXPECT_EQ(plugged.sent()[2][2], value);
    }
}

TEST_F(ChannelTabTest, ASoundOfATypeThatHasNoNameCanBeGivenTheFirst)
{
    auto odd = tonavelle::factoryToneInstrument();
    odd.channels[0].distortionType = 99;
    odd.channels[0].waveType = 12;
    odd.channels[0].sweepType = 3;
    openFileWith(odd);
    open(ToneEditorTab::channel);
    EXPECT_EQ(state().channel(), odd.channels[0]);
    EXPECT_EQ(control<QComboBox>("Wave Type").currentIndex(), -1);
    EXPECT_EQ(control<QComboBox>("Sweep Type").currentIndex(), -1);
    EXPECT_TRUE(plugged.sent().empty());
    QTest::mouseClick(&control<QAbstractButton>("OFF"), Qt::LeftButton);
    press(control<QComboBox>("Wave Type"), Qt::Key_Down);
    press(control<QComboBox>("Sweep Type"), Qt::Key_Down);
    auto expected = tonavelle::factoryToneInstrument().channels[0];
    expected.sweepType = 0;
    EXPECT_EQ(state().channel(), expected);
}

TEST_F(ChannelTabTest, AValuePastTheSlidersEndIsShownAsItIsAndSentOnlyWhenItIsChanged)
{
    auto odd = tonavelle::factoryToneInstrument();
    odd.channels[0].waveNumber = 100;
    openFileWith(odd);
    open(ToneEditorTab::channel);
    auto& number = control<SliderNumberField>("Wave Num number");
    EXPECT_EQ(number.text(), QStringLiteral("100"));
    press(number, Qt::Key_Tab);
    EXPECT_TRUE(plugged.sent().empty());
    EXPECT_EQ(state().channel().waveNumber, 100);
    number.selectAll();
    QTest::keyClicks(&number, QStringLiteral("12"));
    QTest::keyClick(&number, Qt::Key_Return);
    EXPECT_EQ(plugged.sent(), batch({"B0 63 02", "B0 62 01", "B0 06 0C", "B0 26 00"}));
}

} // namespace
} // namespace orvim
