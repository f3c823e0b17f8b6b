#include "tests/app/support/TransferPageTest.h"

#include <QDir>
#include <QMenu>

namespace orvim {
namespace {

using test::dropOnMiddle;

class ImageTransferPageViewTest : public test::ImageTransferPageTest
{
protected:
    QStringList photos(int count);
};

/// The widget alone, without what lies under it.
QImage drawn(QWidget& widget, int pixelRatio = 1)
{
    QImage image(widget.size() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

/// A large picture of many colours under as many names, which are not in the order of the alphabet.
QStringList ImageTransferPageViewTest::photos(int count)
{
    QImage colors(40, 30, QImage::Format_RGB32);
    for (int y = 0; y < colors.height(); ++y)
        for (int x = 0; x < colors.width(); ++x)
            colors.setPixelColor(x, y, QColor::fromHsv((x * 53 + y * 91) % 360, 255, 255 - 4 * y));
    QStringList paths{folder.filePath(QStringLiteral("%1.jpg").arg(count))};
    EXPECT_TRUE(colors.scaled(4'000, 3'000, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).save(paths[0]));
    for (int i = count - 1; i > 0; --i) {
        paths << folder.filePath(QStringLiteral("%1.jpg").arg(i));
        EXPECT_TRUE(QFile::copy(paths[0], paths.back()));
    }
    return paths;
}

TEST_F(ImageTransferPageViewTest, OpensEmptyWithTheHintInTheMiddleOfTheList)
{
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：00/32"));
    EXPECT_TRUE(dropHint().isVisible());
    EXPECT_EQ(dropHint().text(), QStringLiteral("ここに画像ファイルをドラッグして下さい\nbmp, jpg, pngに対応"));
    addPictures(1);
    EXPECT_FALSE(dropHint().isVisible());
}

TEST_F(ImageTransferPageViewTest, SevenRowsAreCounted)
{
    addPictures(7);
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：07/32"));
    EXPECT_EQ(list().count(), 7);
    EXPECT_EQ(status(), QStringLiteral("画像ファイルを登録しました。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().progressFraction());
}

TEST_F(ImageTransferPageViewTest, A33rdPictureIsSkippedWithoutAWord)
{
    addPictures(33);
    EXPECT_EQ(items().size(), 32u);
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：32/32"));
    EXPECT_EQ(plugged.log(), QStringLiteral(" 画像ファイルを登録しました。\n"));
}

TEST_F(ImageTransferPageViewTest, ADroppedTextFileIsReported)
{
    drop({textFile(QStringLiteral("a.txt"))});
    EXPECT_EQ(status(), QStringLiteral("対応する画像ファイルが見つかりません。"));
    EXPECT_TRUE(items().empty());
}

TEST_F(ImageTransferPageViewTest, OfADroppedTextFileAndAPngThePngIsRegistered)
{
    drop({textFile(QStringLiteral("a.txt")), picture(QStringLiteral("b.png"))});
    ASSERT_EQ(items().size(), 1u);
    EXPECT_TRUE(pathAt(0).endsWith(QStringLiteral("/b.png")));
    EXPECT_EQ(status(), QStringLiteral("画像ファイルを登録しました。"));
}

TEST_F(ImageTransferPageViewTest, AFileNamedAPngInCapitalsPasses)
{
    drop({picture(QStringLiteral("A.PNG")), picture(QStringLiteral("b.Jpeg")), picture(QStringLiteral("c.BMP"))});
    EXPECT_EQ(items().size(), 3u);
}

TEST_F(ImageTransferPageViewTest, FilesKeepTheOrderOfTheDropAndFilledListsTakeDropsToo)
{
    addPictures(1);
    drop({picture(QStringLiteral("z.png")), picture(QStringLiteral("a.jpg")), picture(QStringLiteral("m.bmp"))});
    ASSERT_TRUE(QTest::qWaitFor([&] { return items().size() == 4; }));
    EXPECT_TRUE(pathAt(1).endsWith(QStringLiteral("/z.png")));
    EXPECT_TRUE(pathAt(2).endsWith(QStringLiteral("/a.jpg")));
    EXPECT_TRUE(pathAt(3).endsWith(QStringLiteral("/m.bmp")));
    EXPECT_EQ(items()[3].screenNumber, 3);
}

TEST_F(ImageTransferPageViewTest, ATextThatIsNoAddressIsNotTaken)
{
    QMimeData text;
    text.setText(QStringLiteral("a.png"));
    EXPECT_FALSE(dropOnMiddle(page(), text));
}

TEST_F(ImageTransferPageViewTest, RemoteAddressesAndFoldersCannotBeReadAndTheRestIsRegistered)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder.png")));
    const QString place = folder.filePath(QStringLiteral("folder.png"));
    const QList<QUrl> urls{QUrl(QStringLiteral("https://example.org/a.png")), QUrl::fromLocalFile(place),
                           QUrl::fromLocalFile(place + QLatin1Char('/')),
                           QUrl::fromLocalFile(picture(QStringLiteral("b.png")))};
    EXPECT_TRUE(dropOnMiddle(page(), urls));
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == QStringLiteral("画像ファイルを登録しました。"); }));
    EXPECT_EQ(items().size(), 1u);
    EXPECT_EQ(plugged.log().count(QStringLiteral("画像ファイルを読み込めません。")), 3);
}

TEST_F(ImageTransferPageViewTest, ANameThatOnlyBeginsWithADotHasNoExtension)
{
    const QString hidden = picture(QStringLiteral("a.png"));
    ASSERT_TRUE(QFile::rename(hidden, folder.filePath(QStringLiteral(".png"))));
    drop({folder.filePath(QStringLiteral(".png"))});
    EXPECT_EQ(status(), QStringLiteral("対応する画像ファイルが見つかりません。"));
}

TEST_F(ImageTransferPageViewTest, ABrokenPictureIsReportedInTheNormalLookBeforeTheLastReport)
{
    addPictures(1);
    actions().registerFiles({textFile(QStringLiteral("broken.png"))});
    EXPECT_EQ(items().size(), 1u);
    EXPECT_EQ(plugged.log(), QStringLiteral(" 画像ファイルを登録しました。\n"
                                            " 画像ファイルを読み込めません。\n"
                                            " 画像ファイルを登録しました。\n"));
    EXPECT_EQ(status(), QStringLiteral("画像ファイルを登録しました。"));
    EXPECT_FALSE(plugged.runtime.midiOutManager().lastErrorMessage());
}

TEST_F(ImageTransferPageViewTest, WhileManyDroppedPhotosAreLoadedTheWindowLivesAndProgressRuns)
{
    const QStringList paths = photos(32);
    std::vector<int> turns; // of the window, up to each value of the progress
    int turnsSoFar = 0;
    const auto& manager = plugged.runtime.midiOutManager();
    QObject context;
    QObject::connect(&manager, &MIDIOutManager::progressChanged, &context, [&] {
        turns.push_back(turnsSoFar);
        QMetaObject::invokeMethod(
            &context, [&] { ++turnsSoFar; }, Qt::QueuedConnection);
    });
    test::Progress expectedProgress;
    std::vector<int> expectedTurns; // With each file loaded the window has had the turn that it asked for before it.
    for (int i = 0; i < 32; ++i) {
        expectedProgress.push_back(i / 32.0);
        expectedTurns.push_back(i);
    }
    expectedProgress.push_back(std::nullopt);
    expectedTurns.push_back(32);

    EXPECT_EQ(progressDuring([&] { drop(paths); }), expectedProgress);
    EXPECT_EQ(turns, expectedTurns);
    ASSERT_EQ(items().size(), 32u);
    for (int i = 0; i < 32; ++i)
        EXPECT_EQ(pathAt(i), paths[i]);
}

TEST_F(ImageTransferPageViewTest, ThePanelsFilesAreRegisteredAndACancelledOneSaysNothing)
{
    const QString before = plugged.log();
    menuItem(QStringLiteral("画像を開く")).trigger();
    EXPECT_EQ(plugged.log(), before);
    dialogs.pathsToOpen = QStringList{picture(QStringLiteral("a.png"))};
    menuItem(QStringLiteral("画像を開く")).trigger();
    EXPECT_EQ(items().size(), 1u);
}

TEST_F(ImageTransferPageViewTest, DeletingRow3Of5LeavesRows0To3)
{
    addPictures(5);
    const QUuid formerRow4 = items()[4].id;
    actions().deleteOne(items()[3].id);
    ASSERT_EQ(items().size(), 4u);
    EXPECT_EQ(items()[3].id, formerRow4);
    EXPECT_EQ(items()[3].screenNumber, 3);
    EXPECT_EQ(rowAt(3).findChild<QLabel*>()->text(), QStringLiteral("03"));
    EXPECT_EQ(status(), QStringLiteral("画像を削除しました。"));
}

TEST_F(ImageTransferPageViewTest, TheBackspaceKeyRemovesTheSelectedRowToo)
{
    addPictures(2);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middleOfRow(1));
    QTest::keyClick(&list(), Qt::Key_Backspace);
    EXPECT_EQ(items().size(), 1u);
}

TEST_F(ImageTransferPageViewTest, TheDeleteKeyRemovesAllSelectedRows)
{
    addPictures(4);
    const QUuid last = items()[3].id;
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middleOfRow(0));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ShiftModifier, middleOfRow(2));
    EXPECT_EQ(actions().selectedItemIDs().size(), 3);
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0].id, last);
    EXPECT_EQ(items()[0].screenNumber, 0);
    EXPECT_TRUE(actions().selectedItemIDs().isEmpty());
}

