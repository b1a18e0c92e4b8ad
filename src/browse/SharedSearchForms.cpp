#include "browse/SharedSearchForms.h"

#include <numeric>

using Foundation::Value;

bool SharedSearchForms::takes(const Value &value)
{
    // For shorter texts the number takes as much memory as the form, and more time.
    constexpr qsizetype ShortestText = 32;
    const Foundation::RefCounted *shared = value.sharedObject();
    return shared && shared->hasSeveralOwners() && (!value.isString() || value.text().size >= ShortestText);
}

quint32 SharedSearchForms::use(const Value &value, const Foundation::TextView &text)
{
    const auto [known, isNew] = m_numbers.try_emplace(value.sharedObject(), quint32(m_texts.size()));
    if (isNew) {
        if (!m_free.empty()) {
            known->second = m_free.back();
            m_free.pop_back();
        } else {
            m_texts.emplace_back();
        }
        SharedText &shared = m_texts[known->second];
        shared.value = value;
        m_draft.clear();
        m_draft.append(text);
        shared.forms.clear();
        shared.forms.store(m_draft, shared.row);
    }
    ++m_texts[known->second].uses;
    return known->second;
}

void SharedSearchForms::release(quint32 number)
{
    SharedText &text = m_texts[number];
    if (--text.uses > 0)
        return;
    m_numbers.erase(text.value.sharedObject());
    text = {};
    m_free.push_back(number);
}

void SharedSearchForms::clear()
{
    m_texts.clear();
    m_free.clear();
    m_numbers.clear();
}

void SharedSearchForms::search(const SearchText::Needle &needle, bool onlyGrew)
{
    for (SharedText &text : m_texts) {
        text.occurrence = text.forms.find(text.row, onlyGrew ? text.occurrence : 0, needle.searchForm);
        text.isMatch = text.forms.isMatch(text.row, text.occurrence, needle);
    }
}

std::size_t SharedSearchForms::bytesUsed() const
{
    return std::accumulate(
        m_texts.begin(), m_texts.end(), m_texts.capacity() * sizeof(SharedText),
        [](std::size_t sum, const SharedText &text) { return sum + text.forms.capacity(); });
}
