#include "browse/FilteringArrayController.h"

#include "core/RecordModel.h"
#include "foundation/Services.h"

using Foundation::Value;

FilteringArrayController::FilteringArrayController(BrowseHost &host,
                                                   VLColoredCategoryArrayController &categories,
                                                   QObject *parent)
    : ArrayController(parent)
    , m_host(host)
    , m_categories(categories)
{
}

void FilteringArrayController::moveUses(const Object &category, qint32 amount)
{
    const qint32 uses = category->value(CategoryKey::cat_howManyUsingThis).intValue();
    // Wraps rather than overflows: a damaged file may hold any number.
    category->setValue(CategoryKey::cat_howManyUsingThis, Value(qint32(quint32(uses) + quint32(amount))));
}

FilteringArrayController::Object FilteringArrayController::newObject()
{
    const Object category = catToAssignToNewObject();
    if (!category)
        return nullptr;
    moveUses(category, 1);
    return newContactRecord(category, Foundation::Services::shared().clock().secondsSince2001());
}

FilteringArrayController::Object FilteringArrayController::catToAssignToNewObject() const
{
    if (canRemove() && m_categories.canRemove()) {
        if (const Object category = selectedObjects().back()->value(RecordKey::categoryPtr).dictionary())
            return category;
    }
    return m_categories.getLastCategory();
}

void FilteringArrayController::removeObject(const Object &record)
{
    if (arrangedIndexOf(record) < 0)
        return;
    if (const Object category = record->value(RecordKey::categoryPtr).dictionary())
        moveUses(category, -1);
    ArrayController::removeObject(record);
}

bool FilteringArrayController::removeRecordFromCategory(const Object &record)
{
    const Object category = record->value(RecordKey::categoryPtr).dictionary();
    if (!category || m_categories.arrangedIndexOf(category) < 0)
        return false;
    moveUses(category, -1);
    return true;
}

bool FilteringArrayController::assignCategory(const Object &category, const Object &record)
{
    const Object former = record->value(RecordKey::categoryPtr).dictionary();
    if (former == category)
        return false;
    if (former)
        removeRecordFromCategory(record);
    const Object assigned = category ? category : catToAssignToNewObject();
    if (!assigned)
        return false;
    record->setValue(RecordKey::categoryPtr, assigned);
    moveUses(assigned, 1);
    noteChange(record);
    return true;
}

void FilteringArrayController::setCurrentObjectAccordingToCategory(const Object &category)
{
    if (selectionIndex() >= 0)
        assignCategory(category, arrangedObjects()[std::size_t(selectionIndex())]);
}

void FilteringArrayController::controlTextDidChange()
{
    m_host.updateChangeCount(0);
}
