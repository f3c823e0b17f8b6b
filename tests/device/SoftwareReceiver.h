#pragma once

#include "core/protocol/Message.h"

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <optional>

namespace orvim::test {

/// How another program takes what is sent to it.
struct SoftwareReceiverPlan {
    QString name = QStringLiteral("Receiver");
    std::chrono::microseconds pauseAfterEvent = {}; ///< how long it is busy with each event
    int poolCells = 0;                              ///< how much it can hold, in cells of 28 bytes; 0: the usual 200
    int hangsAfterEvents = 0;                       ///< 0: never
    std::chrono::milliseconds hangsFor = {};
};

/// Another program with one MIDI input, in a process of its own: this program started anew.
class SoftwareReceiver
{
public:
    /// Returns when its port is there. Throws std::runtime_error when it does not come up.
    explicit SoftwareReceiver(const SoftwareReceiverPlan& plan);
    ~SoftwareReceiver();
    SoftwareReceiver(const SoftwareReceiver&) = delete;
    SoftwareReceiver& operator=(const SoftwareReceiver&) = delete;

    /// Ends it as a crash would.
    void kill();
    /// The bytes of the events that it has taken so far.
    tonavelle::Message received() const;
    std::size_t receivedBytes() const;

private:
    QString recordPath() const;

    QTemporaryDir folder;
    QProcess process;
};

/// What the process of a SoftwareReceiver does; `arguments` are the program's own. Nothing for an ordinary start of it.
std::optional<int> runAsSoftwareReceiver(int count, char* arguments[]);

} // namespace orvim::test
