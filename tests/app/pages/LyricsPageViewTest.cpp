#include "pages/LyricsPageView.h"

#include "controls/ElidedLabel.h"
#include "platform/InputHold.h"
#include "tests/app/support/Drop.h"
#include "tests/app/support/LyricsPageWindow.h"

#include <QDragLeaveEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

namespace orvim {
namespace {

using test::bytes;
using test::dropOnMiddle;
using test::lyricMeta;
using test::metaEvent;
using test::songOf;
using test::songOfLyrics;
using testing::ElementsAre;

class LyricsPageViewTest : public test::LyricsPageWindowTest
{
protected:
    QString counter() { return page().findChild<ElidedLabel*>(QStringLiteral("counter"))->text(); }
    QLabel& hint() { return *page().findChild<QLabel*>(QStringLiteral("dropHint")); }
    QWidget& highlight() { return *page().findChild<QWidget*>(QStringLiteral("dropHighlight")); }

    QStringList menuItems(const QString& title)
    {
        QStringList items;
        for (const QAction* const action : menuButton(title).menu()->actions())
            if (!action->isSeparator()) items << action->text();
        return items;
    }
    QPushButton& menuButton(const QString& title)
    {
        return *window.page(EditorPage::lyrics).findChild<QPushButton*>(title);
    }
    void choose(const QString& menuTitle, const QString& item)
    {
        for (QAction* const action : menuButton(menuTitle).menu()->actions())
            if (action->text() == item) return action->trigger();
        ADD_FAILURE() << "no such item";
    }
    void pressTool(const QString& title)
    {
        for (auto* const button : window.page(EditorPage::lyrics).findChildren<EditorToolbarButton*>())
            if (button->text() == title) return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no such button";
    }
    void openContextMenu(int row)
    {
        const QPoint position = middle(row, LyricsColumn::text);
        QTest::mousePress(table().viewport(), Qt::RightButton, {}, position);
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, table().viewport()->mapToGlobal(position));
        QApplication::sendEvent(table().viewport(), &event);
    }
};

TEST_F(LyricsPageViewTest, TheHintStandsInTheMiddleOnlyWhileNoFileIsOpen)
{
    EXPECT_TRUE(hint().isVisible());
    EXPECT_EQ(hint().text(), QStringLiteral("ここにMIDIファイルを\nドラッグして下さい"));
    const QPoint off = hint().geometry().center() - table().viewport()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    actions().insert();
    EXPECT_TRUE(hint().isVisible());
    open(songOfLyrics(1));
    EXPECT_FALSE(hint().isVisible());
}

TEST_F(LyricsPageViewTest, TheHintStandsBelowTheRowsAndScrollsWithThem)
{
    const auto rowsEnd = [&] {
        const int last = actions().table().rowCount() - 1;
        return table().visualRect(cell(last, LyricsColumn::text)).bottom() + table().viewport()->y();
    };
    const auto isSeen = [&] { return !(hint().mask() & hint().rect()).isEmpty(); };
    for (int i = 0; i < 12; ++i)
        actions().insert();
    EXPECT_GT(hint().geometry().top(), rowsEnd());
    EXPECT_TRUE(isSeen());
    for (int i = 0; i < 100; ++i)
        actions().insert();
    table().scrollToTop();
    EXPECT_GT(hint().geometry().top(), rowsEnd());
    EXPECT_FALSE(isSeen());
    table().verticalScrollBar()->setValue(table().verticalScrollBar()->maximum());
    EXPECT_GT(hint().geometry().top(), rowsEnd());
    EXPECT_TRUE(table().viewport()->geometry().contains(hint().geometry()));
    EXPECT_TRUE(isSeen());
    open(songOfLyrics(112));
    table().verticalScrollBar()->setValue(table().verticalScrollBar()->maximum());
    EXPECT_EQ(rowsEnd(), table().viewport()->geometry().bottom()) << "no room is left for a hint that is not there";
}

TEST_F(LyricsPageViewTest, TheHeaderCountsRowsAndNamesTheFileWhole)
{
    EXPECT_EQ(counter(), QStringLiteral("歌詞イベント数：00000  MIDI未読込"));
    const QString name = QString(200, QLatin1Char('x')) + QStringLiteral(".mid");
    actions().load(write(name, songOfLyrics(3)));
    EXPECT_EQ(counter(), QStringLiteral("歌詞イベント数：00003  ") + path(name));
    EXPECT_EQ(page().findChild<ElidedLabel*>(QStringLiteral("counter"))->toolTip(), counter());
    EXPECT_EQ(table().accessibleName(), counter());
}

TEST_F(LyricsPageViewTest, TheHelpTellsOfTheUseAndTheCommands)
{
    QStringList texts;
    for (const QLabel* const label : page().findChild<QWidget*>(QStringLiteral("help"))->findChildren<QLabel*>())
        texts << label->text();
    EXPECT_EQ(texts,
              (QStringList{QStringLiteral("使い方"),
                           QStringLiteral("MIDIファイル中の歌詞イベント編集できます。保存時には、歌詞イベントを専用コマ"
                                          "ンドに置き換えます。"),
                           QStringLiteral("専用コマンド"),
                           QStringLiteral("$ADD_HI$ / $ADD_LO$\n$DEL_HL$ / $DEL_HI$ / $DEL_LO$")}));
}

TEST_F(LyricsPageViewTest, TheHelpGivesWayToTheRowsInALowWindow)
{
    actions().load(write(QStringLiteral("song.mid"), songOfLyrics(20)));
    const auto& help = *page().findChild<QWidget*>(QStringLiteral("help"));
    EXPECT_TRUE(help.isVisible());
    window.resize(420, 340);
    QCoreApplication::processEvents();
    EXPECT_FALSE(help.isVisible());
    EXPECT_GE(table().viewport()->height(), 3 * table().rowHeight(0));
    window.resize(900, 700);
    QCoreApplication::processEvents();
    EXPECT_TRUE(help.isVisible());
}

TEST_F(LyricsPageViewTest, TheThreeMenusHoldTheirItems)
{
    EXPECT_EQ(menuItems(QStringLiteral("ファイル")),
              (QStringList{QStringLiteral("MIDIを開く"), QStringLiteral("MIDIを保存")}));
    EXPECT_EQ(menuItems(QStringLiteral("設定")), QStringList{QStringLiteral("日本語表示モードON SysEx追加")});
    EXPECT_EQ(menuItems(QStringLiteral("操作")),
              (QStringList{QStringLiteral("挿入"), QStringLiteral("削除"), QStringLiteral("日本語表示ON"),
                           QStringLiteral("日本語表示OFF")}));
}

TEST_F(LyricsPageViewTest, TheMenusAct)
{
    dialogs.pathToOpen = write(QStringLiteral("song.mid"), songOfLyrics(2));
    choose(QStringLiteral("ファイル"), QStringLiteral("MIDIを開く"));
    EXPECT_EQ(state().rows.size(), 2u);
    choose(QStringLiteral("ファイル"), QStringLiteral("MIDIを保存"));
    EXPECT_EQ(status(), QStringLiteral("MIDI保存をキャンセルしました。"));
    choose(QStringLiteral("操作"), QStringLiteral("挿入"));
    EXPECT_EQ(state().rows.size(), 3u);
    choose(QStringLiteral("操作"), QStringLiteral("削除"));
    EXPECT_EQ(state().rows.size(), 2u);
    choose(QStringLiteral("操作"), QStringLiteral("日本語表示ON"));
    EXPECT_EQ(status(), QStringLiteral("日本語表示ON を送信しました。"));
    choose(QStringLiteral("操作"), QStringLiteral("日本語表示OFF"));
    EXPECT_EQ(status(), QStringLiteral("日本語表示OFF を送信しました。"));
}

TEST_F(LyricsPageViewTest, TheSettingCarriesACheckMark)
{
    const QAction& setting = *menuButton(QStringLiteral("設定")).menu()->actions().at(0);
    EXPECT_TRUE(setting.isCheckable());
    EXPECT_TRUE(setting.isChecked());
    choose(QStringLiteral("設定"), setting.text());
    EXPECT_FALSE(setting.isChecked());
    EXPECT_FALSE(state().addJapaneseModeOn);
    choose(QStringLiteral("設定"), setting.text());
    EXPECT_TRUE(state().addJapaneseModeOn);
}

TEST_F(LyricsPageViewTest, TheToolbarActs)
{
    dialogs.pathToOpen = write(QStringLiteral("song.mid"), songOfLyrics(2));
    pressTool(QStringLiteral("開く"));
    EXPECT_EQ(state().rows.size(), 2u);
    pressTool(QStringLiteral("保存"));
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("song_out.mid")});
    pressTool(QStringLiteral("挿入"));
    EXPECT_THAT(texts(), ElementsAre("", "0", "1"));
    pressTool(QStringLiteral("削除"));
    EXPECT_THAT(texts(), ElementsAre("0", "1"));
    pressTool(QStringLiteral("日本語オン"));
    EXPECT_EQ(status(), QStringLiteral("日本語オン を送信しました。"));
    pressTool(QStringLiteral("日本語オフ"));
    EXPECT_EQ(status(), QStringLiteral("日本語オフ を送信しました。"));
}

