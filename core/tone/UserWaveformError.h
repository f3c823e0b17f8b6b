#pragma once

#include <stdexcept>
#include <string>

namespace tonavelle {

/// The failure of a waveform operation; what() is the text for the user, in UTF-8.
class UserWaveformError : public std::runtime_error
{
public:
    enum class Kind { formula, invalidSampleCount, invalidSlot, invalidSection };

    /// `text`: the word for what is wrong with the formula.
    static UserWaveformError formula(const std::string& text);
    static UserWaveformError invalidSampleCount();
    static UserWaveformError invalidSlot();
    static UserWaveformError invalidSection();

    Kind kind() const { return errorKind; }

private:
    UserWaveformError(Kind kind, const std::string& text) : std::runtime_error(text), errorKind(kind) {}

    Kind errorKind;
};

} // namespace tonavelle
