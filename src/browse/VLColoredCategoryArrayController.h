#pragma once

#include "browse/VLCategoryArrayController.h"

// The categories of one document. It makes categories with an unused name and id, and adjusts the counts of
// uses. Ids are positive; 0 means that there is none. Names need not be unique.
//
// The counts are exact only after deciphering, which counts again. In between they change by the prescribed
// rules of each operation, and may drift.
class VLColoredCategoryArrayController : public VLCategoryArrayController
{
    Q_OBJECT

public:
    using VLCategoryArrayController::VLCategoryArrayController;

    // A grey category named "Generic", or "Generic" with a number, that is not yet in the list.
    Object newObject() override;
    // Add a new category and return it. Only addDefault() has a caller so far; addWithName() is prescribed.
    Object addDefault(const Foundation::ActionSender &sender);
    Object addWithName(const QString &name);

    // The first category with exactly that name, or null. This and the next operation are prescribed and have
    // no caller yet.
    Object categoryWithTitle(const QString &title) const;
    bool testForNewUniqueID(qint64 uniqueID) const;
    // The smallest positive id that no category has. The id of a removed category is used again.
    qint64 newUniqueID() const;
    // The first category with that id, or null.
    Object getCategoryWithUniqueID(qint64 uniqueID) const;

    // Change the count of uses. Return false and do nothing for a category that is not in the list, and for
    // the id 0. incrementObj() is prescribed and has no caller yet.
    bool incrementObj(const Object &category, qint64 by);
    bool incrementObjUsingThisInCategoryWithUniqueID(qint64 uniqueID, qint64 by) const;

    // See adjustCategoriesFromOldRelease() and adjustCategoriesFromAncientRelease(). The categories need not
    // be in the list. The second operation first adds a new category to an empty array. Prescribed; no caller
    // yet.
    void adjustFromOldRelease(Foundation::Array &categories);
    void adjustFromAncientRelease(Foundation::Array &categories);
};
