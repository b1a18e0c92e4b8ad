#pragma once

#include "values/Key.h"
#include "values/Value.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Foundation
{

// Mutable dictionary, shared by reference, with its entries in the order in which their keys were first set.
// Contact records, categories, captions and the root of a file are dictionaries. Reading an absent key gives
// Null, storing Null removes the key. A dictionary sends no notifications: edits of values that are on the
// screen go through an ArrayController, which does. Data derived from a dictionary compares change stamps to
// find out whether it is up to date.
//
// Look-ups are linear up to `IndexThreshold` entries; a larger dictionary has an index. Main thread only.
class Dictionary : public RefCounted
{
public:
    struct Entry
    {
        Key key;
        Value value;
    };

    static constexpr std::size_t IndexThreshold = 32;

    // Never returns a null reference.
    static Ref<Dictionary> create() { return makeRef<Dictionary>(); }
    // A shallow copy, which shares the values.
    Ref<Dictionary> copy() const;

    const Value &value(const Key &key) const noexcept;
    const Value &value(QStringView name) const { return value(Key(name)); }
    // Returns Null if a part of the dotted path is absent or is no dictionary.
    Value valueForKeyPath(QStringView path) const;
    void setValue(const Key &key, Value value);
    void setValue(QStringView name, Value value) { setValue(Key(name), std::move(value)); }
    // Adds an entry without looking for the key, for code that builds whole dictionaries. `key` must be
    // absent and `value` must not be Null.
    void append(const Key &key, Value &&value);
    bool contains(const Key &key) const noexcept { return indexOf(key) != Absent; }

    qsizetype count() const noexcept { return qsizetype(m_entries.size()); }
    const std::vector<Entry> &entries() const noexcept { return m_entries; }
    void reserve(std::size_t count) { m_entries.reserve(count); }

    // The number of the last change of this dictionary, or 0 if it has never had an entry. Changes are
    // counted over all dictionaries, so that no two changes have the same number. A change inside a contained
    // array or dictionary does not count.
    quint64 changeStamp() const noexcept { return m_changeStamp; }
    // The number of the last change of any dictionary. While it stays equal, no dictionary has changed.
    static quint64 lastChangeStamp() noexcept { return s_lastChangeStamp; }

private:
    using Index = std::unordered_map<Key, std::size_t>;
    static constexpr std::size_t Absent = std::size_t(-1);

    std::size_t indexOf(const Key &key) const noexcept;
    void remove(std::size_t index);
    void buildIndex();
    void stampChange() noexcept { m_changeStamp = ++s_lastChangeStamp; }

    static inline quint64 s_lastChangeStamp = 0;

    std::vector<Entry> m_entries;
    std::unique_ptr<Index> m_index; // null up to the threshold
    quint64 m_changeStamp = 0;
};

} // namespace Foundation
