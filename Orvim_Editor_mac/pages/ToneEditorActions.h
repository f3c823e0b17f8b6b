#pragma once

#include "pages/ToneChannelActions.h"
#include "pages/ToneEditorFileActions.h"
#include "pages/ToneEditorModel.h"
#include "pages/ToneEditorPreviews.h"
#include "pages/ToneEditorSendAll.h"
#include "pages/TonePatchActions.h"
#include "pages/UserWaveActions.h"

namespace orvim {

class EditorRuntime;

/// The state of the tone editor and all that can be done to it, without a window.
struct ToneEditorActions {
    ToneEditorActions(EditorRuntime& runtime, Dialogs& dialogs);

    const ToneEditorState& state() const { return model.state(); }

    ToneEditorModel model;
    ToneChannelActions channels;
    TonePatchActions patches;
    UserWaveActions waves;
    ToneEditorPreviews previews;
    ToneEditorFileActions files;
    ToneEditorSendAll sending;
};

} // namespace orvim
