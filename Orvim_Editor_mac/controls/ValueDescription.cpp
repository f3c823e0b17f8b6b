#include "controls/ValueDescription.h"

#include "controls/CoreText.h"

#include <QStringList>

namespace orvim {

QString describedValues(std::initializer_list<std::pair<tonavelle::ToneParameterID, QString>> values)
{
    QStringList parts;
    for (const auto& [id, value] : values)
        parts << fromCore(tonavelle::toneParameter(id).caption()) + QLatin1Char(' ') + value;
    return parts.join(QStringLiteral(", "));
}

} // namespace orvim
