#pragma once

#include <QtGlobal>

#include <algorithm>

namespace Foundation
{

// What a reader of a property list may take, measured by the size of the file, so that a small hostile file
// cannot ask for much: by naming the same bytes over and over, or by objects that cost far more than they
// weigh.
//
// Counted are bytes of memory, about as many as what is read will occupy; reading that leaves nothing behind
// is counted as if it did, which bounds the time as well. A small file may cost many times its size, as
// references of one byte honestly do; a large one may not, as its references are wide. So no file takes more
// than a GiB beyond its own size, until it is so large (some 150 MB) that honest contents do.
class ReadBudget
{
public:
    // Of one read reference, and of the value in a list that it becomes.
    static constexpr quint64 Reference = 16;
    static constexpr quint64 Slot = 4; // of what a reader remembers of each object
    static constexpr quint64 DictionaryEntry = 24;
    static constexpr quint64 IndexedEntry = 48; // comes on top beyond the threshold of dictionaries
    static constexpr quint64 KeyName = 220;     // with the tables that hold it; its text comes on top
    static constexpr quint64 Container = 160;
    static constexpr quint64 SharedScalar = 96; // its text or data comes on top

    explicit ReadBudget(quint64 byteCount)
        : m_left(
              std::min(FreeForSmall + PerByteOfSmall * byteCount, FreeForLarge + PerByteOfLarge * byteCount))
    {
    }

    // To be asked before the cost arises. False when the budget does not reach.
    [[nodiscard]] bool spend(quint64 cost) noexcept
    {
        const bool isEnough = cost <= m_left;
        m_left -= std::min(cost, m_left);
        return isEnough;
    }

private:
    static constexpr quint64 FreeForSmall = quint64(64) << 20;
    static constexpr quint64 PerByteOfSmall = 24;
    static constexpr quint64 FreeForLarge = quint64(600) << 20;
    static constexpr quint64 PerByteOfLarge = 4;

    quint64 m_left;
};

} // namespace Foundation
