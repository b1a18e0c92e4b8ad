#include "foundation/ArchiveNumbering.h"

#include "foundation/OpaqueObject.h"

#include <algorithm>

namespace Foundation
{

ArchiveNumbering::ArchiveNumbering(const Value &root)
    : m_objects(1, nullptr)
{
    m_rootUid = uidOf(root);
    // The list of containers is the queue of those whose children are still to be numbered.
    for (std::size_t i = 0; i < m_containers.size(); ++i) { // NOLINT(modernize-loop-convert): it grows.
        const Value &container = *m_containers[i];
        if (const auto dictionary = container.dictionary())
            numberChildren(*dictionary);
        else
            numberChildren(*container.array());
    }
    numberClasses();
}

ArchiveNumbering::Uid ArchiveNumbering::uidOf(const Value &value)
{
    if (const RefCounted *object = value.sharedObject()) {
        // The mark may be left from another walk: it holds only if the object stands where it says.
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
        m_containers.push_back(&value);
        m_innerObjectCount += 2;
        useClass(ArchivedClass::MutableDictionary);
        break;
    case Value::Type::Array:
        m_containers.push_back(&value);
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

void ArchiveNumbering::numberChildren(const Dictionary &dictionary)
{
    const auto &entries = dictionary.entries();
    // Records mostly have the keys of the record before them.
    const bool sameKeys =
        std::equal(entries.begin(), entries.end(), m_lastKeys.begin(), m_lastKeys.end(),
                   [](const auto &entry, const auto &last) { return entry.key == last.first; });
    if (!sameKeys) {
        m_lastKeys.clear();
        for (const auto &entry : entries)
            m_lastKeys.emplace_back(entry.key, uidOf(entry.key));
    }
    for (const auto &last : m_lastKeys)
        m_children.push_back(last.second);
    for (const auto &entry : entries)
        m_children.push_back(uidOf(entry.value));
}

void ArchiveNumbering::numberChildren(const Array &array)
{
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
