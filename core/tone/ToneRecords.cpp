#include "core/tone/ToneRecords.h"

#include "core/tone/ToneParameterTable.h"

namespace tonavelle {

MasterToneParameters::MasterToneParameters(const MasterToneValues& values) : MasterToneValues(values)
{
    for (const ToneParameter& parameter : masterToneParameterRows())
        setValue(parameter, *this, value(parameter, *this));
}

ChannelToneParameters::ChannelToneParameters(const ChannelToneValues& values) : ChannelToneValues(values)
{
    for (const ToneParameter& parameter : channelToneParameterRows())
        setValue(parameter, *this, value(parameter, *this));
}

} // namespace tonavelle
