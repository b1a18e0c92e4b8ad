#pragma once

#include "archive/LargeArray.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QtEndian>

#include <bit>
#include <cstring>

namespace Foundation
{

// Writes the numbered objects of a binary property list (public format, "bplist00"), the counterpart of
// BinaryObjectTable. The number of objects is fixed at the start, since it decides the width of references;
// the objects may come in any order, but each exactly once.
class BinaryObjectWriter
{
public:
    // `sizeEstimate`: bytes to set aside for the objects; a good one saves copying. `memory`: an array whose
    // memory may be used, whatever it holds, which costs less than new one.
    BinaryObjectWriter(quint64 objectCount, qsizetype sizeEstimate, QByteArray memory = {});

    void writeBool(quint64 index, bool value);
    // In as few bytes as hold it, as the format demands: 1, 2, 4 or 8.
    void writeInteger(quint64 index, qint64 value);
    void writeUnsigned(quint64 index, quint64 value);
    void writeReal32(quint64 index, float value);
    void writeReal64(quint64 index, double value);
    void writeDate(quint64 index, double secondsSince2001);
    void writeData(quint64 index, QByteArrayView data);
    void writeAscii(quint64 index, const char *text, qsizetype size)
    {
        begin(index, size);
        putHead(0x50, quint64(size));
        std::memcpy(m_at, text, std::size_t(size));
        m_at += size;
    }
    void writeAscii(quint64 index, QByteArrayView text) { writeAscii(index, text.data(), text.size()); }
    void writeUnits(quint64 index, const char16_t *units, qsizetype size);
    void writeUid(quint64 index, quint64 uid);
    // `count` objects from `firstIndex` on: the UIDs from 0 on. At most one such run.
    void writeUidRun(quint64 firstIndex, quint64 count);
    // Followed by `count` references.
    void beginArray(quint64 index, quint64 count)
    {
        begin(index, qsizetype(count) * m_referenceSize);
        putHead(0xA0, count);
    }
    // Followed by `count` references to keys and then as many to values.
    void beginDictionary(quint64 index, quint64 count)
    {
        begin(index, 2 * qsizetype(count) * m_referenceSize);
        putHead(0xD0, count);
    }
    void writeReference(quint64 index) { putNumber(index, m_referenceSize); }
    // An object of the same bytes as a former one, `size` in number.
    void writeAgain(quint64 index, quint64 formerIndex, qsizetype size);
    // How many bytes the objects take so far.
    qsizetype size() const { return m_at - reinterpret_cast<const uchar *>(m_bytes.constData()); }

    // The whole file. The writer is spent afterwards.
    QByteArray finish(quint64 topObject);

private:
    // Marker, marker of the count, count; and what putNumber() writes beyond a number.
    static constexpr qsizetype LongestHead = 10 + 8;

    static int bytesFor(quint64 number) { return number == 0 ? 1 : (71 - std::countl_zero(number)) / 8; }
    // 1, 2, 4 or 8, the widths of integer objects.
    static int roundedBytesFor(quint64 number) { return int(std::bit_ceil(unsigned(bytesFor(number)))); }
    static uchar widthBits(int bytes) { return uchar(std::countr_zero(unsigned(bytes))); }

    void begin(quint64 index, qsizetype size)
    {
        if (m_limit - m_at < size + LongestHead)
            grow(size + LongestHead);
        setOffset(index, quint64(this->size()));
    }
    void putHead(uchar sort, quint64 count)
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
    void putByte(uchar byte) { *m_at++ = byte; }
    void putNumber(quint64 number, int size)
    {
        // One store of eight bytes, of which those behind the number are overwritten next: begin() leaves
        // space.
        qToBigEndian<quint64>(number << (64 - 8 * size), m_at);
        m_at += size;
    }
    // By `wanted` bytes or more.
    void grow(qsizetype wanted);
    void putOffsets(quint64 from, quint64 to, int offsetSize);
    void setOffset(quint64 index, quint64 offset)
    {
        m_offsets[index] = quint32(offset);
        if (const auto high = quint8(offset >> 32); high != 0) {
            m_highOffsets[index] = high;
            m_hasHighOffsets = true;
        }
    }
    quint64 offset(quint64 index) const
    {
        return m_offsets[index] | (m_hasHighOffsets ? quint64(m_highOffsets[index]) << 32 : 0);
    }

    QByteArray m_bytes;
    uchar *m_at;
    uchar *m_limit;
    // By number; nothing for the run of UIDs. The high parts are hardly ever touched.
    LargeArray<quint32> m_offsets;
    LargeArray<quint8> m_highOffsets;
    bool m_hasHighOffsets = false;
    quint64 m_objectCount;
    int m_referenceSize;
    quint64 m_runFirst = 0;
    quint64 m_runCount = 0;
};

} // namespace Foundation
