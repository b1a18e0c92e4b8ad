#pragma once

#include "archive/BinaryObjectTable.h"
#include "archive/ReadBudget.h"

#include <optional>
#include <unordered_map>

namespace Foundation
{

// The classes of archived objects that can be read.
enum class ReadableClass { Unknown, Dictionary, Array, String, Data, Date, Color, Null };

// The objects of a keyed archive in binary form, by their UIDs: position, class and fields of each. The
// results refer to the bytes; this class makes no values. The table and the budget must outlive it.
class ArchivedObjects
{
public:
    using Object = BinaryObjectTable::Object;
    using Kind = BinaryObjectTable::Kind;

    // The fields of the known classes. An absent field has the kind Invalid.
    struct Fields
    {
        std::optional<quint64> classUid;
        Object keys, objects, time, text, bytes, data, colorSpace, components, namedColor;
    };

    // Returns nothing if the property list is no archive.
    static std::optional<ArchivedObjects> open(const BinaryObjectTable &table, ReadBudget &budget);

    quint64 rootUid() const noexcept { return m_rootUid; }
    quint64 uidCount() const noexcept { return m_objects.count; }
    // The index in the property list of the archived object `uid`, which must be below uidCount().
    quint64 indexOf(quint64 uid) const noexcept { return m_table.reference(m_objects.payload, uid); }

    // The UID that an object of the kind Uid contains, or that reference `i` of a container refers to.
    // Nothing for another kind, and for a UID that the archive does not have.
    std::optional<quint64> uidOf(const Object &object) const noexcept
    {
        if (object.kind != Kind::Uid || object.count > 8)
            return std::nullopt;
        const quint64 uid = BinaryObjectTable::number(object.payload, int(object.count));
        return uid < m_objects.count ? std::optional(uid) : std::nullopt;
    }
    std::optional<quint64> uidAt(const Object &container, quint64 i) const noexcept
    {
        return uidOf(m_table.object(m_table.reference(container.payload, i)));
    }

    // Returns nothing if the budget is spent or the object has no class.
    std::optional<Fields> fieldsOf(const Object &dictionary);
    ReadableClass classOf(quint64 uid);
    // Charges the budget for reading the references of an object. Must be called before they are read; false
    // if the budget is spent.
    bool spendOn(const Object &object, quint64 costOfEach)
    {
        return m_budget.spend(ReadBudget::Container + object.count * costOfEach);
    }

private:
    enum class Field {
        Other,
        Class,
        Keys,
        Objects,
        Time,
        String,
        Bytes,
        Data,
        ColorSpace,
        Components,
        NamedColor
    };

    ArchivedObjects(const BinaryObjectTable &table, const Object &objects, ReadBudget &budget)
        : m_table(table)
        , m_objects(objects)
        , m_budget(budget)
    {
    }
    static Field fieldNamed(QByteArrayView name);
    Field fieldOf(quint64 nameIndex);

    const BinaryObjectTable &m_table;
    Object m_objects;
    quint64 m_rootUid = 0;
    ReadBudget &m_budget;
    std::unordered_map<quint64, ReadableClass> m_classes;
    // A cache by the index of the name, because an archive has few names and many objects.
    struct
    {
        quint64 nameIndex = ~quint64(0);
        Field field = Field::Other;
    } m_knownFields[8];
    std::size_t m_nextKnownField = 0;
};

} // namespace Foundation
