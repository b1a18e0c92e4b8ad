#pragma once

#include "archive/BinaryObjectTable.h"
#include "archive/BinaryObjectWriter.h"
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

// Writes a value that is no container. A value for which property lists have no object becomes the text
// "$null".
inline void writeScalar(BinaryObjectWriter &writer, quint64 index, const Value &value)
{
    switch (value.type()) {
    case Value::Type::Bool:
        return writer.writeBool(index, value.boolValue());
    case Value::Type::Int32:
    case Value::Type::Int64:
        return writer.writeInteger(index, value.longValue());
    case Value::Type::UInt64:
        return writer.writeUnsigned(index, value.unsignedLongValue());
    case Value::Type::Real32:
        return writer.writeReal32(index, value.floatValue());
    case Value::Type::Real64:
        return writer.writeReal64(index, value.doubleValue());
    case Value::Type::Date:
        return writer.writeDate(index, value.dateValue());
    case Value::Type::Data:
        return writer.writeData(index, value.dataValue());
    case Value::Type::String:
        if (const TextView text = value.text(); text.units)
            return writer.writeUnits(index, text.units, text.size);
        else
            return writer.writeAscii(index, text.ascii, text.size);
    default:
        return writer.writeAscii(index, "$null");
    }
}

} // namespace Foundation
