#include "platform/EndpointTable.h"

#include <gtest/gtest.h>

namespace orvim {
namespace {

TEST(EndpointTable, AHandleIsGenerationClientAndPort)
{
    EndpointTable table;
    EXPECT_EQ(table.handle({20, 1}), 0x0000'1401u);
    table.portStarted({20, 1});
    EXPECT_EQ(table.handle({20, 1}), 0x0001'1401u);
    EXPECT_EQ(EndpointTable::address(0x0001'1401u), (SequencerAddress{20, 1}));
}

TEST(EndpointTable, EachStartAndEachExitMakesANewHandle)
{
    EndpointTable table;
    const MIDIEndpointRef first = table.handle({20, 0});
    table.portStarted({20, 0});
    EXPECT_FALSE(table.isCurrent(first));
    const MIDIEndpointRef second = table.handle({20, 0});
    table.portEnded({20, 0});
    EXPECT_FALSE(table.isCurrent(second));
    EXPECT_NE(table.handle({20, 0}), first);
}

TEST(EndpointTable, AStartAnnouncedAfterThePortWasListedKeepsItsHandle)
{
    EndpointTable table;
    const MIDIEndpointRef listed = table.list({20, 1});
    table.portStarted({20, 1});
    EXPECT_TRUE(table.isCurrent(listed));
}

TEST(EndpointTable, AnEndMakesANewHandleOfAListedPort)
{
    EndpointTable table;
    const MIDIEndpointRef first = table.list({20, 1});
    table.portEnded({20, 1});
    EXPECT_FALSE(table.isCurrent(first));
    const MIDIEndpointRef second = table.list({20, 1});
    table.clientEnded(20);
    EXPECT_FALSE(table.isCurrent(second));
    table.portStarted({20, 1});
    EXPECT_NE(table.list({20, 1}), second);
}

TEST(EndpointTable, AStartAfterLostAnnouncementsMakesANewHandle)
{
    EndpointTable table;
    const MIDIEndpointRef listed = table.list({20, 1});
    table.announcementsLost();
    table.portStarted({20, 1});
    EXPECT_FALSE(table.isCurrent(listed));
}

TEST(EndpointTable, OtherPortsKeepTheirHandles)
{
    EndpointTable table;
    const MIDIEndpointRef other = table.handle({20, 1});
    table.portEnded({20, 0});
    EXPECT_TRUE(table.isCurrent(other));
}

TEST(EndpointTable, TheEndOfAClientEndsAllItsPorts)
{
    EndpointTable table;
    table.portStarted({128, 0});
    const MIDIEndpointRef known = table.handle({128, 0});
    const MIDIEndpointRef neverAnnounced = table.handle({128, 7});
    const MIDIEndpointRef ofAnother = table.handle({129, 0});
    table.clientEnded(128);
    EXPECT_FALSE(table.isCurrent(known));
    EXPECT_FALSE(table.isCurrent(neverAnnounced));
    EXPECT_TRUE(table.isCurrent(ofAnother));
}

TEST(EndpointTable, TheGenerationGoesRoundWithoutTouchingTheAddress)
{
    EndpointTable table;
    for (int i = 0; i < 65'536; ++i) {
        table.portEnded({255, 255});
    }
    EXPECT_EQ(table.handle({255, 255}), 0x0000'FFFFu);
}

} // namespace
} // namespace orvim
