// The lyrics page with a song of 20,000 lyrics. Beside it: the file's bytes alone, read and written, and as many rows
// drawn by the toolkit's own table.

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "pages/LyricsPageView.h"
#include "pages/LyricsTableView.h"
#include "platform/WholeFile.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/bench/Scroll.h"

#include <QApplication>
#include <QStringListModel>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace orvim {
namespace {

constexpr int lyricCount = 20'000;

tonavelle::SimpleMIDIFile song()
{
    tonavelle::SimpleMIDIFile file{1, 480, {{}, {}}};
    for (int i = 0; i < lyricCount; ++i)
        file.tracks[1].events.push_back({i * 120, {0xFF, 0x05, 0x04, 0x82, 0xA0, 0x82, 0xA2}});
    return file;
}

/// The page in a window, and the song in a file.
struct Page {
    Page()
    {
        const auto file = song();
        writeWholeFile(path,
                       tonavelle::SimpleMIDIFileBuilder::file(file.format, file.ticksPerQuarterNote, file.tracks));
        dialogs.pathToSave = folder.filePath(QStringLiteral("saved.mid"));
        view.resize(1'000, 850);
        view.show();
        QApplication::processEvents();
    }

    void open()
    {
        view.actions().load(path);
        QApplication::processEvents();
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("song.mid"));
    test::PluggedRuntime plugged;
    test::RecordingDialogs dialogs;
    LyricsPageView view{plugged.runtime, dialogs};
};

/// From the file to the table's first picture. Goal: under 150 ms.
void openSong(benchmark::State& state)
{
    Page page;
    for (auto _ : state)
        page.open();
}

/// From the rows to the file under its name. Goal: under 150 ms.
void saveSong(benchmark::State& state)
{
    Page page;
    page.open();
    for (auto _ : state)
        page.view.actions().save();
}

/// The yardstick: the same bytes from and to the same disk.
void bareFile(benchmark::State& state)
{
    const Page page;
    for (auto _ : state)
        writeWholeFile(*page.dialogs.pathToSave, readWholeFile(page.path));
}

/// Goal: every picture under 33 ms.
void scrollLyrics(benchmark::State& state)
{
    Page page;
    page.open();
    test::scroll(state, *page.view.findChild<LyricsTableView*>());
}

/// The same with all rows selected.
void scrollSelectedLyrics(benchmark::State& state)
{
    Page page;
    page.open();
    auto& table = *page.view.findChild<LyricsTableView*>();
    table.selectAll();
    test::scroll(state, table);
}

/// The same with every second row selected, as an insertion behind each of all leaves them.
void scrollPickedLyrics(benchmark::State& state)
{
    Page page;
    page.open();
    auto& table = *page.view.findChild<LyricsTableView*>();
    table.selectAll();
    page.view.actions().insert();
    QApplication::processEvents();
    test::scroll(state, table);
}

/// The yardstick: one column of the toolkit's own cells.
void scrollPlainTable(benchmark::State& state)
{
    QStringListModel rows(QStringList(lyricCount, QStringLiteral("あい")));
    QTableView table;
    table.setModel(&rows);
    table.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.resize(1'000, 750);
    table.show();
    QApplication::processEvents();
    test::scroll(state, table);
}

/// A new row behind each of all the rows, up to the next picture. Goal: under 150 ms.
void insertBehindAll(benchmark::State& state)
{
    Page page;
    for (auto _ : state) {
        state.PauseTiming();
        page.open();
        page.view.findChild<LyricsTableView*>()->selectAll();
        state.ResumeTiming();
        page.view.actions().insert();
        QApplication::processEvents();
    }
}

BENCHMARK(bareFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(openSong)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(saveSong)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scrollPlainTable)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);
BENCHMARK(scrollLyrics)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);
BENCHMARK(scrollSelectedLyrics)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);
BENCHMARK(scrollPickedLyrics)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(100);
BENCHMARK(insertBehindAll)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace
} // namespace orvim
