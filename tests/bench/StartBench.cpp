// From the start of the process to the first painted frame, and the memory then: the editor's main window beside an
// empty one, each in processes of its own; and the change of a page. Prints medians.

#include "ApplicationStyle.h"
#include "EditorPageHost.h"
#include "EditorRuntime.h"
#include "MainWindow.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QProcess>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <unistd.h>
#include <vector>

namespace {

constexpr int runCount = 15;

double secondsSinceProcessStart()
{
    QFile stat(QStringLiteral("/proc/self/stat"));
    if (!stat.open(QIODevice::ReadOnly)) return 0;
    const QByteArray text = stat.readAll();
    const auto fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    const double start = fields.at(19).toDouble() / static_cast<double>(sysconf(_SC_CLK_TCK));
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9 - start;
}

double residentMegabytes()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    return status.readAll().split(' ').at(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

/// Shows the window and ends the program with its figures once the first frame is painted.
int showOnce(QMainWindow& window)
{
    window.show();
    while (!window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    window.repaint();
    std::printf("%f %f\n", secondsSinceProcessStart() * 1e3, residentMegabytes());
    std::fflush(stdout);
    std::_Exit(0);
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

struct Figures {
    double milliseconds;
    double megabytes;
};

Figures measure(const QString& mode)
{
    std::vector<double> times;
    std::vector<double> sizes;
    for (int i = 0; i < runCount; ++i) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {mode});
        child.waitForFinished();
        const auto words = child.readAllStandardOutput().trimmed().split(' ');
        if (words.size() != 2) continue;
        times.push_back(words[0].toDouble());
        sizes.push_back(words[1].toDouble());
    }
    return {median(times), median(sizes)};
}

double pageChangeMilliseconds()
{
    orvim::test::PluggedRuntime plugged;
    orvim::test::RecordingDialogs dialogs;
    orvim::MainWindow window(plugged.runtime, dialogs);
    window.show();
    while (!window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::vector<double> times;
    for (int i = 0; i < runCount * 7; ++i) {
        QElapsedTimer timer;
        timer.start();
        plugged.runtime.setSelectedPage(orvim::allEditorPages[static_cast<std::size_t>(i + 1) % 7]);
        QCoreApplication::processEvents();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-6);
    }
    return median(times);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QString mode = QCoreApplication::arguments().value(1);
    if (mode == QLatin1String("empty")) {
        QMainWindow window;
        window.resize(1270, 980);
        return showOnce(window);
    }
    orvim::applyApplicationStyle(application);
    if (mode == QLatin1String("editor")) {
        orvim::test::PluggedRuntime plugged;
        orvim::test::RecordingDialogs dialogs;
        orvim::MainWindow window(plugged.runtime, dialogs);
        return showOnce(window);
    }
    const Figures empty = measure(QStringLiteral("empty"));
    const Figures editor = measure(QStringLiteral("editor"));
    std::printf("start to first frame: editor %.1f ms, empty window %.1f ms, ratio %.2f\n", editor.milliseconds,
                empty.milliseconds, editor.milliseconds / empty.milliseconds);
    std::printf("resident memory: editor %.1f MB, empty window %.1f MB, ratio %.2f\n", editor.megabytes,
                empty.megabytes, editor.megabytes / empty.megabytes);
    std::printf("page change: %.2f ms\n", pageChangeMilliseconds());
}
