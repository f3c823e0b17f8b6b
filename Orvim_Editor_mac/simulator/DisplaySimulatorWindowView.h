#pragma once

#include <QPoint>
#include <QWidget>

#include <optional>

class QActionGroup;
class QMenu;

namespace orvim {

class Dialogs;
class DisplaySimulatorPreviewView;
class DisplaySimulatorState;
class EditorRuntime;

/// The window "画面シミュレータ": the module's screen without a frame around it, at one to three times its size.
/// It moves by dragging anywhere in it and steps its size by double click. Scale, border and stacking follow the
/// state, and the state's visible flag follows the window.
class DisplaySimulatorWindowView : public QWidget
{
    Q_OBJECT

public:
    /// Both must outlive the window.
    DisplaySimulatorWindowView(EditorRuntime& runtime, Dialogs& dialogs);

    /// Whether this desktop lets a window put itself above the others.
    static bool canStayOnTop();
    /// The tool tip of the switches for it: empty where it can.
    static QString stayOnTopHint();

Q_SIGNALS:
    /// The page with the simulator's settings has been selected and wants to be seen.
    void settingsRequested();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void makeMenu();
    void followState();
    void stackAsAsked(bool onTop);
    void showMenuState();
    void bringWithinReach();
    void savePicture();
    void showSettings();
    void dismiss();

    EditorRuntime& m_runtime;
    DisplaySimulatorState& m_state;
    Dialogs& m_dialogs;
    DisplaySimulatorPreviewView* m_picture = nullptr;
    QMenu* m_menu = nullptr;
    QAction* m_showsBorder = nullptr;
    QAction* m_alwaysOnTop = nullptr;
    QActionGroup* m_scales = nullptr;
    std::optional<QPoint> m_press; ///< where the left button went down, in the window
    bool m_hasPlace = false;       ///< the window has stood somewhere before
};

} // namespace orvim
