#pragma once

#include <QWidget>

#include <memory>

class QLabel;

namespace orvim {

class EditorPageHeader;
class TransferListActions;
class TransferListView;

/// What the pages of transfers show: a line that counts, and the list.
class TransferListPage : public QWidget
{
    Q_OBJECT

public:
    explicit TransferListPage(std::unique_ptr<TransferListActions> actions, QWidget* parent = nullptr);
    ~TransferListPage() override;

    TransferListActions& listActions() const { return *m_actions; }
    /// Adds the page's menus and its toolbar. Their shortcuts work while the page is in view.
    void fillHeader(EditorPageHeader& header);

private:
    void fillFileMenu(EditorPageHeader& header);
    void fillSettingsMenu(EditorPageHeader& header);
    void fillToolbar(EditorPageHeader& header);

    std::unique_ptr<TransferListActions> m_actions;
    QLabel* m_counter = nullptr;
    TransferListView* m_list = nullptr;
};

} // namespace orvim
