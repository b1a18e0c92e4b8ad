#include "archive/ArchivedColor.h"
#include "archive/ArchivedObjects.h"
#include "archive/BinaryObjectTable.h"
#include "archive/BinaryScalars.h"
#include "archive/KeyedArchive.h"
#include "archive/ObjectMemo.h"
#include "archive/PropertyList.h"
#include "archive/ReadBudget.h"
#include "values/Array.h"
#include "values/Dictionary.h"
#include "values/OpaqueObject.h"

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

// The builder that makes values.
struct Building
{
    using Content = Value;
    using Name = Key;
    using DictionaryInWork = Ref<Dictionary>;
    using ArrayInWork = Ref<Array>;

    static Content null() { return Value::archivedNull(); }
    static std::optional<Content> scalar(const Object &object) { return scalarValue(object); }
    static Content date(double secondsSince2001) { return Value::date(secondsSince2001); }
    static Content color(const Color &color) { return Ref<OpaqueObject>(new ColorObject(color)); }
    static Content text(const QString &text) { return Value(text); }
    // A scalar that may have been read before. Small ones are made again, which is as fast as looking them
    // up.
    template <class MakeNew>
    static std::optional<Content> remembered(ObjectMemo<Content> &memo, quint64 slot, const Object &,
                                             MakeNew makeNew)
    {
        if (const Content *known = memo.find(slot))
            return *known;
        memo.count();
        auto made = makeNew();
        if (made && made->sharedObject())
            memo.rememberScalar(slot, *made);
        return made;
    }
    static Value::Type typeOf(const Content &content) { return content.type(); }
    static bool isColor(const Content &content) { return bool(content.color()); }
    static QByteArray data(const Content &content) { return content.dataValue(); }
    static quint64 textSize(const Content &content) { return quint64(content.text().size); }
    static Name name(const Content &text) { return Key(text.stringValue()); }

    static DictionaryInWork dictionary(quint64 count)
    {
        auto made = Dictionary::create();
        made->reserve(count);
        return made;
    }
    static void add(DictionaryInWork &made, const Name &name, bool isNew, Content &&content)
    {
        if (isNew)
            made->append(name, std::move(content));
        else
            made->setValue(name, std::move(content));
    }
    static ArrayInWork array(quint64 count)
    {
        auto made = Array::create();
        made->values.reserve(count);
        return made;
    }
    static void add(ArrayInWork &made, Content &&content) { made->values.push_back(std::move(content)); }

    static bool areDistinct(const std::vector<Name> &names)
    {
        std::vector<const void *> identities;
        identities.reserve(names.size());
        for (const Name &name : names)
            identities.push_back(name.identity());
        std::sort(identities.begin(), identities.end());
        return std::adjacent_find(identities.begin(), identities.end()) == identities.end();
    }
};

// The builder that only checks: it keeps what the rules need to know of a value, and makes none.
struct Checking
{
    struct Content
    {
        Value::Type type;
        const uchar *bytes = nullptr; // of data
        quint64 size = 0;             // bytes of data, or UTF-16 units of a text
    };
    struct Name
    {
    };
    struct DictionaryInWork
    {
        operator Content() const { return {Value::Type::Dictionary}; }
    };
    struct ArrayInWork
    {
        operator Content() const { return {Value::Type::Array}; }
    };

