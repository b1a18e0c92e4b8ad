#pragma once

#include "values/Dictionary.h"

#include <unordered_map>
#include <vector>

namespace Foundation
{

// Data derived from the dictionaries of a list: one row for each dictionary, kept up to date with the list
// and with changes of the dictionaries. If a row depends on other dictionaries too, the owner must take care
// of their changes.
//
// An update compares the list by pointers; after a change of any dictionary it also compares the stamp of
// each dictionary of the list; and it makes only the rows that changed. No references are kept: objects are
// used only while they are in the given list.
template <class Row>
class DerivedRows
{
public:
    using Objects = std::vector<Ref<Dictionary>>;

    enum class Outcome {
        Unchanged,
        RowsChanged,   // objects changed, were added or were removed
        ListReordered, // objects that stayed have another order
    };

    // Calls `make(object, row)` for each new object, with a default-constructed row, and for each changed
    // object, with its former row. Calls `drop(row)` for the row of each removed object.
    template <class Make, class Drop>
    Outcome update(const Objects &objects, Make make, Drop drop)
    {
        const bool isSameList = standsForList(objects);
        if (isSameList && m_lastChangeStamp == Dictionary::lastChangeStamp())
            return Outcome::Unchanged;
        m_lastChangeStamp = Dictionary::lastChangeStamp();
        Outcome outcome = isSameList ? Outcome::Unchanged : takeOver(objects, drop);
        for (std::size_t i = 0; i < objects.size(); ++i) {
            const quint64 stamp = objects[i]->changeStamp();
            if (m_origins[i].changeStamp == stamp)
                continue;
            m_origins[i].changeStamp = stamp;
            make(*objects[i], m_rows[i]);
            if (outcome == Outcome::Unchanged)
                outcome = Outcome::RowsChanged;
        }
        return outcome;
    }

    // The rows, in the order of the last list.
    const std::vector<Row> &rows() const { return m_rows; }
    std::vector<Row> &rows() { return m_rows; }

    void clear()
    {
        m_origins.clear();
        m_rows.clear();
    }

private:
    // No change has this number, so that a row with it is made at the next update.
    static constexpr quint64 NeverMade = quint64(-1);

    struct Origin
    {
        const Dictionary *object;
        quint64 changeStamp;
    };

    bool standsForList(const Objects &objects) const
    {
        if (m_origins.size() != objects.size())
            return false;
        for (std::size_t i = 0; i < objects.size(); ++i) {
            if (m_origins[i].object != objects[i].get())
                return false;
        }
        return true;
    }

    template <class Drop>
    Outcome takeOver(const Objects &objects, Drop drop)
    {
        std::size_t kept = 0; // Most lists differ at one position; the rows before it are kept.
        while (kept < objects.size() && kept < m_origins.size() &&
               m_origins[kept].object == objects[kept].get())
            ++kept;
        const auto firstDifferent = std::ptrdiff_t(kept);
        std::vector<Origin> formerOrigins(m_origins.begin() + firstDifferent, m_origins.end());
        std::vector<Row> formerRows(std::make_move_iterator(m_rows.begin() + firstDifferent),
                                    std::make_move_iterator(m_rows.end()));
        std::unordered_map<const Dictionary *, std::size_t> formerPlaces;
        for (std::size_t i = 0; i < formerOrigins.size(); ++i)
            formerPlaces.emplace(formerOrigins[i].object, i);
        m_origins.resize(kept);
        m_rows.erase(m_rows.begin() + firstDifferent, m_rows.end());
        Outcome outcome = Outcome::RowsChanged;
        std::size_t lastPlace = 0;
        for (std::size_t i = kept; i < objects.size(); ++i) {
            const auto former = formerPlaces.find(objects[i].get());
            if (former == formerPlaces.end()) {
                m_origins.push_back({objects[i].get(), NeverMade});
                m_rows.emplace_back();
                continue;
            }
            if (former->second < lastPlace)
                outcome = Outcome::ListReordered;
            lastPlace = former->second;
            m_origins.push_back(formerOrigins[lastPlace]);
            m_rows.push_back(std::move(formerRows[lastPlace]));
            formerPlaces.erase(former);
        }
        for (const auto &former : formerPlaces)
            drop(formerRows[former.second]);
        return outcome;
    }

    std::vector<Origin> m_origins;
    std::vector<Row> m_rows;
    quint64 m_lastChangeStamp = NeverMade;
};

} // namespace Foundation
