#include "platform/RawMIDIStatus.h"

#include <charconv>

namespace orvim {
namespace {

std::string_view nextLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

std::optional<std::uint64_t> number(std::string_view digits)
{
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return value;
}

std::optional<std::uint64_t> numberAfter(std::string_view prefix, std::string_view line)
{
    if (!line.starts_with(prefix)) return std::nullopt;
    return number(line.substr(prefix.size()));
}

/// What the indented lines of one stream say.
struct StreamDetails {
    std::uint64_t transferred = 0;
    std::optional<std::uint64_t> size;
    std::optional<std::uint64_t> available;
};

void readDetail(std::string_view line, StreamDetails& details)
{
    if (const auto transferred = numberAfter("  Tx bytes     : ", line)) details.transferred = *transferred;
    if (const auto size = numberAfter("  Buffer size  : ", line)) details.size = *size;
    if (const auto available = numberAfter("  Avail        : ", line)) details.available = *available;
}

RawMIDIStream makeStream(bool isOutput, std::uint64_t subdevice, std::string_view& rest)
{
    StreamDetails details;
    while (rest.starts_with(' ')) {
        readDetail(nextLine(rest), details);
    }
    RawMIDIStream stream{isOutput, static_cast<unsigned>(subdevice), details.transferred, std::nullopt};
    if (details.size && details.available && *details.available <= *details.size) {
        stream.ring = {static_cast<std::size_t>(*details.size), static_cast<std::size_t>(*details.available)};
    }
    return stream;
}

} // namespace

std::vector<RawMIDIStream> parseRawMIDIStatus(std::string_view text)
{
    std::vector<RawMIDIStream> streams;
    while (!text.empty()) {
        const std::string_view line = nextLine(text);
        if (const auto output = numberAfter("Output ", line)) {
            streams.push_back(makeStream(true, *output, text));
        } else if (const auto input = numberAfter("Input ", line)) {
            streams.push_back(makeStream(false, *input, text));
        }
    }
    return streams;
}

} // namespace orvim
