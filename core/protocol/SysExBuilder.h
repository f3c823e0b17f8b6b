#pragma once

#include "core/protocol/Message.h"
#include "core/protocol/ModuleCommands.h"
#include "core/protocol/SysExBuilderError.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tonavelle {

/// A grid of dots by row and then by column, nominally 16 rows of 16.
using DotRows = std::vector<std::vector<bool>>;

} // namespace tonavelle

/// The module's device commands, its display messages and the standard resets, each as one whole message.
namespace tonavelle::SysExBuilder {

/// A message of the module's frame. `parameters` go in as they are and must be 0...127.
Message frame(Command command, std::span<const std::uint8_t> parameters);

Message tonavelleReset();

/// Selects the screen that the module shows. Throws SysExBuilderError for a `value` above 127.
Message uiTypeSet(std::uint8_t value);

Message faceBlinkingSet(bool on);
Message japaneseCharacterMode(bool on);
Message japaneseCharacterDelete(JapaneseCharacterDeleteTarget target);

/// Throws SysExBuilderError for an `index` above 127; `part` is not tested.
Message uiFaceSet(UIFacePart part, std::uint8_t index);

/// Throws SysExBuilderError for a `screenNumber` above 127.
Message imageDraw64x64(std::uint8_t screenNumber);

/// The low seven bits of each value are sent.
Message lcdColorSet(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

Message debugMode(bool on);
Message versionDisplay();

/// Shows the first 32 printable ASCII characters of the text; all others vanish.
Message displayDataLetter(std::string_view text);

/// Shows a grid of 16 by 16 dots; cells that `rows` lacks are off, and those beyond are not looked at.
Message displayDataDot(const DotRows& rows);

Message gmSystemOn();
Message gm2SystemOn();
Message gsReset();
Message xgSystemOn();

/// Two upper-case hexadecimal digits a byte, separated by one blank.
std::string hexString(std::span<const std::uint8_t> bytes);

} // namespace tonavelle::SysExBuilder
