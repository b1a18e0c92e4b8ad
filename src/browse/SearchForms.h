#pragma once

#include "browse/SearchText.h"

// The search forms of many rows of texts in one piece of memory, so that a search reads memory sequentially.
// A row consists of the forms of its texts, each followed by the byte 0xFF, then of its length changes, and
// at the end of numbers that its owner stores with it.
class SearchForms
{
public:
    struct Row
    {
        std::size_t begin = 0;
        std::size_t length = 0; // of the forms, in bytes
        std::size_t capacity = 0;
        quint32 changeCount = 0;
        quint8 numberCount = 0;
        SearchText::Shape shape = SearchText::Shape::Plain; // Marked if any text of the row is
    };
    // A row that is being built. Reuse one draft for many rows, to reuse its memory.
    class Draft
    {
    public:
        void clear();
        void append(const Foundation::TextView &text);
        // A row may have at most 255 numbers.
        void appendNumber(quint32 number) { m_numbers.push_back(number); }

    private:
        friend class SearchForms;
        std::string m_forms;
        std::vector<SearchText::LengthChange> m_changes;
        std::vector<quint32> m_numbers;
        SearchText::Shape m_shape = SearchText::Shape::Plain;
    };

    // Forgets all rows.
    void clear();
    void reserve(std::size_t bytes) { m_bytes.reserve(bytes); }
    std::size_t size() const { return m_bytes.size(); }
    std::size_t capacity() const { return m_bytes.capacity(); }
    // True if more than half of the memory belongs to removed rows.
    bool isMostlyUnused() const { return m_unusedBytes > m_bytes.size() / 2; }

    // Stores the draft as a new row (default-constructed), or replaces the content of a stored row.
    void store(const Draft &draft, Row &row);
    void drop(const Row &row) { m_unusedBytes += row.capacity; }

    quint32 number(const Row &row, int index) const;
    // The offset in the row of the first occurrence of `searchForm` that is not before `from`; row.length if
    // there is none.
    std::size_t find(const Row &row, std::size_t from, const std::string &searchForm) const;
    // Whether a text of the row matches. `occurrence` must be the result of find() for this needle.
    bool isMatch(const Row &row, std::size_t occurrence, const SearchText::Needle &needle) const;

private:
    std::string m_bytes;
    std::size_t m_unusedBytes = 0;
};
