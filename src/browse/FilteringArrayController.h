#pragma once

#include "browse/BrowseHost.h"
#include "browse/SearchIndex.h"
#include "browse/SharedFieldEdits.h"
#include "browse/VLColoredCategoryArrayController.h"
#include "platform/Actions.h"

// The record list of one document. It filters by a category and by a text, and it makes, copies and removes
// records, so that it can adjust the counts of uses of the categories (see VLColoredCategoryArrayController).
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

    // The arguments are not owned and must outlive the controller.
    FilteringArrayController(BrowseHost &host, VLColoredCategoryArrayController &categories,
                             QObject *parent = nullptr);

    // The name of the category to show, ignoring case, and the text to search for (see SearchText). Null or
    // empty for no filter. A new filter takes effect at the next rearrangement.
    const QString &categoryString() const { return m_categoryString; }
    void setCategoryString(const QString &category);
    const QString &searchString() const { return m_searchString; }
    void setSearchString(const QString &text);
    // The description of the active filters for the user, and whether any filter is active. Every
    // rearrangement sets both.
    const QString &usedFilterDisplay() const { return m_usedFilterDisplay; }
    void setUsedFilterDisplay(const QString &text);
    bool filterInAction() const { return m_filterInAction; }
    void setFilterInAction(bool inAction);

    // A record that passes both filters once, so that a new record can stay visible. Prescribed; no caller
    // yet.
    const Object &newObj() const { return m_newObj; }
    void setNewObj(const Object &record) { m_newObj = record; }

    // The records that pass the category filter, in the order of the sort descriptors. Prescribed; no caller
    // yet.
    Objects filterObjectsByCategory(const Objects &records);
    void updateFilterInAction();
    // Filters by the text of the document's search field and selects the first record.
    Q_INVOKABLE void search(const Foundation::ActionSender &sender);
    // Builds the search index, so that the first search is as fast as the following ones.
    void prepareSearch() { m_index.prepare(contentObjects()); }

    // A new record in the category of catToAssignToNewObject(), whose count of uses is increased. Null if
    // there is no category.
    Object newObject() override;
    // The category of the last selected record. Without a selection, or if that record has none, the last
    // category of the list. Null if there are no categories.
    Object catToAssignToNewObject() const;
    // Inserts a record after the first selected one. Does not change the count of its category.
    void addObjectAfterSelection(const Object &record);
    // A copy with the current time as creation date. It shares all other values and has no `usageCount`.
    static Object duplicateRecord(const Object &record);
    // A copy of the first selected record; null without a selection.
    Object duplicateSelection() const;

    // Required: does nothing if the record is not shown.
    void removeObject(const Object &record) override;
    // Asks, and then removes the selected records; this cannot be undone. Required: decreases the count of
    // the category with the stored id of the first selected record. So nothing is counted for a record that
    // was made after the document was opened, and the former category is counted for a record that was moved.
    Q_INVOKABLE void remove(const Foundation::ActionSender &sender);
    // Handles the answer to that question.
    void didEndDeleteRecord(int returnCode, const Foundation::ActionSender &sender);

    // Decreases the count of the record's category. Returns false and does nothing if the category is no
    // longer in the list of categories.
    bool removeRecordFromCategory(const Object &record);
    // Gives a record a category and adjusts both counts. Null means catToAssignToNewObject(). Returns false
    // and does nothing if the record has that category already, or if there is none to assign.
    bool assignCategory(const Object &category, const Object &toRecord);
    // Assigns the category to the record at selectionIndex(). Does nothing without a selection.
    void setCurrentObjectAccordingToCategory(const Object &category);

    // If several records are selected, the change can be undone by the document's undo manager.
    void takeInputForSelection(const Foundation::Key &key, const Foundation::Value &value) override;
    SharedFieldEdits &sharedFieldEdits() { return m_sharedFieldEdits; }

    // See adjustRecordsFromOldRelease(). `records` need not be in the list. Prescribed; no caller yet.
    void adjustFromOldRelease(Foundation::Array &records);

    // The user typed into a field of the form. Marks the document as edited.
    void controlTextDidChange();

Q_SIGNALS:
    void filterChanged();
    void usedFilterDisplayChanged();
    void filterInActionChanged();

protected:
    Positions arrangedPositions(const Objects &records) override;

private:
    static void moveUses(const Object &category, qint32 amount);
    // Return ascending positions in `records`.
    Positions positionsInCategory(const Objects &records);
    Positions positionsFound(const Objects &records, const Positions &shown);
    // True once for the record that setNewObj() stored.
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
    // The category of each record. The record keeps it alive until the record changes, and then the row is
    // made again.
    Foundation::DerivedRows<const Foundation::Dictionary *> m_recordCategories;
};