    static Content null() { return {Value::Type::ArchivedNull}; }
    static std::optional<Content> scalar(const Object &object)
    {
        const auto type = scalarType(object);
        return type ? std::optional(ofType(*type, object)) : std::nullopt;
    }
    static Content ofType(Value::Type type, const Object &object)
    {
        return {type, object.payload, object.count};
    }
    template <class MakeNew>
    static std::optional<Content> remembered(ObjectMemo<Content> &memo, quint64 slot, const Object &object,
                                             MakeNew makeNew)
    {
        memo.count();
        // A long text is checked once.
        if (memo.isMarkedScalar(slot))
            return ofType(object.kind == Kind::Data ? Value::Type::Data : Value::Type::String, object);
        const auto made = makeNew();
        if (made && scalarCost(object) > 0)
            memo.markScalar(slot);
        return made;
    }
    static Content date(double) { return {Value::Type::Date}; }
    static Content color(const Color &) { return {Value::Type::Opaque}; }
    static Content text(const QString &text) { return {Value::Type::String, nullptr, quint64(text.size())}; }
    static Value::Type typeOf(const Content &content) { return content.type; }
    static bool isColor(const Content &content) { return content.type == Value::Type::Opaque; }
    static QByteArray data(const Content &content)
    {
        return {reinterpret_cast<const char *>(content.bytes), qsizetype(content.size)};
    }
    static quint64 textSize(const Content &content) { return content.size; }
    static Name name(const Content &) { return {}; }
    static DictionaryInWork dictionary(quint64) { return {}; }
    static void add(DictionaryInWork &, const Name &, bool, Content &&) {}
    static ArrayInWork array(quint64) { return {}; }
    static void add(ArrayInWork &, Content &&) {}
    static bool areDistinct(const std::vector<Name> &) { return true; }
};

// Reads one archive, by the same rules for both builders. Every step returns nothing as soon as it finds an
// error, and this ends the reading.
template <class Maker>
class Unarchiver
{
public:
    using Content = typename Maker::Content;
    using Name = typename Maker::Name;

    Unarchiver(const BinaryObjectTable &table, const ArchivedObjects &objects, ReadBudget &budget)
        : m_table(table)
        , m_objects(objects)
        , m_memo(slotCount(table, objects))
        , m_budget(budget)
    {
    }

    static quint64 slotCount(const BinaryObjectTable &table, const ArchivedObjects &objects)
    {
        return table.objectCount() + objects.uidCount();
    }

    // The archived object with that UID.
    std::optional<Content> value(quint64 uid)
    {
        if (uid == 0) {
            m_memo.count();
            return Maker::null();
        }
        const quint64 index = m_objects.indexOf(uid);
        const Object object = m_table.object(index);
        const bool isContainer = object.kind == Kind::Dictionary;
        if (object.kind == Kind::Invalid)
            return std::nullopt;
        // The property list may contain equal texts once, so texts are shared by their index; each UID of a
        // dictionary is a dictionary of its own.
        return isContainer ? container(object, m_table.objectCount() + uid)
                           : Maker::remembered(m_memo, index, object, [&] { return scalar(object); });
    }

private:
    struct NameList
    {
        std::vector<Name> names;
        bool areDistinct = true;
    };

    std::optional<Content> scalar(const Object &object)
    {
        return m_budget.spend(scalarCost(object)) ? Maker::scalar(object) : std::nullopt;
    }

    // Must not be inlined into value(), which is called for every text and then needs few registers.
    Q_NEVER_INLINE std::optional<Content> container(const Object &object, quint64 slot)
    {
        if (const Content *known = m_memo.find(slot))
            return m_memo.isWithinBounds() ? std::optional(*known) : std::nullopt;
        const quint64 valuesBefore = m_memo.count();
        if (!m_memo.open(slot))
            return std::nullopt;
        auto made = instance(object);
        if (made)
            m_memo.close(slot, *made, valuesBefore);
        return made;
    }

    std::optional<Content> instance(const Object &object)
    {
        const auto fields = m_objects.fieldsOf(object);
        if (!fields)
            return std::nullopt;
        switch (m_objects.classOf(*fields->classUid)) {
        case ReadableClass::Dictionary:
            return dictionary(fields->keys, fields->objects);
        case ReadableClass::Array:
            return array(fields->objects);
        case ReadableClass::String:
            return string(*fields);
        case ReadableClass::Data:
            return bare(fields->data.kind != Kind::Invalid ? fields->data : fields->bytes, Value::Type::Data);
        case ReadableClass::Date:
            return date(fields->time);
        case ReadableClass::Color:
            return color(*fields);
        case ReadableClass::Null:
            return Maker::null();
        case ReadableClass::Unknown:
            break;
        }
        return std::nullopt;
    }

