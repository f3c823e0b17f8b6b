#pragma once

#include "tests/app/support/LogLabels.h"
#include "tests/app/support/ToneEditorPageTest.h"

namespace orvim::test {

/// One tab of the tone editor, opened and then driven by the pointer and the keys.
class ToneEditorTabTest : public ToneEditorPageTest
{
protected:
    explicit ToneEditorTabTest(ToneEditorTab tab) : m_tab(tab) {}

    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ToneEditorPageTest::SetUp());
        open(m_tab);
    }

    PreviewPatchListView& list() { return control<PreviewPatchListView>(QString()); }

    void pressRow(int row)
    {
        const QRect place = list().visualRect(list().model()->index(row, 0));
        QTest::mousePress(list().viewport(), Qt::LeftButton, {}, place.center());
    }

    void releaseRow() { QTest::mouseRelease(list().viewport(), Qt::LeftButton); }

    /// What was sent on the lane, once `count` messages have gone out.
    tonavelle::Batch sentOn(MIDILane lane, std::size_t count)
    {
        tonavelle::Batch messages;
        (void)QTest::qWaitFor([&] {
            messages.clear();
            for (const auto& entry : plugged.system.sent())
                if (entry.lane == lane) messages.push_back(entry.message);
            return messages.size() >= count;
        });
        return messages;
    }
    tonavelle::Batch played(std::size_t count) { return sentOn(MIDILane::realtime, count); }

    /// The labels of the log's entries, in order.
    QStringList labels() const { return logLabels(plugged.log()); }

    const tonavelle::PerformanceMonitorPart& part(std::size_t channel) const
    {
        return plugged.screen().performanceMonitor.parts[channel];
    }

private:
    ToneEditorTab m_tab;
};

inline tonavelle::Batch joined(tonavelle::Batch first, const tonavelle::Batch& then)
{
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

/// One control of a user patch and one step of it with a key.
struct PatchControlStep {
    const char* caption;
    Qt::Key key;
    std::size_t offset; ///< of the control's byte in the message
    std::uint8_t value; ///< of that byte after the step
};

inline void PrintTo(const PatchControlStep& step, std::ostream* out)
{
    *out << step.caption;
}

} // namespace orvim::test
