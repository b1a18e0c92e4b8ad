#pragma once

#include "values/Ref.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>

#include <cstring>

namespace Foundation
{

class Array;
class Dictionary;
class ColorObject;
class OpaqueObject;

// A view of a stored text: ASCII characters, or UTF-16 units if the text contains other characters. At most
// one pointer is set. Valid only as long as the value that returned it.
struct TextView
{
    const char *ascii = nullptr;
    const char16_t *units = nullptr;
    qsizetype size = 0; // in UTF-16 code units
};

// A text that is too long to be stored inside a value. The characters follow the object in the same
// allocation.
class TextBox : public RefCounted
{
public:
    static TextBox *create(const void *characters, qsizetype size, bool wide);
    static void destroy(const TextBox *box);
    TextView view() const noexcept
    {
        const auto size = qsizetype(m_sizeAndWidth & ~WideFlag);
        if (m_sizeAndWidth & WideFlag)
            return {nullptr, reinterpret_cast<const char16_t *>(this + 1), size};
        return {reinterpret_cast<const char *>(this + 1), nullptr, size};
    }

private:
    static constexpr quint32 WideFlag = 0x80000000U;

    explicit TextBox(quint32 sizeAndWidth)
        : m_sizeAndWidth(sizeAndWidth)
    {
    }

    quint32 m_sizeAndWidth;
};

// A dynamically typed value of a document: the value of an entry of a record, a category or the captions.
//
// A value takes 16 bytes. Numbers, dates and short texts (up to 14 ASCII characters or 7 UTF-16 units) are
// stored in the value itself; longer texts, data, arrays and dictionaries are shared by reference, so that
// copying a value never copies content. A number keeps the type that it was made or read with. Texts keep
// every UTF-16 unit, including lone surrogates and null characters.
//
// The getters never fail: a value of another type gives 0, false, a null text or a null reference. The number
// conversions are prescribed: narrowing keeps the low bits of an integer; a real is truncated toward zero and
// limited to the range of the result, and NaN becomes 0; a text is read as the number at its beginning,
// limited to 64 bits, or to 32 bits by intValue.
class Value
{
public:
    enum class Type : quint8 {
        Null,         // no value: the result of reading an absent key
        ArchivedNull, // the null object of an archive, which is a value of a type of its own
        Bool,
        Int32,
        Int64,
        UInt64, // only for numbers above the signed range
        Real32,
        Real64,
        Date, // 64-bit seconds since 2001-01-01 00:00:00 UTC
        String,
        Data,
        Array,
        Dictionary,
        Opaque, // a colour object, as in documents of old releases, or an image for a control
    };

    Value() noexcept { setKind(Kind::Null); }
    Value(bool value) noexcept { setScalar(Kind::Bool, value); }
    Value(qint32 value) noexcept { setScalar(Kind::Int32, value); }
    Value(qint64 value) noexcept { setScalar(Kind::Int64, value); }
    Value(long value) noexcept { setScalar(Kind::Int64, qint64(value)); }
    // Becomes Int64 if the number fits, because the file format does not distinguish the two.
    Value(quint64 value) noexcept;
    Value(unsigned long value) noexcept
        : Value(quint64(value))
    {
    }
    Value(float value) noexcept { setScalar(Kind::Real32, value); }
    Value(double value) noexcept { setScalar(Kind::Real64, value); }
    // A null text becomes Null, an empty text stays an empty text.
    Value(const QString &text);
    // A null byte array becomes Null, an empty one becomes empty data.
    Value(const QByteArray &data);
    Value(const Ref<Array> &array);
    Value(const Ref<Dictionary> &dictionary);
    Value(const Ref<OpaqueObject> &object);
    // Without these, a literal would become a boolean.
    Value(const char *) = delete;
    Value(const void *) = delete;

    static Value archivedNull() noexcept;
    static Value date(double secondsSince2001) noexcept;
    // Every byte of `text` must be below 0x80.
    static Value fromAscii(const char *text, qsizetype size);
    static Value fromUtf16(const char16_t *units, qsizetype size);

    Value(const Value &other) noexcept
    {
        std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        if (isShared())
            shared()->retain();
    }
    Value(Value &&other) noexcept
    {
        std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        other.setKind(Kind::Null);
    }
    Value &operator=(const Value &other) noexcept
    {
        Value copy(other);
        swap(copy);
        return *this;
    }
    Value &operator=(Value &&other) noexcept
    {
        Value taken(std::move(other));
        swap(taken);
        return *this;
    }
    ~Value()
    {
        if (isShared() && shared()->release())
            destroyShared();
    }
    void swap(Value &other) noexcept { std::swap(m_bytes, other.m_bytes); }

