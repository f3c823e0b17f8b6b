// Another program that uses the module at the same time.

#include "Editor.h"
#include "Messages.h"
#include "usbmodule/USBModule.h"

#include <alsa/asoundlib.h>

#include <stdexcept>
#include <thread>

namespace orvim::test {

namespace {

using namespace std::chrono_literals;

/// Connects itself to both ports of a sequencer client, as patch bays do, and writes to the first, at its own
/// pace.
class OtherProgram
{
public:
    explicit OtherProgram(int moduleClient) : client(moduleClient)
    {
        if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_OUTPUT, 0) < 0) throw std::runtime_error("no sequencer");
        output = snd_seq_create_simple_port(sequencer, "Out", SND_SEQ_PORT_CAP_READ, SND_SEQ_PORT_TYPE_APPLICATION);
        for (const int port : {0, 1})
            snd_seq_connect_to(sequencer, output, client, port);
    }
    ~OtherProgram() { snd_seq_close(sequencer); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void write(tonavelle::Message message) const
    {
        snd_seq_event_t event{};
        snd_seq_ev_set_direct(&event);
        snd_seq_ev_set_source(&event, static_cast<unsigned char>(output));
        snd_seq_ev_set_dest(&event, static_cast<unsigned char>(client), 0);
        snd_seq_ev_set_sysex(&event, static_cast<unsigned>(message.size()), message.data());
        if (snd_seq_event_output_direct(sequencer, &event) < 0)
            throw std::runtime_error("the other program cannot write");
    }

private:
    const int client;
    snd_seq_t* sequencer = nullptr;
    int output = -1;
};

int sequencerClientOfTheModule()
{
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_OUTPUT, 0) < 0) throw std::runtime_error("no sequencer");
    snd_seq_client_info_t* info = nullptr;
    snd_seq_client_info_alloca(&info);
    snd_seq_client_info_set_client(info, -1);
    int found = -1;
    while (found < 0 && snd_seq_query_next_client(sequencer, info) >= 0)
        if (moduleFirstPort == snd_seq_client_info_get_name(info)) found = snd_seq_client_info_get_client(info);
    snd_seq_close(sequencer);
    return found;
}

} // namespace

TEST(SecondClient, BothTransfersArriveWhole)
{
    const USBModule module({});
    Editor editor;
    ASSERT_TRUE(editor.waitUntilSelected(moduleSecondPort));
    const OtherProgram program(sequencerClientOfTheModule());
    const auto theirs = numberedMessages(300, 40);
    std::jthread writer([&] {
        for (const auto& message : theirs) {
            program.write(message);
            std::this_thread::sleep_for(5ms);
        }
    });
    const auto ours = numberedMessages(2000);
    editor.sendOneByOne(ours);
    writer.join();
    waitForBytes(module.port(1), joined(ours).size());
    waitForBytes(module.port(0), joined(theirs).size());

    EXPECT_EQ(editor.loggedErrors(), Lines());
    EXPECT_EQ(editor.loggedMessages(), ours);
    EXPECT_TRUE(sameBytes(module.port(1).bytes(), joined(ours)));
    EXPECT_TRUE(sameBytes(module.port(0).bytes(), joined(theirs)));
}

} // namespace orvim::test
