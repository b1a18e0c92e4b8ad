#pragma once

#include "values/Value.h"

#include <vector>

namespace Foundation
{

// Mutable array of values, shared by reference. It has no change notifications: see Dictionary.
class Array : public RefCounted
{
public:
    static Ref<Array> create(std::vector<Value> values = {})
    {
        auto array = makeRef<Array>();
        array->values = std::move(values);
        return array;
    }

    qsizetype count() const noexcept { return qsizetype(values.size()); }
    const Value &at(qsizetype index) const { return values[std::size_t(index)]; }

    std::vector<Value> values;
};

} // namespace Foundation
