#pragma once

#include "pages/LyricsPageActions.h"

#include <QWidget>

class QMenu;

namespace orvim {

class EditorPageHeader;
class EditorRuntime;
class ElidedLabel;
class LyricsTableView;

/// The page "歌詞編集": a song's lyrics as rows that become the module's commands. Takes a dropped song at all times.
class LyricsPageView : public QWidget
{
    Q_OBJECT

public:
    /// Both must outlive the page.
    LyricsPageView(EditorRuntime& runtime, Dialogs& dialogs);
    ~LyricsPageView() override;

    LyricsPageActions& actions() { return m_actions; }
    /// Adds the page's menus and its toolbar. Their shortcuts work while the page is in view.
    void fillHeader(EditorPageHeader& header);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using Action = std::function<void()>;

    QWidget* makeHelp();
    void fillMenus(EditorPageHeader& header);
    void fillToolbar(EditorPageHeader& header);
    /// The action, behind taking over what is being typed.
    Action committed(const Action& action);

    LyricsPageActions m_actions;
    ElidedLabel* m_counter = nullptr;
    LyricsTableView* m_table = nullptr;
    QWidget* m_help = nullptr;
    QWidget* m_dropHighlight = nullptr;
};

} // namespace orvim
