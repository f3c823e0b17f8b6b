#include "pages/Report.h"

#include "MIDIOutManager.h"

namespace orvim {

void report(MIDIOutManager& midiOutManager, const QString& text)
{
    midiOutManager.logNote(text);
    midiOutManager.setStatus(text, false);
}

} // namespace orvim
