#include "browse/SearchIndex.h"

#include "browse/ByteSearch.h"
#include "core/RecordModel.h"
#include "foundation/DisplayText.h"

#include <algorithm>
#include <array>

using Foundation::displayText;
using Foundation::Key;
using Foundation::TextView;
using Foundation::Value;
using SearchText::Needle;
using SearchText::Shape;

namespace
{

constexpr char TextEnd = char(0xFF);
// What the first records tell of the room that all will take.
constexpr std::size_t SampleSize = 1024;
// How many candidates ahead the memory is told what will be read: they lie apart from one another.
constexpr std::size_t LookAhead = 16;

// Tells the searched keys from others by a look at the address of their name.
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

bool anyFieldMatches(const Foundation::Dictionary &record, const Needle &needle)
{
    const auto &keys = SearchIndex::searchedKeys();
    return std::any_of(keys.begin(), keys.end(), [&](const Key &key) {
        return SearchText::matches(SearchText::lowerCase(displayText(record.value(key))), needle.lowerCase);
    });
}

} // namespace

const std::vector<Key> &SearchIndex::searchedKeys()
{
    using namespace RecordKey;
    static const std::vector<Key> keys = {
        addressPersonal, addressWork,   category,  company,       emailPersonal, emailWork,
        faxPersonal,     faxWork,       firstName, lastName,      mobile,        note,
        pager,           phonePersonal, phoneWork, resultingName, webPersonal,   webWork,
    };
    return keys;
}

void SearchIndex::makeRow(const Dictionary &record, Row &row)
{
    static const SearchedKeySet searched;
    m_scratch.clear();
    row.shape = Shape::Plain;
    for (const auto &entry : record.entries()) {
        if (!searched.contains(entry.key))
            continue;
        // Values of other kinds, by another hand, are found by what is shown of them.
        const Value shown = entry.value.isString() ? Value() : Value(displayText(entry.value));
        const TextView text = entry.value.isString() ? entry.value.text() : shown.text();
        if (text.size == 0)
            continue;
        row.shape = std::max(row.shape, SearchText::appendSearchForm(text, m_scratch));
        m_scratch.push_back(TextEnd);
    }
    row.length = m_scratch.size();
    if (row.length > row.capacity) {
        dropRow(row);
        row.begin = m_forms.size() - BytesReadBehind;
        row.capacity = row.length;
        m_forms.resize(m_forms.size() + row.length);
    }
    std::copy(m_scratch.begin(), m_scratch.end(), m_forms.begin() + std::ptrdiff_t(row.begin));
}

void SearchIndex::dropRow(const Row &row)
{
    m_unusedBytes += row.capacity;
}

void SearchIndex::makeAllRows(const Objects &records)
{
    m_rows.clear();
    m_forms.assign(BytesReadBehind, TextEnd);
    m_forms.shrink_to_fit();
    m_unusedBytes = 0;
    std::size_t made = 0;
    m_rows.update(
        records,
        [&](const Dictionary &record, Row &row) {
            makeRow(record, row);
            // Growing by halves would copy everything several times.
            if (++made == SampleSize)
                m_forms.reserve(m_forms.size() / SampleSize * records.size() * 21 / 20);
        },
        [](const Row &) {});
}

void SearchIndex::prepare(const Objects &records)
{
    const bool isFirst = m_forms.empty();
    if (isFirst)
        m_forms.assign(BytesReadBehind, TextEnd);
    if (isFirst || m_rows.rows().empty() || m_unusedBytes > m_forms.size() / 2) {
        m_lastSearchForm.reset();
        makeAllRows(records);
        return;
    }
    const auto make = [this](const Dictionary &record, Row &row) { makeRow(record, row); };
    const auto drop = [this](const Row &row) { dropRow(row); };
    if (m_rows.update(records, make, drop) != Foundation::DerivedRows<Row>::Outcome::Unchanged)
        m_lastSearchForm.reset();
}

void SearchIndex::findCandidates(const std::string &searchForm)
{
    const auto &rows = m_rows.rows();
    const bool onlyGrew = m_lastSearchForm && searchForm.starts_with(*m_lastSearchForm);
    if (!onlyGrew) {
        m_candidates.resize(rows.size());
        for (quint32 i = 0; i < rows.size(); ++i)
            m_candidates[i] = {i, 0};
    }
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_candidates.size(); ++i) {
        if (onlyGrew && i + LookAhead < m_candidates.size()) {
            const Candidate &next = m_candidates[i + LookAhead];
            __builtin_prefetch(m_forms.data() + rows[next.position].begin + next.firstOccurrence);
        }
        Candidate candidate = m_candidates[i];
        const Row &row = rows[candidate.position];
        const char *begin = m_forms.data() + row.begin;
        const char *found = findBytes(begin + candidate.firstOccurrence, begin + row.length, searchForm);
        if (!found)
            continue;
        candidate.firstOccurrence = std::size_t(found - begin);
        m_candidates[kept++] = candidate;
    }
    m_candidates.resize(kept);
    m_lastSearchForm = searchForm;
}

bool SearchIndex::isMatch(const Candidate &candidate, const Dictionary &record, const Needle &needle) const
{
    const Row &row = m_rows.rows()[candidate.position];
    if (row.shape == Shape::Unstable)
        return anyFieldMatches(record, needle);
    if (row.shape == Shape::Plain || !needle.keepsLength)
        return needle.keepsLength;
    const char *const begin = m_forms.data() + row.begin;
    const char *const end = begin + row.length;
    const char *found = begin + candidate.firstOccurrence;
    while (found && !SearchText::isWholeInForm(begin, end, found, needle.searchForm.size()))
        found = findBytes(found + 1, end, needle.searchForm);
    return found != nullptr;
}

SearchIndex::Positions SearchIndex::search(const Objects &records, const QString &searchString)
{
    prepare(records);
    const Needle needle(searchString);
    findCandidates(needle.searchForm);
    Positions matches;
    for (const Candidate &candidate : m_candidates) {
        if (isMatch(candidate, *records[candidate.position], needle))
            matches.push_back(candidate.position);
    }
    return matches;
}

std::size_t SearchIndex::bytesUsed() const
{
    return m_forms.capacity() + m_rows.rows().size() * (sizeof(Row) + 2 * sizeof(quint64)) +
           m_candidates.capacity() * sizeof(Candidate);
}
