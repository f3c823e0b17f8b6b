#include "core/tone/FactoryMelodyTable.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace tonavelle {
namespace {

// clang-format off
constexpr std::array<std::string_view, 128> names{
    "001:Piano 1", "002:Piano 2", "003:Piano 3", "004:Honky-tonk", "005:E.Piano 1", "006:E.Piano 2",
    "007:Harpsichord", "008:Clav.", "009:Celesta", "010:Glockenspiel", "011:Music Box", "012:Vibraphone",
    "013:Marimba", "014:Xylophone", "015:Tubular-bell", "016:Santur", "017:Organ 1", "018:Organ 2", "019:Organ 3",
    "020:Church Org.1", "021:Reed Organ", "022:Accordion Fr", "023:Harmonica", "024:Bandoneon", "025:Nylon-str.Gt",
    "026:Steel-str.Gt", "027:Jazz Gt.", "028:Clean Gt.", "029:Muted Gt.", "030:Overdrive Gt", "031:DistortionGt",
    "032:Gt.Harmonics", "033:Acoustic Bs.", "034:Fingered Bs.", "035:Picked Bass", "036:Fretless Bs.",
    "037:Slap Bass 1", "038:Slap Bass 2", "039:Synth Bass 1", "040:Synth Bass 2", "041:Violin :", "042:Viola :",
    "043:Cello :", "044:Contrabass", "045:Tremolo Str", "046:PizzicatoStr", "047:Harp", "048:Timpani",
    "049:Strings :", "050:Slow Strings", "051:Syn.Strings1", "052:Syn.Strings2", "053:Choir Aahs", "054:Voice Oohs",
    "055:SynVox", "056:OrchestraHit", "057:Trumpet", "058:Trombone", "059:Tuba", "060:MutedTrumpet",
    "061:French Horns", "062:Brass 1", "063:Synth Brass1", "064:Synth Brass2", "065:Soprano Sax", "066:Alto Sax",
    "067:Tenor Sax", "068:Baritone Sax", "069:Oboe", "070:English Horn", "071:Bassoon", "072:Clarinet", "073:Piccolo",
    "074:Flute", "075:Recorder", "076:Pan Flute", "077:Bottle Blow", "078:Shakuhachi", "079:Whistle", "080:Ocarina",
    "081:Square Wave", "082:Saw Wave", "083:Syn.Calliope", "084:Chiffer Lead", "085:Charang", "086:Solo Vox",
    "087:5th Saw Wave", "088:Bass & Lead", "089:Fantasia", "090:Warm Pad", "091:Polysynth", "092:Space Voice",
    "093:Bowed Glass", "094:Metal Pad", "095:Halo Pad", "096:Sweep Pad", "097:Ice Rain", "098:Soundtrack",
    "099:Crystal", "100:Atmosphere", "101:Brightness", "102:Goblin", "103:Echo Drops", "104:Star Theme", "105:Sitar",
    "106:Banjo", "107:Shamisen", "108:Koto", "109:Kalimba", "110:Bagpipe", "111:Fiddle", "112:Shanai",
    "113:Tinkle Bell", "114:Agogo", "115:Steel Drums", "116:Woodblock", "117:Taiko", "118:Melo. Tom 1",
    "119:Synth Drum", "120:Reverse Cym.", "121:Gt.FretNoise", "122:Breath Noise", "123:Seashore", "124:Bird",
    "125:Telephone 1", "126:Helicopter", "127:Applause", "128:Gun Shot",
};
// clang-format on

TEST(FactoryMelodyTable, NamesThe128ProgramsInOrder)
{
    const std::vector<TonePreset>& presets = factoryMelodyPresets();
    ASSERT_EQ(presets.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(presets[i].name, names[i]);
}

TEST(FactoryMelodyTable, ANameKeepsItsNumberAndItsLastBlankAndColon)
{
    EXPECT_EQ(factoryMelodyPresets().at(40).name, "041:Violin :");
    const auto presets = parseMelodyTable("header\n"
                                          "041:Violin :,NOTE_MELODY,SAW,0,0,0,SWEEP_NONE,0,0,0,0,0,0,0,0,\n"
                                          " 7:Odd ,NOTE_MELODY,SAW,0,0,0,SWEEP_NONE,0,0,0,0,0,0,0,0,\n");
    ASSERT_EQ(presets.size(), 2u);
    EXPECT_EQ(presets[0].name, "041:Violin :") << "the number is the table's, not the row's";
    EXPECT_EQ(presets[1].name, " 7:Odd ");
}

TEST(FactoryMelodyTable, FirstPresetIsTheSoundOfTheDefaultChannel)
{
    ChannelToneParameters channel({.isReleaseActive = false, .waveType = 5, .attack = 99});
    applyPreset(factoryMelodyPresets().at(0), channel);
    EXPECT_EQ(channel, ChannelToneParameters());
}

TEST(FactoryMelodyTable, HoldsItsTellingRows)
{
    // clang-format off
    const std::vector<TonePreset> telling{
        // name, wave, number, multiply, gain, sweep, speed, attack, decay, level, rate, release, released by key, output
        {"001:Piano 1", 0, 0, 31, 70, 2, 0, 0, 5, 90, 12, 0, true, 48},
        {"011:Music Box", 0, 0, 95, 40, 2, 0, 0, 15, 40, 15, 0, false, 43},
        {"017:Organ 1", 0, 0, 95, 64, 2, 0, 1, 2, 100, 0, 0, true, 44},
        {"046:PizzicatoStr", 1, 0, 31, 127, 2, 0, 0, 5, 60, 75, 0, false, 53},
        {"081:Square Wave", 1, 0, 0, 0, 2, 0, 0, 0, 127, 0, 0, true, 30},
        {"090:Warm Pad", 0, 0, 95, 120, 2, 0, 127, 127, 80, 0, 35, true, 43},
        {"114:Agogo", 0, 0, 127, 100, 2, 40, 0, 8, 45, 110, 6, false, 46},
        {"117:Taiko", 2, 0, 20, 127, 1, 35, 0, 8, 80, 127, 5, false, 47},
        {"120:Reverse Cym.", 7, 9, 31, 0, 2, 0, 0, 8, 127, 0, 0, true, 80},
        {"121:Gt.FretNoise", 1, 0, 31, 127, 0, 30, 3, 8, 50, 0, 5, false, 62},
        {"122:Breath Noise", 4, 0, 31, 0, 2, 10, 8, 8, 50, 127, 5, false, 36},
        {"124:Bird", 0, 0, 0, 0, 0, 100, 8, 8, 50, 0, 5, true, 43},
        {"126:Helicopter", 4, 0, 1, 127, 2, 0, 127, 0, 127, 0, 50, true, 33},
        {"128:Gun Shot", 4, 0, 10, 127, 2, 0, 0, 10, 100, 40, 3, true, 39},
    };
    // clang-format on
    for (const TonePreset& row : telling) {
        const auto program = static_cast<std::size_t>(std::stoi(row.name)) - 1;
        EXPECT_EQ(factoryMelodyPresets().at(program), row) << row.name;
    }
}

TEST(FactoryMelodyTable, EveryValueLiesInItsRange)
{
    for (const TonePreset& preset : factoryMelodyPresets()) {
        EXPECT_LE(preset.waveType, 7) << preset.name;
        EXPECT_LE(preset.waveNumber, 12) << preset.name;
        EXPECT_LE(preset.sweepType, 2) << preset.name;
        for (const int value : {preset.ringModMultiply, preset.ringModGain, preset.sweepSpeed, preset.attack,
                                preset.decay, preset.sustainLevel, preset.sustainRate, preset.release})
            EXPECT_LE(value, 127) << preset.name;
        EXPECT_GE(preset.outputGain, 1) << preset.name << " would be silent";
    }
}

TEST(FactoryMelodyTable, NoTwoNeighboursSoundAlike)
{
    const std::vector<TonePreset>& presets = factoryMelodyPresets();
    for (std::size_t i = 1; i < presets.size(); ++i) {
        TonePreset renamed = presets[i];
        renamed.name = presets[i - 1].name;
        EXPECT_NE(renamed, presets[i - 1]) << presets[i].name;
    }
}

TEST(FactoryMelodyTable, OnlyTheReverseCymbalIsASample)
{
    for (const TonePreset& preset : factoryMelodyPresets())
        EXPECT_EQ(preset.waveType >= 6, preset.name == "120:Reverse Cym.") << preset.name;
}

TEST(FactoryMelodyTable, ThreeRowsHaveASweepSpeedWithoutASweep)
{
    for (const TonePreset& preset : factoryMelodyPresets()) {
        const bool isOdd =
            preset.name == "114:Agogo" || preset.name == "116:Woodblock" || preset.name == "122:Breath Noise";
        EXPECT_EQ(preset.sweepType == 2 && preset.sweepSpeed != 0, isOdd) << preset.name;
    }
}

TEST(ParseMelodyTable, SkipsTheHeaderAndDropsShortLines)
{
    const auto presets = parseMelodyTable("header\n"
                                          "x,NOTE_MELODY,SAW,1,2,3,SWEEP_UP,4,5,6,7,8,9,10\n"
                                          "y,NOTE_MELODY,SAW,1,2,3,SWEEP_UP,4,5,6,7,8,9,10,11\n"
                                          "\n");
    ASSERT_EQ(presets.size(), 1u);
    EXPECT_EQ(presets[0], (TonePreset{"y", 3, 1, 2, 3, 0, 4, 5, 6, 7, 8, 9, true, 11}));
}

TEST(ParseMelodyTable, TextWithoutRowsGivesNothing)
{
    EXPECT_TRUE(parseMelodyTable("").empty());
    EXPECT_TRUE(parseMelodyTable("Name,NoteType").empty());
}

TEST(ParseMelodyTable, UnknownWordsTakeTheirFallback)
{
    const auto presets = parseMelodyTable("\nz,note_melody,SINUS,0,0,0,sweep_up,0,0,0,0,0,0,0,0,");
    ASSERT_EQ(presets.size(), 1u);
    EXPECT_FALSE(presets[0].isReleaseActive);
    EXPECT_EQ(presets[0].waveType, 0);
    EXPECT_EQ(presets[0].sweepType, 2);
}

TEST(ParseMelodyTable, ReadsNumbersLeniently)
{
    const auto presets = parseMelodyTable("\nn,NOTE_DRUM,PCM, 7\r,+12,-1,SWEEP_DOWN,,1x,200,  ,0x10,1 2,5,"
                                          "99999999999999999999999999,");
    ASSERT_EQ(presets.size(), 1u);
    EXPECT_EQ(presets[0].waveNumber, 7) << "white space around a number is trimmed";
    EXPECT_EQ(presets[0].ringModMultiply, 12);
    EXPECT_EQ(presets[0].ringModGain, 127) << "the low seven bits of -1";
    EXPECT_EQ(presets[0].sweepSpeed, 0) << "an empty field";
    EXPECT_EQ(presets[0].attack, 0) << "a number with a letter behind it";
    EXPECT_EQ(presets[0].decay, 72) << "the low seven bits of 200";
    EXPECT_EQ(presets[0].sustainLevel, 0) << "only blanks";
    EXPECT_EQ(presets[0].sustainRate, 0) << "no hexadecimal";
    EXPECT_EQ(presets[0].release, 0) << "a blank inside";
    EXPECT_EQ(presets[0].outputGain, 127) << "the low seven bits, however long the number";
}

TEST(ApplyFactoryPreset, ProgramThatIsNoRowChangesNothing)
{
    ChannelToneParameters channel({.waveType = 5});
    applyFactoryPreset(-1, channel);
    applyFactoryPreset(128, channel);
    EXPECT_EQ(channel, ChannelToneParameters({.waveType = 5}));
    applyFactoryPreset(80, channel);
    EXPECT_EQ(channel.waveType, 1);
    EXPECT_EQ(channel.outputGain, 30);
}

} // namespace
} // namespace tonavelle