TEST_F(LyricsPageViewTest, TheToolbarHoldsItsButtonsInOrderWithTheirSymbols)
{
    QStringList buttons;
    for (const auto* const button : window.page(EditorPage::lyrics).findChildren<EditorToolbarButton*>())
        buttons << button->text() + QLatin1Char(' ') + button->objectName();
    EXPECT_EQ(buttons,
              (QStringList{QStringLiteral("開く folder"), QStringLiteral("保存 square.and.arrow.down"),
                           QStringLiteral("挿入 plus"), QStringLiteral("削除 minus"),
                           QStringLiteral("日本語オン text.bubble"), QStringLiteral("日本語オフ text.bubble")}));
}

TEST_F(LyricsPageViewTest, OnlyOpeningAndSavingHaveShortcuts)
{
    QStringList shortcuts;
    for (const char* const title : {"ファイル", "設定", "操作"}) {
        for (const QAction* const action : menuButton(QString::fromUtf8(title)).menu()->actions())
            if (!action->shortcut().isEmpty())
                shortcuts << action->text() + QLatin1Char(' ') + action->shortcut().toString();
    }
    EXPECT_EQ(shortcuts, (QStringList{QStringLiteral("MIDIを開く Ctrl+O"), QStringLiteral("MIDIを保存 Ctrl+S")}));
}

