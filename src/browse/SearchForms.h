#pragma once

#include "browse/SearchText.h"

// The search forms of many rows of texts in one piece of memory, which a search goes through at the speed of
// memory. A row consists of the forms of some texts, each followed by the byte 0xFF, then its length changes,
// and at the end the numbers that its owner keeps with it.
class SearchForms
{
public:
    struct Row
    {
        std::size_t begin = 0;
        std::size_t length = 0; // of the forms
        std::size_t capacity = 0;
        quint32 changeCount = 0;
        quint8 numberCount = 0;
        SearchText::Shape shape = SearchText::Shape::Plain; // the more difficult of its texts'
    };
    // A row while it is made. Kept from one to the next for its memory.
    class Draft
    {
    public:
        void clear();
        void append(const Foundation::TextView &text);
        // At most 255.
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
    // Half of the memory belongs to rows that are no more.
    bool isMostlyUnused() const { return m_unusedBytes > m_bytes.size() / 2; }

    // Fills a new row, or puts what it holds into the place of a former one.
    void store(const Draft &draft, Row &row);
    void drop(const Row &row) { m_unusedBytes += row.capacity; }

    quint32 number(const Row &row, int index) const;
    // Reads ahead what a search from there on will read.
    void prefetch(const Row &row, std::size_t from) const
    {
        __builtin_prefetch(m_bytes.data() + row.begin + from);
    }
    // The first place in the row's forms, not before `from`, where the bytes stand; row.length if there is
    // none.
    std::size_t find(const Row &row, std::size_t from, const std::string &searchForm) const;
    // Whether a text of the row matches, `occurrence` being what find() found.
    bool isMatch(const Row &row, std::size_t occurrence, const SearchText::Needle &needle) const;

private:
    std::string m_bytes;
    std::size_t m_unusedBytes = 0;
};
