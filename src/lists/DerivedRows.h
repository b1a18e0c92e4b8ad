#pragma once

#include "values/Dictionary.h"

#include <unordered_map>
#include <vector>

namespace Foundation
{

// What was worked out of each dictionary of a list, one row for each, kept in step with the list and with
// every change in the dictionaries themselves. What a row takes from further dictionaries is its owner's
// business.
//
// Bringing it in step costs next to nothing as long as no dictionary has changed anywhere, one look at each
// of the list after a change, and otherwise the work on the rows concerned. Holds no references: objects are
// looked at only while they stand in the list given.
template <class Row>
class DerivedRows
{
public:
    using Objects = std::vector<Ref<Dictionary>>;

    enum class Outcome {
        Unchanged,
        RowsChanged,   // by changes in the objects, or by objects that came or went
        ListReordered, // objects that stayed stand in another order
    };

    // Calls `make(object, row)` for each object that is new, with a fresh row, or has changed, with its
    // former row, and `drop(row)` for the rows of those that have gone.
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

    // In the order of the list given last.
    const std::vector<Row> &rows() const { return m_rows; }
    std::vector<Row> &rows() { return m_rows; }

    void clear()
    {
        m_origins.clear();
        m_rows.clear();
    }

private:
    // No change bears this number, so that a row under it is made at the next look.
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
        std::size_t kept = 0; // Most lists differ in one place: what stands before it stays where it is.
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
