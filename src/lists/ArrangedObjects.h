#pragma once

#include "values/Dictionary.h"

#include <iterator>
#include <vector>

namespace Foundation
{

// A read-only view of some objects of a list in another order. It consists of positions and not of
// references, so that rearranging 100,000 objects changes no reference count. Valid as long as both lists
// exist and are unchanged.
class ArrangedObjects
{
public:
    using Object = Ref<Dictionary>;
    using Objects = std::vector<Object>;
    using Positions = std::vector<quint32>;

    // Written out, because clang 14 cannot compile the views of the standard library of GCC 12.
    class Iterator
    {
    public:
        using iterator_category = std::random_access_iterator_tag;
        using value_type = Object;
        using difference_type = std::ptrdiff_t;
        using pointer = const Object *;
        using reference = const Object &;

        Iterator() = default;
        Iterator(const Objects *objects, Positions::const_iterator position)
            : m_objects(objects)
            , m_position(position)
        {
        }
        reference operator*() const { return (*m_objects)[*m_position]; }
        pointer operator->() const { return &**this; }
        reference operator[](difference_type offset) const { return *(*this + offset); }
        Iterator &operator++() { return *this += 1; }
        Iterator operator++(int) { return std::exchange(*this, *this + 1); }
        Iterator &operator--() { return *this -= 1; }
        Iterator operator--(int) { return std::exchange(*this, *this - 1); }
        Iterator &operator+=(difference_type offset)
        {
            m_position += offset;
            return *this;
        }
        Iterator &operator-=(difference_type offset) { return *this += -offset; }
        friend Iterator operator+(Iterator it, difference_type offset) { return it += offset; }
        friend Iterator operator+(difference_type offset, Iterator it) { return it += offset; }
        friend Iterator operator-(Iterator it, difference_type offset) { return it -= offset; }
        friend difference_type operator-(const Iterator &a, const Iterator &b)
        {
            return a.m_position - b.m_position;
        }
        friend bool operator==(const Iterator &a, const Iterator &b) { return a.m_position == b.m_position; }
        friend auto operator<=>(const Iterator &a, const Iterator &b)
        {
            return a.m_position <=> b.m_position;
        }

    private:
        const Objects *m_objects = nullptr;
        Positions::const_iterator m_position;
    };
    using value_type = Object;
    using const_iterator = Iterator;
    using size_type = std::size_t;

    ArrangedObjects(const Objects &objects, const Positions &positions)
        : m_objects(objects)
        , m_positions(positions)
    {
    }

    std::size_t size() const { return m_positions.size(); }
    bool empty() const { return m_positions.empty(); }
    const Object &operator[](std::size_t index) const { return m_objects[m_positions[index]]; }
    const Object &front() const { return (*this)[0]; }
    const Object &back() const { return (*this)[size() - 1]; }
    Iterator begin() const { return {&m_objects, m_positions.begin()}; }
    Iterator end() const { return {&m_objects, m_positions.end()}; }

    friend bool operator==(const ArrangedObjects &a, const Objects &b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    const Objects &m_objects;
    const Positions &m_positions;
};

} // namespace Foundation
