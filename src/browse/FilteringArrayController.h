#pragma once

#include "browse/BrowseHost.h"
#include "browse/VLColoredCategoryArrayController.h"

// The record list of one document, and the one place where records are made and removed, so that the counts
// of uses of the categories keep step as far as told at VLColoredCategoryArrayController.
class FilteringArrayController : public Foundation::ArrayController
{
    Q_OBJECT

public:
    // Neither is owned; both outlive the controller.
    FilteringArrayController(BrowseHost &host, VLColoredCategoryArrayController &categories,
                             QObject *parent = nullptr);

    // A record of nineteen keys in the category of catToAssignToNewObject(), which it counts in. Null if
    // there is no category left.
    Object newObject() override;
    // The category of the last selected record; without a selection, or where that record has none, the last
    // category. Null without any.
    Object catToAssignToNewObject() const;

    // Nothing at all happens to a record that is not shown.
    void removeObject(const Object &record) override;

    // Takes the record out of the count of its category. False, and nothing moves, if that is no longer in
    // the category list.
    bool removeRecordFromCategory(const Object &record);
    // False if the record has that very category already. Null stands for catToAssignToNewObject().
    bool assignCategory(const Object &category, const Object &record);
    // For the record shown at selectionIndex(); nothing happens without a selection.
    void setCurrentObjectAccordingToCategory(const Object &category);

    // A field of the form was typed into: every keystroke marks the document as edited.
    void controlTextDidChange();

private:
    static void moveUses(const Object &category, qint32 amount);

    BrowseHost &m_host;
    VLColoredCategoryArrayController &m_categories;
};
