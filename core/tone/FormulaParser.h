#pragma once

#include "core/tone/FormulaCharacters.h"
#include "core/tone/FormulaProgram.h"
#include "core/tone/UserWaveform.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tonavelle {

/// What the language offers, in words for the user.
inline constexpr std::string_view formulaHelpText = "数式を入力できます。\n"
                                                    "\n"
                                                    "関数:\n"
                                                    "sin(rad): サイン波\n"
                                                    "cos(rad): コサイン波\n"
                                                    "saw(rad): のこぎり波\n"
                                                    "squ(rad): 矩形波\n"
                                                    "squ2(duty, rad): 矩形波(duty比0〜1)\n"
                                                    "tri(rad): 三角波\n"
                                                    "abs(x): 絶対値\n"
                                                    "pow(x,y): xのy乗\n"
                                                    "\n"
                                                    "定数:\n"
                                                    "pi: 円周率\n"
                                                    "\n"
                                                    "変数:\n"
                                                    "t: 時間軸。0以上2π未満まで動く。\n"
                                                    "\n"
                                                    "演算:\n"
                                                    "+, -, *, /, ( )";

/// What reading a formula gave. With an `error`, the program holds the steps that stand before it in the text.
struct ParsedFormula {
    FormulaProgram program;
    std::optional<std::string> error; ///< the word for what is wrong
};

/// Reads one formula in t by recursive descent. Reading stops at the first thing that is wrong.
class FormulaParser
{
public:
    /// Brackets, calls and signs may stand in one another this deep; a deeper formula is not one that a person types,
    /// and would exhaust the call stack. It fails with "式エラー".
    static constexpr int greatestNesting = 1000;

    explicit FormulaParser(std::string_view formula);

    ParsedFormula parse() &&;

private:
    void readExpression();
    void readTerm();
    void readUnary();
    void readPrimary();
    void readNumber();
    void readIdentifier();
    void readCall(std::string_view name);

    void enter();
    void leave() { --nesting; }
    void skipWhiteSpace();
    void skipDigits();
    bool isAtEnd() const { return position == characters.size(); }
    bool isNext(char ascii) const { return !isAtEnd() && characters[position].is(ascii); }
    bool isNumberNext() const { return !isAtEnd() && characters[position].isNumber(); }
    bool takeIfNext(char ascii);
    std::string_view textFrom(std::size_t start) const;

    std::string text;
    std::vector<FormulaCharacter> characters;
    std::size_t position = 0;
    int nesting = 0;
    FormulaProgram program;
};

/// The samples of a formula, its value at each of 2,048 times t from 0 to just below 2 pi, with -1...1 as the full
/// range. Throws UserWaveformError of the kind `formula` with the word for what is wrong.
UserWaveform evaluateFormula(std::string_view formula);

} // namespace tonavelle
