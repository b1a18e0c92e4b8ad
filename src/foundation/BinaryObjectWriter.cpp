#include "foundation/BinaryObjectWriter.h"

#include "foundation/BinaryObjectTable.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace Foundation
{

namespace
{

// Marker, marker of the count, count; and what putNumber() writes beyond a number.
constexpr qsizetype LongestHead = 10 + 8;
constexpr qsizetype TrailerSize = 32;

int bytesFor(quint64 number)
{
    return number == 0 ? 1 : (71 - std::countl_zero(number)) / 8;
}

// 1, 2, 4 or 8, the widths of integer objects.
int roundedBytesFor(quint64 number)
{
    return int(std::bit_ceil(unsigned(bytesFor(number))));
}

uchar widthBits(int bytes)
{
    return uchar(std::countr_zero(unsigned(bytes)));
}

} // namespace

BinaryObjectWriter::BinaryObjectWriter(quint64 objectCount, qsizetype sizeEstimate)
    : m_bytes(BinaryObjectTable::Magic.size() + sizeEstimate, Qt::Uninitialized)
    , m_offsets(std::make_unique_for_overwrite<quint64[]>(objectCount))
    , m_objectCount(objectCount)
    , m_referenceSize(bytesFor(objectCount))
{
    m_at = reinterpret_cast<uchar *>(m_bytes.data());
    m_limit = m_at + m_bytes.size();
    std::memcpy(m_at, BinaryObjectTable::Magic.data(), std::size_t(BinaryObjectTable::Magic.size()));
    m_at += BinaryObjectTable::Magic.size();
}

void BinaryObjectWriter::makeRoom(qsizetype size)
{
    if (m_limit - m_at >= size)
        return;
    const qsizetype used = m_at - reinterpret_cast<uchar *>(m_bytes.data());
    m_bytes.resize(std::max(used + size, used + used / 2));
    m_at = reinterpret_cast<uchar *>(m_bytes.data()) + used;
    m_limit = m_at - used + m_bytes.size();
}

void BinaryObjectWriter::begin(quint64 index, qsizetype size)
{
    makeRoom(size + LongestHead);
    m_offsets[index] = quint64(m_at - reinterpret_cast<const uchar *>(m_bytes.constData()));
}

void BinaryObjectWriter::putNumber(quint64 number, int size)
{
    // One store of eight bytes, of which those behind the number are overwritten next: begin() leaves room.
    qToBigEndian<quint64>(number << (64 - 8 * size), m_at);
    m_at += size;
}

void BinaryObjectWriter::putHead(uchar sort, quint64 count)
{
    if (count < 0x0F) {
        putByte(uchar(sort | count));
        return;
    }
    const int size = roundedBytesFor(count);
    putByte(sort | 0x0F);
    putByte(0x10 | widthBits(size));
    putNumber(count, size);
}

void BinaryObjectWriter::writeBool(quint64 index, bool value)
{
    begin(index, 0);
    putByte(value ? 0x09 : 0x08);
}

void BinaryObjectWriter::writeInteger(quint64 index, qint64 value)
{
    begin(index, 0);
    const int size = value < 0 ? 8 : roundedBytesFor(quint64(value));
    putByte(0x10 | widthBits(size));
    putNumber(quint64(value), size);
}

void BinaryObjectWriter::writeUnsigned(quint64 index, quint64 value)
{
    if (value <= quint64(std::numeric_limits<qint64>::max())) {
        writeInteger(index, qint64(value));
        return;
    }
    // Eight bytes would read as a negative number.
    begin(index, 16);
    putByte(0x14);
    putNumber(0, 8);
    putNumber(value, 8);
}

void BinaryObjectWriter::writeReal32(quint64 index, float value)
{
    begin(index, 0);
    putByte(0x22);
    putNumber(std::bit_cast<quint32>(value), 4);
}

void BinaryObjectWriter::writeReal64(quint64 index, double value)
{
    begin(index, 0);
    putByte(0x23);
    putNumber(std::bit_cast<quint64>(value), 8);
}

void BinaryObjectWriter::writeDate(quint64 index, double secondsSince2001)
{
    begin(index, 0);
    putByte(0x33);
    putNumber(std::bit_cast<quint64>(secondsSince2001), 8);
}

void BinaryObjectWriter::writeData(quint64 index, QByteArrayView data)
{
    begin(index, data.size());
    putHead(0x40, quint64(data.size()));
    m_at = std::copy_n(data.begin(), data.size(), m_at);
}

void BinaryObjectWriter::writeAscii(quint64 index, const char *text, qsizetype size)
{
    begin(index, size);
    putHead(0x50, quint64(size));
    m_at = std::copy_n(text, size, m_at);
}

void BinaryObjectWriter::writeUnits(quint64 index, const char16_t *units, qsizetype size)
{
    begin(index, 2 * size);
    putHead(0x60, quint64(size));
    qToBigEndian<quint16>(units, size, m_at);
    m_at += 2 * size;
}

void BinaryObjectWriter::writeUid(quint64 index, quint64 uid)
{
    begin(index, 0);
    const int size = roundedBytesFor(uid);
    putByte(uchar(0x80 | (size - 1)));
    putNumber(uid, size);
}

void BinaryObjectWriter::beginArray(quint64 index, quint64 count)
{
    begin(index, qsizetype(count) * m_referenceSize);
    putHead(0xA0, count);
}

void BinaryObjectWriter::beginDictionary(quint64 index, quint64 count)
{
    begin(index, 2 * qsizetype(count) * m_referenceSize);
    putHead(0xD0, count);
}

QByteArray BinaryObjectWriter::finish(quint64 topObject)
{
    const auto tableOffset = quint64(m_at - reinterpret_cast<const uchar *>(m_bytes.constData()));
    const int offsetSize = bytesFor(tableOffset);
    makeRoom(qsizetype(m_objectCount) * offsetSize + TrailerSize + LongestHead);
    for (quint64 i = 0; i < m_objectCount; ++i)
        putNumber(m_offsets[i], offsetSize);
    putNumber(0, 6);
    putByte(uchar(offsetSize));
    putByte(uchar(m_referenceSize));
    putNumber(m_objectCount, 8);
    putNumber(topObject, 8);
    putNumber(tableOffset, 8);
    m_bytes.truncate(m_at - reinterpret_cast<const uchar *>(m_bytes.constData()));
    return std::move(m_bytes);
}

} // namespace Foundation
