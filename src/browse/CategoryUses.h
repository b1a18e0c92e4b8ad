#pragma once

#include "lists/ArrayController.h"

#include <unordered_map>

// Counts how many contacts refer to a category. The user sees this number, and it decides whether a category
// may be removed. It differs from the stored number `cat_howManyUsingThis`, which changes by prescribed rules
// and is exact only after deciphering. After any change, the next question takes one pass over all contacts.
class CategoryUses : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isSelectionUsed READ isSelectionUsed NOTIFY changed)

public:
    // The arguments are not owned and must outlive this object.
    CategoryUses(Foundation::ArrayController &records, Foundation::ArrayController &categories);

    int usesOf(const Foundation::Dictionary &category);
    // Whether any contact has the first selected category. False if none is selected.
    bool isSelectionUsed();

Q_SIGNALS:
    void changed();

private:
    void update();

    Foundation::ArrayController &m_records;
    Foundation::ArrayController &m_categories;
    std::unordered_map<const Foundation::RefCounted *, int> m_uses;
    quint64 m_changeStamp = 0; // of the last count; 0 forces a new count
};
