#pragma once

#include "values/Key.h"
#include "values/Value.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Foundation
{

// Mutable dictionary, shared by reference and kept in the order in which its keys were first set: the form of
// contact records, categories, captions and of the file's root. Reading an absent key gives Null, storing
// Null removes the key. Nobody is told of a change: edits of shown values go through controllers, which tell.
// What is derived from a dictionary and kept compares stamps to find out whether it still holds.
//
// Entries lie side by side; beyond `IndexThreshold` of them an index keeps look-ups constant.
class Dictionary : public RefCounted
{
public:
    struct Entry
    {
        Key key;
        Value value;
    };

    static constexpr std::size_t IndexThreshold = 32;

    // A null reference never comes back.
    static Ref<Dictionary> create() { return makeRef<Dictionary>(); }
    // Shallow: the copy shares the values.
    Ref<Dictionary> copy() const;

    const Value &value(const Key &key) const noexcept;
    const Value &value(QStringView name) const { return value(Key(name)); }
    // Null where a part of the dotted path is absent or no dictionary.
    Value valueForKeyPath(QStringView path) const;
    void setValue(const Key &key, Value value);
    void setValue(QStringView name, Value value) { setValue(Key(name), std::move(value)); }
    // For readers of whole dictionaries: `key` must be absent and `value` must not be Null.
    void append(const Key &key, Value &&value);
    bool contains(const Key &key) const noexcept { return indexOf(key) != Absent; }

    qsizetype count() const noexcept { return qsizetype(m_entries.size()); }
    const std::vector<Entry> &entries() const noexcept { return m_entries; }
    void reserve(std::size_t count) { m_entries.reserve(count); }

    // The number of the last change in this dictionary itself, counted over all dictionaries, so that no two
    // changes bear the same one. 0 if it has never held anything.
    quint64 changeStamp() const noexcept { return m_changeStamp; }
    // That of the last change anywhere: as long as it stands, no dictionary has changed.
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
    std::unique_ptr<Index> m_index; // only beyond the threshold
    quint64 m_changeStamp = 0;
};

} // namespace Foundation
