#include "platform/InputHold.h"

#include <QCoreApplication>
#include <QDragMoveEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>

#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace orvim {
namespace {

class InputHoldTest : public testing::Test
{
protected:
    class TakesEverything : public QObject
    {
        bool event(QEvent* event) override
        {
            event->accept();
            return true;
        }
    };

    void commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(field.get(), &event);
    }

    void expectAllOnlyAfterTheEnd(const QString& text)
    {
        QCoreApplication::processEvents();
        EXPECT_EQ(field->text(), QString());
        hold.end();
        QCoreApplication::processEvents();
        EXPECT_EQ(field->text(), text);
    }

    static bool isDropAccepted(QEvent::Type type, TakesEverything& target)
    {
        const QMimeData files;
        QDragMoveEvent event(QPoint(1, 1), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier, type);
        QCoreApplication::sendEvent(&target, &event);
        return event.isAccepted();
    }

    std::unique_ptr<QLineEdit> field = std::make_unique<QLineEdit>();
    InputHold hold;
};

TEST_F(InputHoldTest, WhatAnInputMethodSendsComesAfterTheEnd)
{
    hold.begin();
    commit(QStringLiteral("か"));
    commit(QStringLiteral("な"));
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), QString());
    hold.end();
    EXPECT_EQ(field->text(), QString()) << "whoever held is not finished yet";
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), QStringLiteral("かな"));
}

TEST_F(InputHoldTest, HoldsUntilTheLastEnd)
{
    hold.begin();
    hold.begin();
    commit(QStringLiteral("か"));
    hold.end();
    commit(QStringLiteral("な"));
    expectAllOnlyAfterTheEnd(QStringLiteral("かな"));
}

TEST_F(InputHoldTest, WhatStillWaitsAtANewBeginKeepsItsPlace)
{
    hold.begin();
    commit(QStringLiteral("か"));
    hold.end();
    hold.begin();
    commit(QStringLiteral("な"));
    expectAllOnlyAfterTheEnd(QStringLiteral("かな"));
}

TEST_F(InputHoldTest, AHoldDuringTheDeliveryKeepsTheRestInOrder)
{
    bool isFirst = true;
    QObject::connect(field.get(), &QLineEdit::textChanged, field.get(), [this, &isFirst] {
        if (!std::exchange(isFirst, false)) return;
        hold.begin();
        commit(QStringLiteral("3"));
        QCoreApplication::processEvents();
        EXPECT_EQ(field->text(), QStringLiteral("1"));
        hold.end();
    });
    hold.begin();
    commit(QStringLiteral("1"));
    commit(QStringLiteral("2"));
    expectAllOnlyAfterTheEnd(QStringLiteral("123"));
}

TEST_F(InputHoldTest, AKeyPressedAfterTheEndFindsTheTextThere)
{
    hold.begin();
    commit(QStringLiteral("か"));
    hold.end();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QCoreApplication::sendEvent(field.get(), &press);
    EXPECT_EQ(field->text(), QStringLiteral("かa"));
}

TEST_F(InputHoldTest, TheFieldMayBeGoneByThen)
{
    hold.begin();
    commit(QStringLiteral("か"));
    hold.end();
    field.reset();
    QCoreApplication::processEvents();
    field = std::make_unique<QLineEdit>();
    commit(QStringLiteral("な"));
    EXPECT_EQ(field->text(), QStringLiteral("な"));
}

TEST_F(InputHoldTest, DropsAreRefusedUntilTheEnd)
{
    TakesEverything target;
    EXPECT_TRUE(isDropAccepted(QEvent::Drop, target));
    hold.begin();
    for (const auto type : {QEvent::DragEnter, QEvent::DragMove, QEvent::Drop})
        EXPECT_FALSE(isDropAccepted(type, target));
    hold.end();
    EXPECT_TRUE(isDropAccepted(QEvent::Drop, target));
}

TEST_F(InputHoldTest, WhatTakesDropsAtAllTimesGetsThemAtOnce)
{
    TakesEverything target;
    InputHold::takeDropsAtAllTimes(target);
    hold.begin();
    for (const auto type : {QEvent::DragEnter, QEvent::DragMove, QEvent::Drop})
        EXPECT_TRUE(isDropAccepted(type, target));
    hold.end();
}

} // namespace
} // namespace orvim
