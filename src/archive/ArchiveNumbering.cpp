#include "archive/ArchiveNumbering.h"

#include "values/OpaqueObject.h"

#include <algorithm>

namespace Foundation
{

namespace
{

// Placeholders for the archived array and its rows, which are no live objects. No graph contains these two,
// so that no object of a graph can be mistaken for one of them.
const Value &standInForArray()
{
    static const Value standIn = Array::create();
    return standIn;
}

const Value &standInForRow()
{
    static const Value standIn = Dictionary::create();
    return standIn;
}

const Dictionary &dictionaryIn(const Value &value)
{
    return *static_cast<const Dictionary *>(value.sharedObject());
}

template <class Keys>
bool areSame(const std::vector<Dictionary::Entry> &entries, const Keys &keys)
{
    return std::equal(entries.begin(), entries.end(), keys.begin(), keys.end(),
                      [](const auto &entry, const Key &key) { return entry.key == key; });
}

} // namespace

ArchiveNumbering::ArchiveNumbering(const Value &root)
    : m_objects(1, nullptr)
{
    m_rootUid = uidOf(root);
    numberRest();
}

ArchiveNumbering::ArchiveNumbering(const ArchivedRows &rows)
    : m_objects(1, nullptr)
{
    constexpr std::size_t UsualEntries = 20;
    m_objects.reserve(rows.rows.values.size() * UsualEntries);
    m_children.reserve(rows.rows.values.size() * (1 + UsualEntries));
    m_containers.reserve(1 + rows.rows.values.size());
    m_rootUid = append(standInForArray());
    for (std::size_t i = 0; i < rows.rows.values.size(); ++i)
        m_children.push_back(append(standInForRow()));
    m_unnumbered.clear();
    setContainer(0, 0, rows.rows.values.size());
    numberRows(rows);
    numberRest();
}

void ArchiveNumbering::numberRows(const ArchivedRows &rows)
{
    std::vector<Uid> keys; // of the archived copy
    qsizetype omitted = Absent;
    qsizetype replaced = Absent;
    for (std::size_t row = 0; row < rows.rows.values.size(); ++row) {
        const auto &entries = dictionaryIn(rows.rows.values[row]).entries();
        const bool replaces = !rows.replacements.empty();
        if (row == 0 || !areSame(entries, m_lastKeys)) {
            omitted = replaced = Absent;
            m_lastKeys.clear();
            keys.clear();
            for (const auto &entry : entries) {
                if (entry.key == rows.omitted)
                    omitted = qsizetype(m_lastKeys.size());
                else
                    keys.push_back(uidOf(entry.key));
                if (replaces && entry.key == rows.replaced)
                    replaced = qsizetype(m_lastKeys.size());
                m_lastKeys.push_back(entry.key);
            }
            if (replaces && replaced == Absent)
                keys.push_back(uidOf(rows.replaced));
            m_keyLists.push_back(keys);
        }
        setContainer(1 + row, m_keyLists.size() - 1, keys.size());
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (qsizetype(i) == omitted)
                continue;
            const bool isReplaced = qsizetype(i) == replaced;
            m_children.push_back(uidOf(isReplaced ? rows.replacements[row] : entries[i].value));
        }
        if (replaces && replaced == Absent)
            m_children.push_back(uidOf(rows.replacements[row]));
    }
}

ArchiveNumbering::Uid ArchiveNumbering::uidOf(const Value &value)
{
    if (const RefCounted *object = value.sharedObject()) {
        // The mark may be left from an earlier walk. It is valid only if the object is at that position of
        // the list.
        const quint32 mark = object->visitMark;
        if (mark > 0 && mark < m_objects.size() && m_objects[mark]->sharedObject() == object)
            return mark;
        object->visitMark = quint32(m_objects.size());
        return append(value);
    }
    switch (value.type()) {
    case Value::Type::Null:
        return 0;
    case Value::Type::ArchivedNull:
        return once(m_nullObject, value);
    case Value::Type::Bool:
        return once(m_booleans[value.boolValue() ? 1 : 0], value);
    case Value::Type::Int32:
    case Value::Type::Int64:
        if (const qint64 number = value.longValue(); number >= 0 && number < SmallNumbers)
            return once(m_smallNumbers[std::size_t(number)], value);
        return append(value);
    case Value::Type::String:
        return value.text().size == 0 ? once(m_emptyText, value) : append(value);
    default:
        return append(value);
    }
}

