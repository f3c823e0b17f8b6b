#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tonavelle {

enum class FormulaOperation {
    constant,
    variable,
    negate,
    add,
    subtract,
    multiply,
    divide,
    sin,
    cos,
    saw,
    squ,
    squ2,
    tri,
    abs,
    pow,
};

/// A formula as the steps that compute it, in the order in which a single pass over the text would take them: each
/// takes its operands from a stack and leaves its result there.
class FormulaProgram
{
public:
    void pushConstant(double value);
    void pushVariable();
    /// Appends an operation other than the two above; its operands must have been appended before.
    void apply(FormulaOperation operation);

    /// Computes the value at each of `times` up to the first at which something is divided by zero; the result is how
    /// many there are. `values` must be as long as `times`. A program that is not complete leaves no values.
    std::size_t run(std::span<const double> times, std::span<double> values) const;

private:
    struct Instruction {
        FormulaOperation operation;
        double constant;
    };

    void push(Instruction instruction);
    std::size_t runBlock(std::span<const double> times, std::span<double> stack) const;

    std::vector<Instruction> instructions;
    std::size_t depth = 0;
    std::size_t greatestDepth = 0;
};

} // namespace tonavelle
