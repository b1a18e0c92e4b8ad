#pragma once

#include "archive/BinaryObjectTable.h"
#include "archive/ReadBudget.h"
#include "values/Value.h"

#include <optional>

namespace Foundation
{

// The value of an object that holds no references: boolean, number, date, text or data. Nothing for any other
// object, and for a text object of ASCII kind with bytes beyond ASCII or an integer beyond 64 bits.
std::optional<Value> scalarValue(const BinaryObjectTable::Object &object);
// The type of that value; nothing where there would be none.
std::optional<Value::Type> scalarType(const BinaryObjectTable::Object &object);

// What making that value costs, for a ReadBudget. Numbers and short texts leave nothing behind.
inline quint64 scalarCost(const BinaryObjectTable::Object &object) noexcept
{
    using Kind = BinaryObjectTable::Kind;
    constexpr quint64 LargestFree = 16;
    const quint64 bytes = object.kind == Kind::Units ? 2 * object.count : object.count;
    return bytes <= LargestFree && object.kind != Kind::Data ? 0 : ReadBudget::SharedScalar + bytes;
}

} // namespace Foundation
