// Every control of the command page: what its send puts into the log is what arrives at the module.

#include "Editor.h"
#include "controls/DotGridView.h"
#include "controls/TickSnappingSlider.h"
#include "controls/ValidatedTextField.h"
#include "pages/CommandPageView.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

#include <QComboBox>
#include <QInputMethodEvent>
#include <QPushButton>
#include <QTest>

namespace orvim::test {

namespace {

/// The page, without a window, beside the module.
class CommandPage : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort)); }

    tonavelle::Batch arrivedAsLogged() { return test::arrivedAsLogged(module.port(1), editor); }

    template <typename Control>
    Control* control(const QString& name)
    {
        return page.findChild<Control*>(name);
    }

    /// Enters text as an input method does.
    void type(const QString& row, const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(control<ValidatedTextField>(row), &event);
    }

    const USBModule module{{}};
    Editor editor;
    CommandPageView page{editor.runtime};
};

} // namespace

TEST_F(CommandPage, EachButtonSendsItsMessages)
{
    const auto buttons = page.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 25);
    for (QPushButton* const button : buttons) {
        const auto before = editor.loggedMessages().size();
        button->click();
        EXPECT_GT(editor.loggedMessages().size(), before) << button->text().toStdString();
    }
    const auto arrived = arrivedAsLogged();
    const tonavelle::Batch begin{bytes("F0 00 48 05 7F 00 00 F7"),    bytes("F0 7E 7F 09 01 F7"),
                                 bytes("F0 7E 7F 09 03 F7"),          bytes("F0 41 10 42 12 40 00 7F 00 41 F7"),
                                 bytes("F0 43 10 4C 00 00 7E 00 F7"), bytes("F0 00 48 05 7F 03 00 F7")};
    ASSERT_GE(arrived.size(), begin.size());
    EXPECT_TRUE(std::equal(begin.begin(), begin.end(), arrived.begin()));
}

TEST_F(CommandPage, EachColourSendsAllThree)
{
    QTest::keyClick(control<TickSnappingSlider>(QStringLiteral("R")), Qt::Key_Right);
    QTest::keyClick(control<TickSnappingSlider>(QStringLiteral("G")), Qt::Key_End);
    QTest::keyClick(control<TickSnappingSlider>(QStringLiteral("B")), Qt::Key_Home);
    EXPECT_EQ(arrivedAsLogged(),
              (tonavelle::Batch{bytes("F0 00 48 05 7F 2A 40 3F 3F F7"), bytes("F0 00 48 05 7F 2A 40 7F 3F F7"),
                                bytes("F0 00 48 05 7F 2A 40 7F 00 F7")}));
}

TEST_F(CommandPage, EachFacePickerSendsItsPart)
{
    control<QComboBox>(QStringLiteral("眉："))->setCurrentIndex(3);
    control<QComboBox>(QStringLiteral("目："))->setCurrentIndex(6);
    control<QComboBox>(QStringLiteral("口："))->setCurrentIndex(8);
    EXPECT_EQ(arrivedAsLogged(),
              (tonavelle::Batch{bytes("F0 00 48 05 7F 10 01 03 F7"), bytes("F0 00 48 05 7F 10 02 06 F7"),
                                bytes("F0 00 48 05 7F 10 03 08 F7")}));
}

TEST_F(CommandPage, EachTextRowSendsWhatIsTyped)
{
    type(QStringLiteral("ASCII："), QStringLiteral("A"));
    type(QStringLiteral("日本語(上段)："), QStringLiteral("ｱ"));
    type(QStringLiteral("日本語(下段)："), QStringLiteral("B"));
    EXPECT_EQ(arrivedAsLogged(),
              (tonavelle::Batch{bytes("F0 41 10 45 12 10 00 00 41 2F F7"), bytes("F0 00 48 05 7F 06 01 F7"),
                                bytes("F0 00 48 05 7F 07 00 0B 01 F7"), bytes("F0 00 48 05 7F 06 02 F7"),
                                bytes("F0 00 48 05 7F 07 01 04 02 F7")}));
}

TEST_F(CommandPage, EachClickIntoTheDotGridSendsTheGrid)
{
    QTest::mouseClick(control<DotGridView>(QStringLiteral("dotGrid")), Qt::LeftButton, {}, {10, 8});
    const auto arrived = arrivedAsLogged();
    ASSERT_EQ(arrived.size(), 1U);
    EXPECT_EQ(tonavelle::Message(arrived[0].begin(), arrived[0].begin() + 10), bytes("F0 41 10 45 12 10 01 00 10 00"));
}

} // namespace orvim::test
