#include "browse/FilteringArrayController.h"

#include "core/RecordModel.h"
#include "core/ReleaseMigration.h"
#include "platform/Services.h"
#include "values/DisplayText.h"

#include <algorithm>
#include <numeric>

using Foundation::Alert;
using Foundation::AlertButton;
using Foundation::Dictionary;
using Foundation::Services;
using Foundation::Value;

namespace
{

// Whether a category has a name, ignoring case. Caches the answers, because most records have one of a few
// categories.
class CategoryNameFilter
{
public:
    explicit CategoryNameFilter(const QString &name)
        : m_name(SearchText::lowerCase(name))
        , m_known(1024, {nullptr, false})
    {
    }
    bool accepts(const Dictionary *category)
    {
        if (!category)
            return false;
        Answer &known = m_known[(reinterpret_cast<std::size_t>(category) >> 5) % m_known.size()];
        if (known.category != category)
            known = {category, SearchText::lowerCase(Foundation::displayText(
                                   category->value(CategoryKey::cat_category))) == m_name};
        return known.isAccepted;
    }

private:
    struct Answer
    {
        const Dictionary *category;
        bool isAccepted;
    };

    QString m_name;
    std::vector<Answer> m_known;
};

} // namespace

FilteringArrayController::FilteringArrayController(BrowseHost &host,
                                                   VLColoredCategoryArrayController &categories,
                                                   QObject *parent)
    : ArrayController(parent)
    , m_host(host)
    , m_categories(categories)
    , m_sharedFieldEdits(host, *this)
{
}

void FilteringArrayController::moveUses(const Object &category, qint32 amount)
{
    const qint32 uses = category->value(CategoryKey::cat_howManyUsingThis).intValue();
    // Wraps around instead of overflowing, because a damaged file may contain any number.
    category->setValue(CategoryKey::cat_howManyUsingThis, Value(qint32(quint32(uses) + quint32(amount))));
}

void FilteringArrayController::setCategoryString(const QString &category)
{
    m_categoryString = category;
    Q_EMIT filterChanged();
}

void FilteringArrayController::setSearchString(const QString &text)
{
    m_searchString = text;
    Q_EMIT filterChanged();
}

void FilteringArrayController::setUsedFilterDisplay(const QString &text)
{
    m_usedFilterDisplay = text;
    Q_EMIT usedFilterDisplayChanged();
}

void FilteringArrayController::setFilterInAction(bool inAction)
{
    m_filterInAction = inAction;
    Q_EMIT filterInActionChanged();
}

void FilteringArrayController::updateFilterInAction()
{
    setFilterInAction(!m_searchString.isEmpty() || !m_categoryString.isEmpty());
    m_host.showSearchInfoView(m_filterInAction);
}

bool FilteringArrayController::passesThrough(const Object &record)
{
    if (!m_newObj || record != m_newObj)
        return false;
    m_newObj = nullptr;
    return true;
}

FilteringArrayController::Positions FilteringArrayController::positionsInCategory(const Objects &records)
{
    Positions positions;
    if (m_categoryString.isEmpty()) {
        setUsedFilterDisplay(QStringLiteral(""));
        m_newObj = nullptr;
        positions.resize(records.size());
        std::iota(positions.begin(), positions.end(), 0U);
        return positions;
    }
    setUsedFilterDisplay(tr("category \"%1\"").arg(m_categoryString));
    m_recordCategories.update(
        records,
        [](const Dictionary &record, const Dictionary *&category) {
            category = record.value(RecordKey::categoryPtr).dictionary().get();
        },
        [](const Dictionary *) {});
    CategoryNameFilter filter(m_categoryString);
    const auto &categories = m_recordCategories.rows();
    for (quint32 i = 0; i < records.size(); ++i) {
        if (passesThrough(records[i]) || filter.accepts(categories[i]))
            positions.push_back(i);
    }
    return positions;
}

FilteringArrayController::Positions FilteringArrayController::positionsFound(const Objects &records,
                                                                             const Positions &shown)
{
    Positions matching = m_index.search(records, m_searchString);
    if (m_newObj) {
        for (const quint32 position : shown) {
            if (passesThrough(records[position]))
                matching.insert(std::lower_bound(matching.begin(), matching.end(), position), position);
        }
    }
    Positions found;
    std::set_intersection(shown.begin(), shown.end(), matching.begin(), matching.end(),
                          std::back_inserter(found));
    return found;
}

FilteringArrayController::Objects FilteringArrayController::filterObjectsByCategory(const Objects &records)
{
    return objectsAt(records, sorted(records, positionsInCategory(records)));
}