TEST_F(LyricsPageViewTest, OnANewPageSaveWritesAFileOfTheJapaneseDisplayCommandAlone)
{
    dialogs.pathToSave = path(QStringLiteral("out.mid"));
    pressTool(QStringLiteral("保存"));
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("lyrics_output.mid")});
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存しました。"));
    EXPECT_EQ(readWholeFile(*dialogs.pathToSave),
              test::joined({bytes("4D 54 68 64 00 00 00 06 00 01 00 02 01 E0"),
                            test::track("00 FF 51 03 0F 42 40 81 70 F0 07 00 48 05 7F 05 01 F7 00 FF 2F 00"),
                            test::track("00 FF 2F 00")}));
}

TEST_F(LyricsPageViewTest, ShortcutsActOnlyWhileThePageIsInView)
{
    dialogs.pathToOpen = write(QStringLiteral("song.mid"), songOfLyrics(2));
    plugged.runtime.setSelectedPage(EditorPage::command);
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(state().hasOpenedMIDI);
    EXPECT_TRUE(dialogs.proposedNames.isEmpty());
    plugged.runtime.setSelectedPage(EditorPage::lyrics);
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(state().rows.size(), 2u);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("song_out.mid")});
}

TEST_F(LyricsPageViewTest, SongsAreOpenedByDropAtAllTimes)
{
    for (const int count : {2, 3}) {
        const QString song = write(QStringLiteral("%1.mid").arg(count), songOfLyrics(count));
        EXPECT_TRUE(dropOnMiddle(page(), {QUrl::fromLocalFile(song)}));
        ASSERT_TRUE(QTest::qWaitFor([&] { return state().openedMIDIPath == song; }));
        EXPECT_EQ(table().model()->rowCount(), count);
    }
}

TEST_F(LyricsPageViewTest, ASongDroppedWhileAPreviewWaitsForItsModuleIsOpened)
{
    open(songOfLyrics(2));
    const QString other = write(QStringLiteral("other.mid"), songOfLyrics(3));
    plugged.system.onSend = [&] {
        plugged.system.onSend = {};
        InputHold hold;
        hold.begin();
        EXPECT_TRUE(dropOnMiddle(page(), {QUrl::fromLocalFile(other)}));
        hold.end();
    };
    actions().preview(id(0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return state().openedMIDIPath == other; }));
    EXPECT_EQ(state().rows.size(), 3u);
    EXPECT_EQ(plugged.screen().japaneseUpper, "0");
}

