#pragma once

#include <QByteArrayView>
#include <QtEndian>

#include <optional>

namespace Foundation
{

// Reads the numbered objects of a binary property list (public format, "bplist00") from its bytes.
//
// A file consists of the magic, the objects, a table of their offsets, and a trailer of 32 bytes with the
// sizes of offsets and references, the number of objects, the index of the top object and the offset of the
// table. All input may be hostile and is checked before it is used. Nothing is copied and no memory is
// allocated. The bytes must outlive the table.
class BinaryObjectTable
{
public:
    enum class Kind : quint8 {
        Invalid,
        Null,
        False,
        True,
        Integer,
        Real,
        Date,
        Data,
        Ascii,
        Units,
        Uid,
        Array,
        Dictionary
    };

    // `count` is the number of bytes of a number, data or ASCII text, of units of a UTF-16 text, of
    // references of an array, or of pairs of a dictionary, whose payload is all references to keys and then
    // all references to values. The whole payload is inside the part of the file that contains the objects.
    struct Object
    {
        Kind kind = Kind::Invalid;
        quint64 count = 0;
        const uchar *payload = nullptr;
    };

    static constexpr QByteArrayView Magic = "bplist00";

    static bool looksLikeOne(QByteArrayView bytes) { return bytes.startsWith(Magic.first(7)); }
    // Whether a file of that size can be a binary property list, judged by its first and last bytes. For use
    // before the rest is read.
    static bool mayBeOne(QByteArrayView head, QByteArrayView tail, qint64 size);
    // Returns nothing if the trailer is damaged or contradicts the size of the file.
    static std::optional<BinaryObjectTable> open(QByteArrayView bytes);

    quint64 objectCount() const noexcept { return m_objectCount; }
    quint64 topObject() const noexcept { return m_topObject; }
    int referenceSize() const noexcept { return m_referenceSize; }

    // Returns the kind Invalid if the object does not exist, is cut off or has an unknown type.
    Object object(quint64 index) const noexcept
    {
        if (index >= m_objectCount)
            return {};
        const quint64 offset = number(m_offsets + index * quint64(m_offsetSize), m_offsetSize);
        if (offset < quint64(Magic.size()) || offset >= quint64(m_end - m_bytes))
            return {};
        const uchar *at = m_bytes + offset;
        const uchar marker = *at++;
        // Nearly all objects are texts and containers with a short count.
        const quint64 count = marker & 0x0F;
        if (count < 0x0F && marker >= 0x40)
            return checked(marker >> 4, count, at);
        return rareObject(marker, at);
    }

    // Reference `i` in the payload of an array or dictionary, which must have more than `i` references.
    quint64 reference(const uchar *payload, quint64 i) const noexcept
    {
        return number(payload + i * quint64(m_referenceSize), m_referenceSize);
    }

    // A big-endian number of 1 to 8 bytes. Always reads 8 bytes from `at` on, which is safe before the
    // trailer, because the trailer has 32 bytes.
    static quint64 number(const uchar *at, int size) noexcept
    {
        return qFromBigEndian<quint64>(at) >> (64 - 8 * size);
    }

private:
    BinaryObjectTable() = default;
    // False if the trailer is damaged or contradicts the size of the file.
    bool readTrailer(const uchar *trailer, quint64 bytesBefore);

    Object checked(int sort, quint64 count, const uchar *payload) const noexcept;
    Object rareObject(uchar marker, const uchar *at) const noexcept;

    const uchar *m_bytes = nullptr;
    const uchar *m_end = nullptr; // of the objects
    const uchar *m_offsets = nullptr;
    quint64 m_objectCount = 0;
    quint64 m_topObject = 0;
    quint64 m_tableOffset = 0;
    int m_offsetSize = 0;
    int m_referenceSize = 0;
};

inline BinaryObjectTable::Object BinaryObjectTable::checked(int sort, quint64 count,
                                                            const uchar *payload) const noexcept
{
    static constexpr Kind kinds[] = {Kind::Data,    Kind::Ascii,      Kind::Units,   Kind::Invalid,
                                     Kind::Uid,     Kind::Invalid,    Kind::Array,   Kind::Invalid,
                                     Kind::Invalid, Kind::Dictionary, Kind::Invalid, Kind::Invalid};
    const Kind kind = kinds[sort - 4];
    quint64 unit = 1;
    if (kind == Kind::Units)
        unit = 2;
    else if (kind == Kind::Array)
        unit = quint64(m_referenceSize);
    else if (kind == Kind::Dictionary)
        unit = 2 * quint64(m_referenceSize);
    else if (kind == Kind::Uid)
        ++count; // The marker of a UID contains its length minus one.
    const auto room = quint64(m_end - payload);
    if (kind == Kind::Invalid || count > room || count * unit > room)
        return {};
    return {kind, count, payload};
}

} // namespace Foundation
