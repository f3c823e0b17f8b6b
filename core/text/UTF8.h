#pragma once

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

namespace tonavelle {

/// What stands for each ill-formed part of a text.
inline constexpr char32_t replacementScalar = U'\uFFFD';

/// One step through UTF-8 text: the scalar and the bytes it took, at least 1. Where the text is ill-formed,
/// `scalar` is the replacement character and `byteCount` the longest part that could still have begun a scalar.
struct ScalarStep {
    char32_t scalar;
    std::size_t byteCount;
    bool isWellFormed;
};

/// The first step of `utf8`, which must not be empty.
ScalarStep readScalar(std::string_view utf8);

/// Appends the UTF-8 form of `scalar`; surrogates and values above 0x10FFFF append the replacement character.
void appendScalar(std::string& utf8, char32_t scalar);

/// The number of Unicode scalars, each ill-formed part counted as one.
std::size_t scalarCount(std::string_view utf8);

/// Whether the whole text is well-formed UTF-8.
bool isUTF8(std::string_view utf8);

/// A view of a text as its Unicode scalars, to be walked by a range-based for; the text must outlive it.
class UTF8Scalars
{
public:
    explicit UTF8Scalars(std::string_view utf8) : text(utf8) {}

    class Iterator
    {
    public:
        explicit Iterator(std::string_view utf8) : rest(utf8) { read(); }

        char32_t operator*() const { return step.scalar; }
        Iterator& operator++()
        {
            rest.remove_prefix(step.byteCount);
            read();
            return *this;
        }
        bool operator==(std::default_sentinel_t) const { return rest.empty(); }

    private:
        void read()
        {
            if (!rest.empty()) step = readScalar(rest);
        }

        std::string_view rest;
        ScalarStep step{0, 0, true};
    };

    Iterator begin() const { return Iterator(text); }
    std::default_sentinel_t end() const { return {}; }

private:
    std::string_view text;
};

} // namespace tonavelle
