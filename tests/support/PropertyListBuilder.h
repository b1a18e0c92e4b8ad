#pragma once

#include <QByteArray>

#include <bit>
#include <initializer_list>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

// Lays down binary property lists ("bplist00") object by object, damaged ones included, and knows nothing of
// the system's own writer. Every number can be made to lie before bytes() puts the file together.
class PropertyListBuilder
{
public:
    using Number = quint64; // of an object, from 0 on
    using Numbers = std::vector<Number>;

    // Big-endian, the lowest `size` bytes.
    static QByteArray bigEndian(quint64 number, int size);

    // Each adds one object and gives its number.
    Number add(const QByteArray &object);
    Number ascii(QByteArrayView text) { return counted(0x50, quint64(text.size()), text.toByteArray()); }
    Number units(std::u16string_view text);
    Number data(const QByteArray &bytes) { return counted(0x40, quint64(bytes.size()), bytes); }
    Number integer(quint64 value, int size)
    {
        return add(char(0x10 | std::countr_zero(unsigned(size))) + bigEndian(value, size));
    }
    Number real64(double value) { return add("\x23" + bigEndian(std::bit_cast<quint64>(value), 8)); }
    Number date(double seconds) { return add("\x33" + bigEndian(std::bit_cast<quint64>(seconds), 8)); }
    Number uid(quint64 value, int size = 1) { return add(char(0x80 | (size - 1)) + bigEndian(value, size)); }
    Number array(const Numbers &items) { return counted(0xA0, items.size(), references(items)); }
    // All keys and then all values.
    Number dictionary(const Numbers &keys, const Numbers &values);
    // Head byte with the count, in the long form where it needs it, and the payload.
    Number counted(int sort, quint64 count, const QByteArray &payload);

    // The number that the next object gets, for references ahead.
    Number next() const { return offsets.size(); }
    QByteArray references(const Numbers &numbers) const;
    QByteArray bytes(Number top) const;

    // To be set before the first object, and to be bent before bytes().
    int referenceSize = 2;
    int offsetSize = 4;
    std::vector<quint64> offsets;

private:
    QByteArray m_objects = "bplist00";
};

// A keyed archive on top: objects by UID. The first three are the null object and two classes.
class KeyedArchiveBuilder
{
public:
    using Number = PropertyListBuilder::Number;
    using Numbers = PropertyListBuilder::Numbers;
    using Uid = quint64;
    using Uids = std::vector<Uid>;

    KeyedArchiveBuilder();

    // Puts an object of the list under the next UID.
    Uid place(Number object);
    Uid text(QByteArrayView text) { return place(list.ascii(text)); }
    // Description of a class; its ancestors go on the list behind it.
    Uid describedClass(QByteArrayView name, std::initializer_list<QByteArrayView> ancestors = {});
    // Instance of a class with the fields given as name and object.
    Number instance(std::initializer_list<std::pair<QByteArrayView, Number>> fields, Uid ofClass);
    Number referenceTo(Uid uid) { return list.uid(uid, 4); }
    Number referencesTo(const Uids &uids);
    Uid dictionary(const Uids &keys, const Uids &values) { return place(bareDictionary(keys, values)); }
    Number bareDictionary(const Uids &keys, const Uids &values);
    Uid array(const Uids &items);

    Uid nextUid() const { return m_objects.size(); }
    QByteArray bytes(Uid root);

    PropertyListBuilder list;

private:
    Number name(QByteArrayView text);

    Numbers m_objects;
    std::map<QByteArray, Number> m_names;
    Uid m_dictionaryClass;
    Uid m_arrayClass;
};
