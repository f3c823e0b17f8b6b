#include "controls/SliderNumberField.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace orvim {
namespace {

/// A number field with the focus, and a neighbour to leave it for.
struct Shown {
    Shown()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(neighbour);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setValue(64);
        field->setFocus();
    }

    void enter(const char* text)
    {
        field->selectAll();
        QTest::keyClicks(field, QString::fromUtf8(text));
    }

    QWidget window;
    SliderNumberField* field = new SliderNumberField(0, 127, {60, 24});
    QLineEdit* neighbour = new QLineEdit;
    QSignalSpy spy{field, &SliderNumberField::valueChanged};
};

TEST(SliderNumberField, ShowsTheRoundedValue)
{
    SliderNumberField field(-64, 63, {60, 24});
    EXPECT_EQ(field.size(), QSize(60, 24));
    EXPECT_EQ(field.text(), QStringLiteral("-64"));
    for (const auto& [value, text] : {std::pair{12.5, "13"}, {12.4, "12"}, {-12.5, "-13"}, {-0.3, "0"}}) {
        field.setValue(value);
        EXPECT_EQ(field.text(), QLatin1String(text));
    }
}

TEST(SliderNumberField, TextIsTheUsersWhileTheFocusIsInIt)
{
    Shown shown;
    shown.enter("1");
    shown.field->setValue(99);
    EXPECT_EQ(shown.field->text(), QStringLiteral("1"));
    EXPECT_EQ(shown.spy.count(), 0);
}

TEST(SliderNumberField, TextThatNobodyTypedFollowsTheValueAndIsNotTaken)
{
    Shown shown;
    shown.field->setValue(99.4);
    EXPECT_EQ(shown.field->text(), QStringLiteral("99"));
    shown.neighbour->setFocus();
    EXPECT_EQ(shown.field->value(), 99.4);
    EXPECT_EQ(shown.spy.count(), 0);
}

TEST(SliderNumberField, AfterReturnTheTextFollowsTheValueAgain)
{
    Shown shown;
    for (const char* typed : {"70", "64", "abc"}) {
        shown.enter(typed);
        QTest::keyClick(shown.field, Qt::Key_Return);
        shown.field->setValue(64);
        EXPECT_EQ(shown.field->text(), QStringLiteral("64")) << typed;
    }
}

TEST(SliderNumberField, ReturnTakesTheNumber)
{
    Shown shown;
    shown.enter("100");
    QTest::keyClick(shown.field, Qt::Key_Return);
    EXPECT_EQ(shown.field->value(), 100);
    EXPECT_EQ(shown.spy.count(), 1);
    EXPECT_TRUE(shown.field->hasFocus());
}

TEST(SliderNumberField, LeavingTakesTheNumber)
{
    Shown shown;
    shown.enter("+7");
    shown.neighbour->setFocus();
    EXPECT_EQ(shown.field->value(), 7);
    EXPECT_EQ(shown.field->text(), QStringLiteral("7"));
    EXPECT_EQ(shown.spy.count(), 1);
}

TEST(SliderNumberField, NumbersOutsideTheRangeAreLimited)
{
    Shown shown;
    for (const auto& [typed, text] : {std::pair{"200", "127"}, {"-5", "0"}, {"99999999999999999999999", "127"}}) {
        shown.enter(typed);
        QTest::keyClick(shown.field, Qt::Key_Return);
        EXPECT_EQ(shown.field->text(), QLatin1String(text)) << typed;
    }
    EXPECT_EQ(shown.field->value(), 127);
}

TEST(SliderNumberField, EndsOfTheRangeAreRounded)
{
    Shown shown;
    shown.field->setRange(0.4, 11.5);
    for (const auto& [typed, value] : {std::pair{"200", 12}, {"-1", 0}}) {
        shown.enter(typed);
        QTest::keyClick(shown.field, Qt::Key_Return);
        EXPECT_EQ(shown.field->value(), value) << typed;
    }
}

TEST(SliderNumberField, WhatIsNoWholeNumberBringsBackTheFormerOne)
{
    Shown shown;
    for (const char* typed : {"abc", "", "1.5", " 12", "12 ", "--1", "+", "0x10", "1e2"}) {
        shown.enter(typed);
        if (*typed == '\0') shown.field->clear();
        QTest::keyClick(shown.field, Qt::Key_Return);
        EXPECT_EQ(shown.field->text(), QStringLiteral("64")) << typed;
    }
    EXPECT_EQ(shown.field->value(), 64);
    EXPECT_EQ(shown.spy.count(), 0);
}

TEST(SliderNumberField, TheSameNumberIsNotToldAgain)
{
    Shown shown;
    shown.enter("64");
    QTest::keyClick(shown.field, Qt::Key_Return);
    shown.neighbour->setFocus();
    EXPECT_EQ(shown.spy.count(), 0);
}

} // namespace
} // namespace orvim
