#include "MIDIOutManager.h"

#include "MIDIOutLogStore.h"
#include "core/protocol/SysExBuilder.h"
#include "platform/RealtimeQueue.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <array>
#include <span>

namespace orvim {

using tonavelle::Batch;
using tonavelle::Message;

namespace {

/// A packet list of 1,024 bytes less its own headers. A longer message counts as sent and reaches nothing; the
/// builders keep every message of the editor under this size.
constexpr std::size_t largestMessageSize = 1010;
constexpr std::uint8_t systemExclusive = 0xF0;
constexpr unsigned largestUIType = 127;

constexpr QLatin1String exactModuleName("MIDIOUT2 (Tonavelle_mini)");
constexpr QLatin1String moduleName("Tonavelle_mini");

MIDIStatus sendPacket(MIDISystem& system, MIDIPortRef port, MIDIEndpointRef endpoint, const Message& message,
                      MIDILane lane)
{
    if (message.size() > largestMessageSize) return 0;
    return system.send(port, endpoint, message, lane);
}

/// Stops at the first message that fails and returns its code.
MIDIStatus sendPackets(MIDISystem& system, MIDIPortRef port, MIDIEndpointRef endpoint,
                       std::span<const Message> messages, MIDILane lane)
{
    for (const Message& message : messages) {
        if (const MIDIStatus status = sendPacket(system, port, endpoint, message, lane)) return status;
    }
    return 0;
}

bool isAllSystemExclusive(std::span<const Message> messages)
{
    return std::ranges::all_of(
        messages, [](const Message& message) { return !message.empty() && message.front() == systemExclusive; });
}

} // namespace

MIDIOutManager::MIDIOutManager(MIDIOutLogStore& logStore, MIDISystem& system)
    : m_logStore(logStore), m_system(system), m_statusMessage(QStringLiteral("MIDI OUTを選択してください。")),
      m_realtimeQueue(std::make_unique<RealtimeQueue>("Orvim Editor Mac Realtime MIDI"))
{
    createClientAndPort();
    refreshDestinations();
}

MIDIOutManager::~MIDIOutManager()
{
    m_realtimeQueue.reset();
    if (m_outputPort != 0) m_system.disposePort(m_outputPort);
    if (m_client != 0) m_system.disposeClient(m_client);
}

void MIDIOutManager::createClientAndPort()
{
    // The notification comes on any thread, possibly while the manager goes away: it looks only on the main thread.
    const QPointer<MIDIOutManager> manager(this);
    const auto setupChanged = [manager] {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [manager] {
                if (manager) manager->refreshDestinations();
            },
            Qt::QueuedConnection);
    };
    const auto deliveryFailed = [manager](MIDIEndpointRef endpoint, MIDILane lane, MIDIStatus status) {
        if (manager) manager->reportDeliveryFailure(endpoint, lane, status);
    };
    if (const auto status = m_system.createClient("Orvim Editor Mac", setupChanged, deliveryFailed, m_client)) {
        reportError(QStringLiteral("MIDIクライアントを作成できませんでした: %1").arg(status));
        return;
    }
    if (const auto status = m_system.createOutputPort(m_client, "Orvim Editor Mac Output", m_outputPort)) {
        reportError(QStringLiteral("MIDI OUTポートを作成できませんでした: %1").arg(status));
    }
}

template <typename T>
void MIDIOutManager::assign(T& field, T value, void (MIDIOutManager::*changed)())
{
    if (field == value) return;
    field = std::move(value);
    Q_EMIT(this->*changed)();
}

void MIDIOutManager::setSelectedDestinationID(std::optional<MIDIEndpointRef> id)
{
    if (m_outputPort != 0) m_system.select(m_outputPort, id.value_or(0));
    assign(m_selectedDestinationID, id, &MIDIOutManager::selectedDestinationChanged);
}

void MIDIOutManager::setProgressFraction(std::optional<double> fraction)
{
    assign(m_progressFraction, fraction, &MIDIOutManager::progressChanged);
}

void MIDIOutManager::refreshDestinations()
{
    auto destinations = listedDestinations();
    const bool isSelectionGone = m_selectedDestinationID && std::ranges::none_of(destinations, [this](const auto& row) {
                                     return row.id == m_selectedDestinationID;
                                 });
    if (isSelectionGone) setSelectedDestinationID(std::nullopt);
    assign(m_destinations, std::move(destinations), &MIDIOutManager::destinationsChanged);
    chooseDestination();
    if (m_destinations.empty())
        setStatus(QStringLiteral("MIDI OUTが見つかりません。"), true);
    else if (m_selectedDestinationID)
        setStatus(QStringLiteral("送信準備完了"), false);
    else
        setStatus(QStringLiteral("MIDI OUTを選択しました。"), false);
}

std::vector<MIDIOutputDestination> MIDIOutManager::listedDestinations() const
{
    std::vector<MIDIOutputDestination> rows;
    const std::size_t count = m_system.refreshDestinations();
    for (std::size_t i = 0; i < count; ++i) {
        const MIDIEndpointRef endpoint = m_system.destination(i);
        if (endpoint == 0) continue;
        auto name = m_system.displayName(endpoint);
        if (!name) name = m_system.name(endpoint);
        rows.push_back({endpoint, name ? QString::fromStdString(*name) : QStringLiteral("MIDI OUT %1").arg(i + 1)});
    }
    return rows;
}

