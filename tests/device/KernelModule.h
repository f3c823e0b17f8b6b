#pragma once

#include "Wire.h"

#include <deque>
#include <filesystem>
#include <string>
#include <thread>

namespace orvim::test {

/// The kernel's own USB MIDI gadget, plugged into its pretended host controller. It takes data as fast as they come,
/// and what it took is read from its own side into memory.
class KernelModule
{
public:
    /// Plugs it in. `name` must be a file name; one module of a name at a time. Throws std::system_error where the
    /// kernel refuses.
    explicit KernelModule(std::string name = "Tonavelle_mini", int ports = 2);
    ~KernelModule();
    KernelModule(const KernelModule&) = delete;
    KernelModule& operator=(const KernelModule&) = delete;

    /// Plugs it in again after unplug(); what arrived before is kept.
    void plug();
    void unplug();
    const Wire& port(std::size_t index) const { return wires.at(index); }
    /// Bytes that the reader's side lost because they were not read in time; 0 unless the test itself is at fault.
    std::size_t overruns() const { return lost; }

private:
    void startReading();
    void read(std::stop_token stop, int port, int file);

    const std::filesystem::path folder; ///< the gadget's configuration
    const int ports;
    std::deque<Wire> wires;
    std::atomic<std::size_t> lost = 0;
    std::deque<std::jthread> readers;
};

} // namespace orvim::test
