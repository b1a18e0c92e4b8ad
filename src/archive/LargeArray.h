#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>
#include <type_traits>
#include <vector>

namespace Foundation
{

// Tells the system that `size` bytes at `memory`, not used so far, will all be used: it may then give them in
// large pages, which saves most of the time that fresh memory costs. A hint; nothing else depends on it.
void adviseLargePages(void *memory, std::size_t size) noexcept;

// Bytes with undefined content. The caller must write all of them.
QByteArray uninitializedBytes(qsizetype size);

namespace Private
{
// Memory full of zeros, to be freed. Null only for no elements.
void *zeroedMemory(std::size_t count, std::size_t size);
} // namespace Private

// A fixed number of plain elements, all zero at first. Costs nothing where it is never touched.
template <class T>
class LargeArray
{
    static_assert(std::is_trivial_v<T>);

public:
    explicit LargeArray(std::size_t size)
        : m_elements(static_cast<T *>(Private::zeroedMemory(size, sizeof(T))))
    {
    }

    T &operator[](std::size_t index) noexcept { return m_elements.get()[index]; }
    const T &operator[](std::size_t index) const noexcept { return m_elements.get()[index]; }

private:
    struct Free
    {
        void operator()(T *elements) const noexcept { std::free(elements); }
    };
    std::unique_ptr<T, Free> m_elements;
};

// For vectors that may become large: their memory comes in large pages where the system has them.
template <class T>
struct LargePageAllocator
{
    using value_type = T;

    LargePageAllocator() = default;
    template <class Other>
    LargePageAllocator(const LargePageAllocator<Other> &) noexcept
    {
    }
    T *allocate(std::size_t count)
    {
        void *memory = ::operator new(count * sizeof(T));
        adviseLargePages(memory, count * sizeof(T));
        return static_cast<T *>(memory);
    }
    void deallocate(T *memory, std::size_t) noexcept { ::operator delete(memory); }
    friend bool operator==(const LargePageAllocator &, const LargePageAllocator &) noexcept { return true; }
};

template <class T>
using LargeVector = std::vector<T, LargePageAllocator<T>>;

} // namespace Foundation
