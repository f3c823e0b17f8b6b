#include "pages/ToneEditorPageView.h"

#include "controls/ADSRGraphView.h"
#include "controls/NumberSlider.h"
#include "controls/SliderNumberField.h"
#include "controls/TickSnappingSlider.h"
#include "controls/ToneKeyboardNSView.h"
#include "controls/ValidatedTextField.h"
#include "controls/WaveformGraphView.h"
#include "tests/app/support/ToneEditorPageTest.h"
#include "tests/app/support/WaveFile.h"
#include "tests/app/support/Wheel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QToolButton>

namespace orvim {
namespace {

using test::bytes;
using tonavelle::Batch;
using ID = tonavelle::ToneParameterID;

class ToneEditorPageViewTest : public test::ToneEditorPageTest
{
protected:
    QAction* menuAction(const QString& text)
    {
        for (auto* const menu : scaffold.findChildren<QMenu*>())
            for (QAction* const action : menu->actions())
                if (action->text() == text) return action;
        ADD_FAILURE() << text.toStdString();
        return nullptr;
    }

    ToneKeyboardNSView& keyboard() { return *scaffold.findChild<ToneKeyboardNSView*>(); }
    QScrollArea& keyboardArea() { return *scaffold.findChild<QScrollArea*>(QStringLiteral("keyboardArea")); }
    /// The keyboard within its page, from the top of its area.
    QRect keyboardPlace()
    {
        const QPoint corner = keyboard().mapTo(page, QPoint()) - QPoint(0, keyboardArea().mapTo(page, QPoint()).y());
        return {corner, keyboard().size()};
    }

