#pragma once

#include <QIcon>
#include <QString>

class QColor;

namespace orvim {

/// The symbol of that name as an icon in the text colour of the palette it is painted under, or in a colour of its own.
/// It follows a change between light and dark themes by itself. An unknown name gives an empty icon.
QIcon symbolIcon(const QString& name);
QIcon symbolIcon(const QString& name, const QColor& color);

} // namespace orvim
