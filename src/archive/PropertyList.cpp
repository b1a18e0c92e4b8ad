#include "archive/PropertyList.h"

#include "archive/BinaryObjectTable.h"
#include "archive/BinaryObjectWriter.h"
#include "archive/BinaryScalars.h"
#include "archive/ObjectMemo.h"
#include "archive/ReadBudget.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <deque>
#include <unordered_map>

namespace Foundation
{

namespace
{

using Kind = BinaryObjectTable::Kind;
using Object = BinaryObjectTable::Object;

const QString uidEntryName = QStringLiteral("CF$UID");

Value uidValue(quint64 uid)
{
    auto dictionary = Dictionary::create();
    dictionary->setValue(uidEntryName, Value(uid));
    return dictionary;
}

// The number in a dictionary that represents a UID.
std::optional<quint64> uidIn(const Dictionary &dictionary)
{
    if (dictionary.count() != 1 || dictionary.entries().front().key.name() != uidEntryName)
        return std::nullopt;
    const Value &uid = dictionary.entries().front().value;
    const bool isInteger = uid.type() == Value::Type::Int64 || uid.type() == Value::Type::Int32;
    return isInteger && uid.longValue() >= 0 ? std::optional(uid.unsignedLongValue()) : std::nullopt;
}

class BinaryReader
{
public:
    static std::optional<Value> root(const BinaryObjectTable &table, qsizetype byteCount)
    {
        ReadBudget budget{quint64(byteCount)};
        if (!budget.spend(ReadBudget::Slot * table.objectCount()))
            return std::nullopt;
        return BinaryReader(table, budget).value(table.topObject());
    }

private:
    BinaryReader(const BinaryObjectTable &table, const ReadBudget &budget)
        : m_table(table)
        , m_memo(table.objectCount())
        , m_budget(budget)
    {
    }

    std::optional<Value> value(quint64 index)
    {
        const Object object = m_table.object(index);
        if (object.kind == Kind::Invalid || object.kind == Kind::Null)
            return std::nullopt;
        if (const Value *known = m_memo.find(index))
            return m_memo.isWithinBounds() ? std::optional(*known) : std::nullopt;
        const quint64 valuesBefore = m_memo.count();
        if (object.kind == Kind::Array || object.kind == Kind::Dictionary) {
            if (!m_memo.open(index))
                return std::nullopt;
            auto container = object.kind == Kind::Array ? array(object) : dictionary(object);
            if (container)
                m_memo.close(index, *container, valuesBefore);
            return container;
        }
        if (object.kind == Kind::Uid) {
            if (object.count > 8 || !m_budget.spend(ReadBudget::Container))
                return std::nullopt;
            const Value uid = uidValue(BinaryObjectTable::number(object.payload, int(object.count)));
            m_memo.rememberScalar(index, uid);
            return uid;
        }
        auto scalar = m_budget.spend(scalarCost(object)) ? scalarValue(object) : std::nullopt;
        if (scalar && scalar->sharedObject())
            m_memo.rememberScalar(index, *scalar);
        return scalar;
    }

    std::optional<Value> array(const Object &object)
    {
        if (!m_budget.spend(ReadBudget::Container + object.count * ReadBudget::Reference))
            return std::nullopt;
        auto result = Array::create();
        result->values.reserve(object.count);
        for (quint64 i = 0; i < object.count; ++i) {
            auto item = value(m_table.reference(object.payload, i));
            if (!item)
                return std::nullopt;
            result->values.push_back(std::move(*item));
        }
        return Value(result);
    }

    std::optional<Value> dictionary(const Object &object)
    {
        const quint64 costOfEntry = ReadBudget::DictionaryEntry + ReadBudget::IndexedEntry;
        if (!m_budget.spend(ReadBudget::Container + object.count * costOfEntry))
            return std::nullopt;
        auto result = Dictionary::create();
        for (quint64 i = 0; i < object.count; ++i) {
            const Key *key = keyOf(m_table.reference(object.payload, i));
            auto content = value(m_table.reference(object.payload, object.count + i));
            if (!key || !content)
                return std::nullopt;
            result->setValue(*key, std::move(*content));
        }
        return Value(result);
    }

