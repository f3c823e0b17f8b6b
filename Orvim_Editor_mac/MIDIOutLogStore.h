#pragma once

#include <QObject>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>

namespace orvim {

/// How a byte is written in new lines of the log.
enum class LogByteFormat {
    suffixH,  ///< 0AH
    prefix0x, ///< 0x0A
    none,     ///< 0A
};

/// The log of everything that went to the module and of every failure on the way: lines of text, the newest last.
///
/// The lines are kept apart, so that the trim of a full log costs the lines it drops and not the length of the log.
/// Main thread only; nothing of it outlives the program.
class MIDIOutLogStore : public QObject
{
    Q_OBJECT

public:
    static constexpr std::size_t maximumLineCount = 300;

    using QObject::QObject;

    /// The whole log; every line ends in a line feed.
    QString text() const;
    /// The part of the log behind its first `count` lines.
    QString textFromLine(std::size_t count) const;
    /// The number of line feeds in the log.
    std::size_t lineCount() const { return m_lines.size(); }
    /// Whether the log ends inside a line, as it does only where somebody appends less than a whole one.
    bool endsInsideLine() const { return !m_tail.isEmpty(); }
    /// Lines that have left the log by the trim or by `clear` since the start.
    std::uint64_t removedLineCount() const { return m_removedLineCount; }

    bool restrictLineCount() const { return m_restrictLineCount; }
    LogByteFormat byteFormat() const { return m_byteFormat; }
    bool usesComma() const { return m_usesComma; }
    /// Takes effect with the next `append`.
    void setRestrictLineCount(bool restrict);
    /// Both take effect for lines written from now on.
    void setByteFormat(LogByteFormat format);
    void setUsesComma(bool usesComma);

    /// Adds text, normally one or more whole lines, and drops the oldest lines above the limit while that is in force.
    void append(const QString& text);
    /// Adds one line: a blank, the text, a line feed.
    void appendLine(const QString& text);
    /// The bytes as text in the chosen form, joined by one blank.
    QString format(std::span<const std::uint8_t> message) const;
    void clear();

Q_SIGNALS:
    void textChanged();
    void formatChanged();

private:
    void trim();

    std::deque<QString> m_lines; ///< each with its line feed
    QString m_tail;              ///< text behind the last line feed
    std::uint64_t m_removedLineCount = 0;
    bool m_restrictLineCount = true;
    LogByteFormat m_byteFormat = LogByteFormat::suffixH;
    bool m_usesComma = false;
};

} // namespace orvim
