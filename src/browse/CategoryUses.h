#pragma once

#include "lists/ArrayController.h"

#include <unordered_map>

// How many contacts have a category, counted by their references to it: what the user is shown, and what
// decides whether a category may go. The number stored in a category, `cat_howManyUsingThis`, moves by rules
// of its own and is off by some until the document is next decrypted. Counting takes one walk over the
// contacts after any change.
class CategoryUses : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isSelectionUsed READ isSelectionUsed NOTIFY changed)

public:
    // Neither is owned; both outlive this.
    CategoryUses(Foundation::ArrayController &records, Foundation::ArrayController &categories);

    int usesOf(const Foundation::Dictionary &category);
    // Whether any contact has the selected category. False without one.
    bool isSelectionUsed();

Q_SIGNALS:
    void changed();

private:
    void update();

    Foundation::ArrayController &m_records;
    Foundation::ArrayController &m_categories;
    std::unordered_map<const Foundation::RefCounted *, int> m_uses;
    quint64 m_changeStamp = 0; // of the last count; 0 for none
};