    // Returns null if the object is no text or the budget is spent.
    const Key *keyOf(quint64 index)
    {
        const auto known = m_keys.find(index);
        if (known != m_keys.end())
            return &known->second;
        const auto name = value(index);
        if (!name || !name->isString() ||
            !m_budget.spend(ReadBudget::KeyName + 2 * quint64(name->text().size)))
            return nullptr;
        return &m_keys.emplace(index, Key(name->stringValue())).first->second;
    }

    const BinaryObjectTable &m_table;
    ObjectMemo<Value> m_memo;
    ReadBudget m_budget;
    std::unordered_map<quint64, Key> m_keys; // by the index of their text
};

// Gives every object an index, breadth first, and writes the objects in that order. Scalars with shared
// content, shared containers and keys are written once. Otherwise a reader, which charges every object, could
// refuse a list that is the converted form of a list that it accepts.
class BinaryWriter
{
public:
    static QByteArray write(const Value &root)
    {
        BinaryWriter writer;
        writer.numberOf(root);
        for (std::size_t i = 0; i < writer.m_objects.size(); ++i)
            writer.numberChildren(*writer.m_objects[i]);
        BinaryObjectWriter output(writer.m_objects.size(), 0);
        const quint64 *child = writer.m_children.data();
        for (std::size_t i = 0; i < writer.m_objects.size(); ++i)
            child = writeObject(output, i, *writer.m_objects[i], child);
        return output.finish(0);
    }

private:
    quint64 numberOf(const Value &value)
    {
        if (const RefCounted *object = value.sharedObject()) {
            const quint32 mark = object->visitMark;
            if (mark < m_objects.size() && m_objects[mark]->sharedObject() == object)
                return mark;
            object->visitMark = quint32(m_objects.size());
        }
        m_objects.push_back(&value);
        return m_objects.size() - 1;
    }

    quint64 numberOf(const Key &key)
    {
        const auto known = m_keyNumbers.find(key);
        if (known != m_keyNumbers.end())
            return known->second;
        m_names.emplace_back(key.name());
        return m_keyNumbers.emplace(key, numberOf(m_names.back())).first->second;
    }

    void numberChildren(const Value &value)
    {
        if (const auto dictionary = value.dictionary(); dictionary && !uidIn(*dictionary)) {
            for (const auto &entry : dictionary->entries())
                m_children.push_back(numberOf(entry.key));
            for (const auto &entry : dictionary->entries())
                m_children.push_back(numberOf(entry.value));
        } else if (const auto array = value.array()) {
            for (const Value &item : array->values)
                m_children.push_back(numberOf(item));
        }
    }

    static const quint64 *writeObject(BinaryObjectWriter &output, quint64 number, const Value &value,
                                      const quint64 *child)
    {
        quint64 childCount = 0;
        if (const auto dictionary = value.dictionary()) {
            if (const auto uid = uidIn(*dictionary)) {
                output.writeUid(number, *uid);
                return child;
            }
            output.beginDictionary(number, quint64(dictionary->count()));
            childCount = 2 * quint64(dictionary->count());
        } else if (const auto array = value.array()) {
            output.beginArray(number, quint64(array->count()));
            childCount = quint64(array->count());
        } else {
            writeScalar(output, number, value);
        }
        for (quint64 i = 0; i < childCount; ++i)
            output.writeReference(*child++);
        return child;
    }

    std::vector<const Value *> m_objects;
    std::vector<quint64> m_children;
    std::deque<Value> m_names; // a deque, since pointers into it stay valid while it grows
    std::unordered_map<Key, quint64> m_keyNumbers;
};

} // namespace

std::optional<Value> readPropertyList(const QByteArray &bytes)
{
    if (!BinaryObjectTable::looksLikeOne(bytes))
        return readXmlPropertyList(bytes);
    const auto table = BinaryObjectTable::open(bytes);
    return table ? BinaryReader::root(*table, bytes.size()) : std::nullopt;
}

QByteArray writeBinaryPropertyList(const Value &root)
{
    return BinaryWriter::write(root);
}

} // namespace Foundation
