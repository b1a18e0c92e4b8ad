#include "foundation/BinaryObjectTable.h"

namespace Foundation
{

namespace
{

constexpr qsizetype TrailerSize = 32;
constexpr quint64 LargestCount = quint64(1) << 40; // far above every file, and safe to multiply

} // namespace

std::optional<BinaryObjectTable> BinaryObjectTable::open(QByteArrayView bytes)
{
    if (!looksLikeOne(bytes) || bytes.size() < Magic.size() + 1 + TrailerSize)
        return std::nullopt;
    const auto *start = reinterpret_cast<const uchar *>(bytes.data());
    const uchar *trailer = start + bytes.size() - TrailerSize;
    BinaryObjectTable table;
    table.m_offsetSize = trailer[6];
    table.m_referenceSize = trailer[7];
    table.m_objectCount = qFromBigEndian<quint64>(trailer + 8);
    table.m_topObject = qFromBigEndian<quint64>(trailer + 16);
    const auto tableOffset = qFromBigEndian<quint64>(trailer + 24);
    const auto tableLimit = quint64(trailer - start);
    if (table.m_offsetSize < 1 || table.m_offsetSize > 8 || table.m_referenceSize < 1 ||
        table.m_referenceSize > 8 || table.m_objectCount > LargestCount ||
        table.m_topObject >= table.m_objectCount || tableOffset < quint64(Magic.size()) ||
        tableOffset > tableLimit ||
        table.m_objectCount * quint64(table.m_offsetSize) > tableLimit - tableOffset)
        return std::nullopt;
    table.m_bytes = start;
    table.m_end = start + tableOffset;
    table.m_offsets = start + tableOffset;
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
    // What is left is a long count: the low half says that an integer object with the count follows.
    if ((marker & 0x0F) != 0x0F || marker < 0x40 || room < 1 || at[0] < 0x10 || at[0] > 0x13)
        return {};
    const int size = 1 << (at[0] & 0x0F);
    if (room < quint64(size) + 1)
        return {};
    return checked(marker >> 4, BinaryObjectTable::number(at + 1, size), at + 1 + size);
}

} // namespace Foundation
