#include "pages/ToneEditorActions.h"

#include "EditorRuntime.h"

namespace orvim {

ToneEditorActions::ToneEditorActions(EditorRuntime& runtime, Dialogs& dialogs)
    : channels(model, runtime.midiOutManager(), runtime.displaySimulator()),
      patches(model, runtime.midiOutManager(), runtime.displaySimulator()), waves(model, runtime.midiOutManager()),
      previews(model, runtime.midiOutManager(), runtime.displaySimulator()),
      files(model, dialogs, runtime.midiOutManager(), runtime.displaySimulator()),
      sending(model, previews, runtime.midiOutManager(), runtime.displaySimulator())
{
}

} // namespace orvim
