#include "MIDIOutLogStore.h"

#include "tests/support/Bytes.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace orvim {
namespace {

using test::bytes;

QString numberedLines(int first, int last)
{
    QString text;
    for (int i = first; i <= last; ++i)
        text += QStringLiteral("line %1\n").arg(i);
    return text;
}

TEST(MIDIOutLogStore, BytesAreWrittenWithASuffixByDefault)
{
    EXPECT_EQ(MIDIOutLogStore().format(bytes("F0 7E 01")), QStringLiteral("F0H 7EH 01H"));
}

TEST(MIDIOutLogStore, PrefixAndCommaKeepTheLastComma)
{
    MIDIOutLogStore store;
    store.setByteFormat(LogByteFormat::prefix0x);
    store.setUsesComma(true);
    EXPECT_EQ(store.format(bytes("F0 7E 01")), QStringLiteral("0xF0, 0x7E, 0x01,"));
}

TEST(MIDIOutLogStore, BareBytesWithCommaEndInAComma)
{
    MIDIOutLogStore store;
    store.setByteFormat(LogByteFormat::none);
    store.setUsesComma(true);
    EXPECT_EQ(store.format(bytes("F0 F7")), QStringLiteral("F0, F7,"));
}

TEST(MIDIOutLogStore, AnEmptyMessageIsAnEmptyText)
{
    EXPECT_EQ(MIDIOutLogStore().format({}), QString());
}

TEST(MIDIOutLogStore, ThreeHundredLinesStayAndTheNextRemovesTheFirst)
{
    MIDIOutLogStore store;
    store.append(numberedLines(1, 300));
    EXPECT_EQ(store.text(), numberedLines(1, 300));
    store.append(numberedLines(301, 301));
    EXPECT_EQ(store.text(), numberedLines(2, 301));
    EXPECT_EQ(store.lineCount(), 300u);
}

TEST(MIDIOutLogStore, AnEntryOfSixtyFiveLinesOnAFullLogRemovesSixtyFive)
{
    MIDIOutLogStore store;
    store.append(numberedLines(1, 300));
    store.append(numberedLines(301, 365));
    EXPECT_EQ(store.text(), numberedLines(66, 365));
}

TEST(MIDIOutLogStore, OneEntryLongerThanTheLimitKeepsItsLastThreeHundredLines)
{
    MIDIOutLogStore store;
    store.append(numberedLines(1, 1000));
    EXPECT_EQ(store.text(), numberedLines(701, 1000));
}

TEST(MIDIOutLogStore, TurningTheLimitOnTrimsOnlyWithTheNextAppend)
{
    MIDIOutLogStore store;
    store.setRestrictLineCount(false);
    store.append(numberedLines(1, 1000));
    EXPECT_EQ(store.lineCount(), 1000u);
    store.setRestrictLineCount(true);
    EXPECT_EQ(store.lineCount(), 1000u);
    store.append(numberedLines(1001, 1001));
    EXPECT_EQ(store.text(), numberedLines(702, 1001));
}

TEST(MIDIOutLogStore, ALineInPiecesCountsOnceItIsWhole)
{
    MIDIOutLogStore store;
    store.append(QStringLiteral("one\ntw"));
    EXPECT_EQ(store.lineCount(), 1u);
    EXPECT_TRUE(store.endsInsideLine());
    store.append(QStringLiteral("o\n"));
    EXPECT_EQ(store.lineCount(), 2u);
    EXPECT_FALSE(store.endsInsideLine());
    EXPECT_EQ(store.text(), QStringLiteral("one\ntwo\n"));
}

TEST(MIDIOutLogStore, AnUnfinishedLineIsKeptByTheTrimBesideThreeHundredWholeOnes)
{
    MIDIOutLogStore store;
    store.append(numberedLines(1, 301) + QStringLiteral("rest"));
    EXPECT_EQ(store.text(), numberedLines(2, 301) + QStringLiteral("rest"));
}

TEST(MIDIOutLogStore, LinesAlreadyWrittenKeepTheirForm)
{
    MIDIOutLogStore store;
    store.appendLine(store.format(bytes("0A")));
    store.setByteFormat(LogByteFormat::none);
    store.appendLine(store.format(bytes("0A")));
    EXPECT_EQ(store.text(), QStringLiteral(" 0AH\n 0A\n"));
}

TEST(MIDIOutLogStore, ClearingLeavesNothingAndWritesNoLine)
{
    MIDIOutLogStore store;
    store.append(numberedLines(1, 3) + QStringLiteral("rest"));
    store.clear();
    EXPECT_EQ(store.text(), QString());
    EXPECT_EQ(store.lineCount(), 0u);
    EXPECT_EQ(store.removedLineCount(), 3u);
}

TEST(MIDIOutLogStore, TellsOfATextChangeOnlyWhenThereWasOne)
{
    MIDIOutLogStore store;
    QSignalSpy changes(&store, &MIDIOutLogStore::textChanged);
    store.clear();
    store.append(QString());
    EXPECT_EQ(changes.count(), 0);
    store.appendLine(QStringLiteral("x"));
    EXPECT_EQ(changes.count(), 1);
}

} // namespace
} // namespace orvim
