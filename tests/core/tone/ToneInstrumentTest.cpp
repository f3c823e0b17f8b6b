#include "core/tone/ToneInstrument.h"

#include "core/tone/UserWaveformBuilder.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

TEST(ToneInstrument, TakesSixteenChannelsFromAnImport)
{
    ImportedToneData data = factoryToneData();
    data.channels[15].volume = 1;
    data.channels.push_back(ChannelToneParameters({.volume = 2}));
    EXPECT_EQ(toneInstrument(data).channels.size(), 16u);
    EXPECT_EQ(toneInstrument(data).channels[15].volume, 1);
    data.channels.resize(9);
    EXPECT_EQ(toneInstrument(data).channels, factoryToneInstrument().channels) << "channel 10 is a drum channel again";
}

TEST(ToneInstrument, NumbersThePatchesAndForgetsTheirPresets)
{
    ImportedToneData data = factoryToneData();
    data.userMelodies[7] = {"Mine", ChannelToneParameters({.attack = 3}), 0};
    const ToneInstrument instrument = toneInstrument(data);
    EXPECT_EQ(instrument.userMelodies[7],
              (UserTonePatch{.id = 7, .name = "Mine", .parameters = ChannelToneParameters({.attack = 3})}));
}

TEST(ToneInstrument, LimitsTheDrumSetName)
{
    ImportedToneData data = factoryToneData();
    data.userDrumName = "abc\x01"
                        "efghijklmn";
    EXPECT_EQ(toneInstrument(data).drumSetName, "abc efghijkl");
    data.userDrumName = "Kit";
    EXPECT_EQ(toneInstrument(data).drumSetName, "Kit") << "it is not filled with blanks";
}

TEST(ToneInstrument, ReplacesAWaveformThatIsNotWhole)
{
    ImportedToneData data = factoryToneData();
    data.userWaveforms[0].assign(2048, 7);
    data.userWaveforms[1].resize(5);
    data.userWaveforms.resize(2);
    const ToneInstrument instrument = toneInstrument(data);
    ASSERT_EQ(instrument.userWaveforms.size(), 4u);
    EXPECT_EQ(instrument.userWaveforms[0], UserWaveform(2048, 7));
    for (std::size_t slot = 1; slot < 4; ++slot)
        EXPECT_EQ(instrument.userWaveforms[slot], UserWaveformBuilder::sine());
}

} // namespace
} // namespace tonavelle
