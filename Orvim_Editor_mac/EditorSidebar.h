#pragma once

#include <QWidget>

class QListWidget;

namespace orvim {

class EditorRuntime;
class SwitchRow;

/// The list of pages and, under it, the switches of the two side windows.
class EditorSidebar : public QWidget
{
    Q_OBJECT

public:
    explicit EditorSidebar(EditorRuntime& runtime, QWidget* parent = nullptr);

private:
    void makePageList();
    void makeSwitches();
    void showSelectedPage();
    void showSwitches();

    EditorRuntime& m_runtime;
    QListWidget* m_pages = nullptr;
    SwitchRow* m_logSwitch = nullptr;
    SwitchRow* m_simulatorSwitch = nullptr;
};

} // namespace orvim
