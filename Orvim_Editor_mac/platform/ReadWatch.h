#pragma once

#include <QIODevice>

namespace orvim {

/// Hands on what is read of a file and notes whether all of it was there. To be opened unbuffered, so that what is
/// asked for is what the reader needs; the file itself may be buffered.
class ReadWatch : public QIODevice
{
public:
    explicit ReadWatch(QIODevice& file) : m_file(file) {}

    void forget() { m_hasMissedAll = m_hasMissedSome = false; }
    /// Something was asked for at the end of the file, or could not be read.
    bool hasMissedAll() const { return m_hasMissedAll; }
    /// The same, or more was asked for than was left.
    bool hasMissedSome() const { return m_hasMissedSome; }

    bool isSequential() const override { return m_file.isSequential(); }
    qint64 size() const override { return m_file.size(); }
    bool seek(qint64 place) override { return QIODevice::seek(place) && m_file.seek(place); }

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QIODevice& m_file;
    bool m_hasMissedAll = false;
    bool m_hasMissedSome = false;
};

} // namespace orvim
