#pragma once

#include <QPlainTextEdit>

#include <cstdint>

namespace orvim {

class MIDIOutLogStore;
class OncePerTurn;

/// The log as read-only text: unwrapped, in a fixed-width face, and always at its newest line after a change.
/// It follows the store once a turn of the event loop, and only while it can be seen.
class LogTextView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit LogTextView(MIDIOutLogStore& logStore, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showLog();
    void showWholeLog();
    void appendNewLines();

    MIDIOutLogStore& m_logStore;
    OncePerTurn* m_refresh = nullptr;
    std::uint64_t m_shownRemovedLineCount = 0; ///< the store's count of dropped lines when the view was last filled
    std::size_t m_shownLineCount = 0;          ///< lines of the store that the view holds
    bool m_endsInsideLine = false;             ///< the last of them was not whole
};

} // namespace orvim
