#pragma once

#include <QString>
#include <QStringList>

namespace orvim::test {

/// The labels of a log's entries, in order.
inline QStringList logLabels(const QString& log)
{
    QStringList labels;
    for (const QString& line : log.split(QLatin1Char('\n')))
        if (line.startsWith(QStringLiteral(" ["))) labels << line.mid(2, line.size() - 3);
    return labels;
}

} // namespace orvim::test
