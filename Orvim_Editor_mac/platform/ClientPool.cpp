#include "platform/ClientPool.h"

// The kernel's own header cannot stand beside alsa-lib's, which declares the same names.
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <sound/asequencer.h>

namespace orvim {

MIDIStatus readClientPool(int descriptor, std::uint8_t client, ClientPool& pool)
{
    snd_seq_client_pool answer{};
    answer.client = client;
    if (ioctl(descriptor, SNDRV_SEQ_IOCTL_GET_CLIENT_POOL, &answer) < 0) return -errno;
    pool.total = static_cast<std::size_t>(std::max(answer.input_pool, 0));
    pool.free = static_cast<std::size_t>(std::max(answer.input_free, 0));
    return 0;
}

} // namespace orvim
