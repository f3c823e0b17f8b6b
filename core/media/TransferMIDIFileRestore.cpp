#include "core/media/ImageTransferBuilder.h"
#include "core/media/TransferMIDIFileBuilder.h"
#include "core/protocol/ModuleCommands.h"
#include "core/protocol/ModuleFrameContent.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <optional>

namespace tonavelle::TransferMIDIFileBuilder {

namespace {

using Bytes = std::span<const std::uint8_t>;

// Parameter counts behind the command byte.
constexpr std::size_t imageRowSize = 2 + ImageTransferBuilder::rowByteCount;
constexpr std::size_t sectionSize = 2 + SamplingSoundBuilder::sectionSampleCount;
constexpr std::size_t settingSize = 7;
// The frame's head and command byte, the parameters, F7.
constexpr std::size_t largestMessageSize = moduleFrameHead.size() + 1 + std::max(imageRowSize, sectionSize) + 1;

/// Where a sound lies in the sound memory.
struct SoundPlace {
    std::int64_t start;
    std::int64_t count;
};

/// The event's message; empty where it is longer than any that counts, for what overlaps in a damaged file must not be
/// copied at length.
Message transferMessage(const ParsedMIDIEvent& event)
{
    return event.messageSize() <= largestMessageSize ? event.message() : Message();
}

/// The parameters of the module's `command` in this message, if they are of that number.
std::optional<Bytes> parametersOf(Bytes message, Command command, std::size_t count)
{
    const auto content = moduleFrameContent(message);
    if (!content || content->size() != count + 1) return std::nullopt;
    if (content->front() != static_cast<std::uint8_t>(command)) return std::nullopt;
    return content->subspan(1);
}

/// Numbers of seven bits a byte, high byte first.
std::int64_t sevenBitNumber(Bytes bytes)
{
    std::int64_t number = 0;
    for (const std::uint8_t byte : bytes)
        number = number << 7 | (byte & 0x7F);
    return number;
}

void unpackRow(Bytes packed, std::span<std::uint8_t> row)
{
    for (std::size_t x = 0; x < ImageTransferBuilder::width; ++x) {
        // The first byte has seven bits in a good message; an eighth would fall out of the pixel's 14.
        const auto value = static_cast<std::uint16_t>(packed[2 * x] << 7 | (packed[2 * x + 1] & 0x7F));
        std::ranges::copy(ImageTransferBuilder::rgb888Pixel(value),
                          row.subspan(x * ImageTransferBuilder::bytesPerPixel).begin());
    }
}

} // namespace

std::vector<std::vector<std::uint8_t>> restoreImages(std::span<const ParsedMIDIEvent> events)
{
    using namespace ImageTransferBuilder;
    constexpr std::size_t rowSize = width * bytesPerPixel;
    std::vector<std::vector<std::uint8_t>> pictures;
    for (const auto& event : events) {
        const Message message = transferMessage(event);
        const auto parameters = parametersOf(message, Command::imageRow, imageRowSize);
        if (!parameters) continue;
        const std::size_t screen = (*parameters)[0];
        const std::size_t y = (*parameters)[1];
        if (screen >= screenCount || y >= height) continue;
        while (pictures.size() <= screen)
            pictures.emplace_back(rgbByteCount);
        unpackRow(parameters->subspan(2), std::span(pictures[screen]).subspan(y * rowSize, rowSize));
    }
    return pictures;
}

std::vector<SamplingSoundItem> restoreSounds(std::span<const ParsedMIDIEvent> events)
{
    std::map<std::size_t, SoundPlace> places;
    SoundSections sections;
    for (const auto& event : events) {
        const Message message = transferMessage(event);
        if (const auto section = parametersOf(message, Command::samplingSoundSection, sectionSize)) {
            const auto codes = section->subspan(2);
            sections[sevenBitNumber(section->first(2))].assign(codes.begin(), codes.end());
        } else if (const auto setting = parametersOf(message, Command::samplingSoundSetting, settingSize)) {
            if ((*setting)[0] >= SamplingSoundBuilder::maxSoundCount) continue;
            places[(*setting)[0]] = {sevenBitNumber(setting->subspan(1, 3)), sevenBitNumber(setting->subspan(4, 3))};
        }
    }
    std::vector<SamplingSoundItem> sounds(places.empty() ? 0 : places.rbegin()->first + 1);
    for (const auto& [number, place] : places)
        sounds[number].pcm16LittleEndian =
            SamplingSoundBuilder::restorePCM16LittleEndian(sections, place.start, place.count);
    return sounds;
}

} // namespace tonavelle::TransferMIDIFileBuilder
