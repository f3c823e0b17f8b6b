#include "Editor.h"

#include "Messages.h"
#include "platform/ALSAMIDISystem.h"

#include <QTest>
#include <QTimer>

#include <algorithm>

namespace orvim::test {

using namespace std::chrono_literals;

namespace {

const QString errorMark = QStringLiteral(" エラー: ");
const QString messageMark = QStringLiteral("   ");

} // namespace

Editor::Editor() : runtime(std::make_unique<ALSAMIDISystem>())
{
    log().setByteFormat(LogByteFormat::none);
    connect(&log(), &MIDIOutLogStore::textChanged, this, &Editor::noteNewLines);
    noteNewLines();
}

void Editor::noteNewLines()
{
    const auto firstNew = static_cast<std::size_t>(notedLines - log().removedLineCount());
    for (const QString& line : log().textFromLine(firstNew).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        noteLine(line);
    notedLines = log().removedLineCount() + log().lineCount();
}

void Editor::noteLine(const QString& line)
{
    if (line.startsWith(errorMark)) {
        errorsOfLog.push_back(line.mid(errorMark.size()).toStdString());
        if (!errorTime) errorTime = Clock::now();
    } else if (line.startsWith(messageMark)) {
        const QByteArray bytes = QByteArray::fromHex(line.toLatin1());
        messagesOfLog.emplace_back(bytes.begin(), bytes.end());
    }
}

Lines Editor::destinationNames() const
{
    Lines names;
    for (const auto& row : manager().destinations())
        names.push_back(row.name.toStdString());
    return names;
}

std::string Editor::selectedName() const
{
    const auto row = std::ranges::find(manager().destinations(), manager().selectedDestinationID(),
                                       [](const auto& candidate) { return std::optional(candidate.id); });
    return row == manager().destinations().end() ? std::string() : row->name.toStdString();
}

void Editor::select(const std::string& destination)
{
    for (const auto& row : manager().destinations())
        if (row.name.toStdString() == destination) return manager().setSelectedDestinationID(row.id);
}

testing::AssertionResult Editor::waitUntilSelected(const std::string& destination) const
{
    if (QTest::qWaitFor([&] { return selectedName() == destination; }, 20'000)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << '"' << selectedName() << "\" is selected of "
                                       << testing::PrintToString(destinationNames());
}

void Editor::sendOneByOne(const tonavelle::Batch& messages)
{
    for (const auto& message : messages) {
        manager().send(message, QStringLiteral("Test"));
        if (manager().lastErrorMessage()) return;
    }
}

std::optional<Clock::time_point> Editor::firstErrorTime(std::chrono::milliseconds longest) const
{
    [[maybe_unused]] const bool came =
        QTest::qWaitFor([this] { return errorTime.has_value(); }, static_cast<int>(longest.count()));
    return errorTime;
}

Heartbeat::Heartbeat()
{
    auto* const timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer);
    connect(timer, &QTimer::timeout, this, [this] {
        const auto now = Clock::now();
        longest = std::max(longest, now - last);
        last = now;
    });
    timer->start(50ms);
}

std::chrono::milliseconds Heartbeat::longestGap() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::max(longest, Clock::now() - last));
}

void waitUntilQuiet(const Wire& wire)
{
    const auto begin = Clock::now();
    while (Clock::now() - std::max(begin, wire.lastArrival()) < 300ms)
        QTest::qWait(20);
}

void waitForBytes(const Wire& wire, std::size_t count)
{
    const auto begin = Clock::now();
    while (wire.size() < count && Clock::now() - std::max(begin, wire.lastArrival()) < 10s)
        QTest::qWait(10);
}

tonavelle::Batch arrivedAsLogged(const Wire& wire, const Editor& editor)
{
    const auto sent = joined(editor.loggedMessages());
    waitForBytes(wire, sent.size());
    waitUntilQuiet(wire);
    const auto arrived = wire.bytes();
    EXPECT_EQ(editor.loggedErrors(), Lines());
    EXPECT_TRUE(sameBytes(arrived, sent));
    return takenApart(arrived).messages;
}

} // namespace orvim::test
