#pragma once

#include "core/protocol/SimpleMIDIFile.h"

#include <cstdint>
#include <exception>
#include <span>

namespace tonavelle {

/// Why a Standard MIDI File could not be read; what the user reads is the caller's choice.
class SimpleMIDIFileReaderError : public std::exception
{
public:
    enum class Case {
        unsupportedEvent,        ///< carries the status byte
        invalidHeader,           ///< the header declares fewer than 6 bytes
        unexpectedEndOfFile,     ///< a field, a chunk or a declared length is not complete
        unexpectedBytes,         ///< a chunk's name is wrong, or a variable-length quantity has a fifth byte
        unsupportedTimeDivision, ///< never raised: a time-code file reads as 480 ticks per quarter note
        missingRunningStatus,    ///< a data byte where a status byte is needed
    };
    using enum Case;

    SimpleMIDIFileReaderError(Case errorCase, std::uint8_t status = 0) : m_case(errorCase), m_status(status) {}

    Case errorCase() const { return m_case; }
    /// The byte that `unsupportedEvent` carries, 0 in all other cases.
    std::uint8_t status() const { return m_status; }
    const char* what() const noexcept override { return "SimpleMIDIFileReaderError"; }

    friend bool operator==(const SimpleMIDIFileReaderError& left, const SimpleMIDIFileReaderError& right)
    {
        return left.m_case == right.m_case && left.m_status == right.m_status;
    }

private:
    Case m_case;
    std::uint8_t m_status;
};

/// The full reader of Standard MIDI Files: every event of every track, in the form that the writer takes.
namespace SimpleMIDIFileReader {

/// Throws SimpleMIDIFileReaderError; nothing is read in part. End-of-track events are left out, and what stands behind
/// one in its track is ignored.
SimpleMIDIFile read(std::span<const std::uint8_t> data);

} // namespace SimpleMIDIFileReader

} // namespace tonavelle
