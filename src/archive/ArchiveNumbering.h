#pragma once

#include "archive/KeyedArchive.h"
#include "archive/LargeArray.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <array>
#include <deque>
#include <unordered_map>
#include <vector>

namespace Foundation
{

// The classes that an archive describes, in the order of ArchiveNumbering::classUids.
enum class ArchivedClass { MutableDictionary, MutableArray, Date, Color, Null };
constexpr std::size_t ArchivedClassCount = 5;

// The first pass over a graph of values that becomes a keyed archive: it gives every object its UID, breadth
// first and without recursion. A shared object gets one UID, and so does each of the empty text, the null
// object, the booleans and the small numbers. UID 0 is the archive's null object.
//
// The numbering points into the graph, so the graph must not change while the numbering exists.
class ArchiveNumbering
{
public:
    using Uid = quint32;

    // A dictionary or an array.
    struct Container
    {
        quint32 keyList = 0; // which of keyLists(), for a dictionary
        quint32 count = 0;   // of entries
    };

    explicit ArchiveNumbering(const Value &root);
    explicit ArchiveNumbering(const ArchivedRows &rows);

    Uid rootUid() const noexcept { return m_rootUid; }
    // `objects()[uid]` is the object with that UID; `objects()[0]` is a null pointer. UIDs from
    // `objects().size()` on belong to class descriptions.
    const LargeVector<const Value *> &objects() const noexcept { return m_objects; }
    // In the order of their UIDs.
    const LargeVector<Container> &containers() const noexcept { return m_containers; }
    // The lists of the UIDs of keys. Consecutive dictionaries with equal keys share one list.
    const std::vector<std::vector<Uid>> &keyLists() const noexcept { return m_keyLists; }
    // The UIDs of the contents of all containers, one container after the other.
    const LargeVector<Uid> &children() const noexcept { return m_children; }
    // The UIDs of the class descriptions, by ArchivedClass; 0 for a class that the archive does not need.
    const std::array<Uid, ArchivedClassCount> &classUids() const noexcept { return m_classUids; }
    Uid uidCount() const noexcept { return m_uidCount; }
    // The number of objects of the property list that are inside archived objects: the lists of a dictionary,
    // the number of a date, names and contents of the fields of a colour. Those of class descriptions are not
    // counted.
    quint64 innerObjectCount() const noexcept { return m_innerObjectCount; }
    // An estimate in bytes: all texts, data and numbers, and the references in dictionaries and arrays.
    qsizetype contentSize() const noexcept { return m_contentSize; }

private:
    static constexpr qint64 SmallNumbers = 256;
    static constexpr qsizetype Absent = -1;

    Uid uidOf(const Value &value);
    Uid uidOf(const Key &key);
    Uid once(Uid &uid, const Value &value);
    Uid append(const Value &value);
    void numberRows(const ArchivedRows &rows);
    void numberRest();
    // `place` is the index of the container in containers().
    void numberChildren(const Dictionary &dictionary, std::size_t place);
    void numberChildren(const Array &array, std::size_t place);
    void setContainer(std::size_t place, std::size_t keyList, std::size_t count);
    void useClass(ArchivedClass archivedClass) { m_classUids[std::size_t(archivedClass)] = 1; }
    void numberClasses();

    LargeVector<const Value *> m_objects;
    LargeVector<Container> m_containers;
    std::vector<const Value *> m_unnumbered; // queue of the containers that are not rows
    std::vector<std::vector<Uid>> m_keyLists;
    LargeVector<Uid> m_children;
    std::array<Uid, ArchivedClassCount> m_classUids = {};
    Uid m_rootUid = 0;
    Uid m_uidCount = 0;
    quint64 m_innerObjectCount = 0;
    qsizetype m_contentSize = 0;

    Uid m_nullObject = 0;
    Uid m_emptyText = 0;
    std::array<Uid, 2> m_booleans = {};
    std::array<Uid, SmallNumbers> m_smallNumbers = {};
    std::deque<Value> m_keyTexts; // a deque, since pointers into it stay valid while it grows
    std::unordered_map<Key, Uid> m_keyUids;
    std::vector<Key> m_lastKeys;      // of the dictionary numbered last
    bool m_lastKeysAreListed = false; // false for the keys of a row, which differ from the archived ones
};

} // namespace Foundation
