#pragma once

#include "core/protocol/Message.h"
#include "platform/MIDISystem.h"

#include <QObject>
#include <QString>

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace orvim {

class MIDIOutLogStore;
class RealtimeQueue;

/// One row of the list of outputs.
struct MIDIOutputDestination {
    MIDIEndpointRef id = 0;
    QString name;

    bool operator==(const MIDIOutputDestination&) const = default;
};

/// The one road from the editor to the module: picks the output, sends, logs what was sent and keeps the status line.
///
/// It never feeds the simulated screen: a page calls that itself beside its send, so that the screen follows what the
/// user meant even when nothing can be sent. Main thread only, apart from the block on the realtime queue.
class MIDIOutManager : public QObject
{
    Q_OBJECT

public:
    /// Opens the client and the output of `system` and lists the destinations at once. A failure stands in the log.
    /// Both arguments must outlive the manager.
    MIDIOutManager(MIDIOutLogStore& logStore, MIDISystem& system);
    ~MIDIOutManager() override;

    const std::vector<MIDIOutputDestination>& destinations() const { return m_destinations; }
    std::optional<MIDIEndpointRef> selectedDestinationID() const { return m_selectedDestinationID; }
    const QString& statusMessage() const { return m_statusMessage; }
    /// Present exactly while the last status is an error; the same text as the status.
    const std::optional<QString>& lastErrorMessage() const { return m_lastErrorMessage; }
    /// 0...1 while a page sends a long transfer, absent otherwise.
    std::optional<double> progressFraction() const { return m_progressFraction; }

    /// Chooses the output. Choosing the present one again gives a destination that failed a new try.
    void setSelectedDestinationID(std::optional<MIDIEndpointRef> id);
    void setProgressFraction(std::optional<double> fraction);

    /// Lists the destinations anew, drops a selection that is gone and chooses one by name when none is left.
    void refreshDestinations();

    /// Sends one message, writes it to the log and sets the status; a failure is reported in both instead. While the
    /// destination has no room it waits, with timers running; what they send has its turn when this is done.
    void send(const tonavelle::Message& message, const QString& label);
    /// The same for a batch under one label; stops at the first message that fails. An empty batch does nothing.
    void send(const tonavelle::Batch& messages, const QString& label);
    /// Whether a send was given up because the application quits. From then on `send` does nothing: what found room
    /// again would reach the module without what was to go before it.
    bool isQuitting() const { return m_isQuitting; }
    /// Sends wait for the selected destination, and what `sendRealtime` is given will go ahead of them.
    bool hasWaitingSends() const;
    /// Sends play gestures in their order, ahead of what waits, without a trace unless it fails. Never waits.
    void sendRealtime(const tonavelle::Batch& messages);
    /// As `sendRealtime`, at once on the calling thread.
    void sendRealtimeNow(const tonavelle::Batch& messages);
    /// Sends the choice of the main screen; a value above 127 is reported and not sent.
    void sendUIType(unsigned value);

    /// Sets the status line, as an error or in the normal look.
    void setStatus(const QString& message, bool isError);
    /// Writes one line to the log and takes the status line out of its error look.
    void logNote(const QString& text);

Q_SIGNALS:
    void destinationsChanged();
    void selectedDestinationChanged();
    void statusChanged();
    void progressChanged();

private:
    struct Route {
        MIDIPortRef port;
        MIDIEndpointRef endpoint;
    };

    struct NormalSend {
        tonavelle::Batch messages;
        QString label;
    };

    void createClientAndPort();
    std::vector<MIDIOutputDestination> listedDestinations() const;
    void chooseDestination();
    std::optional<Route> routeOrReport();
    void sendInTurn(NormalSend send);
    void sendAndReport(const NormalSend& send);
    void appendSendEntry(const NormalSend& send);
    void reportSendFailure(const QString& label, MIDIStatus status);
    void reportRealtimeFailure(MIDIStatus status);
    void reportDeliveryFailure(MIDIEndpointRef endpoint, MIDILane lane, MIDIStatus status);
    void reportError(const QString& text);
    template <typename T>
    void assign(T& field, T value, void (MIDIOutManager::*changed)());

    MIDIOutLogStore& m_logStore;
    MIDISystem& m_system;
    std::vector<MIDIOutputDestination> m_destinations;
    std::optional<MIDIEndpointRef> m_selectedDestinationID;
    QString m_statusMessage;
    std::optional<QString> m_lastErrorMessage;
    std::optional<double> m_progressFraction;
    MIDIClientRef m_client = 0;
    MIDIPortRef m_outputPort = 0;
    bool m_isQuitting = false;
    std::deque<NormalSend> m_pendingSends; ///< the one being sent, and those made while it waits for room
    /// Of the last normal send to each destination, for a failure that comes after it was answered.
    std::map<MIDIEndpointRef, QString> m_lastLabels;
    std::unique_ptr<RealtimeQueue> m_realtimeQueue;
};

} // namespace orvim
