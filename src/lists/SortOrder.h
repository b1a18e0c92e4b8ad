#pragma once

#include "lists/DerivedRows.h"

#include <QCollator>
#include <QHash>

namespace Foundation
{

// One rule of an order: it compares the values under a key path. Texts are sorted by the user's language,
// with numbers in them by value; dates and numbers are sorted by value; objects without a value come first.
struct SortDescriptor
{
    QString keyPath;
    bool isAscending = true;
    // If set, used instead of the key path: returns a text that depends on this object only.
    QString (*derivedText)(const Dictionary &object) = nullptr;
};

// Sorts the objects of a list by sort descriptors. The sort is stable: objects that compare equal keep the
// order of the list. The order of all objects is stored, so that sorting some of them needs no comparisons
// while nothing changes, and only changed objects are compared after a change.
class SortOrder
{
public:
    using Objects = std::vector<Ref<Dictionary>>;
    // Positions in a list of objects.
    using Positions = std::vector<quint32>;

    const std::vector<SortDescriptor> &descriptors() const { return m_descriptors; }
    void setDescriptors(std::vector<SortDescriptor> descriptors);

    // Sorts `positions`, which must be different, ascending positions in `objects`.
    void arrange(const Objects &objects, Positions &positions);

private:
    static constexpr quint32 NoRank = quint32(-1);

    // Made once for each value, not for each comparison.
    struct SortKey
    {
        Value source; // the value of a nested key path, otherwise Null
        double number;
        QCollatorSortKey text;
    };
    struct Row
    {
        std::vector<SortKey> keys; // one for each descriptor
        quint32 rank = NoRank;     // position in the order of all objects
    };

    void update(const Objects &objects);
    void makeRow(const Dictionary &object, Row &row);
    QCollatorSortKey textKey(const QString &text);
    // Returns true if any key changed.
    bool refreshNestedKeys(const Objects &objects);
    bool isBefore(quint32 a, quint32 b) const;
    // Assigns ranks to all rows. Rows with a rank are already in order, unless the list was reordered.
    void rank(bool isReordered);
    Positions merged(const Positions &ranked, const Positions &unranked) const;

    std::vector<SortDescriptor> m_descriptors;
    QCollator m_collator;
    DerivedRows<Row> m_rows;
    // Used while rows are made. A million objects may share a long text, and each sort key of it takes
    // kilobytes.
    QHash<QString, QCollatorSortKey> m_keysOfLongTexts;
    Positions m_order;
    quint64 m_lastChangeStamp = 0;
};

} // namespace Foundation
