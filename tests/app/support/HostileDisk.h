#pragma once

#include <sys/resource.h>

#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvim::test {

/// A disk that takes no file beyond that many bytes: writing fails in the middle, as it does on a full one.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes) : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_before), 0);
        const rlimit limit{bytes, m_before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handlerBefore);
    }

private:
    rlimit m_before{};
    void (*m_handlerBefore)(int);
};

/// Gives up the rights of the root user for a while, as those write into any folder.
class OrdinaryUser
{
public:
    OrdinaryUser() : m_isOrdinary(geteuid() != 0 || seteuid(nobody) == 0) {}
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_before), 0); }

    bool isOrdinary() const { return m_isOrdinary; }

private:
    static constexpr uid_t nobody = 65534;

    uid_t m_before = geteuid();
    bool m_isOrdinary;
};

} // namespace orvim::test
