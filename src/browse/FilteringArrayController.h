#pragma once

#include "browse/BrowseHost.h"
#include "browse/SearchIndex.h"
#include "browse/SharedFieldEdits.h"
#include "browse/VLColoredCategoryArrayController.h"
#include "platform/Actions.h"

// The record list of one document: narrowed to the records of one category and to those that hold a text, and
// the one place where records are made, copied and removed, so that the counts of uses of the categories keep
// step as far as told at VLColoredCategoryArrayController.
class FilteringArrayController : public Foundation::ArrayController
{
    Q_OBJECT
    Q_PROPERTY(QString categoryString READ categoryString WRITE setCategoryString NOTIFY filterChanged)
    Q_PROPERTY(QString searchString READ searchString WRITE setSearchString NOTIFY filterChanged)
    Q_PROPERTY(QString usedFilterDisplay READ usedFilterDisplay WRITE setUsedFilterDisplay NOTIFY
                   usedFilterDisplayChanged)
    Q_PROPERTY(bool filterInAction READ filterInAction WRITE setFilterInAction NOTIFY filterInActionChanged)

public:
    using ActionSender = Foundation::ActionSender;

    // Neither is owned; both outlive the controller.
    FilteringArrayController(BrowseHost &host, VLColoredCategoryArrayController &categories,
                             QObject *parent = nullptr);

    // The name of the category to show, whatever its case, and the text to search for, as told at SearchText;
    // null or empty for no filter. A new one counts from the next arrangement on.
    const QString &categoryString() const { return m_categoryString; }
    void setCategoryString(const QString &category);
    const QString &searchString() const { return m_searchString; }
    void setSearchString(const QString &text);
    // What the user is told of the filters in force, and whether any is; every arrangement sets them.
    const QString &usedFilterDisplay() const { return m_usedFilterDisplay; }
    void setUsedFilterDisplay(const QString &text);
    bool filterInAction() const { return m_filterInAction; }
    void setFilterInAction(bool inAction);

    // A record that both filters let through once. Nothing fills the slot so far: it is there so that a fresh
    // record can stay in sight.
    const Object &newObj() const { return m_newObj; }
    void setNewObj(const Object &record) { m_newObj = record; }

    // The records that pass the first filter, in the order of the sort descriptors; arrangeObjects() gives
    // those that pass both.
    Objects filterObjectsByCategory(const Objects &records);
    void updateFilterInAction();
    // Takes the text of the document's search field and selects the first record found.
    Q_INVOKABLE void search(const Foundation::ActionSender &sender);
    // Does ahead of the first search what would make it slower than those behind it.
    void prepareSearch() { m_index.prepare(contentObjects()); }

    // A record of nineteen keys in the category of catToAssignToNewObject(), which it counts in. Null if
    // there is no category left.
    Object newObject() override;
    // The category of the last selected record; without a selection, or where that record has none, the last
    // category. Null without any.
    Object catToAssignToNewObject() const;
    // Behind the first selected record. Counts nothing in: the record has its category already.
    void addObjectAfterSelection(const Object &record);
    // A copy made now, which shares all values and has no `usageCount`.
    static Object duplicateRecord(const Object &record);
    // Of the first selected record; null without a selection.
    Object duplicateSelection() const;

    // Nothing at all happens to a record that is not shown.
    void removeObject(const Object &record) override;
    // Asks first, and then removes what is selected for good. The count goes down by the stored id of the
    // first selected record: no change for one made since the document was opened, and that of the category
    // it came with for one that was moved.
    Q_INVOKABLE void remove(const Foundation::ActionSender &sender);
    // What follows the answer; the same for the older form of the sheet, which gives it back with the sender.
    void didEndDeleteRecord(int returnCode, const Foundation::ActionSender &sender);

    // Takes the record out of the count of its category. False, and nothing moves, if that is no longer in
    // the category list.
    bool removeRecordFromCategory(const Object &record);
    // False if the record has that very category already. Null stands for catToAssignToNewObject().
    bool assignCategory(const Object &category, const Object &toRecord);
    // For the record shown at selectionIndex(); nothing happens without a selection.
    void setCurrentObjectAccordingToCategory(const Object &category);

    // Can be undone by the document's undo manager if several records are selected.
    void takeInputForSelection(const Foundation::Key &key, const Foundation::Value &value) override;
    SharedFieldEdits &sharedFieldEdits() { return m_sharedFieldEdits; }

    // For records read from old files, which are not in the list: see adjustRecordsFromOldRelease.
    void adjustFromOldRelease(Foundation::Array &records);

    // A field of the form was typed into: every keystroke marks the document as edited.
    void controlTextDidChange();

Q_SIGNALS:
    void filterChanged();
    void usedFilterDisplayChanged();
    void filterInActionChanged();

protected:
    Positions arrangedPositions(const Objects &records) override;

private:
    static void moveUses(const Object &category, qint32 amount);
    // Ascending places in `records`.
    Positions positionsInCategory(const Objects &records);
    Positions positionsFound(const Objects &records, const Positions &shown);
    // True once for the record in the slot.
    bool passesThrough(const Object &record);

    BrowseHost &m_host;
    VLColoredCategoryArrayController &m_categories;
    QString m_categoryString;
    QString m_searchString;
    QString m_usedFilterDisplay;
    bool m_filterInAction = false;
    Object m_newObj;
    SearchIndex m_index;
    SharedFieldEdits m_sharedFieldEdits;
    // The category of each record. Kept alive by its record, as long as that does not change.
    Foundation::DerivedRows<const Foundation::Dictionary *> m_recordCategories;
};
