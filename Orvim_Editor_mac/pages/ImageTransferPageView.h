#pragma once

#include "pages/ImageTransferPageActions.h"
#include "pages/TransferListPage.h"

namespace orvim {

class EditorRuntime;

/// The page "画像転送": a list of pictures, one for each screen of the module.
class ImageTransferPageView : public TransferListPage
{
    Q_OBJECT

public:
    /// Both must outlive the page.
    ImageTransferPageView(EditorRuntime& runtime, Dialogs& dialogs);

    ImageTransferPageActions& actions() const;
};

} // namespace orvim
