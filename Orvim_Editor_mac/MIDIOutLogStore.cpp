#include "MIDIOutLogStore.h"

#include <algorithm>

namespace orvim {

namespace {

constexpr QLatin1Char lineFeed('\n');

void appendHexDigits(QString& text, std::uint8_t byte)
{
    constexpr char digits[] = "0123456789ABCDEF";
    text += QLatin1Char(digits[byte >> 4]);
    text += QLatin1Char(digits[byte & 0x0F]);
}

} // namespace

QString MIDIOutLogStore::text() const
{
    return textFromLine(0);
}

QString MIDIOutLogStore::textFromLine(std::size_t count) const
{
    const auto first = m_lines.begin() + static_cast<std::ptrdiff_t>(std::min(count, m_lines.size()));
    qsizetype length = m_tail.size();
    for (auto line = first; line != m_lines.end(); ++line)
        length += line->size();
    QString result;
    result.reserve(length);
    for (auto line = first; line != m_lines.end(); ++line)
        result += *line;
    result += m_tail;
    return result;
}

void MIDIOutLogStore::setRestrictLineCount(bool restrict)
{
    if (m_restrictLineCount == restrict) return;
    m_restrictLineCount = restrict;
    Q_EMIT formatChanged();
}

void MIDIOutLogStore::setByteFormat(LogByteFormat format)
{
    if (m_byteFormat == format) return;
    m_byteFormat = format;
    Q_EMIT formatChanged();
}

void MIDIOutLogStore::setUsesComma(bool usesComma)
{
    if (m_usesComma == usesComma) return;
    m_usesComma = usesComma;
    Q_EMIT formatChanged();
}

void MIDIOutLogStore::append(const QString& text)
{
    qsizetype start = 0;
    for (qsizetype end = text.indexOf(lineFeed); end >= 0; end = text.indexOf(lineFeed, start)) {
        m_lines.push_back(m_tail + text.sliced(start, end + 1 - start));
        m_tail.clear();
        start = end + 1;
    }
    m_tail += QStringView(text).sliced(start);
    if (m_restrictLineCount) trim();
    if (!text.isEmpty()) Q_EMIT textChanged();
}

void MIDIOutLogStore::appendLine(const QString& text)
{
    append(QLatin1Char(' ') + text + lineFeed);
}

QString MIDIOutLogStore::format(std::span<const std::uint8_t> message) const
{
    constexpr qsizetype longestForm = 6; // 0x0A, and the blank behind it
    QString result;
    result.reserve(static_cast<qsizetype>(message.size()) * longestForm);
    for (const std::uint8_t byte : message) {
        if (!result.isEmpty()) result += QLatin1Char(' ');
        if (m_byteFormat == LogByteFormat::prefix0x) result += QLatin1String("0x");
        appendHexDigits(result, byte);
        if (m_byteFormat == LogByteFormat::suffixH) result += QLatin1Char('H');
        // The comma behind the last byte is wanted: lines can be pasted into a longer list as they stand.
        if (m_usesComma) result += QLatin1Char(',');
    }
    return result;
}

void MIDIOutLogStore::clear()
{
    if (m_lines.empty() && m_tail.isEmpty()) return;
    m_removedLineCount += m_lines.size();
    m_lines.clear();
    m_tail.clear();
    Q_EMIT textChanged();
}

void MIDIOutLogStore::trim()
{
    while (m_lines.size() > maximumLineCount) {
        m_lines.pop_front();
        ++m_removedLineCount;
    }
}

} // namespace orvim
