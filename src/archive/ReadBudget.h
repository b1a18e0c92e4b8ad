#pragma once

#include <QtGlobal>

#include <algorithm>

namespace Foundation
{

// Limits the memory and time of a reader of a property list by the size of the file. Without it, a small
// hostile file could need much memory by referring to the same bytes many times, or by objects that take much
// more memory than bytes of the file.
//
// The unit is about one byte of memory of the result. Reading without a result is charged in the same way,
// which bounds the time. A small file may cost many times its size, because its references have one byte; a
// large file has wide references and may not. So no file takes more than 1 GiB beyond its own size, unless it
// has more than about 150 MB, when legitimate content takes more.
class ReadBudget
{
public:
    // One reference, and the value in a list that it becomes.
    static constexpr quint64 Reference = 16;
    static constexpr quint64 Slot = 4; // what a reader remembers of each object
    static constexpr quint64 DictionaryEntry = 24;
    static constexpr quint64 IndexedEntry = 48; // added to DictionaryEntry beyond Dictionary::IndexThreshold
    static constexpr quint64 KeyName = 220;     // including its entries in tables; its text is added
    static constexpr quint64 Container = 160;
    static constexpr quint64 SharedScalar = 96; // the bytes of its text or data are added

    explicit ReadBudget(quint64 byteCount)
        : m_left(
              std::min(FreeForSmall + PerByteOfSmall * byteCount, FreeForLarge + PerByteOfLarge * byteCount))
    {
    }

    // Must be called before the cost arises. Returns false if the budget does not suffice; the budget is then
    // spent.
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
