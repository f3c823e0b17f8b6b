#pragma once

#include "EditorPageHost.h"
#include "MainWindow.h"
#include "PageScaffold.h"
#include "controls/ElidedLabel.h"
#include "pages/ImageTransferPageView.h"
#include "pages/SoundTransferPageView.h"
#include "platform/MainThreadDoor.h"
#include "tests/app/support/Drop.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/Progress.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/app/support/WaveFile.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace orvim::test {

/// A page that transfers files, in view in the main window.
class TransferPageTest : public testing::Test
{
protected:
    explicit TransferPageTest(EditorPage page) : shownPage(page) {}

    void SetUp() override
    {
        plugged.runtime.setSelectedPage(shownPage);
        window.resize(1'150, 700);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    TransferListPage& page() { return *scaffold().findChild<TransferListPage*>(); }
    PageScaffold& scaffold() { return window.pages().page(shownPage); }
    QListWidget& list() { return *page().findChild<QListWidget*>(); }
    QWidget& rowAt(int index) { return *list().itemWidget(list().item(index)); }
    QPoint middleOfRow(int row) { return list().visualItemRect(list().item(row)).center(); }
    QPushButton& buttonAt(int row) { return *rowAt(row).findChild<QPushButton*>(); }
    QLabel& dropHint() { return *page().findChild<QLabel*>(QStringLiteral("dropHint")); }
    QString counter() { return page().findChild<QLabel*>(QStringLiteral("counter"))->text(); }
    QString status() { return plugged.runtime.midiOutManager().statusMessage(); }

    QAction& menuItem(const QString& title)
    {
        for (QAction* const action : scaffold().findChildren<QAction*>())
            if (action->text() == title) return *action;
        throw std::logic_error("no such item");
    }

    QToolButton& toolbarButton(const char* symbol)
    {
        return *scaffold().header().findChild<QToolButton*>(QString::fromUtf8(symbol));
    }

    void press(const char* symbol) { QTest::mouseClick(&toolbarButton(symbol), Qt::LeftButton); }

    /// Drops the files on the page and waits until they are taken in.
    void drop(const QStringList& paths)
    {
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        const QString before = plugged.log();
        EXPECT_TRUE(dropOnMiddle(page(), urls));
        constexpr int longest = 60'000; // many files, on a busy machine
        EXPECT_TRUE(QTest::qWaitFor([&] { return plugged.log() != before; }, longest));
    }

    /// The log without the bytes of its messages and without repetitions.
    QStringList logLines()
    {
        QStringList lines;
        for (const QString& line : plugged.log().split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            if (!line.startsWith(QStringLiteral("   ")) && (lines.isEmpty() || lines.last() != line.trimmed()))
                lines << line.trimmed();
        return lines;
    }

    /// The progress that is shown while `action` runs.
    Progress progressDuring(const std::function<void()>& action)
    {
        return test::progressDuring(plugged.runtime.midiOutManager(), action);
    }

    /// Lets the first message of the next send wait for room, as a slow module does, and has `action` done meanwhile.
    void duringNextSend(std::function<void()> action)
    {
        plugged.system.onSend = [this, action = std::move(action)] {
            plugged.system.onSend = {};
            bool isDone = false;
            QTimer::singleShot(0, &door, [&] {
                action();
                QTimer::singleShot(20, &door, [&] { isDone = true; });
            });
            EXPECT_TRUE(door.waitUntil([&] { return isDone; }));
        };
    }

    QByteArray readFile(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QString exportTo(const QString& name)
    {
        dialogs.pathToSave = folder.filePath(name);
        page().listActions().exportMIDI();
        return *dialogs.pathToSave;
    }

    EditorPage shownPage;
    QTemporaryDir folder;
    PluggedRuntime plugged;
    MainThreadDoor door;
    RecordingDialogs dialogs;
    MainWindow window{plugged.runtime, dialogs};
};

class ImageTransferPageTest : public TransferPageTest
{
protected:
    ImageTransferPageTest() : TransferPageTest(EditorPage::imageTransfer) {}

    /// A picture file of one colour.
    QString picture(const QString& name, QColor color = Qt::white)
    {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(color);
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return folder.filePath(name);
    }

    QString textFile(const QString& name)
    {
        writeFile(folder.filePath(name), "no picture");
        return folder.filePath(name);
    }

    QStringList pictures(int count)
    {
        QStringList paths;
        for (int i = 0; i < count; ++i)
            paths << picture(QStringLiteral("%1.png").arg(i), QColor(8 * i, 0, 0));
        return paths;
    }

    void addPictures(int count) { actions().registerFiles(pictures(count)); }

    ImageTransferPageActions& actions() { return dynamic_cast<ImageTransferPageView&>(page()).actions(); }
    const std::vector<ImageTransferItem>& items() { return actions().state().items; }
    QString pathAt(int index) { return items().at(static_cast<std::size_t>(index)).filePath; }
};

class SoundTransferPageTest : public TransferPageTest
{
protected:
    SoundTransferPageTest() : TransferPageTest(EditorPage::samplingSound) {}

    QString sound(const QString& name, const std::vector<std::int16_t>& samples)
    {
        writeFile(folder.filePath(name), waveFile(samples));
        return folder.filePath(name);
    }

    QString sound(const QString& name, double seconds)
    {
        return sound(name, std::vector<std::int16_t>(static_cast<std::size_t>(seconds * 24'000), 1'000));
    }

    SoundTransferPageActions& actions() { return dynamic_cast<SoundTransferPageView&>(page()).actions(); }
    const std::vector<SoundTransferItem>& items() { return actions().state().items; }
    QString lengthAt(int row) { return rowAt(row).findChildren<QLabel*>().last()->text(); }

    /// The numbers of the sections that were sent.
    std::vector<int> sentSections()
    {
        std::vector<int> numbers;
        for (const auto& message : plugged.sent())
            if (message.size() == 137) numbers.push_back(message[6] * 128 + message[7]);
        return numbers;
    }
};

} // namespace orvim::test
