#pragma once

#include "core/media/SamplingSoundBuilder.h"
#include "core/protocol/MIDIEventParser.h"
#include "core/protocol/Message.h"
#include "core/protocol/SimpleMIDIFile.h"

#include <cstdint>
#include <span>
#include <vector>

/// Pictures and sounds on the time line of a file, with the gaps that the module needs for its own work. The events are
/// meant for SimpleMIDIFileBuilder::wpfStyleSequence at `ticksPerQuarterNote`, where 480 ticks are one second.
namespace tonavelle::TransferMIDIFileBuilder {

inline constexpr std::uint16_t ticksPerQuarterNote = 480;

/// The row messages of each image, one tick apart; the draw commands show one image a second.
std::vector<SimpleMIDITimedEvent> imageTransferEvents(std::span<const Batch> rowsByImage, bool writeReset,
                                                      bool writeUITypeSet, bool writeDrawCommand);

/// The sections one tick apart, then the settings 100 ticks apart; the play commands start one sound a second.
std::vector<SimpleMIDITimedEvent> samplingSoundEvents(std::span<const Message> sections,
                                                      std::span<const Message> settings, int soundCount,
                                                      bool writeReset, bool writePlayCommand);

/// The pictures whose rows are among the events, by screen number from 0 to the highest seen; black where no row was.
/// Empty when there is no row.
std::vector<std::vector<std::uint8_t>> restoreImages(std::span<const ParsedMIDIEvent> events);

/// The sounds whose settings are among the events, by sound number from 0 to the highest seen; empty for a number
/// without a setting, silent where sections are missing. Empty when there is no setting.
std::vector<SamplingSoundItem> restoreSounds(std::span<const ParsedMIDIEvent> events);

} // namespace tonavelle::TransferMIDIFileBuilder