TEST_F(LyricsPageViewTest, ADroppedWAVFileDoesNothingAndReportsNothing)
{
    const QString before = plugged.log();
    const QString wave = write(QStringLiteral("a.wav"), bytes("52 49 46 46"));
    EXPECT_TRUE(dropOnMiddle(page(), {QUrl::fromLocalFile(wave)}));
    QCoreApplication::processEvents();
    EXPECT_EQ(plugged.log(), before);
    EXPECT_FALSE(state().hasOpenedMIDI);
}

TEST_F(LyricsPageViewTest, ADroppedWAVFileLeavesAnEditOpen)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::text);
    type(QStringLiteral("typed"));
    const QString wave = write(QStringLiteral("a.wav"), bytes("52 49 46 46"));
    EXPECT_TRUE(dropOnMiddle(page(), {QUrl::fromLocalFile(wave)}));
    QCoreApplication::processEvents();
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), QStringLiteral("typed"));
    EXPECT_EQ(row(0).text, "0");
}

TEST_F(LyricsPageViewTest, ATextThatIsNoAddressIsNotTaken)
{
    QMimeData text;
    text.setText(QStringLiteral("a.mid"));
    EXPECT_FALSE(dropOnMiddle(page(), text));
}

TEST_F(LyricsPageViewTest, ThePageIsMarkedWhileASongIsDraggedOverIt)
{
    const auto dragIn = [&](const char* name) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path(QString::fromUtf8(name)))});
        QDragEnterEvent enter(page().rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&page(), &enter);
    };
    EXPECT_FALSE(highlight().isVisible());
    dragIn("a.mid");
    EXPECT_TRUE(highlight().isVisible());
    EXPECT_EQ(highlight().geometry(), page().rect());
    QDragLeaveEvent leave;
    QApplication::sendEvent(&page(), &leave);
    EXPECT_FALSE(highlight().isVisible());
    dragIn("a.wav");
    EXPECT_FALSE(highlight().isVisible());
    EXPECT_TRUE(dropOnMiddle(page(), {QUrl::fromLocalFile(path(QStringLiteral("a.mid")))}));
    EXPECT_FALSE(highlight().isVisible());
}

TEST_F(LyricsPageViewTest, AFileDroppedOnACellThatIsEditedIsForThePage)
{
    open(songOfLyrics(30));
    const int row = table().indexAt(table().viewport()->rect().center()).row();
    goTo(row, LyricsColumn::text);
    type(QStringLiteral("typed"));
    ASSERT_TRUE(editor());
    const QString song = write(QStringLiteral("other.mid"), songOfLyrics(1));
    EXPECT_TRUE(dropOnMiddle(page(), {QUrl::fromLocalFile(song)}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return state().openedMIDIPath == song; }));
    EXPECT_THAT(texts(), ElementsAre("0"));
}

TEST_F(LyricsPageViewTest, TheContextMenuIsForTheRowUnderThePointer)
{
    open(songOfLyrics(3));
    const LyricsRowID selected = id(0);
    click(0, LyricsColumn::text);
    openContextMenu(1);
    ASSERT_TRUE(menu());
    ASSERT_EQ(menu()->actions().size(), 2);
    EXPECT_EQ(menu()->actions()[0]->text(), QStringLiteral("挿入"));
    EXPECT_EQ(menu()->actions()[1]->text(), QStringLiteral("削除"));
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Return);
    EXPECT_THAT(texts(), ElementsAre("0", "2"));
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{selected}) << "the other row stays selected";
    EXPECT_TRUE(table().selectionModel()->isRowSelected(0));

    openContextMenu(1);
    menu()->actions()[0]->trigger();
    menu()->close();
    EXPECT_THAT(texts(), ElementsAre("0", "2", ""));
    EXPECT_EQ(state().selectedRowIDs, QSet<LyricsRowID>{id(2)});
    EXPECT_TRUE(table().selectionModel()->isRowSelected(2));
    EXPECT_FALSE(table().selectionModel()->isRowSelected(0));
}

