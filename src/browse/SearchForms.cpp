#include "browse/SearchForms.h"

#include "browse/ByteSearch.h"

#include <cstring>

using SearchText::LengthChange;
using SearchText::Needle;
using SearchText::Shape;

namespace
{

constexpr char TextEnd = char(0xFF);

template <class Entry>
std::size_t bytesOf(const std::vector<Entry> &entries)
{
    return entries.size() * sizeof(Entry);
}

// The memory of the forms has no alignment, so entries are copied.
template <class Entry>
Entry entryAt(const char *entries, std::size_t index)
{
    Entry entry;
    std::memcpy(&entry, entries + index * sizeof entry, sizeof entry);
    return entry;
}

// Iterates over the length changes of a row.
class ChangeCursor
{
public:
    ChangeCursor(const char *changes, std::size_t count)
        : m_changes(changes)
        , m_count(count)
    {
    }
    // Moves to the first change at or after `place` and returns the sum of the units of the skipped changes.
    qsizetype moveTo(std::size_t place)
    {
        qsizetype lost = 0;
        for (; m_next < m_count && next().offset < place; ++m_next)
            lost += next().units;
        return lost;
    }
    bool isAt(std::size_t place) const { return m_next < m_count && next().offset == place; }

private:
    LengthChange next() const { return entryAt<LengthChange>(m_changes, m_next); }

    const char *m_changes;
    std::size_t m_count;
    std::size_t m_next = 0;
};

} // namespace

void SearchForms::Draft::clear()
{
    m_forms.clear();
    m_changes.clear();
    m_numbers.clear();
    m_shape = Shape::Plain;
}

void SearchForms::Draft::append(const Foundation::TextView &text)
{
    m_shape = std::max(m_shape, SearchText::appendSearchForm(text, m_forms, m_changes));
    m_forms.push_back(TextEnd);
}

void SearchForms::clear()
{
    m_bytes.assign(BytesReadBehind, TextEnd);
    m_bytes.shrink_to_fit();
    m_unusedBytes = 0;
}

void SearchForms::store(const Draft &draft, Row &row)
{
    const std::size_t needed = draft.m_forms.size() + bytesOf(draft.m_changes) + bytesOf(draft.m_numbers);
    if (needed > row.capacity) {
        // A row that grew once is probably being typed into and will grow again.
        const std::size_t spare = row.capacity > 0 ? needed / 8 : 0;
        drop(row);
        row.begin = m_bytes.size() - BytesReadBehind;
        row.capacity = needed + spare;
        m_bytes.resize(m_bytes.size() + row.capacity);
    }
    row.length = draft.m_forms.size();
    row.changeCount = quint32(draft.m_changes.size());
    row.numberCount = quint8(draft.m_numbers.size());
    row.shape = draft.m_shape;
    char *to = m_bytes.data() + row.begin;
    std::memcpy(to, draft.m_forms.data(), row.length);
    to += row.length;
    std::copy_n(reinterpret_cast<const char *>(draft.m_changes.data()), bytesOf(draft.m_changes), to);
    to += bytesOf(draft.m_changes);
    std::copy_n(reinterpret_cast<const char *>(draft.m_numbers.data()), bytesOf(draft.m_numbers), to);
}

quint32 SearchForms::number(const Row &row, int index) const
{
    const std::size_t behindChanges = row.begin + row.length + row.changeCount * sizeof(LengthChange);
    return entryAt<quint32>(m_bytes.data() + behindChanges, std::size_t(index));
}

std::size_t SearchForms::find(const Row &row, std::size_t from, const std::string &searchForm) const
{
    const char *begin = m_bytes.data() + row.begin;
    const char *found = findBytes(begin + from, begin + row.length, searchForm);
    return found ? std::size_t(found - begin) : row.length;
}

bool SearchForms::isMatch(const Row &row, std::size_t occurrence, const Needle &needle) const
{
    if (occurrence == row.length)
        return false;
    if (row.shape == Shape::Plain && row.changeCount == 0)
        return needle.lostUnits == 0;
    const char *const begin = m_bytes.data() + row.begin;
    const char *const end = begin + row.length;
    const std::size_t length = needle.searchForm.size();
    ChangeCursor atBegin(end, row.changeCount);
    while (occurrence < row.length) {
        (void)atBegin.moveTo(occurrence);
        ChangeCursor atEnd = atBegin;
        const qsizetype lostUnits = atEnd.moveTo(occurrence + length);
        const bool isWhole =
            row.shape == Shape::Plain ||
            ((atBegin.isAt(occurrence) || SearchText::isBoundary(begin, end, begin + occurrence)) &&
             (atEnd.isAt(occurrence + length) ||
              SearchText::isBoundary(begin, end, begin + occurrence + length)));
        if (!isWhole) {
            occurrence = find(row, occurrence + 1, needle.searchForm);
            continue;
        }
        if (lostUnits == needle.lostUnits)
            return true;
        // The first occurrence in a text decides, so continue with the next text.
        const auto *textEnd =
            static_cast<const char *>(std::memchr(begin + occurrence, TextEnd, row.length - occurrence));
        occurrence = find(row, std::size_t(textEnd - begin), needle.searchForm);
    }
    return false;
}
