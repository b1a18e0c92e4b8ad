#pragma once

#include "archive/LargeArray.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QtEndian>

#include <bit>
#include <cstring>

namespace Foundation
{

// Writes the numbered objects of a binary property list (public format, "bplist00"); the counterpart of
// BinaryObjectTable. The number of objects must be known at the start, because it determines the size of
// references. The objects may be written in any order, but each exactly once.
class BinaryObjectWriter
{
public:
    // `sizeEstimate` is the number of bytes to reserve for the objects; a good estimate avoids copying.
    // `memory` is an array whose content is no longer needed and whose memory is reused, which costs less
    // than fresh memory.
    BinaryObjectWriter(quint64 objectCount, qsizetype sizeEstimate, QByteArray memory = {});

    void writeBool(quint64 index, bool value);
    // Integers are written in the smallest sufficient size of 1, 2, 4 and 8 bytes, as the format requires.
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
    // Writes `count` objects from `firstIndex` on, which are the UIDs from 0 on. May be called once.
    void writeUidRun(quint64 firstIndex, quint64 count);
    // Must be followed by `count` calls of writeReference().
    void beginArray(quint64 index, quint64 count)
    {
        begin(index, qsizetype(count) * m_referenceSize);
        putHead(0xA0, count);
    }
    // Must be followed by `count` references to keys and then `count` references to values.
    void beginDictionary(quint64 index, quint64 count)
    {
        begin(index, 2 * qsizetype(count) * m_referenceSize);
        putHead(0xD0, count);
    }
    void writeReference(quint64 index) { putNumber(index, m_referenceSize); }
    // Writes an object with the same `size` bytes as an object written before.
    void writeAgain(quint64 index, quint64 formerIndex, qsizetype size);
    // The number of bytes written so far.
    qsizetype size() const { return m_at - reinterpret_cast<const uchar *>(m_bytes.constData()); }

    // Returns the whole file. The writer must not be used after that.
    QByteArray finish(quint64 topObject);

private:
    // The marker, the marker of the count, the count, and the bytes that putNumber() writes after a number.
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
        // Stores eight bytes at once; the bytes after the number are overwritten by the next call. begin()
        // leaves space for them.
        qToBigEndian<quint64>(number << (64 - 8 * size), m_at);
        m_at += size;
    }
    // Makes space for `wanted` more bytes.
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
    // Offsets by the index of the object; unused for the run of UIDs. The high parts are used only for files
    // above 4 GiB.
    LargeArray<quint32> m_offsets;
    LargeArray<quint8> m_highOffsets;
    bool m_hasHighOffsets = false;
    quint64 m_objectCount;
    int m_referenceSize;
    quint64 m_runFirst = 0;
    quint64 m_runCount = 0;
};

} // namespace Foundation
