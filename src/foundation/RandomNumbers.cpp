#include "foundation/RandomNumbers.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <sys/random.h>

qint64 randomLongInRange(qint64 lowerBound, qint64 upperBound)
{
    static bool seeded = false;
    if (!seeded) {
        srandom(unsigned(time(nullptr)));
        seeded = true;
    }
    return lowerBound + random() % (upperBound - lowerBound + 1);
}

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
