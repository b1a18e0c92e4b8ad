#include "browse/SearchIndex.h"

#include "core/ContactFields.h"
#include "values/DisplayText.h"

#include <algorithm>
#include <array>

using Foundation::displayText;
using Foundation::Key;
using Foundation::TextView;
using Foundation::Value;
using SearchText::Needle;

namespace
{

// The number of records from which the size of all forms is estimated.
constexpr std::size_t SampleSize = 1024;

// A hash table of the addresses of the searched keys.
class SearchedKeySet
{
public:
    SearchedKeySet()
    {
        for (const Key &key : SearchIndex::searchedKeys()) {
            std::size_t slot = slotOf(key.identity());
            while (m_slots[slot])
                slot = (slot + 1) % m_slots.size();
            m_slots[slot] = key.identity();
        }
    }
    bool contains(const Key &key) const
    {
        std::size_t slot = slotOf(key.identity());
        while (m_slots[slot] && m_slots[slot] != key.identity())
            slot = (slot + 1) % m_slots.size();
        return m_slots[slot] != nullptr;
    }

private:
    std::size_t slotOf(const void *identity) const
    {
        return (reinterpret_cast<std::size_t>(identity) >> 5) * 0x9E3779B97F4A7C15 >> 56;
    }

    std::array<const void *, 256> m_slots{};
};

} // namespace

const std::vector<Key> &SearchIndex::searchedKeys()
{
    static const std::vector<Key> keys = [] {
        std::vector<Key> searched;
        for (const ContactField &field : contactFields()) {
            if (field.isSearched)
                searched.push_back(field.key);
        }
        return searched;
    }();
    return keys;
}

void SearchIndex::makeRow(const Dictionary &record, Row &row)
{
    static const SearchedKeySet searched;
    m_draft.clear();
    for (const auto &entry : record.entries()) {
        if (!searched.contains(entry.key))
            continue;
        // A value that is no text, which another program wrote, is found by the text that a field shows for
        // it.
        const Value shown = entry.value.isString() ? Value() : Value(displayText(entry.value));
        const TextView text = entry.value.isString() ? entry.value.text() : shown.text();
        if (text.size == 0)
            continue;
        if (SharedSearchForms::takes(entry.value))
            m_draft.appendNumber(m_shared.use(entry.value, text));
        else
            m_draft.append(text);
    }
    releaseShared(row); // After the new ones were stored, since most of them are the same.
    m_forms.store(m_draft, row);
}

void SearchIndex::releaseShared(const Row &row)
{
    for (int i = 0; i < row.numberCount; ++i)
        m_shared.release(m_forms.number(row, i));
}

void SearchIndex::dropRow(const Row &row)
{
    releaseShared(row);
    m_forms.drop(row);
}

void SearchIndex::makeAllRows(const Objects &records)
{
    m_rows.clear();
    m_forms.clear();
    m_shared.clear();
    std::size_t made = 0;
    m_rows.update(
        records,
        [&](const Dictionary &record, Row &row) {
            makeRow(record, row);
            // Otherwise the growing memory would be copied several times.
            if (++made == SampleSize)
                m_forms.reserve(m_forms.size() / SampleSize * records.size() * 21 / 20);
        },
        [](const Row &) {});
}

void SearchIndex::prepare(const Objects &records)
{
    if (m_rows.rows().empty() || m_forms.isMostlyUnused()) {
        m_lastSearchForm.reset();
        makeAllRows(records);
        return;
    }
    const auto make = [this](const Dictionary &record, Row &row) { makeRow(record, row); };
    const auto drop = [this](const Row &row) { dropRow(row); };
    if (m_rows.update(records, make, drop) != Foundation::DerivedRows<Row>::Outcome::Unchanged)
        m_lastSearchForm.reset();
}

template <class Test>
bool SearchIndex::anyShared(const Row &row, Test test) const
{
    for (int i = 0; i < row.numberCount; ++i) {
        if (test(m_forms.number(row, i)))
            return true;
    }
    return false;
}

SearchIndex::Positions SearchIndex::findMatches(const Needle &needle)
{
    const auto &rows = m_rows.rows();
    const bool onlyGrew = m_lastSearchForm && needle.searchForm.starts_with(*m_lastSearchForm);
    if (!onlyGrew) {
        m_candidates.resize(rows.size());
        for (quint32 i = 0; i < rows.size(); ++i)
            m_candidates[i] = {i, 0};
    }
    m_shared.search(needle, onlyGrew);
    const auto mayMatch = [this](quint32 number) { return m_shared.mayMatch(number); };
    const auto isMatch = [this](quint32 number) { return m_shared.isMatch(number); };
    Positions matches;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_candidates.size(); ++i) {
        Candidate candidate = m_candidates[i];
        const Row &row = rows[candidate.position];
        candidate.firstOccurrence = m_forms.find(row, candidate.firstOccurrence, needle.searchForm);
        if (candidate.firstOccurrence == row.length && !anyShared(row, mayMatch))
            continue;
        m_candidates[kept++] = candidate;
        if (m_forms.isMatch(row, candidate.firstOccurrence, needle) || anyShared(row, isMatch))
            matches.push_back(candidate.position);
    }
    m_candidates.resize(kept);
    m_lastSearchForm = needle.searchForm;
    return matches;
}

SearchIndex::Positions SearchIndex::search(const Objects &records, const QString &searchString)
{
    prepare(records);
    return findMatches(Needle(searchString));
}

std::size_t SearchIndex::bytesUsed() const
{
    return m_forms.capacity() + m_shared.bytesUsed() +
           m_rows.rows().size() * (sizeof(Row) + 2 * sizeof(quint64)) +
           m_candidates.capacity() * sizeof(Candidate);
}
