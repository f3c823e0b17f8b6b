#pragma once

#include <QMainWindow>

#include <memory>

namespace orvim {

class Dialogs;
class DisplaySimulatorWindowView;
class EditorPageHost;
class EditorRuntime;
class LogWindowView;

/// The main window: sidebar, pages and status bar, and the two side windows that the sidebar's switches open and close.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Both must outlive the window.
    MainWindow(EditorRuntime& runtime, Dialogs& dialogs);
    ~MainWindow() override;

    EditorPageHost& pages() const { return *m_pages; }

Q_SIGNALS:
    /// The window has been closed, and the program ends with it.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeContent();
    void makeHelpMenu();
    void showLogWindow(bool visible);
    void showSimulatorWindow(bool visible);
    void makeSimulatorWindow();
    void raiseSimulatorWindow();

    EditorRuntime& m_runtime;
    Dialogs& m_dialogs;
    EditorPageHost* m_pages = nullptr;
    std::unique_ptr<LogWindowView> m_logWindow;
    std::unique_ptr<DisplaySimulatorWindowView> m_simulatorWindow;
};

} // namespace orvim
