#include "lists/SortOrder.h"

#include <algorithm>
#include <cmath>

namespace Foundation
{

void SortOrder::setDescriptors(std::vector<SortDescriptor> descriptors)
{
    m_descriptors = std::move(descriptors);
    m_collator.setNumericMode(true);
    m_rows.clear();
    m_order.clear();
}

QCollatorSortKey SortOrder::textKey(const QString &text)
{
    constexpr qsizetype LongText = 64;
    constexpr qsizetype MostKept = 1'000;
    if (text.size() < LongText)
        return m_collator.sortKey(text);
    const auto known = m_keysOfLongTexts.constFind(text);
    if (known != m_keysOfLongTexts.constEnd())
        return *known;
    if (m_keysOfLongTexts.size() == MostKept)
        m_keysOfLongTexts.clear();
    return *m_keysOfLongTexts.insert(text, m_collator.sortKey(text));
}

void SortOrder::makeRow(const Dictionary &object, Row &row)
{
    row.keys.clear();
    row.rank = NoRank;
    for (const SortDescriptor &descriptor : m_descriptors) {
        Value value = descriptor.derivedText ? Value(descriptor.derivedText(object))
                                             : object.valueForKeyPath(descriptor.keyPath);
        double number = value.isDate() ? value.dateValue() : value.isNumber() ? value.doubleValue() : 0;
        if (std::isnan(number))
            number = 0; // NaN, which would make the order inconsistent.
        const QCollatorSortKey text = textKey(value.stringValue());
        if (!descriptor.keyPath.contains(u'.'))
            value = {};
        row.keys.push_back({std::move(value), number, text});
    }
}

bool SortOrder::refreshNestedKeys(const Objects &objects)
{
    // The stamp of a record does not change when its category is renamed.
    bool differs = false;
    for (std::size_t d = 0; d < m_descriptors.size(); ++d) {
        if (!m_descriptors[d].keyPath.contains(u'.'))
            continue;
        for (std::size_t i = 0; i < objects.size(); ++i) {
            Row &row = m_rows.rows()[i];
            if (objects[i]->valueForKeyPath(m_descriptors[d].keyPath) == row.keys[d].source)
                continue;
            makeRow(*objects[i], row);
            differs = true;
        }
    }
    return differs;
}

bool SortOrder::isBefore(quint32 a, quint32 b) const
{
    const std::vector<SortKey> &left = m_rows.rows()[a].keys;
    const std::vector<SortKey> &right = m_rows.rows()[b].keys;
    for (std::size_t d = 0; d < m_descriptors.size(); ++d) {
        int order = left[d].text.compare(right[d].text);
        if (order == 0)
            order = int(left[d].number > right[d].number) - int(left[d].number < right[d].number);
        if (order != 0)
            return m_descriptors[d].isAscending == (order < 0);
    }
    return a < b;
}

SortOrder::Positions SortOrder::merged(const Positions &ranked, const Positions &unranked) const
{
    const auto before = [this](quint32 a, quint32 b) { return isBefore(a, b); };
    Positions order;
    order.reserve(ranked.size() + unranked.size());
    // Comparisons are expensive, so the positions of a few rows are found by binary search.
    constexpr std::size_t FewAmongMany = 32;
    if (unranked.size() * FewAmongMany > ranked.size()) {
        std::merge(ranked.begin(), ranked.end(), unranked.begin(), unranked.end(), std::back_inserter(order),
                   before);
        return order;
    }
    auto copied = ranked.begin();
    for (const quint32 position : unranked) {
        const auto place = std::lower_bound(copied, ranked.end(), position, before);
        order.insert(order.end(), copied, place);
        order.push_back(position);
        copied = place;
    }
    order.insert(order.end(), copied, ranked.end());
    return order;
}

void SortOrder::rank(bool isReordered)
{
    auto &rows = m_rows.rows();
    const auto before = [this](quint32 a, quint32 b) { return isBefore(a, b); };
    Positions ranked(m_order.size(), NoRank);
    Positions unranked;
    for (quint32 i = 0; i < rows.size(); ++i) {
        if (rows[i].rank == NoRank)
            unranked.push_back(i);
        else
            ranked[rows[i].rank] = i;
    }
    std::erase(ranked, NoRank);
    if (isReordered)
        std::sort(ranked.begin(), ranked.end(), before);
    std::sort(unranked.begin(), unranked.end(), before);
    m_order = merged(ranked, unranked);
    for (quint32 rank = 0; rank < m_order.size(); ++rank)
        rows[m_order[rank]].rank = rank;
}

void SortOrder::update(const Objects &objects)
{
    using Outcome = DerivedRows<Row>::Outcome;
    const auto make = [this](const Dictionary &object, Row &row) { makeRow(object, row); };
    const auto drop = [](const Row &) {};
    const Outcome outcome = m_rows.update(objects, make, drop);
    if (outcome != Outcome::Unchanged || m_lastChangeStamp != Dictionary::lastChangeStamp()) {
        m_lastChangeStamp = Dictionary::lastChangeStamp();
        if (refreshNestedKeys(objects) || outcome != Outcome::Unchanged)
            rank(outcome == Outcome::ListReordered);
    }
    m_keysOfLongTexts.clear();
}

void SortOrder::arrange(const Objects &objects, Positions &positions)
{
    if (m_descriptors.empty())
        return;
    update(objects);
    const auto &rows = m_rows.rows();
    // Chooses the cheaper way: a pass over all ranks, or sorting by rank.
    constexpr std::size_t SweepFromShare = 16;
    if (positions.size() < objects.size() / SweepFromShare) {
        std::sort(positions.begin(), positions.end(),
                  [&rows](quint32 a, quint32 b) { return rows[a].rank < rows[b].rank; });
        return;
    }
    std::vector<bool> isWanted(objects.size());
    for (const quint32 position : positions)
        isWanted[position] = true;
    positions.clear();
    for (const quint32 position : m_order) {
        if (isWanted[position])
            positions.push_back(position);
    }
}

} // namespace Foundation
