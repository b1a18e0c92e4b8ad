#include "support/PropertyListBuilder.h"

using Number = PropertyListBuilder::Number;

QByteArray PropertyListBuilder::bigEndian(quint64 number, int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size && i < 8; ++i)
        bytes[size - 1 - i] = char(number >> (8 * i));
    return bytes;
}

Number PropertyListBuilder::add(const QByteArray &object)
{
    offsets.push_back(quint64(m_objects.size()));
    m_objects += object;
    return offsets.size() - 1;
}

Number PropertyListBuilder::counted(int sort, quint64 count, const QByteArray &payload)
{
    if (count < 15)
        return add(char(sort | int(count)) + payload);
    if (count < 0x100)
        return add(char(sort | 15) + ("\x10" + bigEndian(count, 1)) + payload);
    return add(char(sort | 15) + ("\x12" + bigEndian(count, 4)) + payload);
}

Number PropertyListBuilder::units(std::u16string_view text)
{
    QByteArray payload;
    for (const char16_t unit : text)
        payload += bigEndian(unit, 2);
    return counted(0x60, text.size(), payload);
}

Number PropertyListBuilder::dictionary(const Numbers &keys, const Numbers &values)
{
    return counted(0xD0, keys.size(), references(keys) + references(values));
}

QByteArray PropertyListBuilder::references(const Numbers &numbers) const
{
    QByteArray bytes;
    for (const Number number : numbers)
        bytes += bigEndian(number, referenceSize);
    return bytes;
}

QByteArray PropertyListBuilder::bytes(Number top) const
{
    QByteArray bytes = m_objects;
    for (const quint64 offset : offsets)
        bytes += bigEndian(offset, offsetSize);
    bytes += bigEndian(0, 6) + bigEndian(quint64(offsetSize), 1) + bigEndian(quint64(referenceSize), 1);
    return bytes + bigEndian(offsets.size(), 8) + bigEndian(top, 8) + bigEndian(quint64(m_objects.size()), 8);
}

KeyedArchiveBuilder::KeyedArchiveBuilder()
{
    list.referenceSize = 4;
    place(list.ascii("$null"));
    m_dictionaryClass = describedClass("NSDictionary");
    m_arrayClass = describedClass("NSArray");
}

KeyedArchiveBuilder::Uid KeyedArchiveBuilder::place(Number object)
{
    m_objects.push_back(object);
    return m_objects.size() - 1;
}

Number KeyedArchiveBuilder::name(QByteArrayView text)
{
    const auto known = m_names.find(text.toByteArray());
    return known != m_names.end() ? known->second : m_names[text.toByteArray()] = list.ascii(text);
}

KeyedArchiveBuilder::Uid KeyedArchiveBuilder::describedClass(QByteArrayView className,
                                                             std::initializer_list<QByteArrayView> ancestors)
{
    Numbers lineage = {name(className)};
    for (const QByteArrayView ancestor : ancestors)
        lineage.push_back(name(ancestor));
    const Number all = list.array(lineage);
    return place(list.dictionary({name("$classname"), name("$classes")}, {lineage.front(), all}));
}

Number KeyedArchiveBuilder::instance(std::initializer_list<std::pair<QByteArrayView, Number>> fields,
                                     Uid ofClass)
{
    Numbers keys = {name("$class")};
    Numbers values = {referenceTo(ofClass)};
    for (const auto &field : fields) {
        keys.push_back(name(field.first));
        values.push_back(field.second);
    }
    return list.dictionary(keys, values);
}

Number KeyedArchiveBuilder::referencesTo(const Uids &uids)
{
    Numbers numbers;
    for (const Uid uid : uids)
        numbers.push_back(referenceTo(uid));
    return list.array(numbers);
}

Number KeyedArchiveBuilder::bareDictionary(const Uids &keys, const Uids &values)
{
    return instance({{"NS.keys", referencesTo(keys)}, {"NS.objects", referencesTo(values)}},
                    m_dictionaryClass);
}

KeyedArchiveBuilder::Uid KeyedArchiveBuilder::array(const Uids &items)
{
    return place(instance({{"NS.objects", referencesTo(items)}}, m_arrayClass));
}

QByteArray KeyedArchiveBuilder::bytes(Uid root)
{
    const Number top = list.dictionary({name("root")}, {referenceTo(root)});
    const Number objects = list.array(m_objects);
    const Number frame =
        list.dictionary({name("$archiver"), name("$version"), name("$top"), name("$objects")},
                        {name("NSKeyedArchiver"), list.integer(100000, 4), top, objects});
    return list.bytes(frame);
}
