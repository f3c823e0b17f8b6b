#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tonavelle {

/// A user-perceived character of a formula: a scalar with the marks that join it. What it is, its first scalar decides.
struct FormulaCharacter {
    char32_t first;
    std::size_t offset; ///< of its first byte in the text
    std::size_t length; ///< in bytes

    /// Whether it is this ASCII character, without any mark.
    bool is(char ascii) const { return length == 1 && first == static_cast<unsigned char>(ascii); }
    bool isLetter() const;
    bool isNumber() const;
    bool isWhiteSpace() const;
};

/// The characters of a UTF-8 text; an ill-formed part is a character that is nothing of the above.
std::vector<FormulaCharacter> formulaCharacters(std::string_view utf8);

/// Whether this is white space or a line end.
bool isFormulaWhiteSpace(char32_t scalar);

} // namespace tonavelle
