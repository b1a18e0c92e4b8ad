#pragma once

#include "foundation/BinaryObjectTable.h"
#include "foundation/Value.h"

#include <optional>

namespace Foundation
{

// The value of an object that holds no references: boolean, number, date, text or data. Nothing for any other
// object, and for a text object of ASCII kind with bytes beyond ASCII or an integer beyond 64 bits.
std::optional<Value> scalarValue(const BinaryObjectTable::Object &object);

// What making that value costs, for a ReadBudget.
quint64 scalarCost(const BinaryObjectTable::Object &object) noexcept;

} // namespace Foundation
