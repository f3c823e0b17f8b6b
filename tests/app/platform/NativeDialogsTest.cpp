#include "platform/NativeDialogs.h"

#include "tests/app/support/WaveFile.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
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

/// An empty folder that is the user's home as long as this lives.
class HomeFolder
{
public:
    HomeFolder() { qputenv("HOME", QFile::encodeName(m_folder.path())); }
    ~HomeFolder() { qputenv("HOME", m_former); }
    HomeFolder(const HomeFolder&) = delete;
    HomeFolder& operator=(const HomeFolder&) = delete;

    QString place(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

private:
    const QByteArray m_former = qgetenv("HOME");
    const QTemporaryDir m_folder;
};

/// A user of the toolkit's own save dialog, who answers every question the same way and gives up the dialog where it is
/// still there afterwards.
class SavePathTest : public testing::Test
{
protected:
    ~SavePathTest() override { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, m_wasWithoutNative); }

    /// Empties the dialog's field and types the name there. With nothing to type: the dialog is cancelled.
    std::optional<QString> saveAs(const char* name, QMessageBox::ButtonRole answer)
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_name = QString::fromUtf8(name);
        m_answer = answer;
        m_questions = 0;
        QObject presence;
        actSoon(presence);
        return m_dialogs.savePath(QStringLiteral("output.mid"), FileKind::midi);
    }

    QString place(const char* name) const { return m_home.place(name); }
    void createFile(const char* name) { test::writeFile(place(name), "old"); }
    int questions() const { return m_questions; }

    /// The name that is typed means an existing file, which is overwritten after one question or not at all.
    void expectOneQuestion(const char* typed, const char* existing)
    {
        createFile(existing);
        EXPECT_EQ(saveAs(typed, QMessageBox::YesRole), place(existing));
        EXPECT_EQ(questions(), 1);
        EXPECT_EQ(saveAs(typed, QMessageBox::NoRole), std::nullopt);
        EXPECT_EQ(questions(), 1);
    }

private:
    /// Again and again, also inside of what it does: a question runs within the key that brings it.
    void actSoon(QObject& presence)
    {
        QTimer::singleShot(10, &presence, [this, &presence] {
            actSoon(presence);
            act();
        });
    }

    void act()
    {
        QWidget* const modal = QApplication::activeModalWidget();
        if (auto* const box = qobject_cast<QMessageBox*>(modal)) return reply(*box);
        auto* const dialog = qobject_cast<QFileDialog*>(modal);
        if (!dialog) return;
        auto* const field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        // Before that it does not follow what is typed.
        if (!field->hasFocus()) return;
        const QString name = std::exchange(m_name, {});
        if (name.isEmpty()) return dialog->reject();
        field->clear();
        QTest::keyClicks(field, name);
        QTest::keyClick(field, Qt::Key_Return);
    }

    void reply(QMessageBox& box)
    {
        ++m_questions;
        for (QAbstractButton* const button : box.buttons())
            if (box.buttonRole(button) == m_answer) return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no such answer";
        box.reject();
    }

    const bool m_wasWithoutNative = QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs);
    const HomeFolder m_home;
    NativeDialogs m_dialogs;
    QString m_name; ///< to be typed yet
    QMessageBox::ButtonRole m_answer = QMessageBox::NoRole;
    int m_questions = 0;
};

TEST_F(SavePathTest, ANewNameIsTakenWithoutAQuestion)
{
    EXPECT_EQ(saveAs("a.mid", QMessageBox::NoRole), place("a.mid"));
    EXPECT_EQ(questions(), 0);
}

TEST_F(SavePathTest, ALeftOutExtensionIsAdded)
{
    EXPECT_EQ(saveAs("a", QMessageBox::NoRole), place("a.mid"));
    EXPECT_EQ(questions(), 0);
}

TEST_F(SavePathTest, AnExistingFileIsAskedAboutOnce)
{
    expectOneQuestion("a.mid", "a.mid");
}

TEST_F(SavePathTest, AnExistingFileThatWasTypedWithoutItsExtensionIsAskedAboutOnce)
{
    expectOneQuestion("a", "a.mid");
}

TEST_F(SavePathTest, BehindAnExtensionOfAnotherKindTheRightOneIsAdded)
{
    EXPECT_EQ(saveAs("a.v2", QMessageBox::NoRole), place("a.v2.mid"));
    EXPECT_EQ(questions(), 0);
}

TEST_F(SavePathTest, AnExistingFileThatOnlyTheAddedExtensionMeansIsAskedAboutOnce)
{
    expectOneQuestion("a.v2", "a.v2.mid");
}

TEST_F(SavePathTest, ACancelledDialogGivesNothing)
{
    EXPECT_EQ(saveAs("", QMessageBox::NoRole), std::nullopt);
    EXPECT_EQ(questions(), 0);
}

TEST_F(SavePathTest, TheNextDialogOpensInTheLastFolder)
{
    ASSERT_TRUE(QDir().mkdir(place("songs")));
    EXPECT_EQ(saveAs("songs/a.mid", QMessageBox::NoRole), place("songs/a.mid"));
    EXPECT_EQ(saveAs("b", QMessageBox::NoRole), place("songs/b.mid"));
}

} // namespace
} // namespace orvim
