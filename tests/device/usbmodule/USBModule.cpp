#include "usbmodule/USBModule.h"

#include "usbmodule/EventPackets.h"
#include "usbmodule/USBDescriptors.h"

#include <linux/usb/gadgetfs.h>
#include <sys/eventfd.h>
#include <system_error>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>

namespace orvim::test {

namespace {

using namespace std::chrono_literals;

FileDescriptor openGadgetFile(const std::string& name, const tonavelle::Message& description)
{
    const std::string path = "/dev/gadget/" + name;
    FileDescriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC));
    if (!file.isOpen()) throw std::system_error(errno, std::generic_category(), path);
    if (::write(file.get(), description.data(), description.size()) != static_cast<ssize_t>(description.size()))
        throw std::system_error(errno, std::generic_category(), path + ": descriptors");
    return file;
}

/// A signal that does nothing but end a system call.
void prepareWakeUpSignal()
{
    struct sigaction action {
    };
    action.sa_handler = [](int) {};
    ::sigaction(SIGUSR1, &action, nullptr);
}

} // namespace

USBModule::USBModule(USBModulePlan behaviour)
    : plan(std::move(behaviour)), control(openGadgetFile("dummy_udc", moduleDescription(plan.ports))),
      wakeUp(::eventfd(0, EFD_CLOEXEC)), wires(plan.ports),
      allowed(plan.takesPortions ? 0 : std::numeric_limits<std::size_t>::max())
{
    prepareWakeUpSignal();
    controller = std::jthread([this](std::stop_token stop) { answerRequests(std::move(stop)); });
}

USBModule::~USBModule()
{
    unplug();
}

void USBModule::unplug()
{
    if (!controller.joinable()) return;
    controller.request_stop();
    ::eventfd_write(wakeUp.get(), 1);
    controller.join();
}

bool USBModule::letTakePortion()
{
    const std::lock_guard lock(pausing);
    if (taken < allowed) return false;
    allowed = taken + portion;
    pauseEnds.notify_all();
    return true;
}

std::optional<Clock::time_point> USBModule::unpluggedAt() const
{
    const Clock::time_point time = outSince;
    return time == Clock::time_point{} ? std::nullopt : std::optional(time);
}

/// The controller's thread. Closing the control file pulls the module out.
void USBModule::answerRequests(std::stop_token stop)
{
    std::array<pollfd, 2> files{{{control.get(), POLLIN, 0}, {wakeUp.get(), POLLIN, 0}}};
    while (::poll(files.data(), files.size(), -1) > 0 && files[1].revents == 0 && !stop.stop_requested()) {
        std::array<usb_gadgetfs_event, 5> events{};
        const ssize_t size = ::read(control.get(), events.data(), sizeof events);
        for (std::size_t i = 0; size > 0 && i < static_cast<std::size_t>(size) / sizeof events[0]; ++i)
            if (events[i].type == GADGETFS_SETUP) answerSetup(events[i].u.setup);
    }
    stopReading();
    outSince = Clock::now();
    control.close();
    outEndpoint.close();
    inEndpoint.close();
}

void USBModule::answerSetup(const usb_ctrlrequest& request)
{
    const bool expectsData = (request.bRequestType & USB_DIR_IN) != 0;
    switch (request.bRequest) {
    case USB_REQ_GET_DESCRIPTOR: {
        if (request.wValue >> 8 != USB_DT_STRING) return refuse(expectsData);
        const auto text = stringDescriptor(static_cast<std::uint8_t>(request.wValue & 0xFF), plan.name);
        if (::write(control.get(), text.data(), std::min<std::size_t>(text.size(), request.wLength)) < 0)
            refuse(expectsData);
        return;
    }
    case USB_REQ_SET_CONFIGURATION:
        if (request.wValue != 0 && !outEndpoint.isOpen()) startReading();
        return acknowledge();
    case USB_REQ_SET_INTERFACE:
        return acknowledge();
    default:
        refuse(expectsData);
    }
}

void USBModule::startReading()
{
    inEndpoint = openGadgetFile("ep1in-bulk", endpointDescription(inEndpointAddress));
    outEndpoint = openGadgetFile("ep2out-bulk", endpointDescription(outEndpointAddress));
    readerEnded = false;
    reader = std::jthread([this](std::stop_token stop) {
        takeData(std::move(stop));
        readerEnded = true;
    });
}

/// The kernel would wait for a pending read of the endpoint before it lets go of the module, so a signal ends that read
/// first; again and again, because the first may come just before the read begins.
void USBModule::stopReading()
{
    reader.request_stop();
    while (!readerEnded) {
        ::pthread_kill(reader.native_handle(), SIGUSR1);
        std::this_thread::sleep_for(1ms);
    }
    reader = {};
}

/// The reader's thread. While it does not read, the endpoint refuses the host's data, as a slow module does.
void USBModule::takeData(std::stop_token stop)
{
    std::array<std::uint8_t, longestTransfer> transfer{};
    bool hasHung = false;
    Clock::time_point due = Clock::now();
    while (!stop.stop_requested()) {
        waitUntilAllowed(stop);
        const ssize_t size = ::read(outEndpoint.get(), transfer.data(), transfer.size());
        if (size < 0) return;
        const std::size_t count = readEventPackets(
            std::span(transfer).first(static_cast<std::size_t>(size)),
            [this](std::size_t port, std::span<const std::uint8_t> bytes) { wires.at(port).add(bytes); });
        taken += count;
        if (plan.unplugsAt && taken >= *plan.unplugsAt) {
            ::eventfd_write(wakeUp.get(), 1);
            return;
        }
        if (plan.hangsAt && !hasHung && taken >= *plan.hangsAt) {
            hasHung = true;
            pause(stop, Clock::now() + plan.hangsFor);
        }
        if (plan.bytesPerSecond > 0) {
            // After a rest it does not catch up, but for what a timer's lateness takes.
            const std::chrono::duration<double> share(static_cast<double>(count) / plan.bytesPerSecond);
            due = std::max(due, Clock::now() - 20ms) + std::chrono::duration_cast<Clock::duration>(share);
            pause(stop, due);
        }
    }
}

void USBModule::pause(std::stop_token stop, Clock::time_point until)
{
    std::unique_lock lock(pausing);
    pauseEnds.wait_until(lock, std::move(stop), until, [] { return false; });
}

void USBModule::waitUntilAllowed(std::stop_token stop)
{
    std::unique_lock lock(pausing);
    pauseEnds.wait(lock, std::move(stop), [this] { return taken < allowed; });
}

/// gadgetfs takes a transfer in the direction opposite to the request's for a refusal.
void USBModule::refuse(bool expectsData)
{
    std::uint8_t nothing = 0;
    [[maybe_unused]] const ssize_t ignored =
        expectsData ? ::read(control.get(), &nothing, 0) : ::write(control.get(), &nothing, 0);
}

void USBModule::acknowledge()
{
    std::uint8_t nothing = 0;
    [[maybe_unused]] const ssize_t ignored = ::read(control.get(), &nothing, 0);
}

} // namespace orvim::test
