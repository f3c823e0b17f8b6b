#include "controls/ValidatedTextField.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace orvim {
namespace {

QString printableAscii(const QString& text)
{
    QString kept;
    for (const QChar c : text) {
        if (c.unicode() >= 0x20 && c.unicode() <= 0x7E && kept.size() < 32) kept += c;
    }
    return kept;
}

QString anything(const QString& text)
{
    return text;
}

/// A field with the focus, a neighbour to leave it for, and what it told so far.
struct Shown {
    explicit Shown(ValidatedTextField::Filter filter)
        : field(new ValidatedTextField([this, filter = std::move(filter)](const QString& text) {
              ++filterCalls;
              return filter(text);
          }))
    {
        QObject::connect(field, &ValidatedTextField::textCommitted, [this](const QString& text) { told << text; });
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(neighbour);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus();
    }

    void compose(const char* text)
    {
        QInputMethodEvent event(QString::fromUtf8(text), {});
        QCoreApplication::sendEvent(field, &event);
    }
    void confirm(const char* text)
    {
        QInputMethodEvent event;
        event.setCommitString(QString::fromUtf8(text));
        QCoreApplication::sendEvent(field, &event);
    }
    void cancel() { confirm(""); }

    int filterCalls = 0;
    QStringList told;
    QWidget window;
    ValidatedTextField* field;
    QLineEdit* neighbour = new QLineEdit;
};

QStringList texts(std::initializer_list<const char*> all)
{
    QStringList list;
    for (const char* text : all)
        list << QString::fromUtf8(text);
    return list;
}

TEST(ValidatedTextField, TellsOfEachKey)
{
    Shown shown(printableAscii);
    QTest::keyClicks(shown.field, QStringLiteral("Abc"));
    EXPECT_EQ(shown.told, texts({"A", "Ab", "Abc"}));
    QTest::keyClick(shown.field, Qt::Key_Backspace);
    EXPECT_EQ(shown.told.last(), QStringLiteral("Ab"));
    EXPECT_EQ(shown.field->boundText(), QStringLiteral("Ab"));
}

TEST(ValidatedTextField, WhatTheFilterTakesIsNeitherShownNorTold)
{
    Shown shown(printableAscii);
    QTest::keyClicks(shown.field, QStringLiteral("A"));
    shown.confirm("あ");
    EXPECT_EQ(shown.field->text(), QStringLiteral("A"));
    EXPECT_EQ(shown.told, texts({"A"}));
}

TEST(ValidatedTextField, ClearingIsTold)
{
    Shown shown(printableAscii);
    shown.field->setBoundText(QStringLiteral("Hello"));
    shown.field->selectAll();
    QTest::keyClick(shown.field, Qt::Key_Delete);
    EXPECT_EQ(shown.told, texts({""}));
}

TEST(ValidatedTextField, PastingIsFilteredAtOnce)
{
    Shown shown(printableAscii);
    QGuiApplication::clipboard()->setText(QStringLiteral("aあbいcdefghijklmnopqrstuvwxyz0123456789"));
    shown.field->paste();
    EXPECT_EQ(shown.told, texts({"abcdefghijklmnopqrstuvwxyz012345"}));
    EXPECT_EQ(shown.field->text(), shown.told.last());
}

TEST(ValidatedTextField, CursorStaysBehindTheSameCharacters)
{
    Shown shown(printableAscii);
    shown.field->setBoundText(QStringLiteral("abcd"));
    shown.field->setCursorPosition(2);
    shown.confirm("xあy");
    EXPECT_EQ(shown.field->text(), QStringLiteral("abxycd"));
    EXPECT_EQ(shown.field->cursorPosition(), 4);
    shown.confirm("い");
    EXPECT_EQ(shown.field->text(), QStringLiteral("abxycd"));
    EXPECT_EQ(shown.field->cursorPosition(), 4);
}

TEST(ValidatedTextField, ComposingChangesNothingUntilItIsConfirmed)
{
    Shown shown(anything);
    shown.field->setBoundText(QStringLiteral("歌"));
    shown.field->end(false);
    shown.filterCalls = 0;
    for (const char* text : {"k", "か", "かn", "かな"}) {
        shown.compose(text);
        EXPECT_EQ(shown.filterCalls, 0);
        EXPECT_EQ(shown.field->boundText(), QStringLiteral("歌"));
        EXPECT_TRUE(shown.told.isEmpty());
    }
    shown.confirm("仮名");
    EXPECT_EQ(shown.told, texts({"歌仮名"}));
    EXPECT_EQ(shown.field->text(), QStringLiteral("歌仮名"));
}

TEST(ValidatedTextField, ComposingInAFilteredFieldChangesNothing)
{
    Shown shown(printableAscii);
    shown.field->setBoundText(QStringLiteral("AB"));
    shown.filterCalls = 0;
    shown.compose("ｋ");
    shown.compose("か");
    EXPECT_EQ(shown.filterCalls, 0);
    EXPECT_EQ(shown.field->text(), QStringLiteral("AB"));
    shown.confirm("か");
    EXPECT_GT(shown.filterCalls, 0);
    EXPECT_EQ(shown.field->text(), QStringLiteral("AB"));
    EXPECT_TRUE(shown.told.isEmpty());
}

TEST(ValidatedTextField, CancelledCompositionLeavesTheText)
{
    Shown shown(anything);
    shown.field->setBoundText(QStringLiteral("歌"));
    shown.compose("かな");
    shown.cancel();
    EXPECT_EQ(shown.field->text(), QStringLiteral("歌"));
    EXPECT_TRUE(shown.told.isEmpty());
}

TEST(ValidatedTextField, ComposingOverASelectionTellsOnlyAtItsEnd)
{
    Shown shown(anything);
    shown.field->setBoundText(QStringLiteral("歌詞"));
    shown.field->selectAll();
    shown.compose("か");
    EXPECT_TRUE(shown.told.isEmpty()) << "the field has dropped the selection by now";
    EXPECT_EQ(shown.field->boundText(), QStringLiteral("歌詞"));
    shown.cancel();
    EXPECT_EQ(shown.field->boundText(), shown.field->text());
    EXPECT_EQ(shown.told, texts({""}));
}

TEST(ValidatedTextField, PartOfACompositionMayBeConfirmed)
{
    Shown shown(anything);
    shown.compose("きょうは");
    QInputMethodEvent event(QStringLiteral("は"), {});
    event.setCommitString(QStringLiteral("今日"));
    QCoreApplication::sendEvent(shown.field, &event);
    EXPECT_TRUE(shown.told.isEmpty()) << "the rest is still being composed";
    shown.confirm("は");
    EXPECT_EQ(shown.told, texts({"今日は"}));
}

TEST(ValidatedTextField, LeavingWhileComposingKeepsWhatTheInputMethodConfirms)
{
    Shown shown(anything);
    shown.compose("かな");
    // An input method confirms when it is told that the field loses the focus.
    shown.confirm("かな");
    shown.neighbour->setFocus();
    EXPECT_EQ(shown.told, texts({"かな"}));
    EXPECT_EQ(shown.field->text(), QStringLiteral("かな"));
}

TEST(ValidatedTextField, LeavingWhileComposingDropsWhatNobodyConfirmed)
{
    Shown shown(anything);
    shown.field->setBoundText(QStringLiteral("歌"));
    shown.compose("かな");
    shown.neighbour->setFocus();
    EXPECT_TRUE(shown.told.isEmpty());
    EXPECT_EQ(shown.field->text(), QStringLiteral("歌"));
    EXPECT_EQ(shown.field->displayText(), QStringLiteral("歌"));
    shown.field->setFocus();
    QTest::keyClick(shown.field, Qt::Key_End);
    QTest::keyClicks(shown.field, QStringLiteral("x"));
    EXPECT_EQ(shown.told, texts({"歌x"})) << "the field listens again";
}

TEST(ValidatedTextField, TheProgramsTextIsShownSilently)
{
    Shown shown(printableAscii);
    shown.field->setBoundText(QStringLiteral("かな"));
    EXPECT_EQ(shown.field->text(), QStringLiteral("かな"));
    EXPECT_EQ(shown.filterCalls, 0);
    EXPECT_TRUE(shown.told.isEmpty());
}

TEST(ValidatedTextField, TheProgramsTextIsIgnoredWhileAnEditIsTold)
{
    Shown shown(anything);
    QObject::connect(shown.field, &ValidatedTextField::textCommitted, shown.field,
                     [&] { shown.field->setBoundText(QStringLiteral("other")); });
    QTest::keyClicks(shown.field, QStringLiteral("a"));
    EXPECT_EQ(shown.field->text(), QStringLiteral("a"));
    EXPECT_EQ(shown.field->boundText(), QStringLiteral("a"));
}

TEST(ValidatedTextField, TheProgramsTextEndsAComposition)
{
    Shown shown(anything);
    shown.compose("かな");
    shown.field->setBoundText(QStringLiteral("歌"));
    EXPECT_EQ(shown.field->displayText(), QStringLiteral("歌"));
    EXPECT_TRUE(shown.told.isEmpty());
    QTest::keyClick(shown.field, Qt::Key_End);
    QTest::keyClicks(shown.field, QStringLiteral("x"));
    EXPECT_EQ(shown.told, texts({"歌x"})) << "the field listens again";
}

TEST(ValidatedTextField, TheProgramsTextReplacesACompositionOverASelection)
{
    Shown shown(anything);
    shown.field->setBoundText(QStringLiteral("歌詞"));
    shown.field->selectAll();
    shown.compose("か");
    shown.field->setBoundText(QString());
    EXPECT_EQ(shown.field->displayText(), QString());
    EXPECT_EQ(shown.field->boundText(), QString());
    EXPECT_TRUE(shown.told.isEmpty());
}

TEST(ValidatedTextField, TheSameTextFromTheProgramDisturbsNoComposition)
{
    Shown shown(anything);
    shown.field->setBoundText(QStringLiteral("歌"));
    shown.field->end(false);
    shown.compose("かな");
    shown.field->setBoundText(QStringLiteral("歌"));
    shown.confirm("仮名");
    EXPECT_EQ(shown.told, texts({"歌仮名"}));
}

TEST(ValidatedTextField, EditsBeforeARefusedCharacterCanBeUndone)
{
    Shown shown(printableAscii);
    QTest::keyClicks(shown.field, QStringLiteral("AB"));
    shown.field->selectAll();
    QTest::keyClicks(shown.field, QStringLiteral("C"));
    shown.confirm("あ");
    EXPECT_EQ(shown.field->text(), QStringLiteral("C"));
    shown.field->undo();
    EXPECT_EQ(shown.field->text(), QStringLiteral("AB"));
    shown.field->undo();
    EXPECT_EQ(shown.field->text(), QString());
    EXPECT_EQ(shown.told, texts({"A", "AB", "C", "AB", ""})) << "the refused character never comes back";
    shown.field->redo();
    EXPECT_EQ(shown.field->text(), QStringLiteral("AB"));
}

TEST(ValidatedTextField, AnEditThatIsFilteredInPartIsUndoneAsOne)
{
    Shown shown(printableAscii);
    shown.field->setBoundText(QStringLiteral("abcd"));
    shown.field->setSelection(1, 2);
    QGuiApplication::clipboard()->setText(QStringLiteral("xあy"));
    shown.field->paste();
    EXPECT_EQ(shown.field->text(), QStringLiteral("axyd"));
    EXPECT_EQ(shown.field->cursorPosition(), 3);
    shown.field->undo();
    EXPECT_EQ(shown.field->text(), QStringLiteral("abcd"));
    EXPECT_EQ(shown.told, texts({"axyd", "abcd"}));
}

TEST(ValidatedTextField, FontSizeIsInPixels)
{
    ValidatedTextField field(anything);
    field.setFontSize(14);
    EXPECT_EQ(field.font().pixelSize(), 14);
}

} // namespace
} // namespace orvim
