#include "foundation/ArchivedColor.h"
#include "foundation/Array.h"
#include "foundation/BinaryObjectTable.h"
#include "foundation/BinaryScalars.h"
#include "foundation/Dictionary.h"
#include "foundation/KeyedArchive.h"
#include "foundation/ObjectMemo.h"
#include "foundation/OpaqueObject.h"
#include "foundation/PropertyList.h"
#include "foundation/ReadBudget.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <unordered_map>

namespace Foundation
{

namespace
{

using Kind = BinaryObjectTable::Kind;
using Object = BinaryObjectTable::Object;

enum class ArchivedClass { Unknown, Dictionary, Array, String, Data, Date, Color, Null };

// The fields of an archived object that a known class has.
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

Field fieldNamed(QByteArrayView name)
{
    static constexpr struct
    {
        QByteArrayView name;
        Field field;
    } fields[] = {
        {"$class", Field::Class},      {"NS.keys", Field::Keys},       {"NS.objects", Field::Objects},
        {"NS.time", Field::Time},      {"NS.string", Field::String},   {"NS.bytes", Field::Bytes},
        {"NS.data", Field::Data},      {"NSString", Field::String},    {"NSColorSpace", Field::ColorSpace},
        {"NSRGB", Field::Components},  {"NSWhite", Field::Components}, {"NSCMYK", Field::Components},
        {"NSColor", Field::NamedColor}};
    for (const auto &known : fields) {
        if (known.name == name)
            return known.field;
    }
    return Field::Other;
}

ArchivedClass classNamed(QByteArrayView name)
{
    static constexpr struct
    {
        QByteArrayView name;
        ArchivedClass archivedClass;
    } classes[] = {{"NSDictionary", ArchivedClass::Dictionary},
                   {"NSMutableDictionary", ArchivedClass::Dictionary},
                   {"NSArray", ArchivedClass::Array},
                   {"NSMutableArray", ArchivedClass::Array},
                   {"NSString", ArchivedClass::String},
                   {"NSMutableString", ArchivedClass::String},
                   // Of a styled text, its characters.
                   {"NSAttributedString", ArchivedClass::String},
                   {"NSMutableAttributedString", ArchivedClass::String},
                   {"NSData", ArchivedClass::Data},
                   {"NSMutableData", ArchivedClass::Data},
                   {"NSDate", ArchivedClass::Date},
                   {"NSColor", ArchivedClass::Color},
                   {"NSNull", ArchivedClass::Null}};
    for (const auto &known : classes) {
        if (known.name == name)
            return known.archivedClass;
    }
    return ArchivedClass::Unknown;
}

// Reads one archive. Every step answers nothing as soon as something is wrong, which ends the whole reading.
class Unarchiver
{
public:
    static std::optional<Value> root(QByteArrayView bytes, ReadBudget &budget)
    {
        const auto table = BinaryObjectTable::open(bytes);
        if (!table)
            return std::nullopt;
        const auto objects = entry(*table, table->object(table->topObject()), "$objects");
        const auto top = entry(*table, table->object(table->topObject()), "$top");
        if (!objects || !top || objects->kind != Kind::Array || objects->count == 0)
            return std::nullopt;
        const auto rootUid = entry(*table, *top, "root");
        if (!rootUid || rootUid->kind != Kind::Uid)
            return std::nullopt;
        Unarchiver unarchiver(*table, *objects, quint64(bytes.size()), budget);
        const auto uid = unarchiver.uidOf(*rootUid);
        if (!uid)
            return std::nullopt;
        return *uid == 0 ? Value() : unarchiver.value(*uid);
    }

private:
    Unarchiver(const BinaryObjectTable &table, const Object &objects, quint64 byteCount, ReadBudget &budget)
        : m_table(table)
        , m_objects(objects)
        , m_memo(table.objectCount() + objects.count, byteCount)
        , m_budget(budget)
    {
    }

    static QByteArrayView asciiOf(const Object &object)
    {
        if (object.kind != Kind::Ascii)
            return {};
        return {reinterpret_cast<const char *>(object.payload), qsizetype(object.count)};
    }

