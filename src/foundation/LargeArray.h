#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>
#include <type_traits>

namespace Foundation
{

// Tells the system that `size` bytes at `memory`, not used so far, will all be used: it may then give them in
// large pages, which saves most of the time that fresh memory costs. A hint; nothing else depends on it.
void adviseLargePages(void *memory, std::size_t size) noexcept;

// Bytes for somebody who fills them all.
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

} // namespace Foundation
