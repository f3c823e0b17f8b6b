#include "core/tone/ToneDefaults.h"

#include "core/tone/FactoryMelodyTable.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

TEST(DefaultChannels, AllPlayThePianoAndTheTenthIsADrumChannel)
{
    const std::vector<ChannelToneParameters> channels = defaultChannels();
    ASSERT_EQ(channels.size(), 16u);
    for (std::size_t i = 0; i < channels.size(); ++i) {
        ChannelToneParameters expected;
        if (i == 9) expected.drumTrackSetting = ToneDrumTrackSetting::drum;
        EXPECT_EQ(channels[i], expected) << "channel " << i + 1;
    }
}

TEST(DefaultUserMelodies, AreAllAlikeButForTheirPlace)
{
    const std::vector<UserTonePatch> patches = defaultUserMelodies();
    ASSERT_EQ(patches.size(), 128u);
    for (int i = 0; i < 128; ++i)
        EXPECT_EQ(patches[static_cast<std::size_t>(i)],
                  (UserTonePatch{.id = i, .name = "User Melody", .parameters = {}}));
}

TEST(DefaultUserDrums, AreTheDrumTableNoteByNote)
{
    const std::vector<UserTonePatch> patches = defaultUserDrums();
    ASSERT_EQ(patches.size(), 128u);
    EXPECT_EQ(patches[38].id, 38);
    EXPECT_EQ(patches[38].name, "Acoustic Snare");
    EXPECT_EQ(patches[38].noteNumber, 69);
    EXPECT_EQ(patches[127].name, "");
    EXPECT_FALSE(patches[38].presetProgram.has_value());
}

TEST(IsDefaultUserMelody, IgnoresNoteNumberAndPresetProgram)
{
    UserTonePatch patch = defaultUserMelodies()[3];
    patch.noteNumber = 60;
    patch.presetProgram = 5;
    EXPECT_TRUE(isDefaultUserMelody(patch));
}

TEST(IsDefaultUserMelody, ComparesNamesAsTheModuleGetsThem)
{
    UserTonePatch patch = defaultUserMelodies()[3];
    patch.name = "User Melody ";
    EXPECT_TRUE(isDefaultUserMelody(patch));
    patch.name = "User Melody  and more";
    EXPECT_TRUE(isDefaultUserMelody(patch));
    patch.name = "User Melodi";
    EXPECT_FALSE(isDefaultUserMelody(patch));
}

TEST(IsDefaultUserMelody, SeesEveryParameterEvenOneThatIsNotSent)
{
    UserTonePatch patch = defaultUserMelodies()[3];
    patch.parameters.volume = 3;
    EXPECT_FALSE(isDefaultUserMelody(patch));
}

TEST(IsDefaultUserDrum, SeesSoundAndPitchButNotTheName)
{
    UserTonePatch patch = defaultUserDrums()[38];
    patch.name = "My Snare";
    EXPECT_TRUE(isDefaultUserDrum(patch));
    patch.noteNumber = 70;
    EXPECT_FALSE(isDefaultUserDrum(patch));
    patch = defaultUserDrums()[38];
    patch.parameters.decay = 1;
    EXPECT_FALSE(isDefaultUserDrum(patch));
}

} // namespace
} // namespace tonavelle
