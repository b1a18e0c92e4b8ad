#pragma once

#include "values/Dictionary.h"

#include <algorithm>
#include <ranges>
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

    using value_type = Object;
    using size_type = std::size_t;

    ArrangedObjects(const Objects &objects, const Positions &positions)
        : m_objects(positions, ObjectAt{&objects})
    {
    }

    std::size_t size() const { return m_objects.size(); }
    bool empty() const { return m_objects.empty(); }
    const Object &operator[](std::size_t index) const { return m_objects[index]; }
    const Object &front() const { return m_objects.front(); }
    const Object &back() const { return m_objects.back(); }
    // Iterators are valid only as long as this view.
    auto begin() const { return m_objects.begin(); }
    auto end() const { return m_objects.end(); }

    friend bool operator==(const ArrangedObjects &a, const Objects &b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    struct ObjectAt
    {
        const Object &operator()(quint32 position) const { return (*objects)[position]; }
        const Objects *objects;
    };

    std::ranges::transform_view<std::ranges::ref_view<const Positions>, ObjectAt> m_objects;
};

} // namespace Foundation
