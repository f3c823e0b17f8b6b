#include "core/tone/UserWaveformBuilder.h"
#include "tests/support/Bytes.h"

#include <functional>
#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using namespace UserWaveformBuilder;
using orvim::test::bytes;
using Kind = UserWaveformError::Kind;

std::optional<Kind> failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const UserWaveformError& error) {
        return error.kind();
    }
    return std::nullopt;
}

/// The third section holds -1, 0x1234, 0x7FFF, -32768 and zeros.
UserWaveform marked()
{
    UserWaveform samples(sampleCount, 0);
    samples[32] = -1;
    samples[33] = 0x1234;
    samples[34] = 0x7FFF;
    samples[35] = -32768;
    return samples;
}

Message markedMessage()
{
    return bytes("F0 00 48 05 7F 48 03 02"
                 "0F 0F 0F 0F 01 02 03 04 07 0F 0F 0F 08 00 00 00"
                 "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
                 "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
                 "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
                 "F7");
}

TEST(SectionSysEx, CarriesSixteenSamplesByNibbles)
{
    EXPECT_EQ(sectionSysEx(3, 2, marked()), markedMessage());
    EXPECT_EQ(sectionSysEx(0, 127, marked()).size(), 73u);
}

TEST(SectionSysEx, ChecksSlotThenSectionThenSampleCount)
{
    const UserWaveform whole = flat();
    const UserWaveform tooShort(2047);
    EXPECT_EQ(failureOf([&] { sectionSysEx(4, 0, whole); }), Kind::invalidSlot);
    EXPECT_EQ(failureOf([&] { sectionSysEx(0, 128, whole); }), Kind::invalidSection);
    EXPECT_EQ(failureOf([&] { sectionSysEx(4, 128, tooShort); }), Kind::invalidSlot);
    EXPECT_EQ(failureOf([&] { sectionSysEx(0, 128, tooShort); }), Kind::invalidSection);
    EXPECT_EQ(failureOf([&] { sectionSysEx(0, 0, tooShort); }), Kind::invalidSampleCount);
    EXPECT_EQ(failureOf([&] { sectionSysEx(0, 0, UserWaveform(2049)); }), Kind::invalidSampleCount);
    EXPECT_EQ(failureOf([&] { sectionSysEx(-1, 0, whole); }), Kind::invalidSlot);
    EXPECT_EQ(failureOf([&] { sectionSysEx(0, -1, whole); }), Kind::invalidSection);
    EXPECT_EQ(failureOf([&] { sectionSysEx(3, 127, whole); }), std::nullopt);
}

TEST(SysExMessages, AreAllSectionsInOrder)
{
    const Batch messages = sysExMessages(3, marked());
    ASSERT_EQ(messages.size(), 128u);
    for (int section = 0; section < sectionCount; ++section)
        EXPECT_EQ(messages[static_cast<std::size_t>(section)], sectionSysEx(3, section, marked()));
}

TEST(SysExMessages, FailAsTheirSectionsDo)
{
    EXPECT_EQ(failureOf([] { sysExMessages(4, {}); }), Kind::invalidSlot);
    EXPECT_EQ(failureOf([] { sysExMessages(0, {}); }), Kind::invalidSampleCount);
}

TEST(DecodedSectionSamples, GiveBackEveryWaveform)
{
    UserWaveform waveform(sampleCount);
    for (std::size_t i = 0; i < sampleCount; ++i)
        waveform[i] = static_cast<std::int16_t>(i * 32 - 32768);
    UserWaveform rebuilt;
    for (const Message& message : sysExMessages(2, waveform)) {
        const auto section = decodedSectionSamples(message);
        ASSERT_TRUE(section);
        EXPECT_EQ(section->slot, 2);
        EXPECT_EQ(static_cast<std::size_t>(section->section) * 16, rebuilt.size());
        rebuilt.insert(rebuilt.end(), section->samples.begin(), section->samples.end());
    }
    EXPECT_EQ(rebuilt, waveform);
}

TEST(DecodedSectionSamples, MaskSlotSectionAndTheLowerNibbles)
{
    Message message = markedMessage();
    message[6] |= 0x80;
    message[7] |= 0x80;
    message[9] |= 0x70;
    message[10] |= 0xF0;
    message[11] |= 0x30;
    const WaveformSection expected{3, 2, {-1, 0x1234, 0x7FFF, -32768}};
    EXPECT_EQ(decodedSectionSamples(message), expected);
}

TEST(DecodedSectionSamples, RefuseEveryOtherMessage)
{
    const Message good = markedMessage();
    for (const std::size_t position : {0u, 1u, 2u, 3u, 4u, 5u, 72u}) {
        Message message = good;
        message[position] ^= 0x01;
        EXPECT_EQ(decodedSectionSamples(message), std::nullopt) << position;
    }
    Message otherSlot = good;
    otherSlot[6] = 4;
    EXPECT_EQ(decodedSectionSamples(otherSlot), std::nullopt);
    Message longer = good;
    longer.insert(longer.end() - 1, 0x00);
    EXPECT_EQ(decodedSectionSamples(longer), std::nullopt);
    for (std::size_t size = 0; size < good.size(); ++size)
        EXPECT_EQ(decodedSectionSamples(std::span(good).first(size)), std::nullopt) << size;
}

TEST(PreviewMessages, MakeAChannelSoundTheSlot)
{
    const Batch expected{
        bytes("B2 63 0A"), bytes("B2 62 00"), bytes("B2 06 00"), bytes("B2 26 00"),
        bytes("B2 00 00"), bytes("B2 20 00"), bytes("C2 50"),    bytes("B2 63 02"),
        bytes("B2 62 00"), bytes("B2 06 0B"), bytes("B2 26 00"),
    };
    EXPECT_EQ(previewMessages(3, 2), expected);
    EXPECT_EQ(previewMessages(3, 0x12), expected);
    EXPECT_EQ(previewMessages(0, 0)[9], bytes("B0 06 08"));
}

TEST(PreviewMessages, FailOnASlotAboveThree)
{
    EXPECT_EQ(failureOf([] { previewMessages(4, 0); }), Kind::invalidSlot);
}

} // namespace
} // namespace tonavelle
