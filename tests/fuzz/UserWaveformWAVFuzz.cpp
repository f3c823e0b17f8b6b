// Any bytes give 2,048 samples or end in the reader's one error; what was read comes back the same after writing.

#include "core/tone/UserWaveformBuilder.h"
#include "tests/fuzz/Require.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tonavelle;
    UserWaveform samples;
    try {
        samples = UserWaveformBuilder::samplesFromWAVData({data, size});
    } catch (const UserWaveformError& error) {
        orvim::test::require(error.kind() == UserWaveformError::Kind::invalidSampleCount);
        return 0;
    }
    orvim::test::require(samples.size() == UserWaveformBuilder::sampleCount);
    const auto written = UserWaveformBuilder::wavData(samples, 48000);
    orvim::test::require(UserWaveformBuilder::samplesFromWAVData(written) == samples);
    return 0;
}
