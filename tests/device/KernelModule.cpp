#include "KernelModule.h"

#include "FileDescriptor.h"

#include <sys/ioctl.h>
#include <system_error>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sound/asound.h>

namespace orvim::test {

namespace {

namespace fs = std::filesystem;

/// The gadget's own sound card, from which what it took is read, is found by this identity.
constexpr const char* cardIdentity = "modulewire";

[[noreturn]] void fail(const fs::path& path)
{
    throw std::system_error(errno, std::generic_category(), path.string());
}

void write(const fs::path& path, const std::string& text)
{
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.isOpen() || ::write(file.get(), text.data(), text.size()) < 0) fail(path);
}

std::string firstLine(const fs::path& path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

std::string freeController()
{
    for (const auto& entry : fs::directory_iterator("/sys/class/udc"))
        if (firstLine(entry.path() / "function").empty()) return entry.path().filename().string();
    throw std::runtime_error("every pretended host controller is taken");
}

std::string ownCard()
{
    // /proc/asound/IDENTITY links to "cardN".
    return fs::read_symlink(fs::path("/proc/asound") / cardIdentity).string().substr(4);
}

/// On a module's machine nobody sees what is inside the module; here its own side would be listed as one more device.
void hideOwnSide()
{
    write("/sys/bus/snd_seq/drivers/snd_seq_midi/unbind", "seq-midi-" + ownCard() + "-0");
}

/// Opens the next free port of the gadget's own side for reading.
FileDescriptor openWire()
{
    const std::string path = "/dev/snd/midiC" + ownCard() + "D0";
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) fail(path);
    snd_rawmidi_params parameters{};
    parameters.stream = SNDRV_RAWMIDI_STREAM_INPUT;
    parameters.buffer_size = 1 << 20;
    parameters.avail_min = 1;
    if (::ioctl(file.get(), SNDRV_RAWMIDI_IOCTL_PARAMS, &parameters) < 0) fail(path);
    // Until the first read the kernel throws away what arrives.
    std::uint8_t nothing = 0;
    if (::read(file.get(), &nothing, 1) >= 0 || errno != EAGAIN) fail(path);
    return file;
}

} // namespace

KernelModule::KernelModule(std::string name, int portCount)
    : folder("/sys/kernel/config/usb_gadget/" + name), ports(portCount), wires(static_cast<std::size_t>(portCount))
{
    const fs::path midi = folder / "functions/midi.0";
    for (const fs::path& part : {folder, folder / "strings/0x409", folder / "configs/c.1", midi})
        fs::create_directory(part);
    write(folder / "idVendor", "0x1209");
    write(folder / "idProduct", "0x0001");
    write(folder / "strings/0x409/product", name);
    write(folder / "strings/0x409/manufacturer", "Test");
    write(midi / "id", cardIdentity);
    write(midi / "in_ports", std::to_string(ports));
    write(midi / "out_ports", std::to_string(ports));
    // One packet of a fast bus: the kernel hands on a buffer once it is full or a shorter packet has come, and a
    // transfer may end with a packet of full length.
    write(midi / "buflen", "512");
    write(midi / "qlen", "64");
    fs::create_symlink(midi, folder / "configs/c.1/midi.0");
    plug();
}

KernelModule::~KernelModule()
{
    unplug();
    fs::remove(folder / "configs/c.1/midi.0");
    for (const char* part : {"configs/c.1", "functions/midi.0", "strings/0x409", ""})
        ::rmdir((folder / part).c_str());
}

void KernelModule::plug()
{
    write(folder / "UDC", freeController());
    hideOwnSide();
    startReading();
}

void KernelModule::unplug()
{
    if (readers.empty()) return;
    write(folder / "UDC", "\n");
    readers.clear();
}

void KernelModule::startReading()
{
    for (int port = 0; port < ports; ++port)
        readers.emplace_back([this, port, file = openWire()](std::stop_token stop) { read(stop, port, file.get()); });
}

/// A reader's thread; ends by itself when the gadget is pulled out.
void KernelModule::read(std::stop_token stop, int port, int file)
{
    std::array<std::uint8_t, 65536> piece{};
    pollfd wire{file, POLLIN, 0};
    while (!stop.stop_requested()) {
        if (::poll(&wire, 1, 20) <= 0) continue;
        const ssize_t size = ::read(file, piece.data(), piece.size());
        if (size > 0)
            wires[static_cast<std::size_t>(port)].add(std::span(piece).first(static_cast<std::size_t>(size)));
        else if (size == 0 || errno != EAGAIN || (wire.revents & (POLLERR | POLLHUP)) != 0)
            break;
        snd_rawmidi_status status{};
        status.stream = SNDRV_RAWMIDI_STREAM_INPUT;
        if (::ioctl(file, SNDRV_RAWMIDI_IOCTL_STATUS, &status) == 0) lost += status.xruns; // the kernel resets it
    }
}

} // namespace orvim::test