    std::optional<Content> dictionary(const Object &keys, const Object &objects)
    {
        if (keys.kind != Kind::Array || objects.kind != Kind::Array || keys.count != objects.count ||
            !m_objects.spendOn(objects, costOfEntry(objects.count)) || !readNames(keys))
            return std::nullopt;
        // Kept here because reading the values may read other dictionaries, which change m_names.
        const std::shared_ptr<const NameList> list = m_names;
        auto result = Maker::dictionary(keys.count);
        for (quint64 i = 0; i < objects.count; ++i) {
            const auto uid = m_objects.uidAt(objects, i);
            auto content = uid ? value(*uid) : std::nullopt;
            if (!content)
                return std::nullopt;
            Maker::add(result, list->names[i], list->areDistinct, std::move(*content));
        }
        return Content(result);
    }

    static quint64 costOfEntry(quint64 count)
    {
        return ReadBudget::DictionaryEntry +
               (count > Dictionary::IndexThreshold ? ReadBudget::IndexedEntry : 0);
    }

    // Sets m_names. Most records have the same references to keys as the previous record.
    bool readNames(const Object &keys)
    {
        const std::size_t bytes = keys.count * quint64(m_table.referenceSize());
        if (m_names && m_names->names.size() == keys.count &&
            std::memcmp(m_nameReferences, keys.payload, bytes) == 0)
            return true;
        if (!m_objects.spendOn(keys, ReadBudget::Reference))
            return false;
        auto list = std::make_shared<NameList>();
        list->names.reserve(keys.count);
        for (quint64 i = 0; i < keys.count; ++i) {
            const auto uid = m_objects.uidAt(keys, i);
            const Name *name = uid ? nameOf(*uid) : nullptr;
            if (!name)
                return false;
            list->names.push_back(*name);
        }
        list->areDistinct = Maker::areDistinct(list->names);
        m_names = std::move(list);
        m_nameReferences = keys.payload;
        return true;
    }

    // Returns null if the object is no text or the budget is spent.
    const Name *nameOf(quint64 uid)
    {
        const auto known = m_namesByUid.find(uid);
        if (known != m_namesByUid.end())
            return &known->second;
        const auto text = value(uid);
        if (!text || Maker::typeOf(*text) != Value::Type::String ||
            !m_budget.spend(ReadBudget::KeyName + 2 * Maker::textSize(*text)))
            return nullptr;
        return &m_namesByUid.emplace(uid, Maker::name(*text)).first->second;
    }

    std::optional<Content> array(const Object &objects)
    {
        if (objects.kind != Kind::Array || !m_objects.spendOn(objects, ReadBudget::Reference))
            return std::nullopt;
        auto result = Maker::array(objects.count);
        for (quint64 i = 0; i < objects.count; ++i) {
            const auto uid = m_objects.uidAt(objects, i);
            auto content = uid ? value(*uid) : std::nullopt;
            if (!content)
                return std::nullopt;
            Maker::add(result, std::move(*content));
        }
        return Content(result);
    }

    // The content of a field, which is either stored directly or referred to by UID.
    std::optional<Content> bare(const Object &field, Value::Type type)
    {
        const auto uid = m_objects.uidOf(field);
        auto content = uid ? value(*uid) : scalar(field);
        return content && Maker::typeOf(*content) == type ? content : std::nullopt;
    }

    std::optional<Content> string(const ArchivedObjects::Fields &fields)
    {
        if (fields.text.kind != Kind::Invalid)
            return bare(fields.text, Value::Type::String);
        const auto utf8 = bare(fields.bytes, Value::Type::Data);
        if (!utf8)
            return std::nullopt;
        return Maker::text(QString::fromUtf8(Maker::data(*utf8)));
    }

