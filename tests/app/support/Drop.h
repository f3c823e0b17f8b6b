#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <QWindow>

namespace orvim::test {

/// Files that are dragged over the middle of a widget in a shown window. The window gets the events, as from the window
/// system, and hands them to what lies there.
class Drag
{
public:
    Drag(const QWidget& widget, const QMimeData& data)
        : m_window(*widget.window()->windowHandle()), m_data(data),
          m_position(widget.mapTo(widget.window(), widget.rect().center()))
    {
    }

    /// False where nothing takes them.
    bool enter()
    {
        QDragEnterEvent event(m_position, actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        return isTaken(event);
    }

    bool move()
    {
        QDragMoveEvent event(m_position, actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        // What took the enter takes the moves, unless it says otherwise.
        event.setDropAction(Qt::CopyAction);
        event.accept();
        return isTaken(event);
    }

    bool drop()
    {
        QDropEvent event(m_position, actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        return isTaken(event);
    }

    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(&m_window, &event);
    }

private:
    static constexpr Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;

    bool isTaken(QDropEvent& event)
    {
        QCoreApplication::sendEvent(&m_window, &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    }

    QWindow& m_window;
    const QMimeData& m_data;
    QPoint m_position;
};

/// Drags the data over the middle of the widget and lets go. False where nothing takes them.
inline bool dropOnMiddle(const QWidget& widget, const QMimeData& data)
{
    Drag drag(widget, data);
    if (drag.enter() && drag.move()) return drag.drop();
    drag.leave();
    return false;
}

/// The same with addresses, as a file manager gives them.
inline bool dropOnMiddle(const QWidget& widget, const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    return dropOnMiddle(widget, data);
}

} // namespace orvim::test