ArchiveNumbering::Uid ArchiveNumbering::uidOf(const Key &key)
{
    const auto known = m_keyUids.find(key);
    if (known != m_keyUids.end())
        return known->second;
    m_keyTexts.emplace_back(key.name());
    return m_keyUids.emplace(key, uidOf(m_keyTexts.back())).first->second;
}

ArchiveNumbering::Uid ArchiveNumbering::once(Uid &uid, const Value &value)
{
    if (uid == 0)
        uid = append(value);
    return uid;
}

ArchiveNumbering::Uid ArchiveNumbering::append(const Value &value)
{
    m_objects.push_back(&value);
    switch (value.type()) {
    case Value::Type::Dictionary:
        m_containers.emplace_back();
        m_unnumbered.push_back(&value);
        m_innerObjectCount += 2;
        useClass(ArchivedClass::MutableDictionary);
        break;
    case Value::Type::Array:
        m_containers.emplace_back();
        m_unnumbered.push_back(&value);
        m_innerObjectCount += 1;
        useClass(ArchivedClass::MutableArray);
        break;
    case Value::Type::Date:
        m_innerObjectCount += 1;
        useClass(ArchivedClass::Date);
        break;
    case Value::Type::Opaque:
        if (value.color()) {
            constexpr int ColorSize = 128;
            m_innerObjectCount += 4;
            m_contentSize += ColorSize;
            useClass(ArchivedClass::Color);
            break;
        }
        [[fallthrough]];
    case Value::Type::ArchivedNull:
        useClass(ArchivedClass::Null);
        break;
    default:
        constexpr qsizetype Head = 10;
        m_contentSize += Head + value.contentBytes();
        break;
    }
    return Uid(m_objects.size() - 1);
}

void ArchiveNumbering::setContainer(std::size_t place, std::size_t keyList, std::size_t count)
{
    constexpr std::size_t Head = 64;
    constexpr std::size_t Reference = 4;
    m_containers[place] = {quint32(keyList), quint32(count)};
    m_contentSize += qsizetype(Head + 2 * count * Reference);
}

void ArchiveNumbering::numberRest()
{
    const std::size_t first = m_containers.size() - m_unnumbered.size();
    for (std::size_t i = 0; i < m_unnumbered.size(); ++i) { // NOLINT(modernize-loop-convert): it grows.
        const Value &container = *m_unnumbered[i];
        if (container.type() == Value::Type::Dictionary)
            numberChildren(dictionaryIn(container), first + i);
        else
            numberChildren(*static_cast<const Array *>(container.sharedObject()), first + i);
    }
    numberClasses();
}

void ArchiveNumbering::numberChildren(const Dictionary &dictionary, std::size_t place)
{
    const auto &entries = dictionary.entries();
    // Most dictionaries have the same keys as the previous one.
    if (!m_lastKeysAreListed || !areSame(entries, m_lastKeys)) {
        m_lastKeys.clear();
        std::vector<Uid> keys;
        for (const auto &entry : entries) {
            m_lastKeys.push_back(entry.key);
            keys.push_back(uidOf(entry.key));
        }
        m_keyLists.push_back(std::move(keys));
        m_lastKeysAreListed = true;
    }
    setContainer(place, m_keyLists.size() - 1, entries.size());
    for (const auto &entry : entries)
        m_children.push_back(uidOf(entry.value));
}

void ArchiveNumbering::numberChildren(const Array &array, std::size_t place)
{
    setContainer(place, 0, array.values.size());
    for (const Value &value : array.values)
        m_children.push_back(uidOf(value));
}

void ArchiveNumbering::numberClasses()
{
    m_uidCount = Uid(m_objects.size());
    for (Uid &uid : m_classUids) {
        if (uid != 0)
            uid = m_uidCount++;
    }
}

} // namespace Foundation
