#pragma once

#include "archive/LargeArray.h"
#include "values/Value.h"

#include <algorithm>
#include <array>

namespace Foundation
{

// Remembers the objects that a reader of a binary property list has read, and decides what the reader must
// refuse. The reader assigns each object a slot, a number below `slotCount`. `Content` is what the reader
// makes of an object.
//
// Shared objects are made once and stay shared. A reader must refuse objects that contain themselves, nesting
// deeper than DeepestNesting (also when it results from objects that were read separately), and shared
// containers that expand without bound (a list of two references to a list of two references and so on). The
// reasons: destroying a value recurses, and code that walks over the values would never end.
//
// Scalars may be shared by any number of containers, and so may the values of records, which are the entries
// of a list of dictionaries: records that are copies of each other are legitimate. The limit does not depend
// on the size of the file. Otherwise a document could be refused after an edit that only made it smaller.
template <class Content>
class ObjectMemo
{
public:
    static constexpr int DeepestNesting = 512;
    // How many values the repeated references to containers may expand to.
    static constexpr quint64 MostRepeatedValues = 1'000'000;
    // The depth of the values of a record: inside the list and the record.
    static constexpr int DepthOfRecordValues = 2;

    explicit ObjectMemo(quint64 slotCount)
        : m_slots(slotCount)
    {
    }

    // Returns the content of the slot, or null if none is remembered. A reference to a container is charged
    // again, so the caller must then check isWithinBounds().
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

    // Counts a value that is read for the first time. Returns the argument `valuesBefore` of close().
    quint64 count() noexcept { return m_values++; }
    // open() and close() enclose the reading of a container. open() returns false if the container is being
    // read already or is nested too deep.
    [[nodiscard]] bool open(quint64 slot) noexcept
    {
        if (m_slots[slot] == Open || m_depth >= DeepestNesting)
            return false;
        m_slots[slot] = Open;
        m_heights[std::size_t(++m_depth)] = 0;
        return true;
    }
    // `valuesBefore` is the result of count() for this container.
    void close(quint64 slot, const Content &content, quint64 valuesBefore)
    {
        const int height = m_heights[std::size_t(m_depth--)] + 1;
        noteHeight(height);
        remember(slot, {content, m_values - valuesBefore, height});
    }
    void rememberScalar(quint64 slot, const Content &content) { remember(slot, {content, 1, 0}); }
    // For a reader that only needs to know that a scalar was read.
    void markScalar(quint64 slot) noexcept { m_slots[slot] = MetScalar; }
    bool isMarkedScalar(quint64 slot) const noexcept { return m_slots[slot] == MetScalar; }

private:
    struct Made
    {
        Content content;
        quint64 values; // number of values that it expands to, including itself
        int height;     // levels of containers, including itself
    };
    static constexpr quint32 Open = 1; // 0 means that nothing is known of the slot.
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
    quint64 m_values = 0; // number of values read so far, expanded
    quint64 m_repeatedValues = 0;
    int m_depth = 0;
    // By depth: the greatest height so far of the content of the container that is open there.
    std::array<int, DeepestNesting + 1> m_heights = {};
};

} // namespace Foundation
