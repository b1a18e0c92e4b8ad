#pragma once

#include "browse/SearchForms.h"
#include "browse/SharedSearchForms.h"
#include "lists/DerivedRows.h"

#include <optional>

// The text search over the records of one list. The result is the same as that of a search in each field of
// each record. Stores the search forms of all searched fields, which takes about as much memory as the texts
// themselves and 64 bytes for each record. prepare() and search() first update the index by the change stamps
// of the records, so that no notifications are needed. A long text that several records share is stored and
// searched once.
//
// If the needle begins with the previous one, only the former candidates are examined.
class SearchIndex
{
public:
    using Objects = std::vector<Foundation::Ref<Foundation::Dictionary>>;
    using Positions = std::vector<quint32>;

    // The searched fields. Their order has no effect.
    static const std::vector<Foundation::Key> &searchedKeys();

    // Updates the index, which search() would otherwise do first.
    void prepare(const Objects &records);
    // The ascending positions of the records that contain `searchString`, which must not be empty.
    Positions search(const Objects &records, const QString &searchString);

    // The memory of the index in bytes, for measurements.
    std::size_t bytesUsed() const;

private:
    using Dictionary = Foundation::Dictionary;
    // The forms of the unshared texts of a record, and the numbers of its shared texts.
    using Row = SearchForms::Row;

    // A record that may match, and the first occurrence of the needle in its own forms.
    struct Candidate
    {
        quint32 position;
        std::size_t firstOccurrence; // the length of the forms if only shared texts contain it
    };

    void makeRow(const Dictionary &record, Row &row);
    void makeAllRows(const Objects &records);
    void dropRow(const Row &row);
    void releaseShared(const Row &row);
    Positions findMatches(const SearchText::Needle &needle);
    // Whether `test` is true for the number of any shared text of the row.
    template <class Test>
    bool anyShared(const Row &row, Test test) const;

    Foundation::DerivedRows<Row> m_rows;
    SearchForms m_forms;
    SharedSearchForms m_shared;
    SearchForms::Draft m_draft;
    // The last search, as long as no record has changed.
    std::optional<std::string> m_lastSearchForm;
    std::vector<Candidate> m_candidates;
};
