#pragma once

#include "foundation/ReadBudget.h"
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
// without bound (a list of two references to a list of two references and so on, or many records of one long
// text): somebody after the reader walks over what was read, copies records and looks into every text, and
// destroying it recurses.
class ObjectMemo
{
public:
    static constexpr int DeepestNesting = 512;
    // Values met, expanded. Honest files have less than one value a byte.
    static constexpr quint64 FreeValues = 1'000'000;
    static constexpr quint64 ValuesPerByte = 4;
    // What may be met again, in bytes of memory: as much as the file is long, and this.
    static constexpr quint64 FreeRepeatedBytes = quint64(256) << 20;

    // What was met so far, or what an object expands to, itself included.
    struct Extent
    {
        quint64 values = 0;
        quint64 bytes = 0;
    };

    ObjectMemo(quint64 slotCount, quint64 byteCount)
        : m_slots(slotCount, Unknown)
        , m_mostValues(FreeValues + ValuesPerByte * byteCount)
        , m_mostRepeatedBytes(FreeRepeatedBytes + byteCount)
    {
    }

    // Counts one more value. False when there are too many.
    [[nodiscard]] bool count() noexcept
    {
        m_met.bytes += ReadBudget::DictionaryEntry;
        return ++m_met.values <= m_mostValues;
    }

    // The value that was remembered, or null. What it expands to counts again: ask isWithinBounds().
    const Value *find(quint64 slot) noexcept
    {
        const quint32 place = m_slots[slot];
        if (place < FirstMade)
            return nullptr;
        const Made &made = m_made[place - FirstMade];
        m_met.values += made.extent.values;
        m_met.bytes += made.extent.bytes;
        m_repeatedBytes += made.extent.bytes;
        noteHeight(made.height);
        return &made.value;
    }
    [[nodiscard]] bool isWithinBounds() const noexcept
    {
        return m_met.values <= m_mostValues && m_repeatedBytes <= m_mostRepeatedBytes &&
               m_depth + m_heights[std::size_t(m_depth)] <= DeepestNesting;
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
    // `atOpening`: what met() gave before.
    void close(quint64 slot, const Value &value, const Extent &atOpening)
    {
        const int height = m_heights[std::size_t(m_depth--)] + 1;
        noteHeight(height);
        m_met.bytes += ReadBudget::Container;
        const Extent extent{m_met.values - atOpening.values, m_met.bytes - atOpening.bytes};
        remember(slot, {value, extent, height});
    }
    // Of a value just counted.
    void rememberScalar(quint64 slot, const Value &value)
    {
        const auto content = quint64(value.contentBytes());
        m_met.bytes += content;
        remember(slot, {value, {1, ReadBudget::DictionaryEntry + content}, 0});
    }
    const Extent &met() const noexcept { return m_met; }

private:
    struct Made
    {
        Value value;
        Extent extent;
        int height; // levels of containers, itself included
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
    Extent m_met;
    quint64 m_mostValues;
    quint64 m_repeatedBytes = 0;
    quint64 m_mostRepeatedBytes;
    int m_depth = 0;
    std::array<int, DeepestNesting + 1> m_heights =
        {}; // by depth: the tallest content so far of what is open there
};

} // namespace Foundation
