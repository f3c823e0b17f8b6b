#pragma once

#include "EditorRuntime.h"
#include "MIDIOutLogStore.h"
#include "MIDIOutManager.h"
#include "Wire.h"
#include "core/protocol/Message.h"

#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace orvim::test {

using Lines = std::vector<std::string>;

/// The editor without its window, on the machine's real MIDI. Its log is limited as the user's is; what leaves it is
/// remembered here.
class Editor : public QObject
{
public:
    Editor();

    MIDIOutManager& manager() const { return runtime.midiOutManager(); }
    MIDIOutLogStore& log() const { return runtime.logStore(); }

    Lines destinationNames() const;
    /// The name of the selected row; empty when none is selected.
    std::string selectedName() const;
    void select(const std::string& destination);
    /// Whether `destination` becomes the selected one within 20 s; after a device was pulled out with data on the way
    /// the kernel takes 10 s before it looks at the next one.
    testing::AssertionResult waitUntilSelected(const std::string& destination) const;

    std::string status() const { return manager().statusMessage().toStdString(); }
    /// Sends one by one, as the pages do with a long transfer, until one fails.
    void sendOneByOne(const tonavelle::Batch& messages);
    /// What the editor believes it sent: the messages that ever stood in its log, in their order.
    const tonavelle::Batch& loggedMessages() const { return messagesOfLog; }
    /// What the log's lines of errors said.
    const Lines& loggedErrors() const { return errorsOfLog; }
    /// When the first error was logged; waits up to `longest` for it.
    std::optional<Clock::time_point> firstErrorTime(std::chrono::milliseconds longest) const;

    EditorRuntime runtime;

private:
    void noteNewLines();
    void noteLine(const QString& line);

    std::uint64_t notedLines = 0; ///< since the start, those that left the log included
    tonavelle::Batch messagesOfLog;
    Lines errorsOfLog;
    std::optional<Clock::time_point> errorTime;
};

/// Beats every 50 ms while the window is alive, and notes the longest time without a beat.
class Heartbeat : public QObject
{
public:
    Heartbeat();
    std::chrono::milliseconds longestGap() const;

private:
    Clock::time_point last = Clock::now();
    Clock::duration longest{};
};

/// Waits, with the window alive, until nothing came for 300 ms at a wire on which something must have come by then.
/// For what must not arrive, and where it is not known how much will.
void waitUntilQuiet(const Wire& wire);

/// Waits, with the window alive, until `count` bytes came; gives up when nothing came for 10 s.
void waitForBytes(const Wire& wire, std::size_t count);

/// Waits, with the window alive, until all that was logged has come and nothing more comes; checks that it came whole,
/// as it was logged, without any error. The messages as they came.
tonavelle::Batch arrivedAsLogged(const Wire& wire, const Editor& editor);

inline const std::string moduleFirstPort = "Tonavelle_mini";
inline const std::string moduleSecondPort = "MIDIOUT2 (Tonavelle_mini)";

} // namespace orvim::test
