#pragma once

#include <QByteArray>

#include <bit>
#include <initializer_list>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

// Builds binary property lists ("bplist00") object by object, also damaged ones, without the writer of the
// application. Every number can be changed to a wrong value before bytes() makes the file.
class PropertyListBuilder
{
public:
    using Number = quint64; // the index of an object
    using Numbers = std::vector<Number>;

    // The lowest `size` bytes of a number, big-endian.
    static QByteArray bigEndian(quint64 number, int size);

    // Each of these adds one object and returns its number.
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
    // The payload consists of all references to keys, then all references to values.
    Number dictionary(const Numbers &keys, const Numbers &values);
    // Adds an object with a head byte, its count (in the long form if needed) and the payload.
    Number counted(int sort, quint64 count, const QByteArray &payload);

    // The number of the next object, for references to objects that are added later.
    Number next() const { return offsets.size(); }
    QByteArray references(const Numbers &numbers) const;
    QByteArray bytes(Number top) const;

    // Must be set before the first object. May be changed to wrong values before bytes().
    int referenceSize = 2;
    int offsetSize = 4;
    std::vector<quint64> offsets;

private:
    QByteArray m_objects = "bplist00";
};

// Builds a keyed archive. The first three UIDs are the null object and two classes.
class KeyedArchiveBuilder
{
public:
    using Number = PropertyListBuilder::Number;
    using Numbers = PropertyListBuilder::Numbers;
    using Uid = quint64;
    using Uids = std::vector<Uid>;

    KeyedArchiveBuilder();

    // Gives an object of the list the next UID.
    Uid place(Number object);
    Uid text(QByteArrayView text) { return place(list.ascii(text)); }
    // Adds a class description; `name` is followed by its ancestors.
    Uid describedClass(QByteArrayView name, std::initializer_list<QByteArrayView> ancestors = {});
    // Adds an instance of a class with these fields, each a name and an object.
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
