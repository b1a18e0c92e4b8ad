#pragma once

#include "values/Dictionary.h"

#include <vector>

namespace Foundation
{

// Whether two values count as equal.
using Likeness = bool (*)(const Value &a, const Value &b);

// The common values of the selected objects of a list, by key path. For each key path, each object is
// examined at most once until something changes, however many controls ask; the search stops at the first
// difference.
class SelectionValues
{
public:
    struct Outcome
    {
        Value value; // that of the first object if all agree, otherwise Null
        bool isMixed = false;
    };

    // Must be called when other objects are selected.
    void clear() { m_known.clear(); }
    // All selected objects got this value, and nothing else has changed since `formerChangeStamp`. Keeps the
    // answers for other keys.
    void takeCommonValue(const Key &key, const Value &value, quint64 formerChangeStamp);
    // The common value of `count` objects. `objectAt(i)` returns each of them; `count` must be at least 1.
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
        // The result is valid as long as the object does not change.
        const Value &valueIn(const Dictionary &object);

    private:
        std::vector<Key> m_keys;
        std::size_t m_lastPlace = 0; // Most objects of a list have their entries in the same order.
    };

    std::vector<Known> m_known;
    quint64 m_changeStamp = 0; // of `m_known`
};

} // namespace Foundation