FilteringArrayController::Positions FilteringArrayController::arrangedPositions(const Objects &records)
{
    updateFilterInAction();
    Positions shown = positionsInCategory(records);
    if (m_searchString.isEmpty()) {
        m_newObj = nullptr;
        return sorted(records, std::move(shown));
    }
    // Required: if the text for the category is empty, the sentence begins with a blank.
    const QString display =
        m_categoryString.isEmpty() ? tr("%1 search string \"%2\"") : tr("%1 and search string \"%2\"");
    setUsedFilterDisplay(display.arg(m_usedFilterDisplay, m_searchString));
    return sorted(records, positionsFound(records, shown));
}

void FilteringArrayController::search(const ActionSender &)
{
    setSearchString(m_host.searchText());
    rearrangeObjects();
    updateFilterInAction();
    if (!arrangedObjects().empty())
        setSelectionIndex(0);
}

FilteringArrayController::Object FilteringArrayController::newObject()
{
    const Object category = catToAssignToNewObject();
    if (!category)
        return nullptr;
    moveUses(category, 1);
    return newContactRecord(category, Services::shared().clock().secondsSince2001());
}

FilteringArrayController::Object FilteringArrayController::catToAssignToNewObject() const
{
    if (canRemove() && m_categories.canRemove()) {
        if (Object category = selectedObjects().back()->value(RecordKey::categoryPtr).dictionary())
            return category;
    }
    return m_categories.getLastCategory();
}

FilteringArrayController::Object FilteringArrayController::duplicateRecord(const Object &record)
{
    Object copy = record->copy();
    copy->setValue(RecordKey::creationDate, Value::date(Services::shared().clock().secondsSince2001()));
    copy->setValue(RecordKey::usageCount, {});
    return copy;
}

FilteringArrayController::Object FilteringArrayController::duplicateSelection() const
{
    return canRemove() ? duplicateRecord(selectedObjects().front()) : nullptr;
}

void FilteringArrayController::addObjectAfterSelection(const Object &record)
{
    assignCategory(record->value(RecordKey::categoryPtr).dictionary(), record);
    insertObject(record, selectionIndex() + 1);
}

void FilteringArrayController::removeObject(const Object &record)
{
    if (arrangedIndexOf(record) < 0)
        return;
    if (const Object category = record->value(RecordKey::categoryPtr).dictionary())
        moveUses(category, -1);
    ArrayController::removeObject(record);
}

void FilteringArrayController::remove(const ActionSender &sender)
{
    const Alert question{
        tr("Delete selected contact?"), QString(), {{tr("Delete")}, {tr("Cancel"), AlertButton::Cancel}}};
    if (BrowseWindow *window = m_host.browseWindow())
        window->beginAlert(question,
                           [this, sender](int returnCode) { didEndDeleteRecord(returnCode, sender); });
}

void FilteringArrayController::didEndDeleteRecord(int returnCode, const ActionSender &)
{
    if (returnCode != Alert::FirstButtonReturn || !canRemove())
        return;
    const Object &record = arrangedObjects()[std::size_t(selectionIndex())];
    m_categories.incrementObjUsingThisInCategoryWithUniqueID(
        record->value(RecordKey::cat_uniqueID).longValue(), -1);
    removeSelectedObjects();
    m_host.updateChangeCount(0);
}

bool FilteringArrayController::removeRecordFromCategory(const Object &record)
{
    const Object category = record->value(RecordKey::categoryPtr).dictionary();
    if (!category || m_categories.arrangedIndexOf(category) < 0)
        return false;
    moveUses(category, -1);
    return true;
}

bool FilteringArrayController::assignCategory(const Object &category, const Object &toRecord)
{
    const Object former = toRecord->value(RecordKey::categoryPtr).dictionary();
    if (former == category)
        return false;
    if (former)
        removeRecordFromCategory(toRecord);
    const Object assigned = category ? category : catToAssignToNewObject();
    if (!assigned)
        return false;
    toRecord->setValue(RecordKey::categoryPtr, assigned);
    moveUses(assigned, 1);
    noteChange(toRecord);
    return true;
}

void FilteringArrayController::setCurrentObjectAccordingToCategory(const Object &category)
{
    if (selectionIndex() >= 0)
        assignCategory(category, arrangedObjects()[std::size_t(selectionIndex())]);
}

void FilteringArrayController::takeInputForSelection(const Foundation::Key &key, const Value &value)
{
    if (selectionIndexes().size() > 1)
        m_sharedFieldEdits.willSetValueOfSelection(key, value);
    ArrayController::setValueForSelection(key, value);
}

void FilteringArrayController::controlTextDidChange()
{
    m_host.updateChangeCount(0);
}

void FilteringArrayController::adjustFromOldRelease(Foundation::Array &records)
{
    adjustRecordsFromOldRelease(records);
}