    // The value of a bare dictionary under a name.
    static std::optional<Object> entry(const BinaryObjectTable &table, const Object &dictionary,
                                       QByteArrayView name)
    {
        if (dictionary.kind != Kind::Dictionary)
            return std::nullopt;
        for (quint64 i = 0; i < dictionary.count; ++i) {
            if (asciiOf(table.object(table.reference(dictionary.payload, i))) == name)
                return table.object(table.reference(dictionary.payload, dictionary.count + i));
        }
        return std::nullopt;
    }

    std::optional<quint64> uidOf(const Object &object) const
    {
        if (object.kind != Kind::Uid || object.count > 8)
            return std::nullopt;
        const quint64 uid = BinaryObjectTable::number(object.payload, int(object.count));
        return uid < m_objects.count ? std::optional(uid) : std::nullopt;
    }

    std::optional<quint64> uidAt(const Object &container, quint64 i) const
    {
        return uidOf(m_table.object(m_table.reference(container.payload, i)));
    }

    // The object of a number in the archive.
    std::optional<Value> value(quint64 uid)
    {
        if (uid == 0)
            return m_memo.count() ? std::optional(Value::archivedNull()) : std::nullopt;
        const quint64 index = m_table.reference(m_objects.payload, uid);
        const Object object = m_table.object(index);
        const bool isContainer = object.kind == Kind::Dictionary;
        if (object.kind == Kind::Invalid)
            return std::nullopt;
        // Equal texts may stand in the list once and are shared; of dictionaries each UID has its own.
        const quint64 slot = isContainer ? m_table.objectCount() + uid : index;
        if (const Value *known = m_memo.find(slot))
            return m_memo.isWithinBounds() ? std::optional(*known) : std::nullopt;
        const ObjectMemo::Extent before = m_memo.met();
        if (!m_memo.count())
            return std::nullopt;
        if (!isContainer) {
            auto made = scalar(object);
            if (made && made->sharedObject())
                m_memo.rememberScalar(slot, *made);
            return made;
        }
        if (!m_memo.open(slot))
            return std::nullopt;
        auto made = instance(object);
        if (made)
            m_memo.close(slot, *made, before);
        return made;
    }

    std::optional<Value> scalar(const Object &object)
    {
        return m_budget.spend(scalarCost(object)) ? scalarValue(object) : std::nullopt;
    }

    // To be asked before the references of an object are read.
    bool spendOn(const Object &object, quint64 costOfEach)
    {
        return m_budget.spend(ReadBudget::Container + object.count * costOfEach);
    }

    // The fields of an archived object that the known classes have.
    struct Fields
    {
        std::optional<quint64> classUid;
        Object keys, objects, time, text, bytes, data, colorSpace, components, namedColor;
    };

    std::optional<Fields> fieldsOf(const Object &object)
    {
        if (!spendOn(object, ReadBudget::Reference))
            return std::nullopt;
        Fields fields;
        for (quint64 i = 0; i < object.count; ++i) {
            const Field field = fieldOf(m_table.reference(object.payload, i));
            if (field == Field::Other)
                continue;
            const Object content = m_table.object(m_table.reference(object.payload, object.count + i));
            switch (field) {
            case Field::Class:
                fields.classUid = uidOf(content);
                break;
            case Field::Keys:
                fields.keys = content;
                break;
            case Field::Objects:
                fields.objects = content;
                break;
            case Field::Time:
                fields.time = content;
                break;
            case Field::String:
                fields.text = content;
                break;
            case Field::Bytes:
                fields.bytes = content;
                break;
            case Field::Data:
                fields.data = content;
                break;
            case Field::ColorSpace:
                fields.colorSpace = content;
                break;
            case Field::Components:
                fields.components = content;
                break;
            case Field::NamedColor:
                fields.namedColor = content;
                break;
            case Field::Other:
                break;
            }
        }
        return fields.classUid ? std::optional(fields) : std::nullopt;
    }

    // A field's name by the number of its text, remembered: an archive has few names and many objects.
    Field fieldOf(quint64 nameIndex)
    {
        for (const auto &known : m_knownFields) {
            if (known.nameIndex == nameIndex)
                return known.field;
        }
        const Field field = fieldNamed(asciiOf(m_table.object(nameIndex)));
        m_knownFields[m_nextKnownField] = {nameIndex, field};
        m_nextKnownField = (m_nextKnownField + 1) % std::size(m_knownFields);
        return field;
    }

