#pragma once

#include "values/Dictionary.h"

#include <vector>

namespace Foundation
{

// Whether two values count as one.
using Likeness = bool (*)(const Value &a, const Value &b);

// What the selected objects of a list have under a key path: one value if they agree. For each key
// path it looks at each object at most once, however many controls ask, and stops at the first that differs.
class SelectionValues
{
public:
    struct Outcome
    {
        Value value; // of the first object if all agree, otherwise null
        bool isMixed = false;
    };

    // Others are selected.
    void clear() { m_known.clear(); }
    // All selected objects got this value, and nothing else has changed since the stamp given.
    void takeCommonValue(const Key &key, const Value &value, quint64 formerChangeStamp);
    // Of `count` objects, at least one, `objectAt(i)` being each of them.
    template <class ObjectAt>
    Outcome outcome(QStringView keyPath, Likeness alike, std::size_t count, ObjectAt objectAt)
    {
        if (m_changeStamp != Dictionary::lastChangeStamp())
            clear();
        m_changeStamp = Dictionary::lastChangeStamp();
        for (const Known &known : m_known) {
            if (known.alike == alike && known.keyPath == keyPath)
                return known.outcome;
        }
        Path path(keyPath);
        Outcome outcome{path.valueIn(objectAt(0))};
        for (std::size_t i = 1; i < count && !outcome.isMixed; ++i) {
            const Value &value = path.valueIn(objectAt(i));
            outcome.isMixed = value != outcome.value && !(alike && alike(value, outcome.value));
        }
        if (outcome.isMixed)
            outcome.value = {};
        m_known.push_back({keyPath.toString(), alike, outcome});
        return outcome;
    }

private:
    struct Known
    {
        QString keyPath;
        Likeness alike;
        Outcome outcome;
    };

    class Path
    {
    public:
        explicit Path(QStringView keyPath);
        // Valid as long as the object does not change.
        const Value &valueIn(const Dictionary &object);

    private:
        std::vector<Key> m_keys;
        std::size_t m_lastPlace = 0; // Objects of one list mostly have their entries in the same order.
    };

    std::vector<Known> m_known;
    quint64 m_changeStamp = 0; // of what is known
};

} // namespace Foundation
