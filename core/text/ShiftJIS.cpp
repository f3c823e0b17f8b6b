#include "core/text/ShiftJIS.h"

#include "core/text/UTF8.h"
#include "core/text/generated/ShiftJISTable.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

namespace tonavelle {

namespace {

constexpr std::size_t cellsPerRow = 188;
constexpr char32_t halfWidthKatakana = 0xFF61;
constexpr std::uint8_t firstHalfWidthCode = 0xA1;
constexpr std::uint8_t lastHalfWidthCode = 0xDF;
constexpr std::uint8_t firstDoubledRow = 0xED;
constexpr std::uint8_t lastDoubledRow = 0xEE;

constexpr bool isLead(std::uint8_t byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

constexpr bool isTrail(std::uint8_t byte)
{
    return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

constexpr bool isHalfWidthKatakana(std::uint8_t byte)
{
    return byte >= firstHalfWidthCode && byte <= lastHalfWidthCode;
}

/// The table's cell of a valid pair of lead and trail.
constexpr char16_t scalarOf(std::uint8_t lead, std::uint8_t trail)
{
    const std::size_t row = lead - (lead >= 0xE0 ? 0xC1u : 0x81u);
    const std::size_t cell = trail - (trail >= 0x80 ? 0x41u : 0x40u);
    return generated::shiftJISTable[row * cellsPerRow + cell];
}

struct SecondForm {
    char16_t scalar;
    std::uint16_t code;
};

/// Scalars that other converters write for a character whose code decodes to a different scalar here.
constexpr std::array<SecondForm, 9> secondForms{{
    {u'\u00A2', 0x8191}, // cent sign
    {u'\u00A3', 0x8192}, // pound sign
    {u'\u00A5', 0x005C}, // yen sign, which Japanese fonts show at the place of the backslash
    {u'\u00AC', 0x81CA}, // not sign
    {u'\u2014', 0x815C}, // em dash for the horizontal bar
    {u'\u2016', 0x8161}, // double vertical line for the parallel sign
    {u'\u203E', 0x007E}, // overline, which Japanese fonts show at the place of the tilde
    {u'\u2212', 0x817C}, // minus sign for the full-width hyphen
    {u'\u301C', 0x8160}, // wave dash for the full-width tilde
}};

/// The code of every scalar of the basic plane, 0 where there is none.
using Codes = std::array<std::uint16_t, 0x10000>;

void addRow(Codes& codes, std::uint8_t lead)
{
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
        if (!isTrail(static_cast<std::uint8_t>(trail))) continue;
        const char16_t scalar = scalarOf(lead, static_cast<std::uint8_t>(trail));
        if (scalar != 0 && codes[scalar] == 0) codes[scalar] = static_cast<std::uint16_t>(lead << 8 | trail);
    }
}

/// Some characters have several codes. The lowest one wins, which is the standard's own and then that of NEC's row 13;
/// but rows 0xED and 0xEE only repeat the IBM extensions of rows 0xFA to 0xFC and come last.
Codes makeCodes()
{
    Codes codes{};
    for (unsigned byte = 1; byte < 0x80; ++byte)
        codes[byte] = static_cast<std::uint16_t>(byte);
    for (unsigned byte = firstHalfWidthCode; byte <= lastHalfWidthCode; ++byte)
        codes[halfWidthKatakana + byte - firstHalfWidthCode] = static_cast<std::uint16_t>(byte);
    for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
        const bool isDoubled = lead == firstDoubledRow || lead == lastDoubledRow;
        if (isLead(static_cast<std::uint8_t>(lead)) && !isDoubled) addRow(codes, static_cast<std::uint8_t>(lead));
    }
    addRow(codes, firstDoubledRow);
    addRow(codes, lastDoubledRow);
    for (const SecondForm& form : secondForms)
        codes[form.scalar] = form.code;
    return codes;
}

const Codes& codeTable()
{
    static const Codes codes = makeCodes();
    return codes;
}

/// The number of bytes below 0x80 that the bytes from `start` on begin with.
std::size_t asciiRun(std::span<const std::uint8_t> bytes, std::size_t start)
{
    constexpr std::uint64_t highBits = 0x8080'8080'8080'8080;
    std::size_t end = start;
    for (std::uint64_t eight = 0; end + sizeof eight <= bytes.size(); end += sizeof eight) {
        std::memcpy(&eight, &bytes[end], sizeof eight);
        if ((eight & highBits) != 0) break;
    }
    while (end < bytes.size() && bytes[end] < 0x80)
        ++end;
    return end - start;
}

/// UTF-8 text of the basic plane, written into room that is made ahead: growing by single bytes would cost most of the
/// time of a conversion.
class TextWriter
{
public:
    /// `likely`: the bytes that the text usually needs; `most`: what it can need.
    TextWriter(std::size_t likely, std::size_t most) : worstCase(most) { text.resize(likely); }

