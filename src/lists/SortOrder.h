#pragma once

#include "lists/DerivedRows.h"

#include <QCollator>
#include <QHash>

namespace Foundation
{

// One rule of an order: the values under a key path, texts as the user's language sorts them with numbers in
// them by size, dates and numbers by value, absent ones first.
struct SortDescriptor
{
    QString keyPath;
    bool isAscending = true;
    // In place of a value under a key path: a text that is worked out of the object alone.
    QString (*derivedText)(const Dictionary &object) = nullptr;
};

// The order that sort descriptors give to the objects of a list; what they do not tell apart stays in the
// order of the list. The order is kept: as long as the objects stay, putting some of them in order compares
// nothing, and after a change only what changed is sorted in again.
class SortOrder
{
public:
    using Objects = std::vector<Ref<Dictionary>>;
    // Places in a list of objects.
    using Positions = std::vector<quint32>;

    const std::vector<SortDescriptor> &descriptors() const { return m_descriptors; }
    void setDescriptors(std::vector<SortDescriptor> descriptors);

    // Puts `positions`, different ascending places in `objects`, in order.
    void arrange(const Objects &objects, Positions &positions);

private:
    static constexpr quint32 NoRank = quint32(-1);

    // Made once a value, not once a comparison.
    struct SortKey
    {
        Value source; // of a nested key path, otherwise null
        double number;
        QCollatorSortKey text;
    };
    struct Row
    {
        std::vector<SortKey> keys; // one for each descriptor
        quint32 rank = NoRank;     // in the order of all; none until it is sorted in
    };

    void update(const Objects &objects);
    void makeRow(const Dictionary &object, Row &row);
    QCollatorSortKey textKey(const QString &text);
    // True if any differed.
    bool refreshNestedKeys(const Objects &objects);
    bool isBefore(quint32 a, quint32 b) const;
    // Ranks all rows. Those that have a rank already stand in order, unless the list was reordered.
    void rank(bool isReordered);
    Positions merged(const Positions &ranked, const Positions &unranked) const;

    std::vector<SortDescriptor> m_descriptors;
    QCollator m_collator;
    DerivedRows<Row> m_rows;
    // While rows are made. A million objects may share a text, of which each key alone takes kilobytes.
    QHash<QString, QCollatorSortKey> m_keysOfLongTexts;
    Positions m_order;
    quint64 m_lastChangeStamp = 0;
};

} // namespace Foundation
