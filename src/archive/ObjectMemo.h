#pragma once

#include "archive/LargeArray.h"
#include "values/Value.h"

#include <algorithm>
#include <array>

namespace Foundation
{

// What a reader of a binary property list remembers of the objects already read, and what it refuses. The
// reader gives each object a slot, a number below the count of slots. `Content` is what the reader makes of
// an object.
//
// Shared objects are made once and stay shared. Refused are objects that contain themselves, nesting beyond
// any use, also where it comes together from objects that were read apart, and containers whose sharing would
// expand without bound (a list of two references to a list of two references and so on): destroying what was
// read recurses, and a walk over it would never end.
//
// Texts and other scalars may be shared by any number of containers, and so may what the entries of a list
// of dictionaries hold: a document whose records are copies of each other, or were all given one text, is
// honest. The limit is the same for every file, so that a file which became shorter is never refused for what
// the longer one held.
template <class Content>
class ObjectMemo
{
public:
    static constexpr int DeepestNesting = 512;
    // What containers that are met again may expand to, in values.
    static constexpr quint64 MostRepeatedValues = 1'000'000;
    // Where the values of a record stand: below a list and the record itself.
    static constexpr int DepthOfRecordValues = 2;

    explicit ObjectMemo(quint64 slotCount)
        : m_slots(slotCount)
    {
    }

    // What was remembered, or null. To be followed by isWithinBounds(), as what it expands to counts again.
    const Content *find(quint64 slot) noexcept
    {
        const quint32 place = m_slots[slot];
        if (place < FirstMade)
            return nullptr;
        const Made &made = m_made[place - FirstMade];
        m_values += made.values;
        if (made.height > 0 && m_depth != DepthOfRecordValues)
            m_repeatedValues += made.values;
        noteHeight(made.height);
        return &made.content;
    }
    [[nodiscard]] bool isWithinBounds() const noexcept
    {
        return m_repeatedValues <= MostRepeatedValues &&
               m_depth + m_heights[std::size_t(m_depth)] <= DeepestNesting;
    }

    // Counts a value that is read for the first time. Gives what close() asks for.
    quint64 count() noexcept { return m_values++; }
    // Around the reading of a container. False: it is being read already, or nested too deep.
    [[nodiscard]] bool open(quint64 slot) noexcept
    {
        if (m_slots[slot] == Open || m_depth >= DeepestNesting)
            return false;
        m_slots[slot] = Open;
        m_heights[std::size_t(++m_depth)] = 0;
        return true;
    }
    // `valuesBefore`: what count() gave.
    void close(quint64 slot, const Content &content, quint64 valuesBefore)
    {
        const int height = m_heights[std::size_t(m_depth--)] + 1;
        noteHeight(height);
        remember(slot, {content, m_values - valuesBefore, height});
    }
    void rememberScalar(quint64 slot, const Content &content) { remember(slot, {content, 1, 0}); }
    // For a reader that needs no more than to know that a scalar was met.
    void markScalar(quint64 slot) noexcept { m_slots[slot] = MetScalar; }
    bool isMarkedScalar(quint64 slot) const noexcept { return m_slots[slot] == MetScalar; }

private:
    struct Made
    {
        Content content;
        quint64 values; // that it expands to, itself included
        int height;     // levels of containers, itself included
    };
    static constexpr quint32 Open = 1; // 0 is a slot of which nothing is known.
    static constexpr quint32 MetScalar = 2;
    static constexpr quint32 FirstMade = 3;

    void noteHeight(int height) noexcept
    {
        int &tallest = m_heights[std::size_t(m_depth)];
        tallest = std::max(tallest, height);
    }
    void remember(quint64 slot, Made &&made)
    {
        m_slots[slot] = quint32(m_made.size()) + FirstMade;
        m_made.push_back(std::move(made));
    }

    LargeArray<quint32> m_slots;
    LargeVector<Made> m_made;
    quint64 m_values = 0; // met so far, expanded
    quint64 m_repeatedValues = 0;
    int m_depth = 0;
    std::array<int, DeepestNesting + 1> m_heights =
        {}; // by depth: the tallest content so far of what is open there
};

} // namespace Foundation
