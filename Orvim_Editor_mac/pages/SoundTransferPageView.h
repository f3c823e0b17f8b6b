#pragma once

#include "pages/SoundTransferPageActions.h"
#include "pages/TransferListPage.h"

namespace orvim {

class EditorRuntime;

/// The page "サンプリング音声転送": a list of sounds that share the memory of the module.
class SoundTransferPageView : public TransferListPage
{
    Q_OBJECT

public:
    /// Both must outlive the page.
    SoundTransferPageView(EditorRuntime& runtime, Dialogs& dialogs);

    SoundTransferPageActions& actions() const;
};

} // namespace orvim