    std::optional<Value> instance(const Object &object)
    {
        const auto fields = fieldsOf(object);
        if (!fields)
            return std::nullopt;
        switch (classOf(*fields->classUid)) {
        case ArchivedClass::Dictionary:
            return dictionary(fields->keys, fields->objects);
        case ArchivedClass::Array:
            return array(fields->objects);
        case ArchivedClass::String:
            return string(*fields);
        case ArchivedClass::Data:
            return bare(fields->data.kind != Kind::Invalid ? fields->data : fields->bytes, Value::Type::Data);
        case ArchivedClass::Date:
            return date(fields->time);
        case ArchivedClass::Color:
            return color(*fields);
        case ArchivedClass::Null:
            return Value::archivedNull();
        case ArchivedClass::Unknown:
            break;
        }
        return std::nullopt;
    }

    ArchivedClass classOf(quint64 uid)
    {
        const auto known = m_classes.find(uid);
        if (known != m_classes.end())
            return known->second;
        const Object description = m_table.object(m_table.reference(m_objects.payload, uid));
        ArchivedClass found = ArchivedClass::Unknown;
        if (description.kind != Kind::Dictionary || !spendOn(description, ReadBudget::Reference))
            return found;
        if (const auto name = entry(m_table, description, "$classname"))
            found = classNamed(asciiOf(*name));
        // A subclass is read as the nearest class that is known.
        const auto ancestors = entry(m_table, description, "$classes");
        if (found == ArchivedClass::Unknown && ancestors && ancestors->kind == Kind::Array &&
            spendOn(*ancestors, ReadBudget::Reference)) {
            for (quint64 i = 0; i < ancestors->count && found == ArchivedClass::Unknown; ++i)
                found = classNamed(asciiOf(m_table.object(m_table.reference(ancestors->payload, i))));
        }
        m_classes.emplace(uid, found);
        return found;
    }

    std::optional<Value> dictionary(const Object &keys, const Object &objects)
    {
        if (keys.kind != Kind::Array || objects.kind != Kind::Array || keys.count != objects.count ||
            !spendOn(objects, costOfEntry(objects.count)) || !readKeys(keys))
            return std::nullopt;
        // Reading the values may read other dictionaries, which have keys of their own.
        const std::shared_ptr<const KeyList> list = m_keys;
        auto result = Dictionary::create();
        result->reserve(keys.count);
        for (quint64 i = 0; i < objects.count; ++i) {
            const auto uid = uidAt(objects, i);
            auto content = uid ? value(*uid) : std::nullopt;
            if (!content)
                return std::nullopt;
            const Key &key = list->keys[i];
            if (list->distinct)
                result->append(key, std::move(*content));
            else
                result->setValue(key, std::move(*content));
        }
        return Value(result);
    }

    static quint64 costOfEntry(quint64 count)
    {
        return ReadBudget::DictionaryEntry +
               (count > Dictionary::IndexThreshold ? ReadBudget::IndexedEntry : 0);
    }

    struct KeyList
    {
        std::vector<Key> keys;
        bool distinct = true;
    };

    // Sets m_keys. Records mostly have the keys of the record before them, reference for reference.
    bool readKeys(const Object &keys)
    {
        const std::size_t bytes = keys.count * quint64(m_table.referenceSize());
        if (m_keys && m_keys->keys.size() == keys.count &&
            std::memcmp(m_keyReferences, keys.payload, bytes) == 0)
            return true;
        if (!spendOn(keys, ReadBudget::Reference))
            return false;
        auto list = std::make_shared<KeyList>();
        list->keys.reserve(keys.count);
        for (quint64 i = 0; i < keys.count; ++i) {
            const auto uid = uidAt(keys, i);
            const Key *key = uid ? keyOf(*uid) : nullptr;
            if (!key)
                return false;
            list->keys.push_back(*key);
        }
        std::vector<const void *> identities;
        identities.reserve(list->keys.size());
        for (const Key &key : list->keys)
            identities.push_back(key.identity());
        std::sort(identities.begin(), identities.end());
        list->distinct = std::adjacent_find(identities.begin(), identities.end()) == identities.end();
        m_keys = std::move(list);
        m_keyReferences = keys.payload;
        return true;
    }

