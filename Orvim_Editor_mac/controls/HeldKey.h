#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QKeyEvent;

namespace orvim {

/// A key that does something as long as it is held. A held key's repetitions come on X11 as releases and presses, and
/// not all of them bear the mark of a repetition: the mark is missing where the press was not there yet when the
/// release was read. The two are of one time, so a release counts once a moment has passed without such a press.
class HeldKey : public QObject
{
public:
    HeldKey(QObject* parent, std::function<void()> begin, std::function<void()> end);

    void press(const QKeyEvent& event);
    void release(const QKeyEvent& event);

private:
    std::function<void()> m_begin;
    std::function<void()> m_end;
    QTimer m_releasing;        ///< runs from a release until it counts
    quint64 m_releaseTime = 0; ///< of that release, in milliseconds of the display server
};

} // namespace orvim