TEST_F(ImageTransferPageViewTest, WithoutASelectionTheDeleteKeyDoesNothing)
{
    addPictures(1);
    const QString before = plugged.log();
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(items().size(), 1u);
    EXPECT_EQ(plugged.log(), before);
}

TEST_F(ImageTransferPageViewTest, TheContextMenuDeletesTheRowUnderThePointerAndKeepsTheOtherSelection)
{
    addPictures(3);
    const QUuid kept = items()[0].id;
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middleOfRow(0));
    QContextMenuEvent event(QContextMenuEvent::Mouse, middleOfRow(1), list().viewport()->mapToGlobal(middleOfRow(1)));
    QApplication::sendEvent(list().viewport(), &event);
    auto* const menu = list().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("削除"));
    menu->actions()[0]->trigger();
    menu->close();
    EXPECT_EQ(items().size(), 2u);
    EXPECT_EQ(actions().selectedItemIDs(), QSet<QUuid>{kept});
    EXPECT_TRUE(list().item(0)->isSelected());
}

TEST_F(ImageTransferPageViewTest, TheContextMenuByKeyStandsForTheRowWithTheFocus)
{
    addPictures(3);
    const auto menuByKey = [this](QWidget& focused) {
        focused.setFocus();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(&focused, &event);
        return list().findChild<QMenu*>();
    };
    list().setCurrentRow(0);
    auto* menu = menuByKey(buttonAt(2));
    ASSERT_NE(menu, nullptr);
    const QUuid last = items()[2].id;
    menu->actions().at(0)->trigger();
    delete menu;
    ASSERT_EQ(items().size(), 2u);
    EXPECT_NE(items()[1].id, last);

    const QUuid current = items()[0].id;
    list().setCurrentRow(0);
    menu = menuByKey(list());
    ASSERT_NE(menu, nullptr);
    menu->actions().at(0)->trigger();
    delete menu;
    ASSERT_EQ(items().size(), 1u);
    EXPECT_NE(items()[0].id, current);
}

