// Notes that are played while a long transfer is on its way: they go ahead of what waits, and never into a message.

#include "Editor.h"
#include "Messages.h"
#include "usbmodule/USBModule.h"

#include <algorithm>
#include <iostream>
#include <iterator>

namespace orvim::test {

namespace {

using namespace std::chrono_literals;

/// What is on its way already when a note is played: the kernel's ring, the driver's seven transfers of 128 packets
/// with three bytes each, the message that is just being written, and the notes before this one.
constexpr std::size_t usualBytesAhead = 4096 + 7 * 128 * 3 + 1010 + 3 * 64;

/// A note that had to queue behind the transfer would find 64 KiB ahead. Where the machine is busy, its own threads
/// come late, and more than the usual goes by until then.
constexpr std::size_t mostBytesAhead = 48 * 1024;

struct PlayedNote {
    tonavelle::Message message;
    Clock::time_point time;
    std::size_t arrivedBefore; ///< bytes that had come when it was played
};

/// Even notes take the road through the realtime queue, odd ones leave at once. Each road keeps its order.
bool isQueued(const tonavelle::Message& note)
{
    return note.at(1) % 2 == 0;
}

/// The notes of the one road, then those of the other.
tonavelle::Batch byRoad(tonavelle::Batch notes)
{
    std::ranges::stable_partition(notes, isQueued);
    return notes;
}

/// Sends `count` messages and plays a note after every 30th, by the two roads in turn.
std::vector<PlayedNote> playDuringTransfer(Editor& editor, const Wire& wire, std::size_t count)
{
    std::vector<PlayedNote> notes;
    for (std::size_t i = 0; i < count; ++i) {
        editor.manager().send(numberedMessage(i), QStringLiteral("Test"));
        if (i % 30 != 29) continue;
        const auto number = static_cast<std::uint8_t>(notes.size());
        notes.push_back({{0x90, number, 100}, Clock::now(), wire.size()});
        if (isQueued(notes.back().message))
            editor.manager().sendRealtime({notes.back().message});
        else
            editor.manager().sendRealtimeNow({notes.back().message});
    }
    return notes;
}

/// Says how long the notes took, and checks it by the bytes ahead of them: time depends on the machine.
void expectShortWays(const Wire& wire, const std::vector<PlayedNote>& notes, const Arrivals& arrivals)
{
    std::vector<std::size_t> bytesAhead;
    std::vector<std::chrono::duration<double, std::milli>> delays;
    for (const PlayedNote& note : notes) {
        const auto index = std::ranges::find(arrivals.others, note.message) - arrivals.others.begin();
        const std::size_t offset = arrivals.otherOffsets.at(static_cast<std::size_t>(index));
        bytesAhead.push_back(offset - note.arrivedBefore);
        delays.push_back(wire.timeOf(offset) - note.time);
    }
    std::ranges::sort(bytesAhead);
    std::ranges::sort(delays);
    const auto middle = notes.size() / 2;
    const std::chrono::duration<double> whole = wire.lastArrival() - wire.timeOf(0);
    std::cout << "  ahead of a note " << bytesAhead[middle] << " bytes, at most " << bytesAhead.back() << "; its delay "
              << delays[middle].count() << " ms, at most " << delays.back().count() << " ms, at "
              << static_cast<long>(static_cast<double>(wire.size()) / whole.count()) << " bytes/s\n";
    EXPECT_LT(bytesAhead[middle], 2 * usualBytesAhead); // threads of a busy machine come late
    EXPECT_LT(bytesAhead.back(), mostBytesAhead);
}

} // namespace

TEST(Realtime, NotesDuringALongTransferGoAheadAndNeverIntoAMessage)
{
    const USBModule module({});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    const Wire& wire = module.port(1);
    const auto notes = playDuringTransfer(editor, wire, 3000);
    waitForBytes(wire, 3000 * 137 + notes.size() * 3);

    const Arrivals arrivals = takenApart(wire.bytes());
    tonavelle::Batch played;
    std::ranges::transform(notes, std::back_inserter(played), &PlayedNote::message);
    EXPECT_EQ(arrivals.strayBytes, 0U);
    EXPECT_EQ(arrivals.systemExclusive, editor.loggedMessages());
    ASSERT_EQ(byRoad(arrivals.others), byRoad(played));
    EXPECT_EQ(editor.loggedErrors(), Lines());
    expectShortWays(wire, notes, arrivals);
}

TEST(Realtime, NotesToAModuleThatWasPulledOutAreReportedAndNeverWait)
{
    USBModule module({.hangsAt = 1, .hangsFor = 1h});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    editor.sendOneByOne(numberedMessages(100));
    const auto begin = Clock::now();
    for (int i = 0; i < 100; ++i)
        editor.manager().sendRealtimeNow({{0x90, 60, 100}});
    EXPECT_LT(Clock::now() - begin, 3s); // a single one that waited would take 5 s
    EXPECT_EQ(editor.loggedErrors(), Lines());

    module.unplug();
    EXPECT_TRUE(editor.firstErrorTime(10s));
    const auto isDeviceGone = [](const std::string& line) { return line.ends_with("に失敗しました: -19"); };
    EXPECT_TRUE(std::ranges::all_of(editor.loggedErrors(), isDeviceGone));
}

} // namespace orvim::test
