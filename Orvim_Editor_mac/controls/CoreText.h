#pragma once

#include <QString>

#include <string_view>

namespace orvim {

/// Text of the core, which is UTF-8.
inline QString fromCore(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace orvim
