#include "platform/NativeDialogs.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace orvim {
namespace {

TEST(WithExtension, AddsTheKindsFirstExtensionWhereThereIsNone)
{
    EXPECT_EQ(withExtension(QStringLiteral("/home/a/take"), FileKind::midi), QStringLiteral("/home/a/take.mid"));
    EXPECT_EQ(withExtension(QStringLiteral("/home/a/take"), FileKind::wave), QStringLiteral("/home/a/take.wav"));
    EXPECT_EQ(withExtension(QStringLiteral("/home/a/take"), FileKind::picture), QStringLiteral("/home/a/take.bmp"));
    EXPECT_EQ(withExtension(QStringLiteral("/home/a/take"), FileKind::png), QStringLiteral("/home/a/take.png"));
}

TEST(WithExtension, KeepsEveryExtensionOfTheKindInAnyCase)
{
    for (const char* name : {"/a/b.mid", "/a/b.midi", "/a/b.smf", "/a/b.MID", "/a/b.Midi", "/a/曲.smf"})
        EXPECT_EQ(withExtension(QString::fromUtf8(name), FileKind::midi), QString::fromUtf8(name));
    for (const char* name : {"/a/b.bmp", "/a/b.jpg", "/a/b.jpeg", "/a/b.png"})
        EXPECT_EQ(withExtension(QString::fromUtf8(name), FileKind::picture), QString::fromUtf8(name));
}

TEST(WithExtension, AddsItBehindAnExtensionOfAnotherKind)
{
    EXPECT_EQ(withExtension(QStringLiteral("/a/screen.jpg"), FileKind::png), QStringLiteral("/a/screen.jpg.png"));
    EXPECT_EQ(withExtension(QStringLiteral("/a/take.2"), FileKind::midi), QStringLiteral("/a/take.2.mid"));
    EXPECT_EQ(withExtension(QStringLiteral("/a/screen."), FileKind::png), QStringLiteral("/a/screen..png"));
}

TEST(WithExtension, APointInAFoldersNameIsNoExtension)
{
    EXPECT_EQ(withExtension(QStringLiteral("/a.png/screen"), FileKind::png), QStringLiteral("/a.png/screen.png"));
}

TEST(WithExtension, APathOfADesktopPortalStaysAsItIs)
{
    const auto portal = QStringLiteral("/run/user/1000/doc/5f3a91/screen");
    EXPECT_EQ(withExtension(portal, FileKind::png), portal);
    EXPECT_EQ(withExtension(portal + QStringLiteral(".jpg"), FileKind::png), portal + QStringLiteral(".jpg"));
}

TEST(WithExtension, APathThatOnlyLooksLikeAPortalsGetsIt)
{
    for (const char* path : {"/home/a/run/user/1000/doc/5f/screen", "/run/user/1000/documents/screen",
                             "/run/user/1000/x/doc/screen", "/run/user/doc/screen"})
        EXPECT_EQ(withExtension(QString::fromUtf8(path), FileKind::png),
                  QString::fromUtf8(path) + QStringLiteral(".png"));
}

/// What `askYesNo` answers when the key is pressed in its window.
bool answerTo(Qt::Key key)
{
    NativeDialogs dialogs;
    QTimer::singleShot(0, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    return dialogs.askYesNo(QStringLiteral("?"));
}

TEST(NativeDialogs, ReturnAndEscapeAloneLoseNothing)
{
    EXPECT_FALSE(answerTo(Qt::Key_Return));
    EXPECT_FALSE(answerTo(Qt::Key_Escape));
}

TEST(NativeDialogs, YesIsChosenWithTheMouse)
{
    NativeDialogs dialogs;
    QTimer::singleShot(0, [] {
        for (auto* const button : QApplication::activeModalWidget()->findChildren<QPushButton*>())
            if (button->text() == QStringLiteral("はい")) return QTest::mouseClick(button, Qt::LeftButton);
    });
    EXPECT_TRUE(dialogs.askYesNo(QStringLiteral("?")));
}

} // namespace
} // namespace orvim
