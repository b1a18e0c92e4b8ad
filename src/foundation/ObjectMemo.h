#pragma once

#include "foundation/Value.h"

#include <algorithm>
#include <array>
#include <vector>

namespace Foundation
{

// What a reader of a binary property list remembers of the objects already read, and what it refuses. The
// reader gives each object a slot, a number below the count of slots.
//
// Shared objects are made once and stay shared. Refused are objects that contain themselves, nesting beyond
// any use, also where it comes together from objects that were read apart, and sharing that would expand
// without bound (a list of two references to a list of two references and so on): somebody after the reader
// walks over what was read, and destroying it recurses.
class ObjectMemo
{
public:
    static constexpr int DeepestNesting = 512;
    // Values met, expanded. Honest files have less than one value a byte.
    static constexpr quint64 FreeValues = 1'000'000;
    static constexpr quint64 ValuesPerByte = 4;

    ObjectMemo(quint64 slotCount, quint64 byteCount)
        : m_slots(slotCount, Unknown)
        , m_largestSize(FreeValues + ValuesPerByte * byteCount)
    {
    }

    // Counts one more value. False when there are too many.
    [[nodiscard]] bool count() noexcept { return ++m_size <= m_largestSize; }

    // The value that was remembered, or null. What it expands to counts again: ask isWithinBounds().
    const Value *find(quint64 slot) noexcept
    {
        const quint32 place = m_slots[slot];
        if (place < FirstMade)
            return nullptr;
        const Made &made = m_made[place - FirstMade];
        m_size += made.weight;
        noteHeight(made.height);
        return &made.value;
    }
    [[nodiscard]] bool isWithinBounds() const noexcept
    {
        return m_size <= m_largestSize && m_depth + m_heights[std::size_t(m_depth)] <= DeepestNesting;
    }

    // Around the reading of a container. False: it is being read already, or nested too deep.
    [[nodiscard]] bool open(quint64 slot) noexcept
    {
        if (m_slots[slot] == Open || m_depth >= DeepestNesting)
            return false;
        m_slots[slot] = Open;
        m_heights[std::size_t(++m_depth)] = 0;
        return true;
    }
    // `sizeAtOpening`: what size() gave before.
    void close(quint64 slot, const Value &value, quint64 sizeAtOpening)
    {
        const int height = m_heights[std::size_t(m_depth--)] + 1;
        noteHeight(height);
        remember(slot, {value, m_size - sizeAtOpening, height});
    }
    void rememberScalar(quint64 slot, const Value &value) { remember(slot, {value, 1, 0}); }
    quint64 size() const noexcept { return m_size; }

private:
    struct Made
    {
        Value value;
        quint64 weight; // the values it expands to, itself included
        int height;     // levels of containers, itself included
    };
    static constexpr quint32 Unknown = 0;
    static constexpr quint32 Open = 1;
    static constexpr quint32 FirstMade = 2;

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

    std::vector<quint32> m_slots;
    std::vector<Made> m_made;
    quint64 m_size = 0;
    quint64 m_largestSize;
    int m_depth = 0;
    std::array<int, DeepestNesting + 1> m_heights =
        {}; // by depth: the tallest content so far of what is open there
};

} // namespace Foundation