    Type type() const noexcept { return typeOfKind[m_bytes[KindIndex]]; }
    bool isNull() const noexcept { return kind() == Kind::Null; }
    bool isString() const noexcept { return type() == Type::String; }
    bool isDate() const noexcept { return kind() == Kind::Date; }
    bool isNumber() const noexcept { return kind() >= Kind::Bool && kind() <= Kind::Real64; }

    bool boolValue() const;
    qint16 shortValue() const { return qint16(longValue()); }
    qint32 intValue() const;
    qint64 longValue() const;
    quint64 unsignedLongValue() const;
    float floatValue() const { return float(doubleValue()); }
    double doubleValue() const;
    // Seconds since 2001-01-01 00:00:00 UTC, or 0 if this is no date.
    double dateValue() const noexcept { return kind() == Kind::Date ? load<double>() : 0.0; }
    // A null string unless this is a text.
    QString stringValue() const;
    // A null byte array unless this is data.
    QByteArray dataValue() const;
    Ref<Array> array() const noexcept;
    Ref<Dictionary> dictionary() const noexcept;
    Ref<OpaqueObject> opaque() const noexcept;
    Ref<ColorObject> color() const noexcept;
    // Empty unless this is a text.
    TextView text() const noexcept;
    // The memory that the characters of a text or the bytes of data take; 0 for other types.
    qsizetype contentBytes() const noexcept;

    // Compares type and content. Numbers of different types are never equal; arrays and dictionaries are
    // compared by identity.
    friend bool operator==(const Value &a, const Value &b) noexcept;

    // The object to which this value refers: a long text, data, array, dictionary or opaque object. Null for
    // a value that is stored in itself.
    const RefCounted *sharedObject() const noexcept { return isShared() ? shared() : nullptr; }

private:
    enum class Kind : quint8 {
        Null,
        ArchivedNull,
        Bool,
        Int32,
        Int64,
        UInt64,
        Real32,
        Real64,
        Date,
        InlineAscii,
        InlineUnits,
        Text, // this and the following hold a RefCounted pointer
        Data,
        Array,
        Dictionary,
        Opaque,
    };

    static constexpr Type typeOfKind[] = {Type::Null,  Type::ArchivedNull, Type::Bool,       Type::Int32,
                                          Type::Int64, Type::UInt64,       Type::Real32,     Type::Real64,
                                          Type::Date,  Type::String,       Type::String,     Type::String,
                                          Type::Data,  Type::Array,        Type::Dictionary, Type::Opaque};
    static constexpr qsizetype InlineBytes = 14;
    static constexpr qsizetype SizeIndex = 14;
    static constexpr qsizetype KindIndex = 15;

    Kind kind() const noexcept { return Kind(m_bytes[KindIndex]); }
    void setKind(Kind kind) noexcept { m_bytes[KindIndex] = quint8(kind); }
    bool isShared() const noexcept { return kind() >= Kind::Text; }
    template <class T>
    T load() const noexcept
    {
        T value;
        std::memcpy(&value, m_bytes, sizeof value);
        return value;
    }
    template <class T>
    void setScalar(Kind kind, T value) noexcept
    {
        std::memcpy(m_bytes, &value, sizeof value);
        setKind(kind);
    }
    const RefCounted *shared() const noexcept { return load<const RefCounted *>(); }
    void setShared(Kind kind, const RefCounted *object) noexcept;
    void destroyShared() noexcept;
    double numberInText() const;
    qint64 integerInText() const;

    alignas(8) quint8 m_bytes[16];
};

static_assert(sizeof(Value) == 16);

inline TextView Value::text() const noexcept
{
    switch (kind()) {
    case Kind::InlineAscii:
        return {reinterpret_cast<const char *>(m_bytes), nullptr, m_bytes[SizeIndex]};
    case Kind::InlineUnits:
        return {nullptr, reinterpret_cast<const char16_t *>(m_bytes), m_bytes[SizeIndex]};
    case Kind::Text:
        return static_cast<const TextBox *>(shared())->view();
    default:
        return {};
    }
}

} // namespace Foundation

Q_DECLARE_METATYPE(Foundation::Value)
