#include "archive/BinaryObjectTable.h"

namespace Foundation
{

namespace
{

constexpr qsizetype TrailerSize = 32;
constexpr quint64 LargestCount = quint64(1) << 40; // larger than any file, and small enough to be multiplied

} // namespace

bool BinaryObjectTable::readTrailer(const uchar *trailer, quint64 bytesBefore)
{
    m_offsetSize = trailer[6];
    m_referenceSize = trailer[7];
    m_objectCount = qFromBigEndian<quint64>(trailer + 8);
    m_topObject = qFromBigEndian<quint64>(trailer + 16);
    m_tableOffset = qFromBigEndian<quint64>(trailer + 24);
    return m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1 && m_referenceSize <= 8 &&
           m_objectCount <= LargestCount && m_topObject < m_objectCount &&
           m_tableOffset >= quint64(Magic.size()) && m_tableOffset <= bytesBefore &&
           m_objectCount * quint64(m_offsetSize) <= bytesBefore - m_tableOffset;
}

bool BinaryObjectTable::mayBeOne(QByteArrayView head, QByteArrayView tail, qint64 size)
{
    if (!looksLikeOne(head) || tail.size() < TrailerSize || size < Magic.size() + 1 + TrailerSize)
        return false;
    BinaryObjectTable table;
    return table.readTrailer(reinterpret_cast<const uchar *>(tail.last(TrailerSize).data()),
                             quint64(size - TrailerSize));
}

std::optional<BinaryObjectTable> BinaryObjectTable::open(QByteArrayView bytes)
{
    if (!looksLikeOne(bytes) || bytes.size() < Magic.size() + 1 + TrailerSize)
        return std::nullopt;
    const auto *start = reinterpret_cast<const uchar *>(bytes.data());
    const qsizetype bytesBefore = bytes.size() - TrailerSize;
    BinaryObjectTable table;
    if (!table.readTrailer(start + bytesBefore, quint64(bytesBefore)))
        return std::nullopt;
    table.m_bytes = start;
    table.m_end = start + table.m_tableOffset;
    table.m_offsets = table.m_end;
    return table;
}

BinaryObjectTable::Object BinaryObjectTable::rareObject(uchar marker, const uchar *at) const noexcept
{
    const auto room = quint64(m_end - at);
    const auto number = [&](Kind kind, quint64 size) {
        return size <= room ? Object{kind, size, at} : Object{};
    };
    switch (marker) {
    case 0x00:
        return {Kind::Null, 0, at};
    case 0x08:
        return {Kind::False, 0, at};
    case 0x09:
        return {Kind::True, 0, at};
    case 0x10:
    case 0x11:
    case 0x12:
    case 0x13:
    case 0x14:
        return number(Kind::Integer, quint64(1) << (marker & 0x0F));
    case 0x22:
    case 0x23:
        return number(Kind::Real, quint64(1) << (marker & 0x0F));
    case 0x33:
        return number(Kind::Date, 8);
    case 0x8F:
        return checked(8, 0x0F, at);
    default:
        break;
    }
    // All remaining objects have a long count, which follows as an integer object.
    if ((marker & 0x0F) != 0x0F || marker < 0x40 || room < 1 || at[0] < 0x10 || at[0] > 0x13)
        return {};
    const int size = 1 << (at[0] & 0x0F);
    if (room < quint64(size) + 1)
        return {};
    return checked(marker >> 4, BinaryObjectTable::number(at + 1, size), at + 1 + size);
}

} // namespace Foundation
