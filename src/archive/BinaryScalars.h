#pragma once

#include "archive/BinaryObjectTable.h"
#include "archive/ReadBudget.h"
#include "values/Value.h"

#include <optional>

namespace Foundation
{

// The value of an object without references: boolean, number, date, text or data. Returns nothing for any
// other object, for an ASCII text with bytes outside ASCII, and for an integer of more than 64 bits.
std::optional<Value> scalarValue(const BinaryObjectTable::Object &object);
// The type of that value, without making it; nothing where scalarValue() returns nothing.
std::optional<Value::Type> scalarType(const BinaryObjectTable::Object &object);

// The cost of making that value in a ReadBudget. Numbers and short texts are free, because they take no
// memory besides the value itself.
inline quint64 scalarCost(const BinaryObjectTable::Object &object) noexcept
{
    using Kind = BinaryObjectTable::Kind;
    constexpr quint64 LargestFree = 16;
    const quint64 bytes = object.kind == Kind::Units ? 2 * object.count : object.count;
    return bytes <= LargestFree && object.kind != Kind::Data ? 0 : ReadBudget::SharedScalar + bytes;
}

} // namespace Foundation