TEST_F(LyricsPageViewTest, TheContextMenuComesByKeyForTheCurrentRow)
{
    open(songOfLyrics(3));
    goTo(2, LyricsColumn::text);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(table().viewport(), &event);
    ASSERT_TRUE(menu());
    menu()->actions()[1]->trigger();
    menu()->close();
    EXPECT_THAT(texts(), ElementsAre("0", "1"));
}

TEST_F(LyricsPageViewTest, AContextMenuByKeyComesWithItsRow)
{
    open(songOfLyrics(1'000));
    goTo(0, LyricsColumn::text);
    table().scrollToBottom();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(table().viewport(), &event);
    ASSERT_TRUE(menu());
    EXPECT_EQ(menu()->pos(), table().viewport()->mapToGlobal(middle(0, LyricsColumn::text)));
    EXPECT_TRUE(table().viewport()->rect().contains(middle(0, LyricsColumn::text)));
    menu()->close();
}

TEST_F(LyricsPageViewTest, TheContextMenuTakesOverWhatIsBeingTyped)
{
    open(songOfLyrics(2));
    goTo(1, LyricsColumn::text);
    type(QStringLiteral("new"));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(table().viewport(), &event);
    EXPECT_FALSE(editor());
    ASSERT_TRUE(menu());
    menu()->actions()[0]->trigger();
    menu()->close();
    EXPECT_THAT(texts(), ElementsAre("0", "new", ""));
}

TEST_F(LyricsPageViewTest, WhatIsBeingTypedIsSaved)
{
    open(songOfLyrics(2));
    goTo(0, LyricsColumn::text);
    type(QStringLiteral("new"));
    dialogs.pathToSave = path(QStringLiteral("out.mid"));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(status(), QStringLiteral("MIDIファイルを保存しました。"));
    const auto rows = tonavelle::readLyricRows(read(*dialogs.pathToSave));
    EXPECT_EQ(rows.at(0).text, "new");
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(LyricsPageViewTest, ASaveWhileAnInputMethodComposesTakesWhatItHasCommitted)
{
    open(songOfLyrics(1));
    goTo(0, LyricsColumn::text);
    compose(QStringLiteral("はる"));
    compose(QString(), QStringLiteral("春"));
    compose(QStringLiteral("の")); // No input method stands behind the tests that could commit this on demand.
    dialogs.pathToSave = path(QStringLiteral("out.mid"));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(editor());
    EXPECT_EQ(row(0).text, "春");
    EXPECT_EQ(tonavelle::readLyricRows(read(*dialogs.pathToSave)).at(0).text, "春");
}

TEST_F(LyricsPageViewTest, WhatIsBeingTypedSurvivesInsertionDeletionPreviewAndAChangeOfPage)
{
    open(songOfLyrics(3));
    goTo(0, LyricsColumn::text);
    type(QStringLiteral("a"));
    choose(QStringLiteral("操作"), QStringLiteral("挿入"));
    EXPECT_THAT(texts(), ElementsAre("a", "", "1", "2"));

    goTo(0, LyricsColumn::text);
    type(QStringLiteral("b"));
    plugged.system.forgetSent();
    click(0, LyricsColumn::preview);
    EXPECT_THAT(plugged.sent(), ElementsAre(bytes("F0 00 48 05 7F 07 00 06 02 F7")));

    goTo(2, LyricsColumn::ticks);
    type(QStringLiteral("77"));
    plugged.runtime.setSelectedPage(EditorPage::command);
    EXPECT_EQ(row(2).ticks, 77);
}

TEST_F(LyricsPageViewTest, TheTableIsFoundByAKeyAndEveryFieldHasAName)
{
    open(songOfLyrics(1));
    EXPECT_TRUE(table().focusPolicy() & Qt::TabFocus);
    for (const auto column : {LyricsColumn::bar, LyricsColumn::ticks, LyricsColumn::text}) {
        goTo(0, column);
        press(Qt::Key_F2);
        ASSERT_TRUE(editor());
        EXPECT_EQ(editor()->accessibleName(),
                  table().model()->headerData(static_cast<int>(column), Qt::Horizontal).toString());
        press(Qt::Key_Escape);
    }
}

} // namespace
} // namespace orvim
