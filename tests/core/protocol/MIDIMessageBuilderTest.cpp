#include "core/protocol/MIDIMessageBuilder.h"

#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

using orvim::test::bytes;

TEST(MIDIMessageBuilder, ChannelMessagesCarryStatusAndData)
{
    EXPECT_EQ(MIDIMessageBuilder::noteOn(0, 60, 100), bytes("90 3C 64"));
    EXPECT_EQ(MIDIMessageBuilder::noteOff(15, 60, 64), bytes("8F 3C 40"));
    EXPECT_EQ(MIDIMessageBuilder::controlChange(9, 7, 127), bytes("B9 07 7F"));
    EXPECT_EQ(MIDIMessageBuilder::programChange(3, 80), bytes("C3 50"));
}

TEST(MIDIMessageBuilder, AChannelAbove15KeepsItsLowFourBits)
{
    EXPECT_EQ(MIDIMessageBuilder::noteOn(17, 60, 100), bytes("91 3C 64"));
    EXPECT_EQ(MIDIMessageBuilder::programChange(255, 0), bytes("CF 00"));
}

TEST(MIDIMessageBuilder, DataBytesKeepTheirLowSevenBits)
{
    EXPECT_EQ(MIDIMessageBuilder::noteOn(0, 128, 255), bytes("90 00 7F"));
    EXPECT_EQ(MIDIMessageBuilder::controlChange(0, 200, 300), bytes("B0 48 2C"));
    EXPECT_EQ(MIDIMessageBuilder::programChange(0, 129), bytes("C0 01"));
}

TEST(MIDIMessageBuilder, PitchBendIsLimitedToFourteenBits)
{
    EXPECT_EQ(MIDIMessageBuilder::pitchBend(0, 20000), bytes("E0 7F 7F"));
    EXPECT_EQ(MIDIMessageBuilder::pitchBend(0, -5), bytes("E0 00 00"));
}

TEST(MIDIMessageBuilder, PitchBendSendsItsLowSevenBitsFirst)
{
    EXPECT_EQ(MIDIMessageBuilder::pitchBend(2, 8192), bytes("E2 00 40"));
    EXPECT_EQ(MIDIMessageBuilder::pitchBend(2, 129), bytes("E2 01 01"));
}

TEST(MIDIMessageBuilder, AllSoundOffGoesToEveryChannelInOrder)
{
    const Batch expected{
        bytes("B0 78 00"), bytes("B1 78 00"), bytes("B2 78 00"), bytes("B3 78 00"),
        bytes("B4 78 00"), bytes("B5 78 00"), bytes("B6 78 00"), bytes("B7 78 00"),
        bytes("B8 78 00"), bytes("B9 78 00"), bytes("BA 78 00"), bytes("BB 78 00"),
        bytes("BC 78 00"), bytes("BD 78 00"), bytes("BE 78 00"), bytes("BF 78 00"),
    };
    EXPECT_EQ(MIDIMessageBuilder::allSoundOffMessages(), expected);
}

TEST(MIDIMessageBuilder, ANonRegisteredParameterIsSelectedAndWritten)
{
    EXPECT_EQ(MIDIMessageBuilder::nrpn(1, 2, 3, 4, 5),
              (Batch{bytes("B1 63 02"), bytes("B1 62 03"), bytes("B1 06 04"), bytes("B1 26 05")}));
}

TEST(MIDIMessageBuilder, ARegisteredParameterIsSelectedAndWritten)
{
    EXPECT_EQ(MIDIMessageBuilder::rpn(1, 2, 3, 4, 5),
              (Batch{bytes("B1 65 02"), bytes("B1 64 03"), bytes("B1 06 04"), bytes("B1 26 05")}));
    EXPECT_EQ(MIDIMessageBuilder::rpnWithoutDataLSB(1, 0, 2, 64),
              (Batch{bytes("B1 65 00"), bytes("B1 64 02"), bytes("B1 06 40")}));
}

TEST(MIDIMessageBuilder, OneDataValueIsLimitedAndSplit)
{
    EXPECT_EQ(MIDIMessageBuilder::rpnOneData(0, 0, 1, 8193),
              (Batch{bytes("B0 65 00"), bytes("B0 64 01"), bytes("B0 06 40"), bytes("B0 26 01")}));
    EXPECT_EQ(MIDIMessageBuilder::rpnOneData(0, 0, 1, 20000),
              (Batch{bytes("B0 65 00"), bytes("B0 64 01"), bytes("B0 06 7F"), bytes("B0 26 7F")}));
    EXPECT_EQ(MIDIMessageBuilder::rpnOneData(0, 0, 1, -1),
              (Batch{bytes("B0 65 00"), bytes("B0 64 01"), bytes("B0 06 00"), bytes("B0 26 00")}));
}

TEST(MIDIMessageBuilder, ASampledSoundPlaysOnTheFirstChannel)
{
    EXPECT_EQ(MIDIMessageBuilder::samplingSoundPlay(31),
              (Batch{bytes("B0 63 0B"), bytes("B0 62 00"), bytes("B0 06 1F"), bytes("B0 26 00")}));
}

} // namespace
} // namespace tonavelle
