#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace orvim::test {

/// Drags the data over the middle of the window and lets go, as the window system would: what lies there and takes
/// drops gets the events. False where nothing takes them.
inline bool dropOnMiddle(QWidget& window, const QMimeData& data)
{
    const QPoint middle = window.rect().center();
    QWidget* target = window.childAt(middle);
    while (target && !target->acceptDrops())
        target = target->parentWidget();
    if (!target) return false;
    const QPoint position = target->mapFrom(&window, middle);
    QDragEnterEvent enter(position, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(position, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

/// The same with addresses, as a file manager gives them.
inline bool dropOnMiddle(QWidget& window, const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    return dropOnMiddle(window, data);
}

} // namespace orvim::test