    // Null if the object is no text, or the budget is spent.
    const Key *keyOf(quint64 uid)
    {
        const auto known = m_keysByUid.find(uid);
        if (known != m_keysByUid.end())
            return &known->second;
        const auto name = value(uid);
        if (!name || !name->isString() ||
            !m_budget.spend(ReadBudget::KeyName + 2 * quint64(name->text().size)))
            return nullptr;
        return &m_keysByUid.emplace(uid, Key(name->stringValue())).first->second;
    }

    std::optional<Value> array(const Object &objects)
    {
        if (objects.kind != Kind::Array || !spendOn(objects, ReadBudget::Reference))
            return std::nullopt;
        auto result = Array::create();
        result->values.reserve(objects.count);
        for (quint64 i = 0; i < objects.count; ++i) {
            const auto uid = uidAt(objects, i);
            auto content = uid ? value(*uid) : std::nullopt;
            if (!content)
                return std::nullopt;
            result->values.push_back(std::move(*content));
        }
        return Value(result);
    }

    // A field's content, which stands there itself or is referred to.
    std::optional<Value> bare(const Object &field, Value::Type type)
    {
        const auto uid = uidOf(field);
        auto content = uid ? value(*uid) : scalar(field);
        return content && content->type() == type ? content : std::nullopt;
    }

    std::optional<Value> string(const Fields &fields)
    {
        if (fields.text.kind != Kind::Invalid)
            return bare(fields.text, Value::Type::String);
        const auto utf8 = bare(fields.bytes, Value::Type::Data);
        return utf8 ? std::optional(Value(QString::fromUtf8(utf8->dataValue()))) : std::nullopt;
    }

    static std::optional<Value> date(const Object &time)
    {
        const auto seconds = scalarValue(time);
        return seconds && seconds->isNumber() ? std::optional(Value::date(seconds->doubleValue()))
                                              : std::nullopt;
    }

    std::optional<Value> color(const Fields &fields)
    {
        const auto space = scalarValue(fields.colorSpace);
        if (!space || !space->isNumber())
            return std::nullopt;
        const auto spaceNumber = ArchivedColorSpace(space->intValue());
        if (spaceNumber == ArchivedColorSpace::Named) {
            const auto uid = uidOf(fields.namedColor);
            const auto named = uid ? value(*uid) : std::nullopt;
            return named && named->color() ? named : std::nullopt;
        }
        const auto components = bare(fields.components, Value::Type::Data);
        const auto made = components ? colorOfComponents(spaceNumber, components->dataValue()) : std::nullopt;
        return made ? std::optional(Value(Ref<OpaqueObject>(new ColorObject(*made)))) : std::nullopt;
    }

    const BinaryObjectTable &m_table;
    const Object m_objects;
    ObjectMemo m_memo; // texts by the number of their object, archived objects behind them by UID
    ReadBudget &m_budget;
    std::unordered_map<quint64, ArchivedClass> m_classes;
    std::unordered_map<quint64, Key> m_keysByUid;
    std::shared_ptr<const KeyList> m_keys; // of the dictionary read last
    const uchar *m_keyReferences = nullptr;
    struct
    {
        quint64 nameIndex = ~quint64(0);
        Field field = Field::Other;
    } m_knownFields[8];
    std::size_t m_nextKnownField = 0;
};

} // namespace

std::optional<Value> unarchivedRoot(const QByteArray &bytes)
{
    ReadBudget budget(quint64(bytes.size()));
    return unarchivedRoot(bytes, budget);
}

std::optional<Value> unarchivedRoot(const QByteArray &bytes, ReadBudget &budget)
{
    if (BinaryObjectTable::looksLikeOne(bytes))
        return Unarchiver::root(bytes, budget);
    // XML archives come from other programs and are rare: they take the same road in binary form.
    if (!budget.spend(quint64(bytes.size())))
        return std::nullopt;
    auto list = readXmlPropertyList(bytes);
    if (!list)
        return std::nullopt;
    const QByteArray binary = writeBinaryPropertyList(*list);
    list.reset(); // So that it need not stay beside what is read from it.
    return Unarchiver::root(binary, budget);
}

} // namespace Foundation
