#include "archive/ArchiveNumbering.h"
#include "archive/ArchivedColor.h"
#include "archive/BinaryObjectWriter.h"
#include "archive/BinaryScalars.h"
#include "archive/KeyedArchive.h"
#include "values/OpaqueObject.h"

#include <initializer_list>

namespace Foundation
{

namespace
{

using Uid = ArchiveNumbering::Uid;

// The objects of the property list that surround the archived objects. They come first and have fixed
// indexes.
enum FixedObject : quint64 {
    TopDictionary,
    VersionName,
    ArchiverName,
    TopName,
    ObjectsName,
    Version,
    ArchiverText,
    TopEntry,
    RootName,
    ObjectsArray,
    KeysField,
    ObjectsField,
    TimeField,
    ClassField,
    ClassNameField,
    ClassesField,
    FixedObjectCount,
};

constexpr struct
{
    FixedObject object;
    QByteArrayView text;
} fixedTexts[] = {
    {VersionName, "$version"},      {ArchiverName, "$archiver"},  {TopName, "$top"},
    {ObjectsName, "$objects"},      {RootName, "root"},           {ArchiverText, "NSKeyedArchiver"},
    {KeysField, "NS.keys"},         {ObjectsField, "NS.objects"}, {TimeField, "NS.time"},
    {ClassNameField, "$classname"}, {ClassField, "$class"},       {ClassesField, "$classes"}};

// Each class, followed by its ancestors.
struct Lineage
{
    QByteArrayView names[3];
    quint64 count;
};
constexpr Lineage lineages[ArchivedClassCount] = {{{"NSMutableDictionary", "NSDictionary", "NSObject"}, 3},
                                                  {{"NSMutableArray", "NSArray", "NSObject"}, 3},
                                                  {{"NSDate", "NSObject"}, 2},
                                                  {{"NSColor", "NSObject"}, 2},
                                                  {{"NSNull", "NSObject"}, 2}};

// The second pass: writes the numbered objects. Object `uid` of the archive has the index FixedObjectCount +
// uid in the property list. After these come the UID objects that refer to them, one for each, and at the end
// the objects inside archived objects, such as the arrays of a dictionary.
class ArchiveWriter
{
public:
    explicit ArchiveWriter(const ArchiveNumbering &numbering, QByteArray memory = {})
        : m_numbering(numbering)
        , m_nextInner(FixedObjectCount + 2 * quint64(numbering.uidCount()))
        , m_nextContainer(numbering.containers().data())
        , m_nextChild(numbering.children().data())
        , m_writer(m_nextInner + innerObjectCount(), sizeEstimate(), std::move(memory))
    {
    }

    QByteArray write()
    {
        writeFrame();
        for (Uid uid = 1; uid < m_numbering.objects().size(); ++uid)
            writeObject(objectNumber(uid), *m_numbering.objects()[uid]);
        for (std::size_t i = 0; i < ArchivedClassCount; ++i) {
            if (m_numbering.classUids()[i] != 0)
                writeClass(objectNumber(m_numbering.classUids()[i]), lineages[i]);
        }
        m_writer.writeUidRun(referrerNumber(0), m_numbering.uidCount());
        return m_writer.finish(TopDictionary);
    }

private:
    static quint64 objectNumber(Uid uid) { return FixedObjectCount + uid; }
    quint64 referrerNumber(Uid uid) const { return FixedObjectCount + m_numbering.uidCount() + uid; }
    quint64 classReferrer(ArchivedClass archivedClass) const
    {
        return referrerNumber(m_numbering.classUids()[std::size_t(archivedClass)]);
    }

    quint64 innerObjectCount() const
    {
        quint64 count = m_numbering.innerObjectCount();
        for (std::size_t i = 0; i < ArchivedClassCount; ++i) {
            if (m_numbering.classUids()[i] != 0)
                count += 1 + lineages[i].count; // the list and the names in it
        }
        return count;
    }

    // Reserves slightly too much rather than too little: memory that is never touched costs nothing.
    qsizetype sizeEstimate() const
    {
        constexpr qsizetype PerUid =
            4 + 5 + 2 * 4; // its entry in the list of objects, its UID object, and two offsets
        constexpr qsizetype PerInnerObject = 4;
        constexpr qsizetype Frame = 1024;
        return m_numbering.contentSize() + qsizetype(m_numbering.uidCount()) * PerUid +
               qsizetype(innerObjectCount()) * PerInnerObject + Frame;
    }

    void writeReferences(std::initializer_list<quint64> references)
    {
        for (const quint64 reference : references)
            m_writer.writeReference(reference);
    }

    void writeFrame()
    {
        m_writer.beginDictionary(TopDictionary, 4);
        writeReferences({VersionName, ArchiverName, TopName, ObjectsName});
        writeReferences({Version, ArchiverText, TopEntry, ObjectsArray});
        for (const auto &fixed : fixedTexts)
            m_writer.writeAscii(fixed.object, fixed.text);
        m_writer.writeInteger(Version, 100000);
        m_writer.beginDictionary(TopEntry, 1);
        writeReferences({RootName, referrerNumber(m_numbering.rootUid())});
        m_writer.beginArray(ObjectsArray, m_numbering.uidCount());
        for (Uid uid = 0; uid < m_numbering.uidCount(); ++uid)
            m_writer.writeReference(objectNumber(uid));
        m_writer.writeAscii(objectNumber(0), "$null");
    }

