// What comes while another action has the list: it follows, in the order in which it came.

#include "tests/app/support/TransferPageTest.h"

#include <QCoreApplication>
#include <QProcess>

namespace orvim {
namespace {

using test::dropOnMiddle;

class TransferTurnsTest : public test::ImageTransferPageTest
{
protected:
    /// What is left of an application that quit would end the loops of the next test; one that runs anew clears it.
    void TearDown() override
    {
        QCoreApplication::processEvents();
        QTimer::singleShot(0, &page(), [] { QCoreApplication::exit(); });
        QCoreApplication::exec();
    }

    void dropFiles(const QStringList& names)
    {
        QList<QUrl> urls;
        for (const QString& name : names)
            urls << QUrl::fromLocalFile(picture(name));
        EXPECT_TRUE(dropOnMiddle(page(), urls));
    }

    QStringList names()
    {
        QStringList result;
        for (const auto& item : items())
            result << QFileInfo(item.filePath).fileName();
        return result;
    }

    /// `action` runs in the application, which quits while it runs, right behind `before`.
    void whileQuitting(
        const std::function<void()>& action, const std::function<void()>& before = [] {})
    {
        QTimer::singleShot(0, &page(), [&] {
            QTimer::singleShot(0, &page(), [&] {
                before();
                QTimer::singleShot(0, &page(), [] { QCoreApplication::quit(); });
            });
            action();
        });
        QCoreApplication::exec();
        QCoreApplication::processEvents();
    }
};

TEST_F(TransferTurnsTest, ADropWhileMessagesAreSentIsTakenInAfterThem)
{
    addPictures(1);
    plugged.system.forgetSent();
    duringNextSend([&] { dropFiles({QStringLiteral("late.png")}); });
    actions().runOnModule(items()[0].id);
    EXPECT_EQ(plugged.sent().size(), 66u);
    EXPECT_EQ(items().size(), 1u);
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().size() == 2; }));
    EXPECT_EQ(names(), (QStringList{QStringLiteral("0.png"), QStringLiteral("late.png")}));
    EXPECT_EQ(logLines().mid(3), (QStringList{QStringLiteral("[SysEx: Image Draw 64x64]"),
                                              QStringLiteral("画像ファイルを登録しました。")}));
}

TEST_F(TransferTurnsTest, ADropOfOtherFilesWhileMessagesAreSentIsReportedAfterThem)
{
    addPictures(1);
    const QString text = textFile(QStringLiteral("a.txt"));
    duringNextSend([&] { EXPECT_TRUE(dropOnMiddle(page(), {QUrl::fromLocalFile(text)})); });
    actions().runOnModule(items()[0].id);
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == QStringLiteral("対応する画像ファイルが見つかりません。"); }));
    EXPECT_EQ(logLines().at(3), QStringLiteral("[SysEx: Image Draw 64x64]"));
}

TEST_F(TransferTurnsTest, WhatIsAskedForDuringASendFollowsItInOrder)
{
    addPictures(3);
    dialogs.answer = true;
    dialogs.pathToSave = folder.filePath(QStringLiteral("out.mid"));
    const QUuid first = items()[0].id;
    const QUuid second = items()[1].id;
    plugged.runtime.logStore().clear();
    duringNextSend([&] {
        actions().deleteOne(first);
        actions().runOnModule(second);
        actions().exportMIDI();
        actions().clear();
        EXPECT_EQ(items().size(), 3u);
    });
    actions().runOnModule(first);
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().empty(); }));
    const QStringList sent{QStringLiteral("[SysEx: UI Type Set]"),
                           QStringLiteral("[SysEx: Image Transfer color 64x64]"),
                           QStringLiteral("[SysEx: Image Draw 64x64]")};
    QStringList expected = sent;
    expected << QStringLiteral("画像を削除しました。") << sent << QStringLiteral("画像MIDIを書き出しました。")
             << QStringLiteral("画像リストをクリアしました。");
    EXPECT_EQ(logLines(), expected);
}

TEST_F(TransferTurnsTest, TheDeleteKeyDuringASendRemovesWhatIsSelectedAfterIt)
{
    addPictures(2);
    duringNextSend([&] {
        actions().deleteSelected();
        list().item(1)->setSelected(true);
    });
    actions().runOnModule(items()[0].id);
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().size() == 1; }));
    EXPECT_EQ(names(), QStringList{QStringLiteral("0.png")});
}

