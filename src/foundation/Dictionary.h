#pragma once

#include "foundation/Key.h"
#include "foundation/Value.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Foundation
{

// Mutable dictionary, shared by reference and kept in the order in which its keys were first set: the form of
// contact records, categories, captions and of the file's root. Reading an absent key gives Null, storing
// Null removes the key. Nobody is told of a change: edits of shown values go through controllers, which tell.
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

private:
    using Index = std::unordered_map<Key, std::size_t>;
    static constexpr std::size_t Absent = std::size_t(-1);

    std::size_t indexOf(const Key &key) const noexcept;
    void remove(std::size_t index);
    void buildIndex();

    std::vector<Entry> m_entries;
    std::unique_ptr<Index> m_index; // only beyond the threshold
};

} // namespace Foundation
