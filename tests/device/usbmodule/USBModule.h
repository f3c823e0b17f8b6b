#pragma once

#include "FileDescriptor.h"
#include "Wire.h"

#include <linux/usb/ch9.h>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <limits>
#include <optional>
#include <string>
#include <thread>

namespace orvim::test {

/// How a module behaves. Byte counts are of MIDI bytes, over all ports together, from the moment of plugging.
struct USBModulePlan {
    std::string name = "Tonavelle_mini";
    std::uint8_t ports = 2;
    double bytesPerSecond = 0;                 ///< how fast it takes data; 0: as fast as they come
    std::optional<std::size_t> hangsAt = {};   ///< after that many bytes it takes nothing ...
    std::chrono::milliseconds hangsFor = {};   ///< ... for so long
    std::optional<std::size_t> unplugsAt = {}; ///< after that many bytes it is unplugged
    bool takesPortions = false;                ///< whether it takes only what it is let by letTakePortion()
};

/// A USB MIDI module made of two threads, plugged into the kernel's pretended host controller through gadgetfs. It
/// holds no data between the wire and the record of what arrived: what it misses was lost by the sender.
class USBModule
{
public:
    /// Plugs it in. Throws std::system_error where the kernel refuses.
    explicit USBModule(USBModulePlan plan);
    ~USBModule();
    USBModule(const USBModule&) = delete;
    USBModule& operator=(const USBModule&) = delete;

    /// Returns when it is out. Does nothing when it is out already.
    void unplug();
    /// When it was pulled out, by its plan or by unplug().
    std::optional<Clock::time_point> unpluggedAt() const;
    /// Lets a module that takes portions take one. False while the one before is not taken.
    bool letTakePortion();
    static constexpr std::size_t portion = 4096;
    static constexpr std::size_t longestTransfer = 512; ///< by which it may take more than its portion
    /// The bytes that it took so far on all ports.
    std::size_t bytesTaken() const { return taken; }
    const Wire& port(std::size_t index) const { return wires.at(index); }

private:
    void answerRequests(std::stop_token stop);
    void answerSetup(const usb_ctrlrequest& request);
    void startReading();
    void stopReading();
    void takeData(std::stop_token stop);
    void pause(std::stop_token stop, Clock::time_point until);
    void waitUntilAllowed(std::stop_token stop);
    void refuse(bool expectsData);
    void acknowledge();

    const USBModulePlan plan;
    FileDescriptor control;
    FileDescriptor wakeUp;
    FileDescriptor outEndpoint;
    FileDescriptor inEndpoint;
    std::deque<Wire> wires;
    std::atomic<std::size_t> taken = 0;
    std::atomic<Clock::time_point> outSince{Clock::time_point{}};
    std::mutex pausing;
    std::size_t allowed; ///< up to how many bytes it takes; guarded by `pausing`
    std::condition_variable_any pauseEnds;
    std::atomic<bool> readerEnded = true;
    std::jthread reader;
    std::jthread controller;
};

} // namespace orvim::test