TEST_F(ImageTransferPageViewTest, TheListIsMarkedWhileFilesAreDraggedOverIt)
{
    const QColor mark = list().palette().color(QPalette::Highlight);
    const auto edge = [this] { return list().viewport()->grab().toImage().pixelColor(0, 20); };
    const QColor plain = edge();
    ASSERT_NE(plain, mark);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(picture(QStringLiteral("a.png")))});
    test::Drag drag(page(), files);
    EXPECT_TRUE(drag.enter());
    EXPECT_TRUE(drag.move());
    EXPECT_EQ(edge(), mark);
    drag.leave();
    EXPECT_EQ(edge(), plain);
    EXPECT_TRUE(drag.enter());
    EXPECT_TRUE(drag.move());
    EXPECT_TRUE(drag.drop());
    EXPECT_EQ(edge(), plain);
    EXPECT_TRUE(QTest::qWaitFor([&] { return items().size() == 1; }));
}

TEST_F(ImageTransferPageViewTest, ARowShowsItsNumberItsPathItsPictureAndItsButton)
{
    addPictures(2);
    EXPECT_EQ(rowAt(1).findChild<QLabel*>()->text(), QStringLiteral("01"));
    EXPECT_EQ(rowAt(1).findChild<ElidedLabel*>()->text(), folder.filePath(QStringLiteral("1.png")));
    EXPECT_EQ(buttonAt(1).text(), QStringLiteral("実機で表示"));
    EXPECT_EQ(actions().row(1).preview.pixelColor(63, 63), QColor(8, 0, 0));
}