    static std::optional<Content> date(const Object &time)
    {
        const auto seconds = scalarValue(time);
        if (!seconds || !seconds->isNumber())
            return std::nullopt;
        return Maker::date(seconds->doubleValue());
    }

    std::optional<Content> color(const ArchivedObjects::Fields &fields)
    {
        const auto space = scalarValue(fields.colorSpace);
        if (!space || !space->isNumber())
            return std::nullopt;
        const auto spaceNumber = ArchivedColorSpace(space->intValue());
        if (spaceNumber == ArchivedColorSpace::Named) {
            const auto uid = m_objects.uidOf(fields.namedColor);
            const auto named = uid ? value(*uid) : std::nullopt;
            return named && Maker::isColor(*named) ? named : std::nullopt;
        }
        const auto components = bare(fields.components, Value::Type::Data);
        const auto made =
            components ? colorOfComponents(spaceNumber, Maker::data(*components)) : std::nullopt;
        return made ? std::optional(Maker::color(*made)) : std::nullopt;
    }

    const BinaryObjectTable &m_table;
    ArchivedObjects m_objects;
    ObjectMemo<Content> m_memo; // texts by their object index, then archived objects by their UID
    ReadBudget &m_budget;
    std::unordered_map<quint64, Name> m_namesByUid;
    std::shared_ptr<const NameList> m_names; // the keys of the last dictionary
    const uchar *m_nameReferences = nullptr;
};

template <class Maker>
std::optional<typename Maker::Content> rootOf(QByteArrayView bytes, ReadBudget &budget,
                                              const typename Maker::Content &contentOfNull)
{
    const auto table = BinaryObjectTable::open(bytes);
    const auto objects = table ? ArchivedObjects::open(*table, budget) : std::nullopt;
    if (!objects || !budget.spend(ReadBudget::Slot * Unarchiver<Maker>::slotCount(*table, *objects)))
        return std::nullopt;
    if (objects->rootUid() == 0)
        return contentOfNull;
    return Unarchiver<Maker>(*table, *objects, budget).value(objects->rootUid());
}

} // namespace

std::optional<Value> unarchivedRoot(const QByteArray &bytes)
{
    ReadBudget budget(quint64(bytes.size()));
    return unarchivedRoot(bytes, budget);
}

std::optional<Value> unarchivedRoot(const QByteArray &bytes, ReadBudget &budget)
{
    if (BinaryObjectTable::looksLikeOne(bytes))
        return rootOf<Building>(bytes, budget, Value());
    // XML archives come from other programs and are rare, so they are converted to the binary form first.
    if (!budget.spend(quint64(bytes.size())))
        return std::nullopt;
    auto list = readXmlPropertyList(bytes);
    if (!list)
        return std::nullopt;
    const QByteArray binary = writeBinaryPropertyList(*list);
    list.reset(); // Frees its memory before the archive is read.
    return rootOf<Building>(binary, budget, Value());
}

bool mayBeArchive(QByteArrayView head, QByteArrayView tail, qint64 size)
{
    if (head.startsWith("bplist"))
        return BinaryObjectTable::mayBeOne(head, tail, size);
    // XML in any encoding may begin with a byte-order mark, the null bytes of wide characters, and blanks.
    constexpr QByteArrayView BeforeFirstTag("\xFE\xFF\xEF\xBB\xBF\0 \t\r\n", 10);
    const auto first =
        std::find_if(head.begin(), head.end(), [&](char byte) { return !BeforeFirstTag.contains(byte); });
    return first != head.end() && *first == '<';
}

bool canBeUnarchived(const QByteArray &binaryArchive)
{
    ReadBudget budget(quint64(binaryArchive.size()));
    return rootOf<Checking>(binaryArchive, budget, Checking::null()).has_value();
}

} // namespace Foundation
