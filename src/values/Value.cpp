#include "values/Value.h"

#include "values/Array.h"
#include "values/Dictionary.h"
#include "values/OpaqueObject.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <new>

namespace Foundation
{

namespace
{

class DataBox : public RefCounted
{
public:
    explicit DataBox(const QByteArray &data)
        : bytes(data)
    {
    }
    const QByteArray bytes;
};

bool isAscii(const char16_t *units, qsizetype size)
{
    char16_t all = 0;
    for (qsizetype i = 0; i < size; ++i)
        all |= units[i];
    return all < 0x80;
}

qint64 cutToLong(double number)
{
    constexpr double Limit = 9223372036854775808.0; // 2^63
    if (std::isnan(number))
        return 0;
    if (number >= Limit)
        return std::numeric_limits<qint64>::max();
    if (number < -Limit)
        return std::numeric_limits<qint64>::min();
    return qint64(number);
}

bool isBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

// The ASCII characters at the beginning of a text, without leading blanks. A number consists of ASCII
// characters only.
std::string numericPrefix(const TextView &text)
{
    constexpr qsizetype Longest = 512;
    std::string prefix;
    for (qsizetype i = 0; i < text.size && qsizetype(prefix.size()) < Longest; ++i) {
        const char16_t unit = text.units ? text.units[i] : char16_t(text.ascii[i]);
        if (unit >= 0x80)
            break;
        if (!prefix.empty() || !isBlank(char(unit)))
            prefix.push_back(char(unit));
    }
    return prefix;
}

} // namespace

TextBox *TextBox::create(const void *characters, qsizetype size, bool wide)
{
    const std::size_t bytes = std::size_t(size) << (wide ? 1 : 0);
    void *room = ::operator new(sizeof(TextBox) + bytes);
    auto *box = new (room) TextBox(quint32(size) | (wide ? WideFlag : 0));
    std::memcpy(static_cast<void *>(box + 1), characters, bytes);
    return box;
}

void TextBox::destroy(const TextBox *box)
{
    box->~TextBox();
    ::operator delete(const_cast<TextBox *>(box));
}

Value::Value(quint64 value) noexcept
{
    const bool fits = value <= quint64(std::numeric_limits<qint64>::max());
    setScalar(fits ? Kind::Int64 : Kind::UInt64, value);
}

Value::Value(const QString &text)
    : Value()
{
    if (!text.isNull())
        *this = fromUtf16(reinterpret_cast<const char16_t *>(text.utf16()), text.size());
}

Value::Value(const QByteArray &data)
    : Value()
{
    if (!data.isNull())
        setShared(Kind::Data, new DataBox(data));
}

Value::Value(const Ref<Array> &array)
    : Value()
{
    if (array)
        setShared(Kind::Array, array.get());
}

Value::Value(const Ref<Dictionary> &dictionary)
    : Value()
{
    if (dictionary)
        setShared(Kind::Dictionary, dictionary.get());
}

Value::Value(const Ref<OpaqueObject> &object)
    : Value()
{
    if (object)
        setShared(Kind::Opaque, object.get());
}

Value Value::archivedNull() noexcept
{
    Value value;
    value.setKind(Kind::ArchivedNull);
    return value;
}

Value Value::date(double secondsSince2001) noexcept
{
    Value value;
    value.setScalar(Kind::Date, secondsSince2001);
    return value;
}

Value Value::fromAscii(const char *text, qsizetype size)
{
    Value value;
    if (size <= InlineBytes) {
        std::memcpy(value.m_bytes, text, std::size_t(size));
        value.m_bytes[SizeIndex] = quint8(size);
        value.setKind(Kind::InlineAscii);
    } else {
        value.setShared(Kind::Text, TextBox::create(text, size, false));
    }
    return value;
}

Value Value::fromUtf16(const char16_t *units, qsizetype size)
{
    // Equal texts must be stored in the same form, since they are compared by their bytes. So every text that
    // consists of ASCII characters is stored as ASCII.
    if (isAscii(units, size)) {
        const QByteArray ascii = QStringView(units, size).toLatin1();
        return fromAscii(ascii.constData(), ascii.size());
    }
    Value value;
    if (size <= InlineBytes / 2) {
        std::memcpy(value.m_bytes, units, std::size_t(size) * 2);
        value.m_bytes[SizeIndex] = quint8(size);
        value.setKind(Kind::InlineUnits);
    } else {
        value.setShared(Kind::Text, TextBox::create(units, size, true));
    }
    return value;
}

void Value::setShared(Kind kind, const RefCounted *object) noexcept
{
    object->retain();
    setScalar(kind, object);
}

void Value::destroyShared() noexcept
{
    switch (kind()) {
    case Kind::Text:
        TextBox::destroy(static_cast<const TextBox *>(shared()));
        break;
    case Kind::Data:
        delete static_cast<const DataBox *>(shared());
        break;
    case Kind::Array:
        delete static_cast<const Array *>(shared());
        break;
    case Kind::Dictionary:
        delete static_cast<const Dictionary *>(shared());
        break;
    case Kind::Opaque:
        delete static_cast<const OpaqueObject *>(shared());
        break;
    default:
        break;
    }
}

QString Value::stringValue() const
{
    const TextView view = text();
    if (view.units)
        return QString(reinterpret_cast<const QChar *>(view.units), view.size);
    if (view.ascii)
        return QString::fromLatin1(view.ascii, view.size);
    return {};
}

QByteArray Value::dataValue() const
{
    return kind() == Kind::Data ? static_cast<const DataBox *>(shared())->bytes : QByteArray();
}

Ref<Array> Value::array() const noexcept
{
    return kind() == Kind::Array ? Ref<Array>(const_cast<Array *>(static_cast<const Array *>(shared())))
                                 : nullptr;
}

Ref<Dictionary> Value::dictionary() const noexcept
{
    return kind() == Kind::Dictionary
               ? Ref<Dictionary>(const_cast<Dictionary *>(static_cast<const Dictionary *>(shared())))
               : nullptr;
}

Ref<OpaqueObject> Value::opaque() const noexcept
{
    return kind() == Kind::Opaque
               ? Ref<OpaqueObject>(const_cast<OpaqueObject *>(static_cast<const OpaqueObject *>(shared())))
               : nullptr;
}

Ref<ColorObject> Value::color() const noexcept
{
    return Ref<ColorObject>(dynamic_cast<ColorObject *>(opaque().get()));
}

qsizetype Value::contentBytes() const noexcept
{
    if (kind() == Kind::Data)
        return static_cast<const DataBox *>(shared())->bytes.size();
    const TextView view = text();
    return view.units ? 2 * view.size : view.size;
}

qint32 Value::intValue() const
{
    using Limits = std::numeric_limits<qint32>;
    const qint64 number = longValue();
    return qint32(isString() ? std::clamp<qint64>(number, Limits::min(), Limits::max()) : number);
}

qint64 Value::longValue() const
{
    switch (kind()) {
    case Kind::Bool:
        return load<bool>();
    case Kind::Int32:
        return load<qint32>();
    case Kind::Int64:
    case Kind::UInt64:
        return load<qint64>();
    case Kind::Real32:
    case Kind::Real64:
        return cutToLong(doubleValue());
    default:
        return integerInText();
    }
}

quint64 Value::unsignedLongValue() const
{
    constexpr double SignedLimit = 9223372036854775808.0; // 2^63
    const double number = kind() == Kind::Real32 || kind() == Kind::Real64 ? doubleValue() : 0.0;
    if (number >= 2 * SignedLimit)
        return std::numeric_limits<quint64>::max();
    if (number >= SignedLimit)
        return quint64(number);
    return quint64(longValue());
}

double Value::doubleValue() const
{
    switch (kind()) {
    case Kind::Real32:
        return double(load<float>());
    case Kind::Real64:
        return load<double>();
    case Kind::UInt64:
        return double(load<quint64>());
    case Kind::Bool:
    case Kind::Int32:
    case Kind::Int64:
        return double(longValue());
    default:
        return numberInText();
    }
}

bool Value::boolValue() const
{
    if (isNumber())
        return doubleValue() != 0.0;
    // A text is true if, after blanks, a sign and zeros, the next character is another digit or one of y, Y,
    // t and T.
    const std::string prefix = numericPrefix(text());
    std::size_t start = !prefix.empty() && (prefix[0] == '+' || prefix[0] == '-') ? 1 : 0;
    start = std::min(prefix.find_first_not_of('0', start), prefix.size());
    return start < prefix.size() && std::string("123456789YyTt").find(prefix[start]) != std::string::npos;
}

double Value::numberInText() const
{
    const std::string prefix = numericPrefix(text());
    const bool isNegative = prefix.starts_with('-');
    const char *start = prefix.data() + (isNegative || prefix.starts_with('+') ? 1 : 0);
    const char *end = prefix.data() + prefix.size();
    // Words such as "inf" and "nan" and a second sign are not accepted as numbers.
    if (start == end || !(*start == '.' || (*start >= '0' && *start <= '9')))
        return 0;
    double number = 0;
    const auto result = std::from_chars(start, end, number);
    if (result.ec == std::errc::result_out_of_range) // Infinite if too large, 0 if too small.
        number = QString::fromLatin1(start, result.ptr - start).toDouble();
    return isNegative ? -number : number;
}

qint64 Value::integerInText() const
{
    const std::string prefix = numericPrefix(text());
    const std::size_t start = prefix.starts_with('+') && !prefix.starts_with("+-") ? 1 : 0;
    qint64 number = 0;
    const auto result = std::from_chars(prefix.data() + start, prefix.data() + prefix.size(), number);
    if (result.ec == std::errc::result_out_of_range)
        return prefix[start] == '-' ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    return number;
}

bool operator==(const Value &a, const Value &b) noexcept
{
    if (a.kind() != b.kind())
        return false;
    switch (a.kind()) {
    case Value::Kind::Null:
    case Value::Kind::ArchivedNull:
        return true;
    case Value::Kind::Bool:
    case Value::Kind::Int32:
    case Value::Kind::Int64:
    case Value::Kind::UInt64:
        return a.kind() == Value::Kind::UInt64 ? a.load<quint64>() == b.load<quint64>()
                                               : a.longValue() == b.longValue();
    case Value::Kind::Real32:
    case Value::Kind::Real64:
        return a.doubleValue() == b.doubleValue();
    case Value::Kind::Date:
        return a.load<double>() == b.load<double>();
    case Value::Kind::Data:
        return a.dataValue() == b.dataValue();
    case Value::Kind::Array:
    case Value::Kind::Dictionary:
        return a.shared() == b.shared();
    case Value::Kind::Opaque:
        return a.opaque()->isEqual(*b.opaque());
    default:
        break;
    }
    if (a.isShared() && a.shared() == b.shared())
        return true;
    const TextView x = a.text();
    const TextView y = b.text();
    if (x.size != y.size || (x.units == nullptr) != (y.units == nullptr))
        return false;
    return x.units ? std::equal(x.units, x.units + x.size, y.units)
                   : std::equal(x.ascii, x.ascii + x.size, y.ascii);
}

} // namespace Foundation
