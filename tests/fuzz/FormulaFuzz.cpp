// Any text gives 2,048 samples or ends in a formula's error with a word for the user.

#include "core/tone/FormulaParser.h"
#include "core/tone/UserWaveformError.h"
#include "tests/fuzz/Require.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tonavelle;
    const std::string formula(data, data + size);
    try {
        orvim::test::require(evaluateFormula(formula).size() == UserWaveformBuilder::sampleCount);
    } catch (const UserWaveformError& error) {
        orvim::test::require(error.kind() == UserWaveformError::Kind::formula);
        orvim::test::require(*error.what() != '\0');
    }
    return 0;
}