void MIDIOutManager::chooseDestination()
{
    if (m_selectedDestinationID || m_destinations.empty()) return;
    auto chosen = std::ranges::find_if(m_destinations, [](const auto& row) { return row.name == exactModuleName; });
    if (chosen == m_destinations.end())
        chosen = std::ranges::find_if(m_destinations, [](const auto& row) { return row.name.contains(moduleName); });
    if (chosen == m_destinations.end()) chosen = m_destinations.begin();
    setSelectedDestinationID(chosen->id);
}

std::optional<MIDIOutManager::Route> MIDIOutManager::routeOrReport()
{
    if (m_outputPort == 0) {
        reportError(QStringLiteral("MIDI OUTポートが初期化されていません。"));
        return std::nullopt;
    }
    const auto row = std::ranges::find_if(
        m_destinations, [this](const auto& candidate) { return candidate.id == m_selectedDestinationID; });
    if (row == m_destinations.end()) {
        reportError(QStringLiteral("MIDI OUTが未選択です。"));
        return std::nullopt;
    }
    return Route{m_outputPort, row->id};
}

void MIDIOutManager::send(const Message& message, const QString& label)
{
    sendInTurn({{message}, label});
}

void MIDIOutManager::send(const Batch& messages, const QString& label)
{
    if (!messages.empty()) sendInTurn({messages, label});
}

void MIDIOutManager::sendInTurn(NormalSend send)
{
    m_pendingSends.push_back(std::move(send));
    if (m_pendingSends.size() > 1) return;
    for (; !m_pendingSends.empty(); m_pendingSends.pop_front())
        sendAndReport(m_pendingSends.front());
}

void MIDIOutManager::sendAndReport(const NormalSend& send)
{
    if (m_isQuitting) return;
    const auto route = routeOrReport();
    if (!route) return;
    m_lastLabels[route->endpoint] = send.label;
    const auto status = sendPackets(m_system, route->port, route->endpoint, send.messages, MIDILane::normal);
    m_isQuitting = status == midiSendCancelled;
    if (status != 0) return reportSendFailure(send.label, status);
    appendSendEntry(send);
    setStatus(send.label + QStringLiteral(" を送信しました。"), false);
}

void MIDIOutManager::appendSendEntry(const NormalSend& send)
{
    QString entry = isAllSystemExclusive(send.messages) ? QStringLiteral(" [SysEx: ") : QStringLiteral(" [");
    entry += send.label + QStringLiteral("]\n");
    for (const Message& message : send.messages)
        entry += QStringLiteral("   ") + m_logStore.format(message) + QLatin1Char('\n');
    m_logStore.append(entry);
}

bool MIDIOutManager::hasWaitingSends() const
{
    return !m_pendingSends.empty() || (m_selectedDestinationID && m_system.isWaitedFor(*m_selectedDestinationID));
}

void MIDIOutManager::sendRealtime(const Batch& messages)
{
    const auto route = routeOrReport();
    if (!route) return;
    const QPointer<MIDIOutManager> manager(this);
    m_realtimeQueue->post([&system = m_system, route = *route, messages, manager] {
        const auto status = sendPackets(system, route.port, route.endpoint, messages, MIDILane::realtime);
        if (status == 0) return;
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [manager, status] {
                if (manager) manager->reportRealtimeFailure(status);
            },
            Qt::QueuedConnection);
    });
}

void MIDIOutManager::sendRealtimeNow(const Batch& messages)
{
    const auto route = routeOrReport();
    if (!route) return;
    if (const auto status = sendPackets(m_system, route->port, route->endpoint, messages, MIDILane::realtime))
        reportRealtimeFailure(status);
}

void MIDIOutManager::sendUIType(unsigned value)
{
    if (value > largestUIType) return reportError(QStringLiteral("UI Typeは0〜127で指定してください。"));
    try {
        send(tonavelle::SysExBuilder::uiTypeSet(static_cast<std::uint8_t>(value)),
             QStringLiteral("UI Type Set (%1)").arg(value));
    } catch (const tonavelle::SysExBuilderError& error) {
        reportError(QString::fromUtf8(error.what()));
    }
}

void MIDIOutManager::setStatus(const QString& message, bool isError)
{
    assign(m_statusMessage, message, &MIDIOutManager::statusChanged);
    assign(m_lastErrorMessage, isError ? std::optional(message) : std::nullopt, &MIDIOutManager::statusChanged);
}

void MIDIOutManager::logNote(const QString& text)
{
    m_logStore.appendLine(text);
    assign(m_lastErrorMessage, std::optional<QString>(), &MIDIOutManager::statusChanged);
}

void MIDIOutManager::reportDeliveryFailure(MIDIEndpointRef endpoint, MIDILane lane, MIDIStatus status)
{
    if (lane == MIDILane::realtime)
        reportRealtimeFailure(status);
    else
        reportSendFailure(m_lastLabels[endpoint], status);
}

void MIDIOutManager::reportSendFailure(const QString& label, MIDIStatus status)
{
    reportError(label + QStringLiteral(" の送信に失敗しました: %1").arg(status));
}

void MIDIOutManager::reportRealtimeFailure(MIDIStatus status)
{
    reportError(QStringLiteral("リアルタイムMIDI送信に失敗しました: %1").arg(status));
}

void MIDIOutManager::reportError(const QString& text)
{
    m_logStore.appendLine(QStringLiteral("エラー: ") + text);
    setStatus(text, true);
}

} // namespace orvim
