#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>
#include <type_traits>
#include <vector>

namespace Foundation
{

// Tells the system that all `size` bytes at `memory`, which is unused so far, will be used. The system may
// then provide large pages, which saves most of the cost of fresh memory. This is only a hint.
void adviseLargePages(void *memory, std::size_t size) noexcept;

// Returns an array with undefined content. The caller must write all bytes.
QByteArray uninitializedBytes(qsizetype size);

namespace Private
{
// Returns zeroed memory, which must be released with free(). Null only for 0 elements.
void *zeroedMemory(std::size_t count, std::size_t size);
} // namespace Private

// A fixed number of trivial elements, all zero at first. Parts that are never accessed take no memory.
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

// An allocator for vectors that may become large: it asks the system for large pages.
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
