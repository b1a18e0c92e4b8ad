#pragma once

#include "browse/SearchForms.h"
#include "browse/SharedSearchForms.h"
#include "lists/DerivedRows.h"

#include <optional>

// The text search over the records of one list: finds at once which records match, record for record as a
// look into each of their fields would. Keeps the search forms of all fields of all records side by side,
// which takes about as much memory as the texts themselves and 64 bytes a record, and follows every change
// in the records by itself. A long text that several records share is kept and looked through once.
//
// While a needle only grows, only the records are looked at that could match before.
class SearchIndex
{
public:
    using Objects = std::vector<Foundation::Ref<Foundation::Dictionary>>;
    using Positions = std::vector<quint32>;

    // The fields that are searched, in the order in which they are looked at.
    static const std::vector<Foundation::Key> &searchedKeys();

    // Does ahead of a search what it would have to do first.
    void prepare(const Objects &records);
    // The places in `records`, ascending, of those in which a text holds `searchString`, which is not empty.
    Positions search(const Objects &records, const QString &searchString);

    // What the search forms take, for measurements.
    std::size_t bytesUsed() const;

private:
    using Dictionary = Foundation::Dictionary;
    // The forms of a record's own texts, with the numbers of its shared ones.
    using Row = SearchForms::Row;

    // A record in which the needle may be found, and where its own forms hold it first.
    struct Candidate
    {
        quint32 position;
        std::size_t firstOccurrence; // the length of the forms if only shared texts hold it
    };

    void makeRow(const Dictionary &record, Row &row);
    void makeAllRows(const Objects &records);
    void dropRow(const Row &row);
    void releaseShared(const Row &row);
    Positions findMatches(const SearchText::Needle &needle);
    // Whether one of the shared texts of a row is what `test` says.
    template <class Test>
    bool anyShared(const Row &row, Test test) const;

    Foundation::DerivedRows<Row> m_rows;
    SearchForms m_forms;
    SharedSearchForms m_shared;
    SearchForms::Draft m_draft;
    // Of the last search, as long as no record has changed.
    std::optional<std::string> m_lastSearchForm;
    std::vector<Candidate> m_candidates;
};