TEST_F(TransferTurnsTest, DropsWhileFilesAreLoadedFollowInTheirOrder)
{
    QTimer::singleShot(0, &page(), [&] {
        dropFiles({QStringLiteral("b.png"), QStringLiteral("a.png")});
        dropFiles({QStringLiteral("c.png")});
    });
    addPictures(2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().size() == 5; }));
    EXPECT_EQ(names(), (QStringList{QStringLiteral("0.png"), QStringLiteral("1.png"), QStringLiteral("b.png"),
                                    QStringLiteral("a.png"), QStringLiteral("c.png")}));
}

TEST_F(TransferTurnsTest, ClearWhileFilesAreLoadedFollowsThem)
{
    dialogs.answer = true;
    QTimer::singleShot(0, &page(), [&] { actions().clear(); });
    addPictures(2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().empty(); }));
    EXPECT_EQ(logLines(), (QStringList{QStringLiteral("画像ファイルを登録しました。"),
                                       QStringLiteral("画像リストをクリアしました。")}));
}

TEST_F(TransferTurnsTest, QuittingWhileFilesAreLoadedEndsAtTheOneBeingRead)
{
    const QStringList paths = pictures(32);
    whileQuitting([&] { actions().registerFiles(paths); }, [&] { dropFiles({QStringLiteral("late.png")}); });
    EXPECT_LT(items().size(), 32u);
    EXPECT_FALSE(names().contains(QStringLiteral("late.png")));
    EXPECT_EQ(plugged.log(), QString());
    EXPECT_FALSE(plugged.runtime.midiOutManager().progressFraction());
}

TEST_F(TransferTurnsTest, TheWindowCanBeClosedBetweenTwoFiles)
{
    class CloseWatch : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != QEvent::Close) return false;
            onClose();
            event->ignore();
            return true;
        }
        std::function<void()> onClose;
    } watch;
    std::optional<std::size_t> itemsAtClosing;
    watch.onClose = [&] { itemsAtClosing = items().size(); };
    window.installEventFilter(&watch);
    QImage large(3000, 3000, QImage::Format_RGB32);
    large.fill(Qt::red);
    const QString path = folder.filePath(QStringLiteral("large.png"));
    ASSERT_TRUE(large.save(path));
    QProcess keys;
    keys.start(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("alt+F4")});
    if (!keys.waitForStarted()) GTEST_SKIP() << "there is no xdotool to press keys";
    actions().registerFiles(QStringList(32, path));
    ASSERT_TRUE(itemsAtClosing);
    EXPECT_LT(*itemsAtClosing, 32u);
    EXPECT_EQ(items().size(), 32u);
    keys.waitForFinished();
}

TEST_F(TransferTurnsTest, QuittingWhileBrokenFilesAreReadStopsTheRest)
{
    QStringList paths;
    for (int i = 0; i < 32; ++i)
        paths << textFile(QStringLiteral("%1.png").arg(i));
    whileQuitting([&] { actions().registerFiles(paths); });
    EXPECT_LT(plugged.log().count(QStringLiteral("画像ファイルを読み込めません。")), 32);
    EXPECT_FALSE(plugged.log().contains(QStringLiteral("画像ファイルを登録しました。")));
    EXPECT_EQ(names(), QStringList()) << "of what cannot be read there is no row";
}

TEST_F(TransferTurnsTest, QuittingWhileAFileIsRestoredLeavesTheList)
{
    addPictures(2);
    dialogs.pathToOpen = exportTo(QStringLiteral("out.mid"));
    dialogs.answer = true;
    const QUuid first = items()[0].id;
    plugged.runtime.logStore().clear();
    QTimer::singleShot(0, &page(), [&] {
        QCoreApplication::quit();
        actions().restoreFromMIDI();
    });
    QCoreApplication::exec();
    EXPECT_EQ(plugged.log(), QString());
    EXPECT_EQ(items()[0].id, first);
}

TEST(TransferTurns, APageThatGoesAwayTakesItsDropAlong)
{
    test::PluggedRuntime plugged;
    test::RecordingDialogs dialogs;
    auto page = std::make_unique<ImageTransferPageView>(plugged.runtime, dialogs);
    page->resize(400, 300);
    page->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(page.get()));
    EXPECT_TRUE(dropOnMiddle(*page, {QUrl::fromLocalFile(QStringLiteral("/missing.png"))}));
    page.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(plugged.log(), QString());
}

} // namespace
} // namespace orvim
