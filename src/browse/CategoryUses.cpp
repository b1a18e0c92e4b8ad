#include "browse/CategoryUses.h"

#include "core/RecordModel.h"

using Foundation::ArrayController;
using Foundation::Dictionary;

CategoryUses::CategoryUses(ArrayController &records, ArrayController &categories)
    : m_records(records)
    , m_categories(categories)
{
    connect(&records, &ArrayController::arrangedObjectsChanged, this, [this] {
        m_changeStamp = 0; // Adding or removing records changes the stamp of no dictionary.
        Q_EMIT changed();
    });
    connect(&categories, &ArrayController::selectionChanged, this, &CategoryUses::changed);
}

void CategoryUses::update()
{
    if (m_changeStamp == Dictionary::lastChangeStamp())
        return;
    m_changeStamp = Dictionary::lastChangeStamp();
    m_uses.clear();
    for (const auto &record : m_records.contentObjects())
        ++m_uses[record->value(RecordKey::categoryPtr).dictionary().get()];
}

int CategoryUses::usesOf(const Dictionary &category)
{
    update();
    const auto found = m_uses.find(&category);
    return found == m_uses.end() ? 0 : found->second;
}

bool CategoryUses::isSelectionUsed()
{
    return m_categories.canRemove() && usesOf(*m_categories.selectedObjects().front()) > 0;
}
