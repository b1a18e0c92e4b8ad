#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <memory>

namespace Foundation
{

// Writes the numbered objects of a binary property list (public format, "bplist00"), the counterpart of
// BinaryObjectTable. The number of objects is fixed at the start, since it decides the width of references;
// the objects may come in any order, but each exactly once.
class BinaryObjectWriter
{
public:
    // `sizeEstimate`: bytes to set aside for the objects; a good one saves copying.
    BinaryObjectWriter(quint64 objectCount, qsizetype sizeEstimate);

    void writeBool(quint64 index, bool value);
    // In as few bytes as hold it, as the format demands: 1, 2, 4 or 8.
    void writeInteger(quint64 index, qint64 value);
    void writeUnsigned(quint64 index, quint64 value);
    void writeReal32(quint64 index, float value);
    void writeReal64(quint64 index, double value);
    void writeDate(quint64 index, double secondsSince2001);
    void writeData(quint64 index, QByteArrayView data);
    void writeAscii(quint64 index, const char *text, qsizetype size);
    void writeAscii(quint64 index, QByteArrayView text) { writeAscii(index, text.data(), text.size()); }
    void writeUnits(quint64 index, const char16_t *units, qsizetype size);
    void writeUid(quint64 index, quint64 uid);
    // Followed by `count` references.
    void beginArray(quint64 index, quint64 count);
    // Followed by `count` references to keys and then as many to values.
    void beginDictionary(quint64 index, quint64 count);
    void writeReference(quint64 index) { putNumber(index, m_referenceSize); }

    // The whole file. The writer is spent afterwards.
    QByteArray finish(quint64 topObject);

private:
    void begin(quint64 index, qsizetype size);
    void putHead(uchar sort, quint64 count);
    void putByte(uchar byte) { *m_at++ = byte; }
    void putNumber(quint64 number, int size);
    void makeRoom(qsizetype size);

    QByteArray m_bytes;
    uchar *m_at;
    uchar *m_limit;
    std::unique_ptr<quint64[]> m_offsets; // by number; uninitialised until the object is written
    quint64 m_objectCount;
    int m_referenceSize;
};

} // namespace Foundation
