#include "core/tone/FormulaProgram.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <numbers>

namespace tonavelle {

namespace {

constexpr double pi = std::numbers::pi;

/// Each instruction runs over a block of this many times, which keeps its cost small beside the arithmetic and the
/// stack of blocks in the cache.
constexpr std::size_t blockSize = 128;

/// `x` brought to 0...2 pi.
double phase(double x)
{
    const double remainder = std::fmod(x, 2 * pi);
    return remainder < 0 ? remainder + 2 * pi : remainder;
}

double saw(double x)
{
    return 2 * phase(x) / (2 * pi) - 1;
}

double squ(double x)
{
    return phase(x) < pi ? 1 : -1;
}

double squ2(double duty, double x)
{
    if (duty <= 0) return -1;
    if (duty >= 1) return 1;
    return phase(x) / (2 * pi) < duty ? 1 : -1;
}

double tri(double x)
{
    const double p = phase(x);
    return p < pi ? 2 * p / pi - 1 : 1 - 2 * (p - pi) / pi;
}

bool takesTwo(FormulaOperation operation)
{
    switch (operation) {
    case FormulaOperation::add:
    case FormulaOperation::subtract:
    case FormulaOperation::multiply:
    case FormulaOperation::divide:
    case FormulaOperation::squ2:
    case FormulaOperation::pow:
        return true;
    default:
        return false;
    }
}

template <typename Function>
void replace(std::span<double> values, Function function)
{
    for (double& value : values)
        value = function(value);
}

/// Each of `left` becomes the function of itself and its neighbour in `right`.
template <typename Function>
void combine(std::span<double> left, std::span<const double> right, Function function)
{
    for (std::size_t i = 0; i < left.size(); ++i)
        left[i] = function(left[i], right[i]);
}

void replace(FormulaOperation operation, std::span<double> x)
{
    switch (operation) {
    case FormulaOperation::negate:
        return replace(x, [](double value) { return -value; });
    case FormulaOperation::sin:
        return replace(x, [](double value) { return std::sin(value); });
    case FormulaOperation::cos:
        return replace(x, [](double value) { return std::cos(value); });
    case FormulaOperation::saw:
        return replace(x, saw);
    case FormulaOperation::squ:
        return replace(x, squ);
    case FormulaOperation::tri:
        return replace(x, tri);
    case FormulaOperation::abs:
        return replace(x, [](double value) { return std::abs(value); });
    default:
        assert(false && "not an operation on one value");
    }
}

void combine(FormulaOperation operation, std::span<double> left, std::span<const double> right)
{
    switch (operation) {
    case FormulaOperation::add:
        return combine(left, right, [](double a, double b) { return a + b; });
    case FormulaOperation::subtract:
        return combine(left, right, [](double a, double b) { return a - b; });
    case FormulaOperation::multiply:
        return combine(left, right, [](double a, double b) { return a * b; });
    case FormulaOperation::divide:
        return combine(left, right, [](double a, double b) { return a / b; });
    case FormulaOperation::squ2:
        return combine(left, right, squ2);
    case FormulaOperation::pow:
        return combine(left, right, [](double a, double b) { return std::pow(a, b); });
    default:
        assert(false && "not an operation on two values");
    }
}

std::size_t firstZero(std::span<const double> values)
{
    return static_cast<std::size_t>(std::ranges::find(values, 0.0) - values.begin());
}

} // namespace

void FormulaProgram::push(Instruction instruction)
{
    instructions.push_back(instruction);
    ++depth;
    greatestDepth = std::max(greatestDepth, depth);
}

void FormulaProgram::pushConstant(double value)
{
    push({FormulaOperation::constant, value});
}

void FormulaProgram::pushVariable()
{
    push({FormulaOperation::variable, 0});
}

void FormulaProgram::apply(FormulaOperation operation)
{
    assert(depth >= (takesTwo(operation) ? 2u : 1u));
    instructions.push_back({operation, 0});
    if (takesTwo(operation)) --depth;
}

std::size_t FormulaProgram::run(std::span<const double> times, std::span<double> values) const
{
    assert(times.size() == values.size());
    std::vector<double> stack(greatestDepth * blockSize);
    for (std::size_t start = 0; start < times.size(); start += blockSize) {
        const std::size_t count = std::min(blockSize, times.size() - start);
        const std::size_t computed = runBlock(times.subspan(start, count), stack);
        if (depth == 1) std::copy_n(stack.begin(), computed, values.begin() + static_cast<std::ptrdiff_t>(start));
        if (computed < count) return start + computed;
    }
    return times.size();
}

/// As `run`, for at most `blockSize` times; the values come to stand at the bottom of the stack.
std::size_t FormulaProgram::runBlock(std::span<const double> times, std::span<double> stack) const
{
    const std::size_t count = times.size();
    const auto block = [&](std::size_t level) { return stack.subspan(level * blockSize, count); };
    std::size_t computed = count;
    std::size_t top = 0;
    for (const Instruction& instruction : instructions) {
        if (instruction.operation == FormulaOperation::constant) {
            std::ranges::fill(block(top++), instruction.constant);
        } else if (instruction.operation == FormulaOperation::variable) {
            std::ranges::copy(times, block(top++).begin());
        } else if (takesTwo(instruction.operation)) {
            --top;
            if (instruction.operation == FormulaOperation::divide) computed = std::min(computed, firstZero(block(top)));
            combine(instruction.operation, block(top - 1), block(top));
        } else {
            replace(instruction.operation, block(top - 1));
        }
    }
    return computed;
}

} // namespace tonavelle
