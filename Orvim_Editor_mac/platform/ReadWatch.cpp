#include "platform/ReadWatch.h"

namespace orvim {

qint64 ReadWatch::readData(char* data, qint64 size)
{
    const qint64 count = m_file.read(data, size);
    if (count < size) m_hasMissedSome = true;
    if (count < 1 && size > 0) m_hasMissedAll = true;
    return count;
}

} // namespace orvim
