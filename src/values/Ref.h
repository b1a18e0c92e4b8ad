#pragma once

#include <QtGlobal>

#include <utility>

namespace Foundation
{

// Base class of everything that values share by reference: texts, data, arrays, dictionaries and opaque
// objects.
//
// The count is not atomic: a shared value may be used by one thread only, and all document work runs on the
// main thread. `visitMark` is for an algorithm that walks over a graph of objects: it stores the position of
// the object in its own list of visited objects and must check that list, since the mark may be left from an
// earlier walk.
class RefCounted
{
public:
    RefCounted() = default;
    RefCounted(const RefCounted &) = delete;
    RefCounted &operator=(const RefCounted &) = delete;

    void retain() const noexcept { ++m_references; }
    // Returns true if that was the last reference. The caller must then destroy the object.
    [[nodiscard]] bool release() const noexcept { return --m_references == 0; }
    bool hasSeveralOwners() const noexcept { return m_references > 1; }

    mutable quint32 visitMark = 0;

private:
    mutable quint32 m_references = 0;
};

// Intrusive owning pointer to a RefCounted object.
template <class T>
class Ref
{
public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    explicit Ref(T *object) noexcept
        : m_object(object)
    {
        if (m_object)
            m_object->retain();
    }
    Ref(const Ref &other) noexcept
        : Ref(other.m_object)
    {
    }
    Ref(Ref &&other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    ~Ref()
    {
        if (m_object && m_object->release())
            delete m_object;
    }
    Ref &operator=(Ref other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T *get() const noexcept { return m_object; }
    T *operator->() const noexcept { return m_object; }
    T &operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    // Compares identity, never content.
    friend bool operator==(const Ref &a, const Ref &b) noexcept { return a.m_object == b.m_object; }
    friend bool operator==(const Ref &a, std::nullptr_t) noexcept { return a.m_object == nullptr; }

private:
    T *m_object = nullptr;
};

template <class T, class... Args>
Ref<T> makeRef(Args &&...args)
{
    return Ref<T>(new T(std::forward<Args>(args)...));
}

} // namespace Foundation
