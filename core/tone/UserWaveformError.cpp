#include "core/tone/UserWaveformError.h"

namespace tonavelle {

UserWaveformError UserWaveformError::formula(const std::string& text)
{
    return {Kind::formula, text};
}

UserWaveformError UserWaveformError::invalidSampleCount()
{
    return {Kind::invalidSampleCount, "サンプル数が不正"};
}

UserWaveformError UserWaveformError::invalidSlot()
{
    return {Kind::invalidSlot, "スロット番号が不正"};
}

UserWaveformError UserWaveformError::invalidSection()
{
    return {Kind::invalidSection, "区画番号が不正"};
}

} // namespace tonavelle
