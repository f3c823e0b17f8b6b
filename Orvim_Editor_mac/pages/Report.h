#pragma once

#include <QString>

namespace orvim {

class MIDIOutManager;

/// Tells the outcome of an action in the log and in the status line, in the normal look also for a failure.
void report(MIDIOutManager& midiOutManager, const QString& text);

} // namespace orvim
