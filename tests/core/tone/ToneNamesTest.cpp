#include "core/tone/ToneNames.h"

#include "core/tone/ToneDefaults.h"

#include <gtest/gtest.h>

namespace tonavelle {
namespace {

constexpr auto drum = ToneDrumTrackSetting::drum;
constexpr auto user = ToneBankKind::user;

std::string displayName(const ChannelToneValues& values)
{
    std::vector<UserTonePatch> melodies = defaultUserMelodies();
    melodies[4].name = "Mine";
    return channelDisplayName(ChannelToneParameters(values), melodies, "My Drums");
}

TEST(NormalizedPatchName, ThreeKanaBecomeTwelveBlanks)
{
    EXPECT_EQ(normalizedPatchName("あいう"), "            ");
}

TEST(NormalizedPatchName, FillsAShortNameAndCutsALongOne)
{
    EXPECT_EQ(normalizedPatchName("Pad"), "Pad         ");
    EXPECT_EQ(normalizedPatchName("abcdefghijklmnopqrst"), "abcdefghijkl");
    EXPECT_EQ(normalizedPatchName(""), "            ");
}

TEST(NormalizedPatchName, CountsScalarsBeforeItReplacesThem)
{
    EXPECT_EQ(normalizedPatchName("あ23456789012X"), " 23456789012");
    EXPECT_EQ(normalizedPatchName("a\U0001F3B9z"), "a z         ");
}

TEST(NormalizedPatchName, ReplacesControlsAndDelete)
{
    EXPECT_EQ(normalizedPatchName("a\tb\x7F~"), "a b ~       ");
}

TEST(LimitedPatchName, IsNotFilled)
{
    EXPECT_EQ(limitedPatchName("Pad"), "Pad");
    EXPECT_EQ(limitedPatchName("ドラムset"), "   set");
    EXPECT_EQ(limitedPatchName("abcdefghijklm"), "abcdefghijkl");
    EXPECT_EQ(limitedPatchName(""), "");
}

TEST(ChannelDisplayName, NamesDrumSets)
{
    EXPECT_EQ(displayName({.drumTrackSetting = drum, .programChange = 9}), "001:Standard Set");
    EXPECT_EQ(displayName({.drumTrackSetting = drum, .bankKind = user, .programChange = 9}), "001:My Drums");
}

TEST(ChannelDisplayName, NamesMelodyPrograms)
{
    EXPECT_EQ(displayName({.programChange = 40}), "041:Violin :");
    EXPECT_EQ(displayName({.bankKind = user, .programChange = 4}), "005:Mine");
    EXPECT_EQ(displayName({.bankKind = user, .programChange = 127}), "128:User Melody");
}

TEST(ChannelDisplayName, ProgramPastTheEndTakesTheLastRow)
{
    std::vector<UserTonePatch> melodies = defaultUserMelodies();
    melodies.resize(3);
    const ChannelToneParameters channel({.bankKind = user, .programChange = 90});
    EXPECT_EQ(channelDisplayName(channel, melodies, ""), "003:User Melody");
    EXPECT_EQ(channelDisplayName(channel, {}, ""), "");
}

TEST(PresetMenuItems, ListTheBankOfTheChannel)
{
    const std::vector<UserTonePatch> melodies = defaultUserMelodies();
    const auto presets = presetMenuItems(ChannelToneParameters(), melodies, "x");
    ASSERT_EQ(presets.size(), 128u);
    EXPECT_EQ(presets[0], (TonePresetMenuItem{0, "001:Piano 1"}));
    EXPECT_EQ(presets[127], (TonePresetMenuItem{127, "128:Gun Shot"}));
    const auto users = presetMenuItems(ChannelToneParameters({.bankKind = user}), melodies, "x");
    ASSERT_EQ(users.size(), 128u);
    EXPECT_EQ(users[99], (TonePresetMenuItem{99, "100:User Melody"}));
}

TEST(PresetMenuItems, DrumChannelHasASingleRow)
{
    const ChannelToneParameters channel({.drumTrackSetting = drum, .bankKind = user, .programChange = 7});
    EXPECT_EQ(presetMenuItems(channel, {}, "Kit"), (std::vector<TonePresetMenuItem>{{0, "001:Kit"}}));
}

TEST(DrumNoteDisplayName, ShowsTheNameInBracketsWhereThereIsOne)
{
    EXPECT_EQ(drumNoteDisplayName(38, "Acoustic Snare"), "038 (Acoustic Snare)");
    EXPECT_EQ(drumNoteDisplayName(0, ""), "000");
    EXPECT_EQ(drumNoteDisplayName(127, ""), "127");
}

} // namespace
} // namespace tonavelle
