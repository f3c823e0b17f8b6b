// Scrolling a full list of pictures. Beside it: as many rows drawn by the toolkit's own list.

#include "pages/ImageTransferPageView.h"
#include "pages/TransferListView.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/bench/Scroll.h"

#include <QTemporaryDir>

namespace orvim {
namespace {

constexpr int rowCount = 32;

/// The page in a window, with all the pictures that it takes.
struct Page {
    Page()
    {
        QStringList paths;
        for (int i = 0; i < rowCount; ++i) {
            paths << folder.filePath(QStringLiteral("picture %1.png").arg(i));
            picture(i).save(paths.back());
        }
        view.actions().registerFiles(paths);
        view.resize(1'000, 850);
        view.show();
        QApplication::processEvents();
    }

    static QImage picture(int index)
    {
        QImage image(64, 64, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(4 * x, 4 * y, 8 * index));
        return image;
    }

    TransferListView& list() { return *view.findChild<TransferListView*>(); }

    QTemporaryDir folder;
    test::PluggedRuntime plugged;
    test::RecordingDialogs dialogs;
    ImageTransferPageView view{plugged.runtime, dialogs};
};

/// Goal: every picture under 33 ms.
void scrollPictures(benchmark::State& state)
{
    Page page;
    test::scroll(state, page.list());
}

/// The same with all rows selected.
void scrollSelectedPictures(benchmark::State& state)
{
    Page page;
    page.list().selectAll();
    test::scroll(state, page.list());
}

/// The yardstick: rows as high, of a picture and a text.
void scrollPlainList(benchmark::State& state)
{
    Page page;
    QListWidget list;
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list.setIconSize({64, 64});
    for (int i = 0; i < rowCount; ++i) {
        const QPixmap icon = QPixmap::fromImage(Page::picture(i));
        auto* const item = new QListWidgetItem(icon, page.view.actions().row(i).filePath, &list);
        item->setSizeHint(page.list().item(i)->sizeHint());
    }
    list.resize(page.list().size());
    list.show();
    QApplication::processEvents();
    test::scroll(state, list);
}

BENCHMARK(scrollPlainList)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);
BENCHMARK(scrollPictures)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);
BENCHMARK(scrollSelectedPictures)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);

} // namespace
} // namespace orvim
