#include "browse/VLColoredCategoryArrayController.h"

#include "core/RecordModel.h"
#include "core/ReleaseMigration.h"

#include <unordered_set>

using Foundation::Value;

VLColoredCategoryArrayController::Object VLColoredCategoryArrayController::newObject()
{
    return newCategoryRecord(unusedCategoryNameWithPostfix(QStringLiteral("Generic")), newUniqueID());
}

VLColoredCategoryArrayController::Object
VLColoredCategoryArrayController::addDefault(const Foundation::ActionSender &)
{
    Object category = newObject();
    addObject(category);
    return category;
}

VLColoredCategoryArrayController::Object VLColoredCategoryArrayController::addWithName(const QString &name)
{
    Object category = newObject();
    category->setValue(CategoryKey::cat_category, name);
    addObject(category);
    return category;
}

VLColoredCategoryArrayController::Object
VLColoredCategoryArrayController::categoryWithTitle(const QString &title) const
{
    const Value wanted(title);
    for (const Value &row : content()->values) {
        Object category = row.dictionary();
        if (category && category->value(CategoryKey::cat_category) == wanted)
            return category;
    }
    return nullptr;
}

bool VLColoredCategoryArrayController::testForNewUniqueID(qint64 uniqueID) const
{
    return getCategoryWithUniqueID(uniqueID) == nullptr;
}

qint64 VLColoredCategoryArrayController::newUniqueID() const
{
    std::unordered_set<qint64> used;
    for (const Value &row : content()->values) {
        if (const Object category = row.dictionary())
            used.insert(category->value(CategoryKey::cat_uniqueID).longValue());
    }
    qint64 uniqueID = 1;
    while (used.contains(uniqueID))
        ++uniqueID;
    return uniqueID;
}

VLColoredCategoryArrayController::Object
VLColoredCategoryArrayController::getCategoryWithUniqueID(qint64 uniqueID) const
{
    for (const Value &row : content()->values) {
        Object category = row.dictionary();
        if (category && category->value(CategoryKey::cat_uniqueID).longValue() == uniqueID)
            return category;
    }
    return nullptr;
}

bool VLColoredCategoryArrayController::incrementObj(const Object &category, qint64 by)
{
    if (arrangedIndexOf(category) < 0)
        return false;
    const qint64 uses = category->value(CategoryKey::cat_howManyUsingThis).longValue();
    category->setValue(CategoryKey::cat_howManyUsingThis, Value(uses + by));
    return true;
}

bool VLColoredCategoryArrayController::incrementObjUsingThisInCategoryWithUniqueID(qint64 uniqueID,
                                                                                   qint64 by) const
{
    const Object category = uniqueID == 0 ? nullptr : getCategoryWithUniqueID(uniqueID);
    if (!category)
        return false;
    const qint64 uses = category->value(CategoryKey::cat_howManyUsingThis).longValue();
    category->setValue(CategoryKey::cat_howManyUsingThis, Value(uses + by));
    return true;
}

void VLColoredCategoryArrayController::adjustFromOldRelease(Foundation::Array &categories)
{
    adjustCategoriesFromOldRelease(categories);
}

void VLColoredCategoryArrayController::adjustFromAncientRelease(Foundation::Array &categories)
{
    if (categories.values.empty())
        categories.values.emplace_back(newObject());
    adjustCategoriesFromAncientRelease(categories);
}
