#pragma once

#include "DisplaySimulatorState.h"
#include "EditorRuntime.h"
#include "MIDIOutLogStore.h"
#include "MIDIOutManager.h"
#include "tests/app/support/RecordingMIDISystem.h"

namespace orvim::test {

/// The root object with a recording output, and with the module's one port already chosen.
struct PluggedRuntime {
    PluggedRuntime() : PluggedRuntime({"Tonavelle_mini"}) {}

    explicit PluggedRuntime(const std::vector<std::string>& names)
        : PluggedRuntime(std::make_unique<RecordingMIDISystem>(), names)
    {
    }

    tonavelle::Batch sent() const { return system.sentMessages(); }
    const DisplayFields& screen() const { return runtime.displaySimulator().fields(); }
    QString log() const { return runtime.logStore().text(); }

    RecordingMIDISystem& system;
    EditorRuntime runtime;

private:
    PluggedRuntime(std::unique_ptr<RecordingMIDISystem> recorder, const std::vector<std::string>& names)
        : system(*recorder), runtime((recorder->plug(names), std::move(recorder)))
    {
    }
};

} // namespace orvim::test
