#include "SoftwareReceiver.h"

#include "FileDescriptor.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <alsa/asoundlib.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <thread>

namespace orvim::test {

namespace {

constexpr const char* startOption = "--software-receiver";

/// The receiving end: what its process does, until it is ended from outside.
class ReceivingEnd
{
public:
    ReceivingEnd(const SoftwareReceiverPlan& behaviour, int recordFile) : plan(behaviour), record(recordFile)
    {
        if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0)
            throw std::runtime_error("no sequencer");
        snd_seq_set_client_name(sequencer, plan.name.toUtf8().constData());
        if (plan.poolCells > 0) snd_seq_set_client_pool_input(sequencer, static_cast<std::size_t>(plan.poolCells));
        snd_seq_create_simple_port(sequencer, "In", SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE,
                                   SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
        snd_midi_event_new(16, &decoder);
        snd_midi_event_no_status(decoder, 1);
    }

    void run()
    {
        pollfd input{};
        snd_seq_poll_descriptors(sequencer, &input, 1, POLLIN);
        for (int events = 0;;) {
            ::poll(&input, 1, -1);
            snd_seq_event_t* event = nullptr;
            while (snd_seq_event_input(sequencer, &event) >= 0) {
                take(*event);
                std::this_thread::sleep_for(plan.pauseAfterEvent);
                if (++events == plan.hangsAfterEvents) std::this_thread::sleep_for(plan.hangsFor);
            }
        }
    }

private:
    void take(const snd_seq_event_t& event)
    {
        if (event.type == SND_SEQ_EVENT_SYSEX) return keep(event.data.ext.ptr, event.data.ext.len);
        std::array<unsigned char, 16> bytes{};
        const long size = snd_midi_event_decode(decoder, bytes.data(), bytes.size(), &event);
        if (size > 0) keep(bytes.data(), static_cast<std::size_t>(size));
    }

    void keep(const void* bytes, std::size_t size)
    {
        if (::write(record, bytes, size) != static_cast<ssize_t>(size)) std::abort();
    }

    const SoftwareReceiverPlan& plan;
    const int record;
    snd_seq_t* sequencer = nullptr;
    snd_midi_event_t* decoder = nullptr;
};

} // namespace

SoftwareReceiver::SoftwareReceiver(const SoftwareReceiverPlan& plan)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QString::fromLatin1(startOption), recordPath(), plan.name,
                   QString::number(plan.pauseAfterEvent.count()), QString::number(plan.poolCells),
                   QString::number(plan.hangsAfterEvents), QString::number(plan.hangsFor.count())});
    if (!process.waitForReadyRead()) throw std::runtime_error("the software receiver did not start");
}

SoftwareReceiver::~SoftwareReceiver()
{
    kill();
}

void SoftwareReceiver::kill()
{
    process.kill();
    process.waitForFinished();
}

QString SoftwareReceiver::recordPath() const
{
    return folder.filePath(QStringLiteral("record"));
}

std::size_t SoftwareReceiver::receivedBytes() const
{
    return static_cast<std::size_t>(QFileInfo(recordPath()).size());
}

tonavelle::Message SoftwareReceiver::received() const
{
    QFile record(recordPath());
    if (!record.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = record.readAll();
    return {bytes.begin(), bytes.end()};
}

std::optional<int> runAsSoftwareReceiver(int count, char* arguments[])
{
    if (count != 8 || std::strcmp(arguments[1], startOption) != 0) return std::nullopt;
    const FileDescriptor record(::open(arguments[2], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    const SoftwareReceiverPlan plan{.name = QString::fromUtf8(arguments[3]),
                                    .pauseAfterEvent = std::chrono::microseconds(std::atol(arguments[4])),
                                    .poolCells = std::atoi(arguments[5]),
                                    .hangsAfterEvents = std::atoi(arguments[6]),
                                    .hangsFor = std::chrono::milliseconds(std::atol(arguments[7]))};
    ReceivingEnd receiver(plan, record.get());
    if (::write(STDOUT_FILENO, "ready\n", 6) != 6) return 1;
    receiver.run();
    return 0;
}

} // namespace orvim::test
