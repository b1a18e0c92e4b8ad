#include "archive/BinaryScalars.h"

#include <bit>
#include <limits>

namespace Foundation
{

namespace
{

using Object = BinaryObjectTable::Object;
using Kind = BinaryObjectTable::Kind;

bool isAscii(const uchar *text, quint64 size)
{
    quint64 all = 0;
    for (; size >= sizeof all; text += sizeof all, size -= sizeof all)
        all |= qFromUnaligned<quint64>(text);
    for (; size > 0; ++text, --size)
        all |= *text;
    return (all & 0x8080808080808080) == 0;
}

Value unitsValue(const uchar *payload, qsizetype size)
{
    constexpr qsizetype OnStack = 256;
    char16_t few[OnStack];
    if (size <= OnStack) {
        qFromBigEndian<quint16>(payload, size, few);
        return Value::fromUtf16(few, size);
    }
    QString units(size, Qt::Uninitialized);
    qFromBigEndian<quint16>(payload, size, units.data());
    return Value(units);
}

// Returns nothing for an integer of more than 64 bits.
std::optional<Value> integerValue(const Object &object)
{
    if (object.count == 8)
        return Value(qFromBigEndian<qint64>(object.payload));
    if (object.count < 8) // Integers of fewer than 8 bytes are unsigned.
        return Value(qint64(BinaryObjectTable::number(object.payload, int(object.count))));
    const auto high = qFromBigEndian<quint64>(object.payload);
    const auto low = qFromBigEndian<quint64>(object.payload + 8);
    if (high == 0)
        return Value(low);
    if (high == std::numeric_limits<quint64>::max() && qint64(low) < 0)
        return Value(qint64(low));
    return std::nullopt;
}

} // namespace

std::optional<Value> scalarValue(const Object &object)
{
    switch (object.kind) {
    case Kind::False:
        return Value(false);
    case Kind::True:
        return Value(true);
    case Kind::Integer:
        return integerValue(object);
    case Kind::Real:
        if (object.count == 4)
            return Value(std::bit_cast<float>(qFromBigEndian<quint32>(object.payload)));
        return Value(std::bit_cast<double>(qFromBigEndian<quint64>(object.payload)));
    case Kind::Date:
        return Value::date(std::bit_cast<double>(qFromBigEndian<quint64>(object.payload)));
    case Kind::Ascii:
        if (!isAscii(object.payload, object.count))
            return std::nullopt;
        return Value::fromAscii(reinterpret_cast<const char *>(object.payload), qsizetype(object.count));
    case Kind::Units:
        return unitsValue(object.payload, qsizetype(object.count));
    case Kind::Data:
        return Value(QByteArray(reinterpret_cast<const char *>(object.payload), qsizetype(object.count)));
    default:
        return std::nullopt;
    }
}

std::optional<Value::Type> scalarType(const Object &object)
{
    switch (object.kind) {
    case Kind::Ascii:
        return isAscii(object.payload, object.count) ? std::optional(Value::Type::String) : std::nullopt;
    case Kind::Units:
        return Value::Type::String;
    case Kind::Data:
        return Value::Type::Data;
    default: // The other types are cheap to make.
        const auto value = scalarValue(object);
        return value ? std::optional(value->type()) : std::nullopt;
    }
}

} // namespace Foundation
