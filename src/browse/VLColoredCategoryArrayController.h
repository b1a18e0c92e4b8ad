#pragma once

#include "browse/VLCategoryArrayController.h"

// The categories of one document: makes new ones with a free name and a free id, and keeps the count of
// records that use each. Ids are positive; 0 stands for a missing one. Names need not be unique.
//
// The counts are exact only after a decryption, which counts anew; in between they move as the operations
// that touch them tell, drift included.
class VLColoredCategoryArrayController : public VLCategoryArrayController
{
    Q_OBJECT

public:
    using VLCategoryArrayController::VLCategoryArrayController;

    // A category named "Generic" or the like, in mid grey, not yet in the list.
    Object newObject() override;
    // Both give back what they have put into the list.
    Object addDefault(const Foundation::ActionSender &sender);
    Object addWithName(const QString &name);

    // The first category with exactly that name, or null.
    Object categoryWithTitle(const QString &title) const;
    bool testForNewUniqueID(qint64 uniqueID) const;
    // The smallest positive id that no category has: ids of removed categories are given again.
    qint64 newUniqueID() const;
    // The first category with that id, or null.
    Object getCategoryWithUniqueID(qint64 uniqueID) const;

    // Both move the count of uses; false, and nothing moves, for a category that is not in the list, or the
    // id 0.
    bool incrementObj(const Object &category, qint64 by);
    bool incrementObjUsingThisInCategoryWithUniqueID(qint64 uniqueID, qint64 by) const;

    // For categories read from old files, which are not in the list: see adjustCategoriesFromOldRelease and
    // adjustCategoriesFromAncientRelease. The second gives an empty array a new category first.
    void adjustFromOldRelease(Foundation::Array &categories);
    void adjustFromAncientRelease(Foundation::Array &categories);
};
