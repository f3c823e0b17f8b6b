#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <gtest/gtest.h>
#include <optional>
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

/// A folder that takes no new file for a while, whoever runs the tests.
class LockedFolder
{
public:
    explicit LockedFolder(const QString& path) : m_path(QFile::encodeName(path))
    {
        EXPECT_EQ(::chmod(m_path.constData(), 0555), 0);
        m_user.emplace();
        EXPECT_TRUE(m_user->isOrdinary()) << "the root user could not become an ordinary one";
    }
    LockedFolder(const LockedFolder&) = delete;
    LockedFolder& operator=(const LockedFolder&) = delete;
    ~LockedFolder()
    {
        m_user.reset(); // The folder may be the root user's.
        EXPECT_EQ(::chmod(m_path.constData(), 0700), 0);
    }

private:
    QByteArray m_path;
    std::optional<OrdinaryUser> m_user;
};

} // namespace orvim::test
