#pragma once

#include <unistd.h>
#include <utility>

namespace orvim::test {

/// Owns an open file, or none.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int opened) : file(opened) {}
    FileDescriptor(FileDescriptor&& other) noexcept : file(std::exchange(other.file, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(file, other.file);
        return *this;
    }
    ~FileDescriptor() { close(); }

    void close()
    {
        if (isOpen()) ::close(std::exchange(file, -1));
    }
    bool isOpen() const { return file >= 0; }
    int get() const { return file; }

private:
    int file = -1;
};

} // namespace orvim::test
