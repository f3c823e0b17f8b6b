#pragma once

#include "core/tone/ToneParameterTable.h"

#include <QString>

#include <initializer_list>
#include <utility>

namespace orvim {

/// What a picture of tone parameters shows, for those who do not see it: each value behind its control's caption.
QString describedValues(std::initializer_list<std::pair<tonavelle::ToneParameterID, QString>> values);

} // namespace orvim
