#include "files/RandomBytes.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <sys/random.h>

std::optional<QByteArray> Foundation::secureRandomBytes(quint64 length)
{
    if (length > quint64(std::numeric_limits<int>::max()))
        return std::nullopt;
    QByteArray bytes(qsizetype(length), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = getrandom(bytes.data() + filled, std::size_t(bytes.size() - filled), 0);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return std::nullopt;
        filled += count;
    }
    return bytes;
}
