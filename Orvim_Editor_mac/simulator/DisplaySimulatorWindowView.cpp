#include "simulator/DisplaySimulatorWindowView.h"

#include "DisplaySimulatorState.h"
#include "EditorRuntime.h"
#include "platform/Dialogs.h"
#include "platform/WholeFile.h"
#include "simulator/DisplayNames.h"
#include "simulator/DisplayPicture.h"
#include "simulator/DisplaySimulatorPreviewView.h"
#include "simulator/WindowPlacement.h"

#include <QActionGroup>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace orvim {

namespace {

constexpr int borderWidth = 4; ///< on each side, before scaling

QList<QRect> screenAreas()
{
    QList<QRect> areas;
    for (const auto* screen : QGuiApplication::screens())
        areas << screen->availableGeometry();
    return areas;
}

} // namespace

DisplaySimulatorWindowView::DisplaySimulatorWindowView(EditorRuntime& runtime, Dialogs& dialogs)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint), m_runtime(runtime),
      m_state(runtime.displaySimulator()), m_dialogs(dialogs), m_picture(new DisplaySimulatorPreviewView(m_state, this))
{
    setObjectName(QStringLiteral("display-simulator"));
    setWindowTitle(tr("画面シミュレータ"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    makeMenu();
    connect(&m_state, &DisplaySimulatorState::changed, this, &DisplaySimulatorWindowView::followState);
    followState();
}

bool DisplaySimulatorWindowView::canStayOnTop()
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

QString DisplaySimulatorWindowView::stayOnTopHint()
{
    return canStayOnTop() ? QString() : tr("Waylandでは、ウィンドウを最前面に固定できません。");
}

void DisplaySimulatorWindowView::makeMenu()
{
    m_menu = new QMenu(this);
    m_menu->setToolTipsVisible(true);
    connect(m_menu, &QMenu::aboutToShow, this, &DisplaySimulatorWindowView::showMenuState);

    m_showsBorder = m_menu->addAction(tr("境界表示"), &m_state, &DisplaySimulatorState::setWindowShowsBorder);
    m_showsBorder->setCheckable(true);
    m_alwaysOnTop = m_menu->addAction(tr("常に最前面に表示"), &m_state, &DisplaySimulatorState::setWindowAlwaysOnTop);
    m_alwaysOnTop->setCheckable(true);
    m_alwaysOnTop->setToolTip(stayOnTopHint());

    m_scales = new QActionGroup(this);
    auto* scaleMenu = m_menu->addMenu(tr("解像度"));
    for (std::size_t i = 0; i < windowScaleNames.size(); ++i) {
        const int scale = static_cast<int>(i) + 1;
        auto* action = scaleMenu->addAction(QString::fromUtf8(windowScaleNames[i]), &m_state,
                                            [this, scale] { m_state.setWindowScale(scale); });
        action->setCheckable(true);
        m_scales->addAction(action);
    }
    m_menu->addSeparator();
    m_menu->addAction(tr("PNGで保存"), this, &DisplaySimulatorWindowView::savePicture);
    m_menu->addAction(tr("画面シミュレータの設定"), this, &DisplaySimulatorWindowView::showSettings);
    m_menu->addSeparator();
    m_menu->addAction(tr("隠す"), this, &DisplaySimulatorWindowView::dismiss);
}

void DisplaySimulatorWindowView::showMenuState()
{
    const auto& fields = m_state.fields();
    m_showsBorder->setChecked(fields.displayWindowShowsBorder);
    m_alwaysOnTop->setChecked(fields.displayWindowAlwaysOnTop);
    m_scales->actions().at(fields.displayWindowScale - 1)->setChecked(true);
}

void DisplaySimulatorWindowView::followState()
{
    const auto& fields = m_state.fields();
    const int scale = fields.displayWindowScale;
    const int inset = (fields.displayWindowShowsBorder ? borderWidth : 0) * scale;
    const QRect picture(QPoint(inset, inset), m_picture->sizeHint() * scale);
    m_picture->setFixedSize(picture.size());
    m_picture->move(picture.topLeft());
    setFixedSize(picture.size() + 2 * QSize(inset, inset));
    stackAsAsked(fields.displayWindowAlwaysOnTop);
}

void DisplaySimulatorWindowView::stackAsAsked(bool onTop)
{
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) == onTop) return;
    // The widget's own way would hide the window and lose its place; the window itself changes where it stands.
    overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, onTop));
    if (windowHandle()) windowHandle()->setFlag(Qt::WindowStaysOnTopHint, onTop);
}

void DisplaySimulatorWindowView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous()) return;
    bringWithinReach();
    m_state.setWindowVisible(true);
}

void DisplaySimulatorWindowView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) m_state.setWindowVisible(false);
}

void DisplaySimulatorWindowView::bringWithinReach()
{
    if (m_hasPlace && isWithinReach(geometry(), screenAreas())) return;
    m_hasPlace = true;
    move(topRightPlace(size(), screen()->availableGeometry()));
}

void DisplaySimulatorWindowView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Qt::black);
}

void DisplaySimulatorWindowView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) m_press = event->position().toPoint();
}

void DisplaySimulatorWindowView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_press) return;
    // A press that has not moved yet may become a double click, and the window system would swallow it.
    const auto way = event->position().toPoint() - *m_press;
    if (way.manhattanLength() < QApplication::startDragDistance()) return;
    if (windowHandle()->startSystemMove()) {
        m_press.reset();
    } else {
        move(pos() + way);
    }
}

void DisplaySimulatorWindowView::mouseReleaseEvent(QMouseEvent*)
{
    m_press.reset();
}

void DisplaySimulatorWindowView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    m_press.reset();
    m_state.setWindowScale(m_state.fields().displayWindowScale % 3 + 1);
}

void DisplaySimulatorWindowView::contextMenuEvent(QContextMenuEvent* event)
{
    m_menu->popup(event->globalPos());
}

void DisplaySimulatorWindowView::savePicture()
{
    const auto png = pngOf(m_state.fields());
    const auto path = m_dialogs.savePath(QStringLiteral("display_sim.png"), FileKind::png);
    // A picture that cannot be written is dropped without a word.
    if (path) writeWholeFile(*path, png);
}

void DisplaySimulatorWindowView::showSettings()
{
    m_runtime.setSelectedPage(EditorPage::displaySimulatorSettings);
    Q_EMIT settingsRequested();
}

void DisplaySimulatorWindowView::dismiss()
{
    m_state.setWindowVisible(false);
    hide();
}

} // namespace orvim
