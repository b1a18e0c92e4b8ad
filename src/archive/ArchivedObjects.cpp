#include "archive/ArchivedObjects.h"

namespace Foundation
{

namespace
{

using Kind = BinaryObjectTable::Kind;
using Object = BinaryObjectTable::Object;

QByteArrayView asciiOf(const Object &object)
{
    if (object.kind != Kind::Ascii)
        return {};
    return {reinterpret_cast<const char *>(object.payload), qsizetype(object.count)};
}

// The value under a name in a dictionary of the property list.
std::optional<Object> entry(const BinaryObjectTable &table, const Object &dictionary, QByteArrayView name)
{
    if (dictionary.kind != Kind::Dictionary)
        return std::nullopt;
    for (quint64 i = 0; i < dictionary.count; ++i) {
        if (asciiOf(table.object(table.reference(dictionary.payload, i))) == name)
            return table.object(table.reference(dictionary.payload, dictionary.count + i));
    }
    return std::nullopt;
}

ReadableClass classNamed(QByteArrayView name)
{
    static constexpr struct
    {
        QByteArrayView name;
        ReadableClass readableClass;
    } classes[] = {{"NSDictionary", ReadableClass::Dictionary},
                   {"NSMutableDictionary", ReadableClass::Dictionary},
                   {"NSArray", ReadableClass::Array},
                   {"NSMutableArray", ReadableClass::Array},
                   {"NSString", ReadableClass::String},
                   {"NSMutableString", ReadableClass::String},
                   // The characters of a styled text.
                   {"NSAttributedString", ReadableClass::String},
                   {"NSMutableAttributedString", ReadableClass::String},
                   {"NSData", ReadableClass::Data},
                   {"NSMutableData", ReadableClass::Data},
                   {"NSDate", ReadableClass::Date},
                   {"NSColor", ReadableClass::Color},
                   {"NSNull", ReadableClass::Null}};
    for (const auto &known : classes) {
        if (known.name == name)
            return known.readableClass;
    }
    return ReadableClass::Unknown;
}

} // namespace

std::optional<ArchivedObjects> ArchivedObjects::open(const BinaryObjectTable &table, ReadBudget &budget)
{
    const Object frame = table.object(table.topObject());
    const auto objects = entry(table, frame, "$objects");
    const auto top = entry(table, frame, "$top");
    if (!objects || !top || objects->kind != Kind::Array || objects->count == 0)
        return std::nullopt;
    ArchivedObjects archive(table, *objects, budget);
    const auto root = entry(table, *top, "root");
    const auto uid = root ? archive.uidOf(*root) : std::nullopt;
    if (!uid)
        return std::nullopt;
    archive.m_rootUid = *uid;
    return archive;
}

ArchivedObjects::Field ArchivedObjects::fieldNamed(QByteArrayView name)
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
        {"NSCYMK", Field::Components}, {"NSColor", Field::NamedColor}};
    for (const auto &known : fields) {
        if (known.name == name)
            return known.field;
    }
    return Field::Other;
}

ArchivedObjects::Field ArchivedObjects::fieldOf(quint64 nameIndex)
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

std::optional<ArchivedObjects::Fields> ArchivedObjects::fieldsOf(const Object &dictionary)
{
    if (!spendOn(dictionary, ReadBudget::Reference))
        return std::nullopt;
    static constexpr Object Fields::*places[] = {nullptr,
                                                 nullptr,
                                                 &Fields::keys,
                                                 &Fields::objects,
                                                 &Fields::time,
                                                 &Fields::text,
                                                 &Fields::bytes,
                                                 &Fields::data,
                                                 &Fields::colorSpace,
                                                 &Fields::components,
                                                 &Fields::namedColor};
    Fields fields;
    for (quint64 i = 0; i < dictionary.count; ++i) {
        const Field field = fieldOf(m_table.reference(dictionary.payload, i));
        if (field == Field::Other)
            continue;
        const Object content = m_table.object(m_table.reference(dictionary.payload, dictionary.count + i));
        if (field == Field::Class)
            fields.classUid = uidOf(content);
        else
            fields.*places[std::size_t(field)] = content;
    }
    return fields.classUid ? std::optional(fields) : std::nullopt;
}

ReadableClass ArchivedObjects::classOf(quint64 uid)
{
    const auto known = m_classes.find(uid);
    if (known != m_classes.end())
        return known->second;
    const Object description = m_table.object(indexOf(uid));
    ReadableClass found = ReadableClass::Unknown;
    if (description.kind != Kind::Dictionary || !spendOn(description, ReadBudget::Reference))
        return found;
    if (const auto name = entry(m_table, description, "$classname"))
        found = classNamed(asciiOf(*name));
    // An object of an unknown class is read as its nearest known ancestor.
    const auto ancestors = entry(m_table, description, "$classes");
    if (found == ReadableClass::Unknown && ancestors && ancestors->kind == Kind::Array &&
        spendOn(*ancestors, ReadBudget::Reference)) {
        for (quint64 i = 0; i < ancestors->count && found == ReadableClass::Unknown; ++i)
            found = classNamed(asciiOf(m_table.object(m_table.reference(ancestors->payload, i))));
    }
    m_classes.emplace(uid, found);
    return found;
}

} // namespace Foundation