    void showAtWidth(int width)
    {
        scaffold.setMinimumWidth(1); // The header alone would ask for more.
        scaffold.resize(width, scaffold.height());
        ASSERT_TRUE(QTest::qWaitFor([&] { return page->width() == width; }));
        settle();
    }
};

TEST_F(ToneEditorPageViewTest, TabsAreBuiltWhenFirstOpenedAndKept)
{
    ASSERT_EQ(tabs().count(), 5);
    EXPECT_EQ(tabs().tabText(4), QStringLiteral("ユーザー波形"));
    EXPECT_EQ(scaffold.findChildren<PreviewPatchListView*>().size(), 0);
    open(ToneEditorTab::userMelody);
    auto* const melodies = &list("音色番号");
    melodies->setSelectedIndex(100);
    open(ToneEditorTab::master);
    open(ToneEditorTab::userMelody);
    EXPECT_EQ(&list("音色番号"), melodies);
    EXPECT_EQ(scaffold.findChildren<PreviewPatchListView*>().size(), 1);
}

TEST_F(ToneEditorPageViewTest, AMasterSliderMovedByAKeySendsItsStep)
{
    auto& slider = control<TickSnappingSlider>("Chorus Depth");
    EXPECT_EQ(slider.value(), 100);
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_EQ(plugged.sent(), (Batch{bytes("B0 63 07"), bytes("B0 62 0A"), bytes("B0 06 63"), bytes("B0 26 00")}));
    EXPECT_EQ(control<SliderNumberField>("Chorus Depth number").text(), QStringLiteral("99"));
}

TEST_F(ToneEditorPageViewTest, ANumberOutOfRangeIsHeld)
{
    auto& field = control<SliderNumberField>("Chorus Freq number");
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("200"));
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(state().instrument.master.chorusFrequency, 127);
    EXPECT_EQ(control<TickSnappingSlider>("Chorus Freq").value(), 127);
}

TEST_F(ToneEditorPageViewTest, TheReverbButtonsChooseTheType)
{
    QTest::mouseClick(&control<QAbstractButton>("Room"), Qt::LeftButton);
    EXPECT_EQ(state().instrument.master.reverbType, 2);
}

TEST_F(ToneEditorPageViewTest, EveryControlOfTheChannelIsMadeFromTheTable)
{
    open(ToneEditorTab::channel);
    for (const auto& row : tonavelle::channelToneParameterRows()) {
        if (row.id == ID::programChange) continue;
        const auto name = QString::fromUtf8(row.caption().data(), static_cast<qsizetype>(row.caption().size()));
        QWidget* found = nullptr;
        for (auto* const widget : scaffold.findChildren<QWidget*>(name))
            if (widget->isVisibleTo(&scaffold) || !widget->isHidden()) found = widget;
        ASSERT_NE(found, nullptr) << row.caption();
        EXPECT_EQ(found->accessibleName(), name);
        if (auto* const slider = qobject_cast<TickSnappingSlider*>(found)) {
            EXPECT_EQ(slider->range(),
                      (SliderRange{static_cast<double>(row.range.lowest), static_cast<double>(row.range.highest), 1}));
        }
    }
}

TEST_F(ToneEditorPageViewTest, AChannelsRowIsChosenAndHeardAndItsControlsFollow)
{
    open(ToneEditorTab::channel);
    page->actions().channels.selectChannel(6);
    page->actions().channels.setChannel(ID::volume, 12);
    page->actions().channels.selectChannel(0);
    settle();
    plugged.system.forgetSent();
    auto& channels = list("チャンネル");
    const QPoint middle = channels.visualRect(channels.model()->index(6, 0)).center();
    QTest::mousePress(channels.viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseRelease(channels.viewport(), Qt::LeftButton, {}, middle);
    EXPECT_TRUE(QTest::qWaitFor([this] { return plugged.sent().size() == 2; }));
    EXPECT_EQ(plugged.sent(), (Batch{bytes("96 3C 7F"), bytes("86 3C 00")}));
    settle();
    EXPECT_EQ(scaffold.findChild<TickSnappingSlider*>(QStringLiteral("Volume"))->value(), 12);
}

TEST_F(ToneEditorPageViewTest, TheSoundIsGreyWithANoteWhereItIsNotTheChannelsOwn)
{
    open(ToneEditorTab::channel);
    auto& note = *scaffold.findChild<QLabel*>(QStringLiteral("voiceNote"));
    auto& attack = control<TickSnappingSlider>("Attack Time");
    EXPECT_TRUE(attack.isEnabled());
    EXPECT_FALSE(note.isVisible());
    const auto expectNote = [&](double drum, double bank, const char* text) {
        page->actions().channels.setChannel(ID::drumTrackSetting, drum);
        page->actions().channels.setChannel(ID::bankKind, bank);
        settle();
        EXPECT_FALSE(attack.isEnabled());
        EXPECT_EQ(note.text(), QString::fromUtf8(text));
    };
    expectNote(1, 1, "ユーザードラムタブで編集可");
    expectNote(1, 0, "Drum Track SetがMelodyの場合のみ編集可");
    expectNote(0, 1, "ユーザー楽器タブで編集可");
}

TEST_F(ToneEditorPageViewTest, TheProgramMenuFollowsTheChannel)
{
    open(ToneEditorTab::channel);
    auto& programs = *scaffold.findChild<QComboBox*>(QStringLiteral("音色リスト"));
    EXPECT_EQ(programs.count(), 128);
    page->actions().channels.setChannel(ID::drumTrackSetting, 1);
    settle();
    ASSERT_EQ(programs.count(), 1);
    EXPECT_EQ(programs.itemText(0), QStringLiteral("001:Standard Set"));
    page->actions().channels.setChannel(ID::drumTrackSetting, 0);
    page->actions().channels.setChannel(ID::bankKind, 1);
    settle();
    EXPECT_EQ(programs.itemText(127), QStringLiteral("128:User Melody"));
}

TEST_F(ToneEditorPageViewTest, TheGraphsFollowTheirSliders)
{
    open(ToneEditorTab::userMelody);
    page->actions().patches.setUserMelody(ID::attack, 77);
    page->actions().patches.setUserMelody(ID::waveType, 3);
    settle();
    EXPECT_EQ(control<ADSRGraphView>("envelopeGraph").parameters().attack, 77);
    EXPECT_EQ(control<WaveformGraphView>("waveformGraph").parameters().waveType, 3);
}

TEST_F(ToneEditorPageViewTest, AMelodysNameIsTypedWithAnInputMethodUndisturbed)
{
    open(ToneEditorTab::userMelody);
    auto& name = control<ValidatedTextField>("楽器名");
    EXPECT_EQ(name.text(), QStringLiteral("User Melody"));
    name.setFocus();
    name.selectAll();
    QInputMethodEvent composing(QStringLiteral("べる"), {});
    QApplication::sendEvent(&name, &composing);
    EXPECT_TRUE(plugged.sent().empty());
    QInputMethodEvent confirmed;
    confirmed.setCommitString(QStringLiteral("Bベ"));
    QApplication::sendEvent(&name, &confirmed);
    settle();
    EXPECT_EQ(state().userMelody().name, "B ");
    EXPECT_EQ(list("音色番号").items()[0], QStringLiteral("001:B "));
}

TEST_F(ToneEditorPageViewTest, APresetIsShownUntilAControlChanges)
{
    open(ToneEditorTab::userMelody);
    auto& presets = control<QComboBox>("プリセット");
    EXPECT_EQ(presets.currentIndex(), -1);
    page->actions().patches.choosePreset(5);
    settle();
    EXPECT_EQ(presets.currentIndex(), 5);
    page->actions().patches.setUserMelody(ID::attack, 1);
    settle();
    EXPECT_EQ(presets.currentIndex(), -1);
}

TEST_F(ToneEditorPageViewTest, ADrumsNoteNameShowsInItsRowAndIsGoneAfterTheNextNew)
{
    open(ToneEditorTab::userDrum);
    auto& drums = list("ドラムノート番号");
    EXPECT_EQ(drums.items()[0], QStringLiteral("000"));
    EXPECT_EQ(drums.items()[38], QStringLiteral("038 (Acoustic Snare)"));
    auto& name = control<ValidatedTextField>("Name");
    name.setFocus();
    QTest::keyClicks(&name, QStringLiteral("Mine"));
    settle();
    EXPECT_EQ(drums.items()[0], QStringLiteral("000 (Mine)"));
    EXPECT_TRUE(plugged.sent().empty());
    dialogs.answer = true;
    page->actions().files.newToneData();
    settle();
    EXPECT_EQ(drums.items()[0], QStringLiteral("000"));
}

TEST_F(ToneEditorPageViewTest, TheNoteNumberStandsBesideTheWaveNumber)
{
    open(ToneEditorTab::userDrum);
    auto& number = control<TickSnappingSlider>("Notenum");
    EXPECT_EQ(number.value(), 38);
    number.setFocus();
    QTest::keyClick(&number, Qt::Key_Right);
    EXPECT_EQ(state().userDrum().noteNumber, 39);
    const int above = control<TickSnappingSlider>("Wave Num").mapTo(&scaffold, QPoint()).y();
    const int below = control<TickSnappingSlider>("Ringmod Multiply").mapTo(&scaffold, QPoint()).y();
    EXPECT_GT(number.mapTo(&scaffold, QPoint()).y(), above);
    EXPECT_LT(number.mapTo(&scaffold, QPoint()).y(), below);
}

TEST_F(ToneEditorPageViewTest, TabGoesFromTheWaveNumberToTheNoteNumberBesideIt)
{
    open(ToneEditorTab::userDrum);
    control<TickSnappingSlider>("Wave Num").setFocus();
    QStringList reached;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(&scaffold, Qt::Key_Tab);
        reached << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(reached, (QStringList{QStringLiteral("Wave Num number"), QStringLiteral("Notenum"),
                                    QStringLiteral("Notenum number"), QStringLiteral("Ringmod Multiply")}));
    QTest::keyClick(&scaffold, Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("Notenum number"));
}

TEST_F(ToneEditorPageViewTest, TheWaveTabMarksWhatWasNotSent)
{
    open(ToneEditorTab::userWave);
    auto& mark = control<QLabel>("unsent");
    EXPECT_TRUE(mark.text().isEmpty());
    QTest::mouseClick(&control<QPushButton>("Square"), Qt::LeftButton);
    settle();
    EXPECT_EQ(mark.text(), QStringLiteral("未送信"));
    EXPECT_EQ(control<ValidatedTextField>("数式入力").text(), QStringLiteral("squ(t)"));
    EXPECT_EQ(control<QLabel>("formulaStatus").text(), QStringLiteral("OK"));
    QTest::mouseClick(&control<QPushButton>("送信"), Qt::LeftButton);
    settle();
    EXPECT_EQ(plugged.sent().size(), 128U);
    EXPECT_TRUE(mark.text().isEmpty());
}

TEST_F(ToneEditorPageViewTest, AFormulaIsTypedAndEvaluatedByReturn)
{
    open(ToneEditorTab::userWave);
    auto& formula = control<ValidatedTextField>("数式入力");
    formula.setFocus();
    QTest::keyClicks(&formula, QStringLiteral("1 +"));
    QTest::keyClick(&formula, Qt::Key_Return);
    settle();
    EXPECT_EQ(control<QLabel>("formulaStatus").text(), QStringLiteral("式が途中"));
    QTest::keyClicks(&formula, QStringLiteral(" 1"));
    QTest::keyClick(&formula, Qt::Key_Return);
    EXPECT_EQ(state().userWave()[7], 32'767);
}

TEST_F(ToneEditorPageViewTest, TheFormulaHelpOpensAndClosesWithEscape)
{
    open(ToneEditorTab::userWave);
    QTest::mouseClick(&control<QToolButton>("formulaHelpButton"), Qt::LeftButton);
    settle();
    auto* const help = scaffold.findChild<QFrame*>(QStringLiteral("formulaHelp"));
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_TRUE(state().isUserWaveFormulaHelpPresented);
    EXPECT_TRUE(help->findChild<QLabel*>()->text().startsWith(QStringLiteral("数式を入力できます。\n\n関数:\n")));
    QTest::keyClick(help, Qt::Key_Escape);
    settle();
    EXPECT_FALSE(help->isVisible());
    EXPECT_FALSE(state().isUserWaveFormulaHelpPresented);
}

TEST_F(ToneEditorPageViewTest, ImportingAWaveformBuildsItsTab)
{
    const QTemporaryDir folder;
    dialogs.pathToOpen = folder.filePath(QStringLiteral("wave.wav"));
    test::writeFile(*dialogs.pathToOpen, test::waveFile(std::vector<std::int16_t>(2'048, 7)));
    menuAction(QStringLiteral("ユーザー波形のインポート"))->trigger();
    EXPECT_EQ(state().userWave()[100], 7);
    EXPECT_EQ(scaffold.findChildren<PreviewPatchListView*>().size(), 1);
    EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(ToneEditorPageViewTest, ShortcutsAnswerOnlyWhileThePageIsInView)
{
    QStackedWidget pages;
    pages.addWidget(&scaffold);
    pages.addWidget(new QLineEdit);
    pages.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pages));
    QTest::keyClick(&pages, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(dialogs.questions.size(), 1);
    QTest::keyClick(&pages, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(dialogs.questions.size(), 2);
    QTest::keyClick(&pages, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.proposedNames.size(), 1);
    pages.setCurrentIndex(1);
    for (const Qt::Key key : {Qt::Key_N, Qt::Key_O, Qt::Key_S})
        QTest::keyClick(&pages, key, Qt::ControlModifier);
    EXPECT_EQ(dialogs.questions.size(), 2);
    EXPECT_EQ(dialogs.proposedNames.size(), 1);
    scaffold.setParent(nullptr);
}

TEST_F(ToneEditorPageViewTest, TheKeyboardPlaysTheTabsChannelWithoutATrace)
{
    auto& keyboard = *scaffold.findChild<ToneKeyboardNSView*>();
    open(ToneEditorTab::userDrum);
    plugged.runtime.logStore().clear();
    QTest::mousePress(&keyboard, Qt::LeftButton, {}, {4, 20});
    QTest::mouseRelease(&keyboard, Qt::LeftButton, {}, {4, 20});
    EXPECT_EQ(plugged.sent(), (Batch{bytes("99 00 7F"), bytes("89 00 00")}));
    EXPECT_TRUE(plugged.log().isEmpty());
    open(ToneEditorTab::master);
    page->actions().channels.selectChannel(4);
    EXPECT_EQ(keyboard.channel(), 4);
}

TEST_F(ToneEditorPageViewTest, WhereThereIsRoomTheKeyboardStandsInTheMiddleAndDoesNotScroll)
{
    showAtWidth(1'000);
    const QRect middle(163, 0, 675, 24);
    EXPECT_EQ(keyboardPlace(), middle);
    EXPECT_FALSE(keyboardArea().horizontalScrollBar()->isVisible());
    EXPECT_EQ(keyboardArea().horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(keyboardArea().height(), 24);
    test::turnWheel(keyboard(), -120);
    EXPECT_EQ(keyboardPlace(), middle);
}

TEST_F(ToneEditorPageViewTest, InANarrowWindowTheLastKeyOfTheKeyboardIsScrolledToAndPlayed)
{
    showAtWidth(400);
    QScrollBar& bar = *keyboardArea().horizontalScrollBar();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(keyboardArea().height(), 24 + bar.height());
    EXPECT_EQ(keyboardArea().viewport()->height(), 24);
    for (int notch = 0; notch < 10; ++notch)
        test::turnWheel(keyboard(), -120);
    EXPECT_EQ(bar.value(), bar.maximum());
    QWidget& viewport = *keyboardArea().viewport();
    const QPoint lastKey(viewport.width() - 1, 12);
    ASSERT_EQ(viewport.childAt(lastKey), &keyboard());
    QTest::mouseClick(&keyboard(), Qt::LeftButton, {}, keyboard().mapFrom(&viewport, lastKey));
    EXPECT_EQ(plugged.sent(), (Batch{bytes("90 7F 7F"), bytes("80 7F 00")}));
    for (int notch = 0; notch < 20; ++notch)
        test::turnWheel(keyboard(), 120);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(ToneEditorPageViewTest, TheKeyboardKeepsItsMiddleInViewWhenTheWindowChangesItsWidth)
{
    QScrollBar& bar = *keyboardArea().horizontalScrollBar();
    showAtWidth(400);
    const int inTheMiddle = bar.value();
    EXPECT_EQ(inTheMiddle, 675 / 2 - keyboardArea().viewport()->width() / 2);
    test::turnWheel(keyboard(), -120);
    const int scrolled = bar.value();
    EXPECT_GT(scrolled, inTheMiddle);
    showAtWidth(1'000);
    showAtWidth(400);
    EXPECT_EQ(bar.value(), scrolled);
}

TEST_F(ToneEditorPageViewTest, TheKeyThatTheArrowsReachComesIntoView)
{
    showAtWidth(400);
    const QScrollBar& bar = *keyboardArea().horizontalScrollBar();
    keyboard().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&keyboard(), Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    QTest::keyClick(&keyboard(), Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
    tabs().setFocus();
    for (int notch = 0; notch < 10; ++notch)
        test::turnWheel(keyboard(), -120);
    keyboard().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(ToneEditorPageViewTest, TheWheelOverAControlWithoutFocusChangesNothing)
{
    open(ToneEditorTab::userMelody);
    test::turnWheel(control<QComboBox>("Wave Type"), -120);
    test::turnWheel(control<TickSnappingSlider>("Attack Time"), 120);
    test::turnWheel(control<QComboBox>("プリセット"), -120);
    EXPECT_TRUE(plugged.sent().empty());
}

TEST_F(ToneEditorPageViewTest, TheBoxesOfBothColumnsBeginAtTheSameHeightUnderTheirHeading)
{
    const std::array<std::pair<ToneEditorTab, const char*>, 2> tabsAndFirstControls{
        {{ToneEditorTab::userMelody, "プリセット"}, {ToneEditorTab::userDrum, "ドラムセット名"}}};
    for (const auto& [tab, firstControl] : tabsAndFirstControls) {
        open(tab);
        const auto topOfBoxAround = [this](const QWidget& widget) {
            const auto* const box = qobject_cast<const QGroupBox*>(widget.parentWidget());
            return box ? box->mapTo(&scaffold, QPoint()).y() : -1;
        };
        const int left = topOfBoxAround(control<QWidget>(firstControl));
        EXPECT_EQ(topOfBoxAround(control<ADSRGraphView>("envelopeGraph")), left) << static_cast<int>(tab);
        int headings = 0;
        for (const auto* const label : page->findChildren<QLabel*>()) {
            if (!label->isVisible() || label->text() != QStringLiteral("ボイス編集")) continue;
            ++headings;
            EXPECT_LT(label->mapTo(&scaffold, label->rect().bottomLeft()).y(), left);
        }
        EXPECT_EQ(headings, 1);
    }
}

TEST_F(ToneEditorPageViewTest, ColumnsStandSideBySideOrBelowOneAnother)
{
    open(ToneEditorTab::userMelody);
    const auto leftOf = [this](const char* name) {
        return control<TickSnappingSlider>(name).mapTo(&scaffold, QPoint()).x();
    };
    EXPECT_GT(leftOf("Attack Time"), leftOf("Wave Num"));
    EXPECT_EQ(leftOf("Ringmod Gain"), leftOf("Wave Num"));
    scaffold.resize(760, 560);
    settle();
    EXPECT_EQ(leftOf("Attack Time"), leftOf("Wave Num"));
    for (auto* const area : scaffold.findChildren<QScrollArea*>())
        if (area->isVisible()) {
            EXPECT_LE(area->widget()->width(), area->viewport()->width());
        }
}

} // namespace
} // namespace orvim