    void writeObject(quint64 number, const Value &value)
    {
        switch (value.type()) {
        case Value::Type::Date:
            return writeDate(number, value.dateValue());
        case Value::Type::Dictionary:
            return writeDictionary(number, *m_nextContainer++);
        case Value::Type::Array:
            return writeArray(number, *m_nextContainer++);
        case Value::Type::Opaque:
            if (value.color())
                return writeColor(number, value.color()->color);
            [[fallthrough]];    // Other opaque objects cannot be archived.
        case Value::Type::Null: // Never has a number of its own: it is UID 0.
        case Value::Type::ArchivedNull:
            m_writer.beginDictionary(number, 1);
            return writeReferences({ClassField, classReferrer(ArchivedClass::Null)});
        default:
            return writeScalar(m_writer, number, value);
        }
    }

    void writeDate(quint64 number, double secondsSince2001)
    {
        const quint64 time = m_nextInner++;
        m_writer.beginDictionary(number, 2);
        writeReferences({TimeField, ClassField, time, classReferrer(ArchivedClass::Date)});
        m_writer.writeReal64(time, secondsSince2001);
    }

    // Colours are rare, so their field names are written each time.
    void writeColor(quint64 number, const Color &color)
    {
        const quint64 names = m_nextInner;
        m_nextInner += 4;
        m_writer.beginDictionary(number, 3);
        writeReferences({names, names + 1, ClassField});
        writeReferences({names + 2, names + 3, classReferrer(ArchivedClass::Color)});
        m_writer.writeAscii(names, "NSColorSpace");
        m_writer.writeAscii(names + 1, "NSRGB");
        m_writer.writeInteger(names + 2, qint64(ArchivedColorSpace::CalibratedRGB));
        m_writer.writeData(names + 3, componentsOfColor(color));
    }

    void writeDictionary(quint64 number, const ArchiveNumbering::Container &container)
    {
        const quint64 keys = m_nextInner++;
        const quint64 values = m_nextInner++;
        m_writer.beginDictionary(number, 3);
        writeReferences({KeysField, ObjectsField, ClassField, keys, values,
                         classReferrer(ArchivedClass::MutableDictionary)});
        writeKeys(keys, container.keyList);
        writeChildren(values, container.count);
    }

    // Most records have the same keys as the previous record.
    void writeKeys(quint64 number, quint32 keyList)
    {
        if (m_lastKeys != 0 && keyList == m_lastKeyList) {
            m_writer.writeAgain(number, m_lastKeys, m_sizeOfLastKeys);
            return;
        }
        const qsizetype begin = m_writer.size();
        const auto &keys = m_numbering.keyLists()[keyList];
        m_writer.beginArray(number, keys.size());
        for (const Uid key : keys)
            m_writer.writeReference(referrerNumber(key));
        m_lastKeys = number;
        m_lastKeyList = keyList;
        m_sizeOfLastKeys = m_writer.size() - begin;
    }

    void writeArray(quint64 number, const ArchiveNumbering::Container &container)
    {
        const quint64 values = m_nextInner++;
        m_writer.beginDictionary(number, 2);
        writeReferences({ObjectsField, ClassField, values, classReferrer(ArchivedClass::MutableArray)});
        writeChildren(values, container.count);
    }

    void writeChildren(quint64 number, quint64 count)
    {
        m_writer.beginArray(number, count);
        for (quint64 i = 0; i < count; ++i)
            m_writer.writeReference(referrerNumber(*m_nextChild++));
    }

    void writeClass(quint64 number, const Lineage &lineage)
    {
        const quint64 names = m_nextInner;
        const quint64 list = m_nextInner + lineage.count;
        m_nextInner = list + 1;
        m_writer.beginDictionary(number, 2);
        writeReferences({ClassNameField, ClassesField, names, list});
        m_writer.beginArray(list, lineage.count);
        for (quint64 i = 0; i < lineage.count; ++i)
            m_writer.writeReference(names + i);
        for (quint64 i = 0; i < lineage.count; ++i)
            m_writer.writeAscii(names + i, lineage.names[i]);
    }

    const ArchiveNumbering &m_numbering;
    quint64 m_nextInner;
    const ArchiveNumbering::Container *m_nextContainer;
    const Uid *m_nextChild;
    quint64 m_lastKeys = 0; // the index of the array of the last keys; 0 before the first
    quint32 m_lastKeyList = 0;
    qsizetype m_sizeOfLastKeys = 0;
    BinaryObjectWriter m_writer;
};

} // namespace

QByteArray archivedData(const Value &root)
{
    const ArchiveNumbering numbering(root);
    return ArchiveWriter(numbering).write();
}

QByteArray archivedData(const ArchivedRows &rows, QByteArray memory)
{
    const ArchiveNumbering numbering(rows);
    return ArchiveWriter(numbering, std::move(memory)).write();
}

} // namespace Foundation
