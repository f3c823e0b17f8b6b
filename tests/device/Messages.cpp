#include "Messages.h"

#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "tests/support/Bytes.h"

#include <algorithm>
#include <sstream>

namespace orvim::test {

using tonavelle::Batch;
using tonavelle::Message;

namespace {

/// Data bytes behind a status byte below 0xF0.
std::ptrdiff_t dataBytes(std::uint8_t status)
{
    return (status & 0xE0) == 0xC0 ? 1 : 2;
}

std::string around(const Message& bytes, std::size_t offset)
{
    std::ostringstream text;
    text << std::hex << std::uppercase;
    const std::size_t begin = offset < 8 ? 0 : offset - 8;
    for (std::size_t i = begin; i < std::min(bytes.size(), offset + 8); ++i)
        text << (i == offset ? " >" : " ") << static_cast<int>(bytes[i]);
    return text.str();
}

testing::AssertionResult partedAt(std::size_t offset, const Message& arrived, const Message& sent)
{
    return testing::AssertionFailure() << arrived.size() << " bytes arrived, " << sent.size()
                                       << " were sent; they part at " << offset << ":\narrived"
                                       << around(arrived, offset) << "\nsent   " << around(sent, offset);
}

} // namespace

Message numberedMessage(std::size_t index, std::size_t length)
{
    Message message = bytes("F0 00 48 05 7F 20");
    message.push_back(static_cast<std::uint8_t>(index >> 7 & 0x7F));
    message.push_back(static_cast<std::uint8_t>(index & 0x7F));
    while (message.size() + 1 < length)
        message.push_back(static_cast<std::uint8_t>((index * 7 + message.size() * 13) & 0x7F));
    message.push_back(0xF7);
    return message;
}

Batch numberedMessages(std::size_t count, std::size_t length)
{
    Batch messages;
    for (std::size_t i = 0; i < count; ++i)
        messages.push_back(numberedMessage(i, length));
    return messages;
}

Message joined(const Batch& messages)
{
    Message all;
    for (const Message& message : messages)
        all.insert(all.end(), message.begin(), message.end());
    return all;
}

Arrivals takenApart(const Message& stream)
{
    Arrivals result;
    for (std::size_t i = 0; i < stream.size();) {
        const auto begin = stream.begin() + static_cast<std::ptrdiff_t>(i);
        auto end = std::find_if(begin + 1, stream.end(), [](std::uint8_t byte) { return byte >= 0x80; });
        const bool isChannelMessage = *begin >= 0x80 && *begin < 0xF0;
        if (*begin == 0xF0 && end != stream.end() && *end == 0xF7) {
            result.systemExclusive.emplace_back(begin, ++end);
            result.messages.push_back(result.systemExclusive.back());
        } else if (isChannelMessage && end - begin > dataBytes(*begin)) {
            end = begin + 1 + dataBytes(*begin);
            result.others.emplace_back(begin, end);
            result.messages.push_back(result.others.back());
            result.otherOffsets.push_back(i);
        } else {
            result.strayBytes += static_cast<std::size_t>(end - begin);
        }
        i = static_cast<std::size_t>(end - stream.begin());
    }
    return result;
}

std::vector<std::uint8_t> recordedFile(const Batch& messages)
{
    std::vector<tonavelle::MIDITrackEvent> events;
    for (const Message& message : messages)
        events.push_back({1, message});
    return tonavelle::SimpleMIDIFileBuilder::singleTrack(events, 480);
}

testing::AssertionResult sameBytes(const Message& arrived, const Message& sent)
{
    if (arrived == sent) return testing::AssertionSuccess();
    return partedAt(static_cast<std::size_t>(std::ranges::mismatch(arrived, sent).in1 - arrived.begin()), arrived,
                    sent);
}

testing::AssertionResult isBeginning(const Message& arrived, const Message& sent)
{
    const auto offset = std::ranges::mismatch(arrived, sent).in1 - arrived.begin();
    if (offset == std::ssize(arrived)) return testing::AssertionSuccess();
    return partedAt(static_cast<std::size_t>(offset), arrived, sent);
}

} // namespace orvim::test
