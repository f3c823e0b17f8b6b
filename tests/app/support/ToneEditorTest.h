#pragma once

#include "pages/ToneEditorActions.h"
#include "tests/app/support/LogLabels.h"
#include "tests/app/support/PluggedRuntime.h"
#include "tests/app/support/RecordingDialogs.h"
#include "tests/support/Bytes.h"

#include <QCoreApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace orvim::test {

/// The tone editor without a window. Normal sends and the notes played stand apart: they go out on threads of their
/// own.
class ToneEditorTest : public testing::Test
{
protected:
    tonavelle::Batch sent(MIDILane lane = MIDILane::normal) const
    {
        tonavelle::Batch messages;
        for (const auto& entry : plugged.system.sent())
            if (entry.lane == lane) messages.push_back(entry.message);
        return messages;
    }

    /// What was played, once `count` messages have gone out.
    tonavelle::Batch played(std::size_t count) const
    {
        (void)QTest::qWaitFor([&] { return sent(MIDILane::realtime).size() >= count; });
        return sent(MIDILane::realtime);
    }

    /// All that was played so far. It is there once a marker sent behind it is, and each marker is another.
    tonavelle::Batch playedUpToNow()
    {
        constexpr std::uint8_t markerStatus = 0x8F;
        m_marker = (m_marker + 1) & 0x7F;
        const tonavelle::Message marker{markerStatus, 0, m_marker};
        plugged.runtime.midiOutManager().sendRealtime({marker});
        (void)QTest::qWaitFor([&] {
            const tonavelle::Batch all = sent(MIDILane::realtime);
            return !all.empty() && all.back() == marker;
        });
        tonavelle::Batch all = sent(MIDILane::realtime);
        std::erase_if(all, [](const auto& message) { return message.front() == markerStatus; });
        return all;
    }

    QString status() const { return plugged.runtime.midiOutManager().statusMessage(); }
    /// The labels of the log's entries, in order.
    QStringList labels() const { return logLabels(plugged.log()); }

    void forget()
    {
        plugged.system.forgetSent();
        plugged.runtime.logStore().clear();
    }

    const ToneEditorState& state() const { return actions.state(); }
    const tonavelle::PerformanceMonitorPart& part(std::size_t channel) const
    {
        return plugged.screen().performanceMonitor.parts[channel];
    }

    PluggedRuntime plugged;
    RecordingDialogs dialogs;
    ToneEditorActions actions{plugged.runtime, dialogs};

private:
    std::uint8_t m_marker = 0;
};

} // namespace orvim::test
