#include "core/media/TransferMIDIFileBuilder.h"

#include "core/media/ImageTransferBuilder.h"
#include "core/protocol/SimpleMIDIFileBuilder.h"
#include "core/tone/ToneDataFile.h"
#include "tests/support/Bytes.h"
#include "tests/support/MIDIFiles.h"

#include <algorithm>
#include <cstddef>
#include <gmock/gmock.h>
#include <memory>
#include <random>
#include <vector>

namespace tonavelle::TransferMIDIFileBuilder {
namespace {

using orvim::test::bytes;
using orvim::test::joined;
using orvim::test::track;
using testing::ElementsAre;
using Picture = std::vector<std::uint8_t>;
using Event = SimpleMIDITimedEvent;

Picture randomPicture(unsigned seed)
{
    std::mt19937 random(seed);
    Picture picture(ImageTransferBuilder::rgbByteCount);
    for (auto& byte : picture)
        byte = static_cast<std::uint8_t>(random());
    return picture;
}

/// What is left of a picture after packing.
Picture packedAndWidened(const Picture& picture)
{
    Picture result;
    for (std::size_t i = 0; i < picture.size(); i += 3) {
        const auto packed = ImageTransferBuilder::rgb455Value(picture[i], picture[i + 1], picture[i + 2]);
        for (const std::uint8_t byte : ImageTransferBuilder::rgb888Pixel(packed))
            result.push_back(byte);
    }
    return result;
}

std::vector<Batch> imagesOf(std::size_t count)
{
    std::vector<Batch> images;
    for (std::size_t i = 0; i < count; ++i)
        images.push_back(ImageTransferBuilder::imageTransferRows(static_cast<std::uint8_t>(i),
                                                                 randomPicture(static_cast<unsigned>(i))));
    return images;
}

std::vector<ParsedMIDIEvent> writtenAndParsed(const std::vector<Event>& events)
{
    return parseMIDIEvents(SimpleMIDIFileBuilder::wpfStyleSequence(events, ticksPerQuarterNote));
}

/// The same messages with the last one first.
std::vector<Event> reversedInTime(const std::vector<Event>& events)
{
    std::vector<Event> reversed(events.rbegin(), events.rend());
    for (std::size_t i = 0; i < reversed.size(); ++i)
        reversed[i].absoluteTime = static_cast<std::int64_t>(i);
    return reversed;
}

std::vector<ParsedMIDIEvent> writtenToSecondTrack(const std::vector<Event>& events)
{
    const std::vector<SimpleMIDITrack> tracks{{}, {events}};
    return parseMIDIEvents(SimpleMIDIFileBuilder::file(1, ticksPerQuarterNote, tracks));
}

/// Events of these messages, whatever they begin with.
std::vector<ParsedMIDIEvent> parsed(const std::vector<Message>& messages)
{
    std::vector<ParsedMIDIEvent> events;
    for (const auto& message : messages) {
        const auto file = std::make_shared<const Message>(message);
        events.push_back({.status = 0xF7, .data = *file, .file = file});
    }
    return events;
}

Message rowMessage(std::uint8_t screen, std::uint8_t row, std::size_t pixelByteCount = 128)
{
    return joined({bytes("F0 00 48 05 7F 20"), {screen, row}, Message(pixelByteCount, 0x7F), bytes("F7")});
}

const Picture black(12'288, 0);

TEST(ImageTransferEvents, OneImageWithAllOptions)
{
    const auto events = imageTransferEvents(imagesOf(1), true, true, true);
    ASSERT_EQ(events.size(), 67u);
    EXPECT_EQ(events[0], (Event{0, bytes("F0 00 48 05 7F 00 00 F7")}));
    EXPECT_EQ(events[1], (Event{480, bytes("F0 00 48 05 7F 03 04 F7")}));
    for (int row = 0; row < 64; ++row)
        EXPECT_EQ(events[static_cast<std::size_t>(2 + row)].absoluteTime, 599 + row);
    EXPECT_EQ(events[65].absoluteTime, 662);
    EXPECT_EQ(events[66], (Event{783, bytes("F0 00 48 05 7F 26 00 F7")}));
}

TEST(ImageTransferEvents, TwoImages)
{
    const auto images = imagesOf(2);
    const auto events = imageTransferEvents(images, true, true, true);
    ASSERT_EQ(events.size(), 132u);
    EXPECT_EQ(events[2], (Event{599, images[0][0]}));
    EXPECT_EQ(events[66], (Event{663, images[1][0]}));
    EXPECT_EQ(events[129], (Event{726, images[1][63]}));
    EXPECT_EQ(events[130], (Event{847, bytes("F0 00 48 05 7F 26 00 F7")}));
    EXPECT_EQ(events[131], (Event{1'327, bytes("F0 00 48 05 7F 26 01 F7")}));
}

TEST(ImageTransferEvents, WithoutOptionsTheFirstRowStandsAtTick599AllTheSame)
{
    const auto images = imagesOf(1);
    const auto events = imageTransferEvents(images, false, false, false);
    ASSERT_EQ(events.size(), 64u);
    EXPECT_EQ(events[0], (Event{599, images[0][0]}));
    const auto file = SimpleMIDIFileBuilder::wpfStyleSequence(events, ticksPerQuarterNote);
    EXPECT_EQ(Message(file.begin() + 22, file.begin() + 35), bytes("00 FF 51 03 0F 42 40 84 57 F0 81 08 00"));
}

TEST(ImageTransferEvents, WithoutImagesOnlyTheFirstTwoStand)
{
    EXPECT_THAT(imageTransferEvents({}, true, true, true),
                ElementsAre(Event{0, bytes("F0 00 48 05 7F 00 00 F7")}, Event{480, bytes("F0 00 48 05 7F 03 04 F7")}));
    EXPECT_TRUE(imageTransferEvents({}, false, false, true).empty());
}

TEST(ImageTransferEvents, AnImageWithoutMessagesStillGetsItsDrawCommand)
{
    EXPECT_THAT(
        imageTransferEvents(std::vector<Batch>(2), false, false, true),
        ElementsAre(Event{719, bytes("F0 00 48 05 7F 26 00 F7")}, Event{1'199, bytes("F0 00 48 05 7F 26 01 F7")}));
}

TEST(ImageTransferEvents, TheDrawCommandsNumberIsMaskedToSevenBits)
{
    const auto events = imageTransferEvents(std::vector<Batch>(130), false, false, true);
    EXPECT_EQ(events[127].message, bytes("F0 00 48 05 7F 26 7F F7"));
    EXPECT_EQ(events[128].message, bytes("F0 00 48 05 7F 26 00 F7"));
}

TEST(SamplingSoundEvents, OneSoundOf300SamplesWithAllOptions)
{
    const std::vector items{SamplingSoundItem{Message(600)}};
    const auto sections = SamplingSoundBuilder::buildSendDataSections(items, false);
    const auto settings = SamplingSoundBuilder::buildSettings(items);
    EXPECT_THAT(samplingSoundEvents(sections, settings, 1, true, true),
                ElementsAre(Event{0, bytes("F0 00 48 05 7F 00 00 F7")}, Event{480, sections[0]},
                            Event{481, sections[1]}, Event{482, sections[2]}, Event{603, settings[0]},
                            Event{703, bytes("B0 63 0B")}, Event{703, bytes("B0 62 00")}, Event{703, bytes("B0 06 00")},
                            Event{703, bytes("B0 26 00")}));
}

TEST(SamplingSoundEvents, SettingsStand100TicksApartAndPlaysOneSecond)
{
    const std::vector<SamplingSoundItem> items(2, {Message(2)});
    const auto settings = SamplingSoundBuilder::buildSettings(items);
    const auto events =
        samplingSoundEvents(SamplingSoundBuilder::buildSendDataSections(items, false), settings, 2, false, true);
    ASSERT_EQ(events.size(), 11u);
    EXPECT_EQ(events[1], (Event{601, settings[0]}));
    EXPECT_EQ(events[2], (Event{701, settings[1]}));
    EXPECT_EQ(events[3].absoluteTime, 801);
    EXPECT_EQ(events[9], (Event{1'281, bytes("B0 06 01")}));
    EXPECT_EQ(events[10].absoluteTime, 1'281);
}

TEST(SamplingSoundEvents, WithoutSectionsTheSettingsStandAtTick600)
{
    const std::vector<Message> settings{SamplingSoundBuilder::samplingSoundSetting(0, 0, 0)};
    EXPECT_THAT(samplingSoundEvents({}, settings, 1, false, false), ElementsAre(Event{600, settings[0]}));
    EXPECT_TRUE(samplingSoundEvents({}, {}, 0, false, true).empty());
    EXPECT_TRUE(samplingSoundEvents({}, {}, -1, false, true).empty());
}

TEST(SamplingSoundEvents, ThePlayCommandsKeepTheirOrderInTheFile)
{
    const auto file = SimpleMIDIFileBuilder::wpfStyleSequence(samplingSoundEvents({}, {}, 1, false, true), 480);
    EXPECT_EQ(Message(file.begin() + 29, file.begin() + 46),
              bytes("84 58 B0 63 0B 00 B0 62 00 00 B0 06 00 00 B0 26 00"));
}

TEST(RestoreImages, PicturesComeBackAsPackingAllows)
{
    const auto pictures = restoreImages(writtenAndParsed(imageTransferEvents(imagesOf(32), true, true, true)));
    ASSERT_EQ(pictures.size(), 32u);
    for (unsigned i = 0; i < 32; ++i)
        EXPECT_EQ(pictures[i], packedAndWidened(randomPicture(i)));
}

TEST(RestoreImages, RowsInAnotherOrderRestoreTheSame)
{
    const auto events = imageTransferEvents(imagesOf(2), false, false, false);
    EXPECT_EQ(restoreImages(writtenAndParsed(reversedInTime(events))), restoreImages(writtenAndParsed(events)));
}

TEST(RestoreImages, RowsInTheSecondTrackRestoreTheSame)
{
    const auto events = imageTransferEvents(imagesOf(2), false, false, false);
    EXPECT_EQ(restoreImages(writtenToSecondTrack(events)), restoreImages(writtenAndParsed(events)));
}

TEST(RestoreImages, Screens0And5RestoreSixRowsOfWhichFourAreBlack)
{
    const auto pictures = restoreImages(parsed({rowMessage(0, 0), rowMessage(5, 63)}));
    ASSERT_EQ(pictures.size(), 6u);
    EXPECT_EQ(std::ranges::count(pictures, black), 4);
    EXPECT_NE(pictures[0], black);
    EXPECT_NE(pictures[5], black);
    EXPECT_EQ(Picture(pictures[5].end() - 192, pictures[5].end()), Picture(192, 0xFF));
    EXPECT_EQ(Picture(pictures[5].begin(), pictures[5].end() - 192), Picture(12'288 - 192));
}

TEST(RestoreImages, ALaterRowOverwritesAnEarlierOne)
{
    Message second = rowMessage(0, 0);
    std::fill(second.begin() + 8, second.end() - 1, std::uint8_t(0));
    EXPECT_EQ(restoreImages(parsed({rowMessage(0, 0), second})), std::vector<Picture>{black});
}

TEST(RestoreImages, AMessageOf134Or136BytesIsNoRow)
{
    EXPECT_EQ(restoreImages(parsed({rowMessage(0, 0, 128)})).size(), 1u);
    EXPECT_TRUE(restoreImages(parsed({rowMessage(0, 0, 127)})).empty());
    EXPECT_TRUE(restoreImages(parsed({rowMessage(0, 0, 129)})).empty());
}

TEST(RestoreImages, ScreensFrom32AndRowsFrom64AreIgnored)
{
    EXPECT_EQ(restoreImages(parsed({rowMessage(31, 63)})).size(), 32u);
    EXPECT_TRUE(restoreImages(parsed({rowMessage(32, 0), rowMessage(0, 64), rowMessage(0x7F, 0x7F)})).empty());
}

TEST(RestoreImages, AMessageWithoutItsEndsIsARowToo)
{
    const Message row = rowMessage(0, 0);
    EXPECT_EQ(restoreImages(parsed({Message(row.begin(), row.end() - 1)})).size(), 1u);
    EXPECT_EQ(restoreImages(parsed({Message(row.begin() + 1, row.end())})).size(), 1u);
}

TEST(Restore, OtherCommandsAndOtherMakersGiveEmptyLists)
{
    const auto events = parsed({bytes("F0 00 48 05 7F 00 00 F7"),
                                bytes("F0 00 48 05 7F 26 00 F7"),
                                bytes("F0 7E 7F 09 01 F7"),
                                {},
                                bytes("F0"),
                                bytes("F7"),
                                bytes("F0 F7"),
                                bytes("F0 00 48 05 7F F7"),
                                joined({bytes("F0 00 48 05 7F 40"), Message(130, 0), bytes("F7")}),
                                joined({bytes("F0 00 48 05 7E 20"), Message(130, 0), bytes("F7")})});
    EXPECT_TRUE(restoreImages(events).empty());
    EXPECT_TRUE(restoreSounds(events).empty());
}

TEST(Restore, AFileOfToneDataGivesEmptyLists)
{
    const auto events = parseMIDIEvents(toneDataFile(factoryToneInstrument(), {false, false, false}));
    EXPECT_GT(events.size(), 1'000u) << "all user sounds and waveforms";
    EXPECT_TRUE(restoreImages(events).empty());
    EXPECT_TRUE(restoreSounds(events).empty());
}

TEST(RestoreSounds, SoundsComeBackAsTheCodecAllows)
{
    std::vector<SamplingSoundItem> items(3);
    std::mt19937 random(4);
    for (auto& item : items) {
        item.pcm16LittleEndian.resize(2 * (random() % 1000));
        for (auto& byte : item.pcm16LittleEndian)
            byte = static_cast<std::uint8_t>(random());
    }
    const auto events = samplingSoundEvents(SamplingSoundBuilder::buildSendDataSections(items, false),
                                            SamplingSoundBuilder::buildSettings(items), 3, true, true);
    const auto restored = restoreSounds(writtenAndParsed(events));
    ASSERT_EQ(restored.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(restored[i].sampleCount(), items[i].sampleCount());
        EXPECT_EQ(SamplingSoundBuilder::serializeULawSamples(std::span(restored).subspan(i, 1), false),
                  SamplingSoundBuilder::serializeULawSamples(std::span(items).subspan(i, 1), false));
    }
}

TEST(RestoreSounds, MessagesInAnotherOrderOrInTheSecondTrackRestoreTheSame)
{
    const std::vector<SamplingSoundItem> items{{Message(600, 0x12)}, {Message(200, 0x34)}};
    const auto events = samplingSoundEvents(SamplingSoundBuilder::buildSendDataSections(items, false),
                                            SamplingSoundBuilder::buildSettings(items), 2, false, false);
    const auto inOrder = restoreSounds(writtenAndParsed(events));
    EXPECT_EQ(SamplingSoundBuilder::serializeULawSamples(inOrder, false),
              SamplingSoundBuilder::serializeULawSamples(items, false));
    EXPECT_EQ(restoreSounds(writtenAndParsed(reversedInTime(events))), inOrder);
    EXPECT_EQ(restoreSounds(writtenToSecondTrack(events)), inOrder);
}

TEST(RestoreSounds, SectionsWithoutSettingsRestoreNothing)
{
    EXPECT_TRUE(restoreSounds(parsed({SamplingSoundBuilder::samplingSoundSendData(0, Message(128, 0x7F))})).empty());
}

TEST(RestoreSounds, ARangeBeyondTheSectionsIsSilentThere)
{
    const auto sounds = restoreSounds(parsed({SamplingSoundBuilder::samplingSoundSendData(0, Message(128, 0x7F)),
                                              SamplingSoundBuilder::samplingSoundSetting(0, 127, 3)}));
    ASSERT_EQ(sounds.size(), 1u);
    EXPECT_EQ(sounds[0].pcm16LittleEndian, bytes("FF 7F 00 00 00 00"));
}

TEST(RestoreSounds, ANumberWithoutASettingIsAnEmptySound)
{
    const auto sounds = restoreSounds(parsed({SamplingSoundBuilder::samplingSoundSetting(2, 0, 1)}));
    ASSERT_EQ(sounds.size(), 3u);
    EXPECT_TRUE(sounds[0].pcm16LittleEndian.empty());
    EXPECT_TRUE(sounds[1].pcm16LittleEndian.empty());
    EXPECT_EQ(sounds[2].pcm16LittleEndian, bytes("00 00"));
}

TEST(RestoreSounds, LaterSettingsAndSectionsReplaceEarlierOnes)
{
    const auto sounds = restoreSounds(parsed({SamplingSoundBuilder::samplingSoundSendData(0, Message(128, 0x7F)),
                                              SamplingSoundBuilder::samplingSoundSetting(0, 0, 5),
                                              SamplingSoundBuilder::samplingSoundSetting(0, 0, 1),
                                              SamplingSoundBuilder::samplingSoundSendData(0, Message(128, 0x01))}));
    ASSERT_EQ(sounds.size(), 1u);
    EXPECT_EQ(sounds[0].pcm16LittleEndian, bytes("00 80"));
}

TEST(RestoreSounds, NumbersAreMaskedToSevenBitsAByte)
{
    Message setting = SamplingSoundBuilder::samplingSoundSetting(0, 0, 2);
    for (std::size_t i = 7; i < 13; ++i)
        setting[i] |= 0x80;
    EXPECT_EQ(restoreSounds(parsed({setting})).at(0).sampleCount(), 2u);
}

TEST(RestoreSounds, SettingsOfAnotherLengthOrOfSoundsFrom32AreIgnored)
{
    EXPECT_TRUE(restoreSounds(parsed({bytes("F0 00 48 05 7F 31 00 00 00 00 00 00 F7"),
                                      bytes("F0 00 48 05 7F 31 00 00 00 00 00 00 01 00 F7"),
                                      bytes("F0 00 48 05 7F 31 20 00 00 00 00 00 01 F7")}))
                    .empty());
}

TEST(RestoreSounds, SectionsOf134Or136BytesAreIgnored)
{
    for (const std::size_t codeCount : {127u, 129u}) {
        const auto sounds =
            restoreSounds(parsed({joined({bytes("F0 00 48 05 7F 30 00 00"), Message(codeCount, 0x7F), bytes("F7")}),
                                  SamplingSoundBuilder::samplingSoundSetting(0, 0, 1)}));
        EXPECT_EQ(sounds.at(0).pcm16LittleEndian, bytes("00 00"));
    }
}

} // namespace
} // namespace tonavelle::TransferMIDIFileBuilder
