#include "support/Describe.h"

#include "support/Printers.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <cstdio>
#include <ostream>

using Foundation::Value;

namespace
{

template <class... Arguments>
std::string formatted(const char *format, Arguments... arguments)
{
    char text[64];
    std::snprintf(text, sizeof text, format, arguments...);
    return text;
}

std::string listed(const Foundation::Array &array)
{
    std::string result;
    for (const Value &item : array.values)
        result += (result.empty() ? "" : " ") + describe(item);
    return '[' + result + ']';
}

std::string listed(const Foundation::Dictionary &dictionary)
{
    std::string result;
    for (const auto &entry : dictionary.entries())
        result += (result.empty() ? "" : " ") + entry.key.name().toStdString() + '=' + describe(entry.value);
    return '{' + result + '}';
}

} // namespace

std::string describe(const Value &value)
{
    switch (value.type()) {
    case Value::Type::Null:
        return "null";
    case Value::Type::ArchivedNull:
        return "nil";
    case Value::Type::Bool:
        return value.boolValue() ? "true" : "false";
    case Value::Type::Int32:
        return formatted("i32:%d", value.intValue());
    case Value::Type::Int64:
        return formatted("i64:%lld", value.longValue());
    case Value::Type::UInt64:
        return formatted("u64:%llu", value.unsignedLongValue());
    case Value::Type::Real32:
        return formatted("f32:%a", value.doubleValue());
    case Value::Type::Real64:
        return formatted("f64:%a", value.doubleValue());
    case Value::Type::Date:
        return formatted("date:%a", value.dateValue());
    case Value::Type::String:
        return quoted(value.stringValue());
    case Value::Type::Data:
        return '<' + value.dataValue().toHex().toStdString() + '>';
    case Value::Type::Array:
        return listed(*value.array());
    case Value::Type::Dictionary:
        return listed(*value.dictionary());
    case Value::Type::Opaque:
        return "opaque";
    }
    return "unknown";
}

std::string describe(const std::optional<Value> &value)
{
    return value ? describe(*value) : "refused";
}

void Foundation::PrintTo(const Value &value, std::ostream *out)
{
    *out << describe(value);
}
