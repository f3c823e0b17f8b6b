#include "core/tone/ToneEditorBuilder.h"
#include "tests/app/support/ToneEditorTest.h"
#include "tests/app/support/ToneSteps.h"

namespace orvim {
namespace {

using test::batch;
using tonavelle::Batch;
using Tab = ToneEditorTab;
namespace Builder = tonavelle::ToneEditorBuilder;

struct Entries {
    QStringList labels;
    Batch messages;

    bool operator==(const Entries&) const = default;
};

/// Each tab after each other one, with and without a row held on the first.
class ToneEditorTabChangesTest : public test::ToneEditorTest
{
protected:
    void SetUp() override
    {
        actions.channels.selectChannel(0);
        actions.channels.chooseProgram(30);
        actions.patches.selectUserMelody(7);
        actions.waves.selectUserWave(2);
    }

    void open(Tab tab)
    {
        actions.previews.openTab(tab);
        QCoreApplication::processEvents();
    }

    /// Holds a row of the tab; none on the master's, which has no list.
    void hold(Tab tab)
    {
        if (tab == Tab::channel) actions.previews.pressChannel(3);
        if (tab == Tab::userMelody) actions.previews.pressUserMelody(5);
        if (tab == Tab::userDrum) actions.previews.pressUserDrum(40);
        if (tab == Tab::userWave) actions.previews.pressUserWave(1);
    }

    void releaseAll()
    {
        actions.previews.releaseChannel();
        actions.previews.releaseUserMelody();
        actions.previews.releaseUserDrum();
        actions.previews.releaseUserWave();
    }

    Entries expectedEntries(Tab tab) const
    {
        switch (tab) {
        case Tab::master:
            return {};
        case Tab::channel: {
            const auto restore = QStringLiteral("Restore Channel From Preview");
            Batch both = batch({"B0 63 0A", "B0 62 00", "B0 06 00", "B0 26 00", "B0 00 00", "B0 20 00", "C0 1E"});
            for (const auto& message : Builder::voiceEditMessages(0, state().instrument.channels[0]))
                both.push_back(message);
            for (const auto& message :
                 batch({"B9 63 0A", "B9 62 00", "B9 06 01", "B9 26 00", "B9 00 00", "B9 20 00", "C9 00"}))
                both.push_back(message);
            return {{restore, restore}, both};
        }
        case Tab::userMelody:
            return {{QStringLiteral("Select User Melody Patch")},
                    batch({"B0 63 0A", "B0 62 00", "B0 06 00", "B0 26 00", "B0 00 10", "B0 20 00", "C0 07"})};
        case Tab::userDrum:
            return {{QStringLiteral("Select User Drum Patch")},
                    batch({"B9 63 0A", "B9 62 00", "B9 06 01", "B9 26 00", "B9 00 10", "B9 20 00", "C9 00"})};
        case Tab::userWave:
            return {{QStringLiteral("Select User Wave Preview")},
                    batch({"B0 63 0A", "B0 62 00", "B0 06 00", "B0 26 00", "B0 00 00", "B0 20 00", "C0 50", "B0 63 02",
                           "B0 62 00", "B0 06 0A", "B0 26 00"})};
        }
        return {};
    }

    /// The end of the note that was held on `from`: always that of a channel's row, else when another tab is opened.
    static Batch expectedNoteOff(Tab from, Tab to)
    {
        if (from == Tab::channel) return batch({"83 3C 00"});
        if (from == to || from == Tab::master) return {};
        return from == Tab::userDrum ? batch({"89 28 00"}) : batch({"80 3C 00"});
    }
};

TEST_F(ToneEditorTabChangesTest, SendWhatTheNewTabNeeds)
{
    for (const Tab from : allToneEditorTabs)
        for (const Tab to : allToneEditorTabs) {
            open(from);
            forget();
            open(to);
            EXPECT_EQ((Entries{labels(), sent()}), expectedEntries(to))
                << static_cast<int>(from) << " to " << static_cast<int>(to);
            EXPECT_EQ(playedUpToNow(), Batch());
        }
}

TEST_F(ToneEditorTabChangesTest, EndTheHeldRowsNote)
{
    for (const Tab from : allToneEditorTabs)
        for (const Tab to : allToneEditorTabs) {
            open(from);
            hold(from);
            (void)playedUpToNow();
            forget();
            open(to);
            EXPECT_EQ((Entries{labels(), sent()}), expectedEntries(to))
                << static_cast<int>(from) << " to " << static_cast<int>(to);
            EXPECT_EQ(playedUpToNow(), expectedNoteOff(from, to))
                << static_cast<int>(from) << " to " << static_cast<int>(to);
            if (from != to) {
                // The row's own release comes too late to end anything.
                releaseAll();
                forget();
                EXPECT_EQ(playedUpToNow(), Batch());
            }
            releaseAll();
            (void)playedUpToNow();
        }
}

} // namespace
} // namespace orvim
