#include "platform/RawMIDIStatusFile.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace orvim {
namespace {

constexpr unsigned portsPerDevice = 32;

} // namespace

unsigned deviceOf(SequencerAddress address)
{
    return address.port / portsPerDevice;
}

unsigned subdeviceOf(SequencerAddress address)
{
    return address.port % portsPerDevice;
}

RawMIDIStatusFile::~RawMIDIStatusFile()
{
    if (descriptor >= 0) close(descriptor);
}

MIDIStatus RawMIDIStatusFile::open(int card, unsigned device)
{
    const std::string path = "/proc/asound/card" + std::to_string(card) + "/midi" + std::to_string(device);
    descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0) return 0;
    const bool devicesAreShown = access("/proc/asound/cards", R_OK) == 0;
    return errno == EACCES || !devicesAreShown ? -EACCES : -ENODEV;
}

MIDIStatus RawMIDIStatusFile::read(std::vector<RawMIDIStream>& streams)
{
    constexpr std::size_t longestText = 32 * 1024;
    text.resize(longestText);
    const ssize_t length = pread(descriptor, text.data(), text.size(), 0);
    if (length <= 0) return -ENODEV;
    streams = parseRawMIDIStatus(std::string_view(text).substr(0, static_cast<std::size_t>(length)));
    return 0;
}

} // namespace orvim
