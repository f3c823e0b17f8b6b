#pragma once

#include <QWidget>

class QButtonGroup;
class QCheckBox;

namespace orvim {

class EditorRuntime;
class LogTextView;

/// The window "Log Window": the log, and how new lines of it are written.
/// The runtime's flag follows the window, also when the user closes it by its frame.
class LogWindowView : public QWidget
{
    Q_OBJECT

public:
    explicit LogWindowView(EditorRuntime& runtime, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeWidgets();
    QWidget* makeFormatPicker();
    void connectStore();
    void showFormat();
    void clearLog();

    EditorRuntime& m_runtime;
    LogTextView* m_text = nullptr;
    QButtonGroup* m_formatPicker = nullptr;
    QCheckBox* m_usesComma = nullptr;
    QCheckBox* m_restrictLineCount = nullptr;
};

} // namespace orvim
