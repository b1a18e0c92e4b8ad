#pragma once

#include "browse/SearchForms.h"

#include <unordered_map>

// The search forms of long texts that several records share: one form for each text. Keeps a text alive as
// long as it is in use, so that its address identifies it.
class SharedSearchForms
{
public:
    // Whether a value is shared and long enough to be stored here.
    static bool takes(const Foundation::Value &value);

    // Returns the number of a value for which takes() is true, and increases its count of uses.
    quint32 use(const Foundation::Value &value, const Foundation::TextView &text);
    // Decreases the count of uses. At 0 the number is free.
    void release(quint32 number);
    void clear();

    // Must be called before mayMatch() and isMatch(). `onlyGrew` says that the needle begins with the
    // previous one; only former candidates are examined then.
    void search(const SearchText::Needle &needle, bool onlyGrew);
    // Whether the search form of the text contains that of the needle.
    bool mayMatch(quint32 number) const { return m_texts[number].occurrence < m_texts[number].row.length; }
    bool isMatch(quint32 number) const { return m_texts[number].isMatch; }

    std::size_t bytesUsed() const;

private:
    struct SharedText
    {
        Foundation::Value value;
        SearchForms forms; // for this text alone, so that its memory is released with it
        SearchForms::Row row;
        std::size_t uses = 0;
        std::size_t occurrence = 0;
        bool isMatch = false;
    };

    std::vector<SharedText> m_texts;
    std::vector<quint32> m_free;
    std::unordered_map<const Foundation::RefCounted *, quint32> m_numbers;
    SearchForms::Draft m_draft;
};
