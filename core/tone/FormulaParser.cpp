#include "core/tone/FormulaParser.h"

#include "core/text/UTF8.h"
#include "core/tone/UserWaveformError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

namespace tonavelle {

namespace {

/// Ends the reading of a formula; never leaves the parser.
struct Fault {
    const char* word;
};

namespace Word {
constexpr const char* empty = "空欄";
constexpr const char* endsEarly = "式が途中";
constexpr const char* notAValue = "式エラー";
constexpr const char* noClosingBracket = "閉じ括弧なし";
constexpr const char* unknownVariable = "未対応の変数";
constexpr const char* unknownFunction = "未対応の関数";
constexpr const char* tooFewArguments = "引数不足";
constexpr const char* tooManyArguments = "引数が多い";
constexpr const char* notANumber = "数値形式エラー";
constexpr const char* unknownSymbol = "未対応の記号";
constexpr const char* divisionByZero = "0除算";
constexpr const char* notFinite = "数値エラー";
} // namespace Word

struct Function {
    std::string_view name;
    int argumentCount;
    FormulaOperation operation;
};

constexpr std::array<Function, 8> functions{{
    {"sin", 1, FormulaOperation::sin},
    {"cos", 1, FormulaOperation::cos},
    {"saw", 1, FormulaOperation::saw},
    {"squ", 1, FormulaOperation::squ},
    {"squ2", 2, FormulaOperation::squ2},
    {"tri", 1, FormulaOperation::tri},
    {"abs", 1, FormulaOperation::abs},
    {"pow", 2, FormulaOperation::pow},
}};

/// No name of the language holds other letters than ASCII's, so that no others need to be lowered.
std::string lowerCased(std::string_view formula)
{
    std::string text(formula);
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

/// Whether a number that is not 0 and does not fit is too large rather than too small: its first digit other than 0
/// stands before the point, once the exponent has moved it.
bool isTooLarge(std::string_view number)
{
    const std::size_t mantissaEnd = std::min(number.find('e'), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
    if (mantissaEnd == number.size()) return firstDigit < point;
    std::string_view exponentText = number.substr(mantissaEnd + 1);
    const bool isNegative = exponentText.starts_with('-');
    if (isNegative || exponentText.starts_with('+')) exponentText.remove_prefix(1);
    std::int64_t exponent = std::numeric_limits<std::int32_t>::max();
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    return firstDigit - point < (isNegative ? -exponent : exponent);
}

/// The double nearest to the number, infinity or 0 where it is out of range; nothing where the text is no number.
std::optional<double> doubleOf(std::string_view number)
{
    double value = 0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (stop != end || error == std::errc::invalid_argument) return std::nullopt;
    if (error == std::errc::result_out_of_range)
        return isTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    return value;
}

/// The times of all samples.
std::vector<double> sampleTimes()
{
    std::vector<double> times(UserWaveformBuilder::sampleCount);
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = static_cast<double>(i) * 2 * std::numbers::pi * (1.0 / UserWaveformBuilder::sampleCount);
    return times;
}

/// The negative and the positive half have their own scales, so that both -1 and 1 reach the end of the range.
std::int16_t sampleOf(double value)
{
    if (value <= -1) return -32768;
    if (value > 1) return 32767;
    return static_cast<std::int16_t>(std::rint(value * (value < 0 ? 32768 : 32767)));
}

bool isBlank(std::string_view formula)
{
    for (const char32_t scalar : UTF8Scalars(formula)) {
        if (!isFormulaWhiteSpace(scalar)) return false;
    }
    return true;
}

} // namespace

FormulaParser::FormulaParser(std::string_view formula) : text(lowerCased(formula)), characters(formulaCharacters(text))
{
}

ParsedFormula FormulaParser::parse() &&
{
    std::optional<std::string> error;
    try {
        readExpression();
        skipWhiteSpace();
        if (!isAtEnd()) throw Fault{Word::unknownSymbol};
    } catch (const Fault& fault) {
        error = fault.word;
    }
    return {std::move(program), std::move(error)};
}

void FormulaParser::readExpression()
{
    readTerm();
    for (;;) {
        skipWhiteSpace();
        const bool isSum = isNext('+');
        if (!isSum && !isNext('-')) return;
        ++position;
        readTerm();
        program.apply(isSum ? FormulaOperation::add : FormulaOperation::subtract);
    }
}

void FormulaParser::readTerm()
{
    readUnary();
    for (;;) {
        skipWhiteSpace();
        const bool isProduct = isNext('*');
        if (!isProduct && !isNext('/')) return;
        ++position;
        readUnary();
        program.apply(isProduct ? FormulaOperation::multiply : FormulaOperation::divide);
    }
}

void FormulaParser::readUnary()
{
    skipWhiteSpace();
    const bool isNegation = isNext('-');
    if (!isNegation && !isNext('+')) return readPrimary();
    ++position;
    enter();
    readUnary();
    leave();
    if (isNegation) program.apply(FormulaOperation::negate);
}

void FormulaParser::readPrimary()
{
    skipWhiteSpace();
    if (isAtEnd()) throw Fault{Word::endsEarly};
    if (isNumberNext() || isNext('.')) return readNumber();
    if (characters[position].isLetter()) return readIdentifier();
    if (!takeIfNext('(')) throw Fault{Word::notAValue};
    enter();
    readExpression();
    leave();
    skipWhiteSpace();
    if (!takeIfNext(')')) throw Fault{Word::noClosingBracket};
}

void FormulaParser::readNumber()
{
    const std::size_t start = position;
    skipDigits();
    if (takeIfNext('.')) skipDigits();
    const std::size_t mantissaEnd = position;
    if (takeIfNext('e')) {
        if (!takeIfNext('+')) takeIfNext('-');
        if (isNumberNext()) {
            skipDigits();
        } else {
            position = mantissaEnd;
        }
    }
    const auto value = doubleOf(textFrom(start));
    if (!value) throw Fault{Word::notANumber};
    program.pushConstant(*value);
}

void FormulaParser::readIdentifier()
{
    const std::size_t start = position;
    while (!isAtEnd() && (characters[position].isLetter() || isNumberNext() || isNext('_')))
        ++position;
    const std::string_view name = textFrom(start);
    if (name == "t") return program.pushVariable();
    if (name == "pi") return program.pushConstant(std::numbers::pi);
    readCall(name);
}

void FormulaParser::readCall(std::string_view name)
{
    skipWhiteSpace();
    if (!takeIfNext('(')) throw Fault{Word::unknownVariable};
    enter();
    readExpression();
    skipWhiteSpace();
    int argumentCount = 1;
    if (takeIfNext(',')) {
        readExpression();
        ++argumentCount;
    }
    leave();
    skipWhiteSpace();
    if (!takeIfNext(')')) throw Fault{Word::noClosingBracket};
    const auto function = std::ranges::find(functions, name, &Function::name);
    if (function == functions.end()) throw Fault{Word::unknownFunction};
    if (argumentCount < function->argumentCount) throw Fault{Word::tooFewArguments};
    if (argumentCount > function->argumentCount) throw Fault{Word::tooManyArguments};
    program.apply(function->operation);
}

void FormulaParser::enter()
{
    if (++nesting > greatestNesting) throw Fault{Word::notAValue};
}

void FormulaParser::skipWhiteSpace()
{
    while (!isAtEnd() && characters[position].isWhiteSpace())
        ++position;
}

void FormulaParser::skipDigits()
{
    while (isNumberNext())
        ++position;
}

bool FormulaParser::takeIfNext(char ascii)
{
    if (!isNext(ascii)) return false;
    ++position;
    return true;
}

std::string_view FormulaParser::textFrom(std::size_t start) const
{
    const std::size_t end = isAtEnd() ? text.size() : characters[position].offset;
    const std::size_t begin = characters[start].offset;
    return std::string_view(text).substr(begin, end - begin);
}

UserWaveform evaluateFormula(std::string_view formula)
{
    if (isBlank(formula)) throw UserWaveformError::formula(Word::empty);
    const ParsedFormula parsed = FormulaParser(formula).parse();
    std::vector<double> times = sampleTimes();
    // A formula is read anew at each time, and computed as far as it can be read: only the first time is reached where
    // reading fails, but a division by zero that stands before the fault comes first.
    if (parsed.error) times.resize(1);
    std::vector<double> values(times.size());
    const std::size_t computed = parsed.program.run(times, values);
    if (parsed.error) throw UserWaveformError::formula(computed == 0 ? Word::divisionByZero : *parsed.error);

    UserWaveform samples(times.size());
    for (std::size_t i = 0; i < computed; ++i) {
        if (!std::isfinite(values[i])) throw UserWaveformError::formula(Word::notFinite);
        samples[i] = sampleOf(values[i]);
    }
    if (computed < times.size()) throw UserWaveformError::formula(Word::divisionByZero);
    return samples;
}

} // namespace tonavelle
