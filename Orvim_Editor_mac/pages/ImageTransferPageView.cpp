#include "pages/ImageTransferPageView.h"

#include "EditorRuntime.h"

namespace orvim {

ImageTransferPageView::ImageTransferPageView(EditorRuntime& runtime, Dialogs& dialogs)
    : TransferListPage(
          std::make_unique<ImageTransferPageActions>(runtime.midiOutManager(), runtime.displaySimulator(), dialogs))
{
}

ImageTransferPageActions& ImageTransferPageView::actions() const
{
    return static_cast<ImageTransferPageActions&>(listActions());
}

} // namespace orvim
