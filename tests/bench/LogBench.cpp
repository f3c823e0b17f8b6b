// The log's store beside the literal trim that walks and recounts the whole text, and the view's burst of 1,000 lines
// beside a text view that takes them one by one with a block limit.

#include "LogTextView.h"
#include "MIDIOutLogStore.h"

#include <QCoreApplication>
#include <QPlainTextEdit>

#include <benchmark/benchmark.h>

namespace orvim {
namespace {

constexpr qsizetype limit = 300;

QString line()
{
    return QString(550, QLatin1Char('F')) + QLatin1Char('\n');
}

/// The trim as one would first write it: the text in one piece, walked and recounted on each append.
class LiteralLog
{
public:
    void append(const QString& text)
    {
        m_text += text;
        m_lineCount += text.count(QLatin1Char('\n'));
        if (m_lineCount <= limit) return;
        qsizetype cut = 0;
        for (qsizetype seen = 0; m_lineCount - seen > limit; ++seen)
            cut = m_text.indexOf(QLatin1Char('\n'), cut) + 1;
        m_text.remove(0, cut);
        m_lineCount = m_text.count(QLatin1Char('\n'));
    }

private:
    QString m_text;
    qsizetype m_lineCount = 0;
};

template <typename Log>
void appendToFullLog(benchmark::State& state)
{
    Log log;
    const QString text = line();
    for (qsizetype i = 0; i < limit; ++i)
        log.append(text);
    for (auto _ : state)
        log.append(text);
}
BENCHMARK(appendToFullLog<LiteralLog>)->Unit(benchmark::kMicrosecond);
BENCHMARK(appendToFullLog<MIDIOutLogStore>)->Unit(benchmark::kMicrosecond);

void burstLineByLine(benchmark::State& state)
{
    QPlainTextEdit view;
    view.setReadOnly(true);
    view.setLineWrapMode(QPlainTextEdit::NoWrap);
    view.setMaximumBlockCount(limit);
    view.resize(380, 500);
    view.show();
    QCoreApplication::processEvents();
    const QString text = line().chopped(1);
    for (auto _ : state) {
        for (int i = 0; i < 1000; ++i)
            view.appendPlainText(text);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(burstLineByLine)->Iterations(20)->Unit(benchmark::kMillisecond);

void burstIntoLogTextView(benchmark::State& state)
{
    MIDIOutLogStore store;
    LogTextView view(store);
    view.resize(380, 500);
    view.show();
    QCoreApplication::processEvents();
    const QString text = line();
    for (auto _ : state) {
        for (int i = 0; i < 1000; ++i)
            store.append(text);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(burstIntoLogTextView)->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace orvim