    void append(std::span<const std::uint8_t> ascii)
    {
        makeRoom(ascii.size());
        std::memcpy(&text[size], ascii.data(), ascii.size());
        size += ascii.size();
    }

    /// `scalar` must not be below 0x80.
    void append(char16_t scalar)
    {
        makeRoom(3);
        if (scalar < 0x800) {
            put(0xC0 | scalar >> 6);
        } else {
            put(0xE0 | scalar >> 12);
            put(0x80 | (scalar >> 6 & 0x3F));
        }
        put(0x80 | (scalar & 0x3F));
    }

    std::string result() &&
    {
        text.resize(size);
        return std::move(text);
    }

private:
    void makeRoom(std::size_t count)
    {
        if (text.size() - size < count) text.resize(worstCase);
    }

    void put(int byte) { text[size++] = static_cast<char>(byte); }

    std::string text;
    std::size_t size = 0;
    std::size_t worstCase;
};

enum class Unmappable { fails, isSubstituted };

std::optional<std::vector<std::uint8_t>> encode(std::string_view utf8, Unmappable unmappable)
{
    const Codes& codes = codeTable();
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(utf8.data()), utf8.size());
    // No scalar takes more bytes in Shift_JIS than in UTF-8.
    std::vector<std::uint8_t> result(bytes.size());
    std::size_t size = 0;
    for (std::size_t i = 0; i < bytes.size();) {
        if (bytes[i] < 0x80) {
            const std::size_t run = asciiRun(bytes, i);
            std::memcpy(&result[size], &bytes[i], run);
            size += run;
            i += run;
            continue;
        }
        const ScalarStep step = readScalar(utf8.substr(i));
        i += step.byteCount;
        std::uint16_t code = step.isWellFormed && step.scalar < codes.size() ? codes[step.scalar] : 0;
        if (code == 0) {
            if (unmappable == Unmappable::fails) return std::nullopt;
            code = '?';
        }
        if (code > 0xFF) result[size++] = static_cast<std::uint8_t>(code >> 8);
        result[size++] = static_cast<std::uint8_t>(code);
    }
    result.resize(size);
    return result;
}

} // namespace

std::optional<std::string> decodeShiftJIS(std::span<const std::uint8_t> bytes)
{
    // A pair becomes three bytes at most, and so does a single half-width katakana.
    TextWriter text(bytes.size() + bytes.size() / 2, bytes.size() * 3);
    for (std::size_t i = 0; i < bytes.size();) {
        const std::uint8_t byte = bytes[i];
        if (byte < 0x80) {
            const std::size_t run = asciiRun(bytes, i);
            text.append(bytes.subspan(i, run));
            i += run;
        } else if (isHalfWidthKatakana(byte)) {
            text.append(static_cast<char16_t>(halfWidthKatakana + byte - firstHalfWidthCode));
            ++i;
        } else {
            if (shiftJISCharacterLength(bytes.subspan(i)) != 2) return std::nullopt;
            const char16_t scalar = scalarOf(byte, bytes[i + 1]);
            if (scalar == 0) return std::nullopt;
            text.append(scalar);
            i += 2;
        }
    }
    return std::move(text).result();
}

std::optional<std::uint16_t> shiftJISCode(char32_t scalar)
{
    const Codes& codes = codeTable();
    const std::uint16_t code = scalar < codes.size() ? codes[scalar] : 0;
    if (code == 0 && scalar != 0) return std::nullopt;
    return code;
}

std::optional<std::vector<std::uint8_t>> encodeShiftJIS(std::string_view utf8)
{
    return encode(utf8, Unmappable::fails);
}

std::vector<std::uint8_t> encodeShiftJISLossy(std::string_view utf8)
{
    return *encode(utf8, Unmappable::isSubstituted);
}

std::optional<std::string> decodeText(std::span<const std::uint8_t> bytes)
{
    if (auto text = decodeShiftJIS(bytes)) return text;
    std::string text(bytes.begin(), bytes.end());
    if (!isUTF8(text)) return std::nullopt;
    return text;
}

std::size_t shiftJISCharacterLength(std::span<const std::uint8_t> bytes)
{
    if (bytes.empty()) return 0;
    if (bytes[0] < 0x80 || isHalfWidthKatakana(bytes[0])) return 1;
    return isLead(bytes[0]) && bytes.size() > 1 && isTrail(bytes[1]) ? 2 : 0;
}

} // namespace tonavelle
