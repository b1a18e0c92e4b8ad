#include "archive/BinaryObjectWriter.h"

#include "archive/BinaryObjectTable.h"

#include <algorithm>
#include <limits>

namespace Foundation
{

namespace
{
constexpr qsizetype TrailerSize = 32;
}

BinaryObjectWriter::BinaryObjectWriter(quint64 objectCount, qsizetype sizeEstimate, QByteArray memory)
    : m_offsets(objectCount)
    , m_highOffsets(objectCount)
    , m_objectCount(objectCount)
    , m_referenceSize(bytesFor(objectCount))
{
    const qsizetype wanted = BinaryObjectTable::Magic.size() + sizeEstimate;
    // Growing a large array moves pages instead of copying. Memory that is far too large is not reused,
    // because it would be kept for the life of the document.
    const bool isUseful = memory.isDetached() && memory.capacity() / 2 <= wanted;
    m_bytes = isUseful ? std::move(memory) : uninitializedBytes(wanted);
    m_bytes.resize(std::max(wanted, m_bytes.size()));
    m_at = reinterpret_cast<uchar *>(m_bytes.data());
    m_limit = m_at + m_bytes.size();
    std::memcpy(m_at, BinaryObjectTable::Magic.data(), std::size_t(BinaryObjectTable::Magic.size()));
    m_at += BinaryObjectTable::Magic.size();
}

void BinaryObjectWriter::grow(qsizetype wanted)
{
    const qsizetype used = size();
    m_bytes.resize(std::max(used + wanted, used + used / 2));
    m_at = reinterpret_cast<uchar *>(m_bytes.data()) + used;
    m_limit = m_at - used + m_bytes.size();
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
    // In eight bytes it would be read as a negative number.
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

void BinaryObjectWriter::writeUidRun(quint64 firstIndex, quint64 count)
{
    if (count == 0)
        return;
    begin(firstIndex, qsizetype(count) * (1 + roundedBytesFor(count)));
    m_runFirst = firstIndex;
    m_runCount = count;
    for (quint64 uid = 0; uid < count; ++uid) {
        const int size = roundedBytesFor(uid);
        putByte(uchar(0x80 | (size - 1)));
        putNumber(uid, size);
    }
}

void BinaryObjectWriter::writeAgain(quint64 index, quint64 formerIndex, qsizetype size)
{
    begin(index, size);
    std::memcpy(m_at, m_bytes.constData() + offset(formerIndex), std::size_t(size));
    m_at += size;
}

void BinaryObjectWriter::putOffsets(quint64 from, quint64 to, int offsetSize)
{
    for (quint64 i = from; i < to; ++i)
        putNumber(offset(i), offsetSize);
}

QByteArray BinaryObjectWriter::finish(quint64 topObject)
{
    const auto tableOffset = quint64(size());
    const int offsetSize = bytesFor(tableOffset);
    const qsizetype tableSize = qsizetype(m_objectCount) * offsetSize + TrailerSize + LongestHead;
    if (m_limit - m_at < tableSize)
        grow(tableSize);
    putOffsets(0, m_runFirst, offsetSize);
    quint64 runOffset = m_runCount > 0 ? offset(m_runFirst) : 0;
    for (quint64 uid = 0; uid < m_runCount; ++uid) {
        putNumber(runOffset, offsetSize);
        runOffset += 1 + quint64(roundedBytesFor(uid));
    }
    putOffsets(m_runFirst + m_runCount, m_objectCount, offsetSize);
    putNumber(0, 6);
    putByte(uchar(offsetSize));
    putByte(uchar(m_referenceSize));
    putNumber(m_objectCount, 8);
    putNumber(topObject, 8);
    putNumber(tableOffset, 8);
    m_bytes.truncate(size());
    return std::move(m_bytes);
}

} // namespace Foundation
