#include "LogWindowView.h"

#include "LogTextView.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/support/Bytes.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;
using test::PluggedRuntime;

class LogWindowViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void appendLines(int count)
    {
        for (int i = 0; i < count; ++i)
            store.appendLine(QStringLiteral("line %1").arg(++m_lineNumber));
    }

    QAbstractButton& button(const QString& text)
    {
        for (auto* const candidate : window.findChildren<QAbstractButton*>())
            if (candidate->text() == text) return *candidate;
        throw std::runtime_error("no button " + text.toStdString());
    }

    void click(const QString& text)
    {
        QTest::mouseClick(&button(text), Qt::LeftButton, {}, {10, button(text).height() / 2});
    }

    PluggedRuntime plugged;
    LogWindowView window{plugged.runtime};
    MIDIOutLogStore& store = plugged.runtime.logStore();
    LogTextView& view = *window.findChild<LogTextView*>();
    int m_lineNumber = 0;
};

TEST_F(LogWindowViewTest, OpensWithItsTitleAndSize)
{
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Log Window"));
    EXPECT_EQ(window.size(), QSize(380, 500));
    EXPECT_TRUE(plugged.runtime.logWindowIsVisible());
}

TEST_F(LogWindowViewTest, FollowsTheStoreAndStaysAtItsEnd)
{
    appendLines(100);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), store.text());
    EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());

    view.verticalScrollBar()->setValue(0);
    appendLines(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), store.text());
    EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum())
        << "a new line takes the user along";
}

TEST_F(LogWindowViewTest, FollowsTheTrimAPartialLineAndTheClearing)
{
    appendLines(400);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), store.text());
    store.append(QStringLiteral("half"));
    QCoreApplication::processEvents();
    store.append(QStringLiteral(" and half\n"));
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), store.text());
    store.clear();
    appendLines(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), store.text());
}

TEST_F(LogWindowViewTest, WithoutTheLimitItKeepsEveryLine)
{
    click(QStringLiteral("ログ行数制限"));
    for (int round = 0; round < 5; ++round) {
        appendLines(1000);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(view.toPlainText(), store.text());
    EXPECT_EQ(store.lineCount(), 5000u);
}

TEST_F(LogWindowViewTest, WhatIsWrittenWhileItIsHiddenStandsThereWhenItComesBack)
{
    window.close();
    appendLines(10);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), QString()) << "nothing is drawn for a hidden window";
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([this] { return view.toPlainText() == store.text(); }));
}

TEST_F(LogWindowViewTest, IsReadOnlySelectableUnwrappedAndInFourteenPixels)
{
    EXPECT_TRUE(view.isReadOnly());
    EXPECT_TRUE(view.textInteractionFlags() & Qt::TextSelectableByMouse);
    EXPECT_EQ(view.lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_EQ(view.font().pixelSize(), 14);
    EXPECT_TRUE(QFontInfo(view.font()).fixedPitch());
    EXPECT_TRUE(view.verticalScrollBar()->isVisible());
    EXPECT_TRUE(view.horizontalScrollBar()->isVisible());
}

TEST_F(LogWindowViewTest, TheControlsChooseTheFormOfNewLines)
{
    EXPECT_TRUE(button(QStringLiteral("00H表記")).isChecked());
    click(QStringLiteral("0x00表記"));
    click(QStringLiteral("カンマ区切り"));
    EXPECT_EQ(store.format(bytes("F0 7E 01")), QStringLiteral("0xF0, 0x7E, 0x01,"));
    click(QStringLiteral("なし"));
    EXPECT_EQ(store.format(bytes("F0 F7")), QStringLiteral("F0, F7,"));
}

TEST_F(LogWindowViewTest, TheLimitsHelpTellsItsPrice)
{
    EXPECT_EQ(button(QStringLiteral("ログ行数制限")).toolTip(),
              QStringLiteral("ログの行数を300行に制限する。制限を外すとメモリ使用量が増える。"));
}

TEST_F(LogWindowViewTest, ClearingEmptiesTheViewAndSaysSoInTheNormalLook)
{
    appendLines(3);
    plugged.runtime.midiOutManager().setStatus(QStringLiteral("bad"), true);
    click(QStringLiteral("ログ消去"));
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), QString());
    EXPECT_EQ(plugged.runtime.midiOutManager().statusMessage(), QStringLiteral("ログを消去しました。"));
    EXPECT_EQ(plugged.runtime.midiOutManager().lastErrorMessage(), std::nullopt);
}

} // namespace
} // namespace orvim
