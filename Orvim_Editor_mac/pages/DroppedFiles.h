#pragma once

#include <QStringList>
#include <QUrl>

#include <span>

namespace orvim {

/// The paths of the dropped addresses that end in one of the extensions (in lower case), in the drop's order.
QStringList droppedFiles(const QList<QUrl>& urls, std::span<const char* const> extensions);

} // namespace orvim