TEST_F(ImageTransferPageViewTest, TheRowsPictureIsDrawnInWholePixelsOnAFineScreen)
{
    QImage stripes(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            stripes.setPixelColor(x, y, (x + y) % 2 ? QColor(0xFF, 0x80, 0x40) : QColor(0, 0x20, 0xE0));
    ASSERT_TRUE(stripes.save(folder.filePath(QStringLiteral("a.png"))));
    actions().registerFiles({folder.filePath(QStringLiteral("a.png"))});
    const QImage shown = drawn(*rowAt(0).findChild<QWidget*>(QStringLiteral("preview")), 2);
    ASSERT_EQ(shown.size(), QSize(128, 128));
    for (int y = 0; y < 128; ++y)
        for (int x = 0; x < 128; ++x)
            ASSERT_EQ(shown.pixelColor(x, y), stripes.pixelColor(x / 2, y / 2)) << x << ", " << y;
}

TEST_F(ImageTransferPageViewTest, OfALongPathTheFileNameStaysInSight)
{
    const QString deep = QStringLiteral("a-folder-with-a-rather-long-name/").repeated(5);
    ASSERT_TRUE(QDir(folder.path()).mkpath(deep));
    actions().registerFiles({picture(deep + QStringLiteral("name.png"))});
    QCoreApplication::processEvents(); // gives the row its width
    auto& path = *rowAt(0).findChild<ElidedLabel*>();
    EXPECT_EQ(path.toolTip(), path.text());
    ElidedLabel expected;
    expected.resize(path.size());
    expected.setText(path.fontMetrics().elidedText(path.text(), Qt::ElideMiddle, path.width()));
    EXPECT_TRUE(expected.text().endsWith(QStringLiteral("name.png")));
    EXPECT_EQ(drawn(path), drawn(expected));
}

TEST_F(ImageTransferPageViewTest, ClearOnAnEmptyListAsksNothing)
{
    menuItem(QStringLiteral("クリア")).trigger();
    EXPECT_TRUE(dialogs.questions.isEmpty());
    EXPECT_EQ(status(), QStringLiteral("画像リストをクリアしました。"));
}

TEST_F(ImageTransferPageViewTest, ClearAsksAndKeepsTheListAtNo)
{
    addPictures(2);
    actions().clear();
    EXPECT_EQ(dialogs.questions, QStringList{QStringLiteral("現在の画像リストを破棄して初期化しますか？")});
    EXPECT_EQ(items().size(), 2u);
    EXPECT_EQ(status(), QStringLiteral("画像リストのクリアをキャンセルしました。"));
    dialogs.answer = true;
    actions().clear();
    EXPECT_TRUE(items().empty());
    EXPECT_EQ(list().count(), 0);
    EXPECT_EQ(counter(), QStringLiteral("登録画像数：00/32"));
}

TEST_F(ImageTransferPageViewTest, ClearDoesNotTouchTheSelection)
{
    addPictures(2);
    list().item(1)->setSelected(true);
    const auto selected = actions().selectedItemIDs();
    EXPECT_EQ(selected, QSet<QUuid>{items()[1].id});
    dialogs.answer = true;
    actions().clear();
    EXPECT_TRUE(items().empty());
    EXPECT_EQ(actions().selectedItemIDs(), selected);
}

TEST_F(ImageTransferPageViewTest, NoFilesToRegisterAreNotReported)
{
    addPictures(1);
    const QString before = plugged.log();
    actions().registerFiles({});
    EXPECT_EQ(plugged.log(), before);
    EXPECT_EQ(items().size(), 1u);
}

TEST_F(ImageTransferPageViewTest, ShortcutsActOnlyWhileThePageIsInView)
{
    addPictures(1);
    dialogs.answer = true;
    plugged.runtime.setSelectedPage(EditorPage::command);
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(items().size(), 1u);
    plugged.runtime.setSelectedPage(EditorPage::imageTransfer);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.proposedNames, QStringList{QStringLiteral("image_output.mid")});
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(items().empty());
    dialogs.pathsToOpen = QStringList{picture(QStringLiteral("a.png"))};
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(items().size(), 1u);
}

TEST_F(ImageTransferPageViewTest, TheToolbarClearsAddsAndExports)
{
    dialogs.pathsToOpen = QStringList{picture(QStringLiteral("a.png"))};
    EXPECT_EQ(toolbarButton("photo.badge.plus").text(), QStringLiteral("画像追加"));
    press("photo.badge.plus");
    EXPECT_EQ(items().size(), 1u);
    EXPECT_EQ(toolbarButton("square.and.arrow.down").text(), QStringLiteral("書き出し"));
    press("square.and.arrow.down");
    EXPECT_EQ(status(), QStringLiteral("画像MIDI保存をキャンセルしました。"));
    EXPECT_EQ(toolbarButton("doc").text(), QStringLiteral("クリア"));
    press("doc");
    EXPECT_EQ(status(), QStringLiteral("画像リストのクリアをキャンセルしました。"));
}

} // namespace
} // namespace orvim
