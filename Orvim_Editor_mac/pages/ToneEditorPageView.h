#pragma once

#include "pages/ToneEditorActions.h"

#include <QWidget>

#include <functional>
#include <map>

class QAction;
class QStackedWidget;
class QTabBar;

namespace orvim {

class EditorPageHeader;
class ToneKeyboardView;

/// The page on which the sound of the module is edited: five tabs, each built when it is first opened and kept from
/// then on, over one keyboard.
class ToneEditorPageView : public QWidget
{
    Q_OBJECT

public:
    ToneEditorPageView(EditorRuntime& runtime, Dialogs& dialogs, QWidget* parent = nullptr);

    /// Adds the page's menus and toolbar to its header.
    void fillHeader(EditorPageHeader& header);

    ToneEditorActions& actions() { return m_actions; }

private:
    void makeTabBar();
    QWidget* makeTab(ToneEditorTab tab);
    QAction* makeAction(const QString& text, std::function<void()> act);
    void makeFileActions();
    void fillFileMenu(EditorPageHeader& header);
    void fillSettingsMenu(EditorPageHeader& header);
    void fillSendMenu(EditorPageHeader& header);
    void fillToolbar(EditorPageHeader& header);
    void showState();

    ToneEditorActions m_actions;
    QTabBar* m_tabBar = nullptr;
    QStackedWidget* m_tabs = nullptr;
    std::map<ToneEditorTab, QWidget*> m_builtTabs;
    ToneKeyboardView* m_keyboard = nullptr;
    QAction* m_new = nullptr;
    QAction* m_open = nullptr;
    QAction* m_save = nullptr;
};

} // namespace orvim
