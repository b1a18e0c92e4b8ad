#pragma once

#include "browse/SearchText.h"
#include "foundation/DerivedRows.h"

#include <optional>

// The text search over the records of one list: finds at once which records match, record for record as a
// look into each of their fields would. Keeps the search forms of all fields of all records side by side,
// which takes about as much memory as the texts themselves and 64 bytes a record, and follows every change
// in the records by itself.
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

    struct Row
    {
        std::size_t begin = 0;  // in m_forms
        std::size_t length = 0; // of the record's forms, each with the byte 0xFF behind it
        std::size_t capacity = 0;
        SearchText::Shape shape = SearchText::Shape::Plain; // the most difficult of them
    };
    // A record whose forms hold the needle, and where they do so first.
    struct Candidate
    {
        quint32 position;
        std::size_t firstOccurrence;
    };

    void makeRow(const Dictionary &record, Row &row);
    void makeAllRows(const Objects &records);
    void dropRow(const Row &row);
    void findCandidates(const std::string &searchForm);
    bool isMatch(const Candidate &candidate, const Dictionary &record,
                 const SearchText::Needle &needle) const;

    Foundation::DerivedRows<Row> m_rows;
    // The forms of all records, with room behind that may be read.
    std::string m_forms;
    std::size_t m_unusedBytes = 0;
    // A record's forms while they are made.
    std::string m_scratch;
    // Of the last search, as long as no record has changed.
    std::optional<std::string> m_lastSearchForm;
    std::vector<Candidate> m_candidates;
};
