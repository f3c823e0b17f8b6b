#pragma once

#include <cstddef>
#include <iconv.h>
#include <optional>
#include <span>
#include <stdexcept>

namespace orvim::test {

/// The C library's text converter, as a yardstick. Throws std::runtime_error for an encoding that it lacks.
class Iconv
{
public:
    Iconv(const char* to, const char* from) : handle(iconv_open(to, from))
    {
        if (handle == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("no such converter");
    }
    ~Iconv() { iconv_close(handle); }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    /// Converts the whole of `text`, from a fresh start; the bytes written to `room`, or nothing where it is refused.
    std::optional<std::size_t> convert(std::span<const char> text, std::span<char> room)
    {
        char* in = const_cast<char*>(text.data());
        char* out = room.data();
        std::size_t inLeft = text.size();
        std::size_t outLeft = room.size();
        iconv(handle, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) return std::nullopt;
        return room.size() - outLeft;
    }

private:
    iconv_t handle;
};

} // namespace orvim::test
