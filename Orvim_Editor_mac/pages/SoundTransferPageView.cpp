#include "pages/SoundTransferPageView.h"

#include "EditorRuntime.h"

namespace orvim {

SoundTransferPageView::SoundTransferPageView(EditorRuntime& runtime, Dialogs& dialogs)
    : TransferListPage(std::make_unique<SoundTransferPageActions>(runtime.midiOutManager(), dialogs))
{
}

SoundTransferPageActions& SoundTransferPageView::actions() const
{
    return static_cast<SoundTransferPageActions&>(listActions());
}

} // namespace orvim
