// The image page's "実機で表示": the picture comes to the module whole, pixel by pixel.

#include "DisplaySimulatorState.h"
#include "Editor.h"
#include "Messages.h"
#include "PortionsByTurns.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "pages/ImageTransferPageActions.h"
#include "tests/app/support/Progress.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/support/Bytes.h"
#include "usbmodule/USBModule.h"

#include <QTemporaryDir>

namespace orvim::test {

namespace {

/// A picture of many colours, another one for each `index`.
QImage picture(int index)
{
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, qRgb((x * 4 + index * 50) % 256, (y * 4 + index * 90) % 256, (x * y + index) % 256));
    return image;
}

/// An editor at the module's second port, and its page with `count` pictures.
struct PictureList {
    explicit PictureList(int count)
    {
        EXPECT_TRUE(editor.waitUntilSelected(moduleSecondPort));
        QStringList paths;
        for (int i = 0; i < count; ++i) {
            paths << folder.filePath(QStringLiteral("%1.png").arg(i));
            EXPECT_TRUE(picture(i).save(paths.back()));
        }
        actions.registerFiles(paths);
        EXPECT_EQ(actions.itemCount(), count);
    }

    Editor editor;
    QTemporaryDir folder;
    RecordingDialogs dialogs;
    ImageTransferPageActions actions{editor.manager(), editor.runtime.displaySimulator(), dialogs};
};

/// The pixels as the module keeps them: the top 4 bits of red and the top 5 of green and blue, repeated to fill a byte.
std::vector<std::uint8_t> asKeptByTheModule(const QImage& image)
{
    const auto widened = [](int fiveBits) { return static_cast<std::uint8_t>(fiveBits * 8 + fiveBits / 4); };
    std::vector<std::uint8_t> pixels;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = image.pixel(x, y);
            pixels.push_back(static_cast<std::uint8_t>(qRed(color) / 16 * 17));
            pixels.push_back(widened(qGreen(color) / 8));
            pixels.push_back(widened(qBlue(color) / 8));
        }
    return pixels;
}

/// The pictures of the module's screens, as far as there are messages for them.
std::vector<std::vector<std::uint8_t>> shownPictures(const tonavelle::Batch& arrived)
{
    return tonavelle::TransferMIDIFileBuilder::restoreImages(tonavelle::parseMIDIEvents(recordedFile(arrived)));
}

} // namespace

TEST(ImageTransfer, ThePictureOfARowComesWholeToItsScreen)
{
    const USBModule module({});
    PictureList list(3);
    ASSERT_FALSE(HasFailure());
    Editor& editor = list.editor;
    ImageTransferPageActions& actions = list.actions;

    actions.runOnModule(actions.row(2).id);
    const auto arrived = arrivedAsLogged(module.port(1), editor);
    ASSERT_EQ(arrived.size(), 66U);
    EXPECT_EQ(arrived.front(), bytes("F0 00 48 05 7F 03 04 F7"));
    EXPECT_EQ(arrived.back(), bytes("F0 00 48 05 7F 26 02 F7"));
    const auto images = shownPictures(arrived);
    ASSERT_EQ(images.size(), 3U);
    EXPECT_EQ(images[2], asKeptByTheModule(picture(2)));
    EXPECT_EQ(editor.runtime.displaySimulator().fields().arbitraryImageRGB, actions.state().items[2].rgb888);
}

TEST(ImageTransfer, AFullListComesWholeWhileTheWindowLives)
{
    USBModule module({.takesPortions = true});
    PictureList list(32);
    ASSERT_FALSE(HasFailure());
    Editor& editor = list.editor;
    ImageTransferPageActions& actions = list.actions;

    const PortionsByTurns portions(module);
    for (int row = 0; row < 32; ++row)
        EXPECT_EQ(progressDuring(editor.manager(), [&] { actions.runOnModule(actions.row(row).id); }), progressOf(64));
    const std::size_t portionsWhileSending = portions.count();
    const auto arrived = arrivedAsLogged(module.port(1), editor);
    ASSERT_EQ(arrived.size(), 32U * 66);
    EXPECT_GE(portionsWhileSending, PortionsByTurns::leastFor(joined(arrived).size()));
    const auto images = shownPictures(arrived);
    ASSERT_EQ(images.size(), 32U);
    for (int i = 0; i < 32; ++i)
        EXPECT_EQ(images[static_cast<std::size_t>(i)], asKeptByTheModule(picture(i))) << i;
}

} // namespace orvim::test
