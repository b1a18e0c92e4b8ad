#include "archive/LargeArray.h"

#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>

namespace Foundation
{

namespace
{
constexpr std::uintptr_t LargePage = 2 << 20;
}

void adviseLargePages(void *memory, std::size_t size) noexcept
{
    const auto begin = (reinterpret_cast<std::uintptr_t>(memory) + LargePage - 1) & ~(LargePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + size) & ~(LargePage - 1);
    if (begin < end)
        (void)madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE); // NOLINT: an address
}

QByteArray uninitializedBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    adviseLargePages(bytes.data(), std::size_t(size));
    return bytes;
}

void *Private::zeroedMemory(std::size_t count, std::size_t size)
{
    void *memory = std::calloc(count, size);
    if (count > 0)
        Q_CHECK_PTR(memory);
    adviseLargePages(memory, count * size);
    return memory;
}

} // namespace Foundation
