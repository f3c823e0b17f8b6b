#include "core/protocol/ModuleCommands.h"

namespace tonavelle {

std::optional<JapaneseCharacterLine> japaneseCharacterLine(std::uint8_t rawValue)
{
    const auto line = static_cast<JapaneseCharacterLine>(rawValue);
    return line <= JapaneseCharacterLine::lower ? std::optional(line) : std::nullopt;
}

std::optional<JapaneseCharacterDeleteTarget> japaneseCharacterDeleteTarget(std::uint8_t rawValue)
{
    const auto target = static_cast<JapaneseCharacterDeleteTarget>(rawValue);
    return target <= JapaneseCharacterDeleteTarget::lower ? std::optional(target) : std::nullopt;
}

std::optional<UIFacePart> uiFacePart(std::uint8_t rawValue)
{
    const auto part = static_cast<UIFacePart>(rawValue);
    return part <= UIFacePart::mouth ? std::optional(part) : std::nullopt;
}

} // namespace tonavelle
