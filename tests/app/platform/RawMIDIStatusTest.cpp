#include "platform/RawMIDIStatus.h"

#include <gtest/gtest.h>
#include <string>

namespace orvim {
namespace {

using Streams = std::vector<RawMIDIStream>;

const std::string openModule = "Tonavelle_mini\n"
                               "\n"
                               "Output 0\n"
                               "  Tx bytes     : 53079\n"
                               "  Owner PID    : 812\n"
                               "  Mode         : native\n"
                               "  Buffer size  : 4096\n"
                               "  Avail        : 1043\n"
                               "Output 1\n"
                               "  Tx bytes     : 7\n"
                               "Input 0\n"
                               "  Rx bytes     : 12\n"
                               "  Buffer size  : 4096\n"
                               "  Avail        : 40\n"
                               "  Overruns     : 0\n";

TEST(RawMIDIStatus, ReadsTheRingOfAnOpenOutput)
{
    const Streams expected{{true, 0, 53079, RawMIDIStream::Ring{4096, 1043}},
                           {true, 1, 7, std::nullopt},
                           {false, 0, 0, RawMIDIStream::Ring{4096, 40}}};
    EXPECT_EQ(parseRawMIDIStatus(openModule), expected);
}

TEST(RawMIDIStatus, AStreamThatNobodyHoldsOpenHasNoRing)
{
    EXPECT_EQ(parseRawMIDIStatus("Module\n\nOutput 3\n  Tx bytes     : 0\n"), (Streams{{true, 3, 0, std::nullopt}}));
}

TEST(RawMIDIStatus, CountsBytesAbove32Bits)
{
    EXPECT_EQ(parseRawMIDIStatus("Output 0\n  Tx bytes     : 6000000000\n"),
              (Streams{{true, 0, 6'000'000'000u, std::nullopt}}));
}

TEST(RawMIDIStatus, ADeviceNamedLikeAStreamIsNotOne)
{
    EXPECT_EQ(parseRawMIDIStatus("Output stage\n\nInput 0\n"), (Streams{{false, 0, 0, std::nullopt}}));
}

TEST(RawMIDIStatus, MoreRoomThanTheRingHasIsNotBelieved)
{
    EXPECT_EQ(parseRawMIDIStatus("Output 0\n  Buffer size  : 100\n  Avail        : 101\n"),
              (Streams{{true, 0, 0, std::nullopt}}));
}

TEST(RawMIDIStatus, NumbersThatAreNoneAreIgnored)
{
    EXPECT_EQ(parseRawMIDIStatus("Output 0\n  Tx bytes     : 99999999999999999999\n  Avail        : -1\n"),
              (Streams{{true, 0, 0, std::nullopt}}));
}

TEST(RawMIDIStatus, EveryPrefixOfATextIsReadWithoutInventingStreams)
{
    for (std::size_t length = 0; length <= openModule.size(); ++length) {
        const Streams streams = parseRawMIDIStatus(std::string_view(openModule).substr(0, length));
        EXPECT_LE(streams.size(), 3u) << length;
    }
}

} // namespace
} // namespace orvim
