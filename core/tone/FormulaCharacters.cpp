#include "core/tone/FormulaCharacters.h"

#include "core/text/UTF8.h"
#include "core/tone/generated/FormulaCharacters.h"

#include <algorithm>
#include <array>
#include <span>

namespace tonavelle {

namespace {

using generated::ScalarRange;

constexpr std::array<ScalarRange, 10> whiteSpace{{
    {0x0009, 0x000D},
    {0x0020, 0x0020},
    {0x0085, 0x0085},
    {0x00A0, 0x00A0},
    {0x1680, 0x1680},
    {0x2000, 0x200A},
    {0x2028, 0x2029},
    {0x202F, 0x202F},
    {0x205F, 0x205F},
    {0x3000, 0x3000},
}};

bool contains(std::span<const ScalarRange> ranges, char32_t scalar)
{
    const auto range = std::ranges::lower_bound(ranges, scalar, {}, &ScalarRange::last);
    return range != ranges.end() && range->first <= scalar;
}

/// No mark joins a control character or a line end.
bool standsAlone(char32_t scalar)
{
    return scalar < 0x20 || (scalar >= 0x7F && scalar <= 0x9F) || scalar == 0x2028 || scalar == 0x2029;
}

} // namespace

bool isFormulaWhiteSpace(char32_t scalar)
{
    return contains(whiteSpace, scalar);
}

bool FormulaCharacter::isLetter() const
{
    return contains(generated::letters, first);
}

bool FormulaCharacter::isNumber() const
{
    return contains(generated::numbers, first);
}

bool FormulaCharacter::isWhiteSpace() const
{
    return isFormulaWhiteSpace(first);
}

std::vector<FormulaCharacter> formulaCharacters(std::string_view utf8)
{
    std::vector<FormulaCharacter> characters;
    for (std::size_t offset = 0; offset < utf8.size();) {
        const ScalarStep step = readScalar(utf8.substr(offset));
        const bool joins =
            !characters.empty() && !standsAlone(characters.back().first) && contains(generated::extenders, step.scalar);
        if (joins) {
            characters.back().length += step.byteCount;
        } else {
            characters.push_back({step.scalar, offset, step.byteCount});
        }
        offset += step.byteCount;
    }
    return characters;
}

} // namespace tonavelle
