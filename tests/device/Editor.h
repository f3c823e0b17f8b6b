#pragma once

#include "EditorRuntime.h"
#include "MIDIOutLogStore.h"
#include "MIDIOutManager.h"
#include "Wire.h"
#include "core/protocol/Message.h"

#include <chrono>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace orvim::test {

using Lines = std::vector<std::string>;

/// The editor without its window, on the machine's real MIDI, with a log that keeps everything.
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
    /// What the editor believes it sent: the messages that stand in its log, in their order.
    tonavelle::Batch loggedMessages() const;
    /// What the log's lines of errors say.
    Lines loggedErrors() const;
    /// When the first error was reported after the editor had started; waits up to `longest` for it.
    std::optional<Clock::time_point> firstErrorTime(std::chrono::milliseconds longest) const;

    EditorRuntime runtime;

private:
    void noteError();

    std::optional<Clock::time_point> errorTime;
};

/// Beats every 50 ms while the window is alive and notes the longest time without a beat.
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

/// Waits, with the window alive, until `count` bytes came; gives up when nothing came for 3 s.
void waitForBytes(const Wire& wire, std::size_t count);

inline const std::string moduleFirstPort = "Tonavelle_mini";
inline const std::string moduleSecondPort = "MIDIOUT2 (Tonavelle_mini)";

} // namespace orvim::test
