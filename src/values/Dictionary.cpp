#include "values/Dictionary.h"

namespace Foundation
{

namespace
{
const Value absent;
}

Ref<Dictionary> Dictionary::copy() const
{
    auto copy = create();
    copy->m_entries.reserve(m_entries.size() + 1); // Most copies get one more entry.
    copy->m_entries = m_entries;
    copy->stampChange();
    if (m_index)
        copy->m_index = std::make_unique<Index>(*m_index);
    return copy;
}

const Value &Dictionary::value(const Key &key) const noexcept
{
    const std::size_t index = indexOf(key);
    return index == Absent ? absent : m_entries[index].value;
}

Value Dictionary::valueForKeyPath(QStringView path) const
{
    const qsizetype dot = path.indexOf(u'.');
    if (dot < 0)
        return value(path);
    const Ref<Dictionary> next = value(path.first(dot)).dictionary();
    return next ? next->valueForKeyPath(path.sliced(dot + 1)) : Value();
}

void Dictionary::setValue(const Key &key, Value value)
{
    const std::size_t index = indexOf(key);
    if (value.isNull()) {
        if (index != Absent)
            remove(index);
        return;
    }
    if (index != Absent) {
        // The former value may be the last owner of this dictionary, so it is destroyed last.
        m_entries[index].value.swap(value);
        stampChange();
        return;
    }
    append(key, std::move(value));
}

void Dictionary::append(const Key &key, Value &&value)
{
    m_entries.push_back({key, std::move(value)});
    stampChange();
    if (m_index)
        m_index->emplace(key, m_entries.size() - 1);
    else if (m_entries.size() > IndexThreshold)
        buildIndex();
}

std::size_t Dictionary::indexOf(const Key &key) const noexcept
{
    if (m_index) {
        const auto found = m_index->find(key);
        return found == m_index->end() ? Absent : found->second;
    }
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].key == key)
            return i;
    }
    return Absent;
}

void Dictionary::remove(std::size_t index)
{
    // Destroying the value may run code that reads this dictionary, so it happens after the entries are
    // consistent again.
    const Entry removed = std::move(m_entries[index]);
    m_entries.erase(m_entries.begin() + std::ptrdiff_t(index));
    stampChange();
    if (m_index)
        buildIndex();
}

void Dictionary::buildIndex()
{
    m_index.reset();
    if (m_entries.size() <= IndexThreshold)
        return;
    m_index = std::make_unique<Index>();
    m_index->reserve(m_entries.size());
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_index->emplace(m_entries[i].key, i);
}

} // namespace Foundation
