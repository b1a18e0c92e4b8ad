#pragma once

#include "browse/SearchForms.h"

#include <unordered_map>

// The search forms of long texts that several records share, once for each text, however many records there
// are. Keeps a text alive as long as it is used, so that its address stands for it.
class SharedSearchForms
{
public:
    // Whether that is worth it.
    static bool takes(const Foundation::Value &value);

    // The number of a value that is taken, which counts as used once more.
    quint32 use(const Foundation::Value &value, const Foundation::TextView &text);
    // Counts it as used once less.
    void release(quint32 number);
    void clear();

    // Before mayMatch() and isMatch(). Looks only at what could match before if the needle only grew.
    void search(const SearchText::Needle &needle, bool onlyGrew);
    // The needle's search form lies in that of the text.
    bool mayMatch(quint32 number) const { return m_texts[number].occurrence < m_texts[number].row.length; }
    bool isMatch(quint32 number) const { return m_texts[number].isMatch; }

    std::size_t bytesUsed() const;

private:
    struct SharedText
    {
        Foundation::Value value;
        SearchForms forms; // of this text alone, so that it goes with it
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
