#pragma once

#include <exception>

namespace orvim {

/// Why a picture, sound or MIDI file could not be loaded; what the user reads is the page's choice. Errors of the file
/// system itself come as they are, not as this.
class Phase3FileError : public std::exception
{
public:
    enum class Case { cannotOpenImage, cannotCreateBitmapContext, cannotReadAudio, cannotReadMIDI };
    using enum Case;

    Phase3FileError(Case errorCase) : m_case(errorCase) {}

    Case errorCase() const { return m_case; }
    const char* what() const noexcept override { return "Phase3FileError"; }

    bool operator==(const Phase3FileError& other) const { return m_case == other.m_case; }

private:
    Case m_case;
};

} // namespace orvim
