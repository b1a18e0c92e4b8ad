#include "browse/LabelCommands.h"
#include "browse/VLCategoryEditFieldDelegate.h"
#include "core/RecordModel.h"
#include "foundation/ColorPanel.h"
#include "support/Printers.h"
#include "support/ScriptedHost.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

using Foundation::ActionSender;
using Foundation::Value;
using Record = Foundation::ArrayController::Object;

namespace
{

class CategoryCommandsTest : public testing::Test
{
protected:
    CategoryCommandsTest()
    {
        for (const QString &name : {u"Friends"_qs, u"Work"_qs, u"Home work"_qs})
            categories.addWithName(name);
        forMenu.setContent(categories.content());
    }
    Record category(qint64 id) const { return categories.getCategoryWithUniqueID(id); }
    static qint32 uses(const Record &category)
    {
        return category->value(CategoryKey::cat_howManyUsingThis).intValue();
    }
    // Of the category with that id, with a note; not in the list of a document read before.
    Record add(qint64 id, const QString &note = u""_qs)
    {
        const Record record = records.newObject();
        records.assignCategory(category(id), record);
        record->setValue(RecordKey::note, note);
        records.addObject(record);
        return record;
    }
    void showOnly(const QString &title)
    {
        ActionSender item;
        item.title = title;
        commands.doSelectCatMenu(item);
    }
    void search(const QString &text)
    {
        host.searched = text;
        records.search({});
    }

    ScriptedHost host;
    ManualQueue queue;
    VLColoredCategoryArrayController categories;
    Foundation::ArrayController forMenu;
    FilteringArrayController records{host, categories};
    CategoryCommands commands{host, records, categories, forMenu};
};

TEST_F(CategoryCommandsTest, TheListIsNarrowedByTheWholeNameOfACategoryAndByAText)
{
    const Record friendly = add(1, u"tea"_qs);
    const Record colleague = add(2, u"Work and tea"_qs);
    const Record guest = add(3, u"coffee"_qs);
    const struct
    {
        const char *rule;
        QString category, text, display;
        Foundation::ArrayController::Objects shown;
    } cases[] = {
        {"no filter", QString(), QString(), u""_qs, {friendly, colleague, guest}},
        {"empty is none", u""_qs, u""_qs, u""_qs, {friendly, colleague, guest}},
        {"case does not count, parts do not do", u"WORK"_qs, u""_qs, u"category \"WORK\""_qs, {colleague}},
        {"a text alone leaves a blank in front",
         u""_qs,
         u"TEA"_qs,
         u" search string \"TEA\""_qs,
         {friendly, colleague}},
        {"names of categories are not searched", u""_qs, u"friend"_qs, u" search string \"friend\""_qs, {}},
        {"both", u"work"_qs, u"%1"_qs, u"category \"work\" and search string \"%1\""_qs, {}},
        {"both, found",
         u"Friends"_qs,
         u"t"_qs,
         u"category \"Friends\" and search string \"t\""_qs,
         {friendly}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        host.searchInfo.clear();
        records.setCategoryString(c.category);
        search(c.text);
        EXPECT_EQ(records.arrangedObjects(), c.shown);
        EXPECT_EQ(records.selectionIndex(), c.shown.empty() ? -1 : 0); // The first one found, always.
        EXPECT_EQ(records.usedFilterDisplay(), c.display);
        EXPECT_EQ(records.filterInAction(), !c.display.isEmpty());
        EXPECT_EQ(host.searchInfo, (QList<bool>{!c.display.isEmpty(), !c.display.isEmpty()}));
    }
}

TEST_F(CategoryCommandsTest, TheFiltersLeaveTheOrderToTheSortDescriptorsAndFollowEveryEdit)
{
    const Record b = add(1, u"b tea"_qs);
    const Record a = add(2, u"a tea"_qs);
    records.setSortDescriptors({{u"categoryPtr.cat_category"_qs, false}, {u"note"_qs}});
    search(u"tea"_qs);
    EXPECT_EQ(records.arrangedObjects(), (Foundation::ArrayController::Objects{a, b}));
    category(1)->setValue(CategoryKey::cat_category, u"Zoo"_qs); // No record changes with it.
    const Record c = add(1, u"A TEA of mine"_qs);
    EXPECT_EQ(records.arrangedObjects(), (Foundation::ArrayController::Objects{c, b, a}));
    b->setValue(RecordKey::note, u"water"_qs);
    records.rearrangeObjects();
    EXPECT_EQ(records.arrangedObjects(), (Foundation::ArrayController::Objects{c, a}));
    showOnly(u"zoo"_qs);
    EXPECT_EQ(records.arrangedObjects(), Foundation::ArrayController::Objects{c});
}

TEST_F(CategoryCommandsTest, TheSlotLetsOneRecordThroughOnce)
{
    const Record shown = add(1);
    const Record hidden = add(2);
    records.setCategoryString(u"friends"_qs);
    records.setNewObj(hidden);
    records.rearrangeObjects();
    EXPECT_EQ(records.arrangedObjects(), (Foundation::ArrayController::Objects{shown, hidden}));
    EXPECT_EQ(records.newObj(), nullptr);
    records.rearrangeObjects();
    EXPECT_EQ(records.arrangedObjects(), Foundation::ArrayController::Objects{shown});
    records.setNewObj(hidden);
    records.setCategoryString(QString());
    records.rearrangeObjects(); // A filter that is off empties it, too.
    EXPECT_EQ(records.newObj(), nullptr);
}

TEST_F(CategoryCommandsTest, ThePopUpKeepsItsFirstTwoItemsAndFilters)
{
    add(1);
    const Record colleague = add(2);
    categories.getLastCategory()->setValue(CategoryKey::cat_category, {});
    ScriptedPopUpMenu &popUp = host.window.popUp;
    for (int times = 0; times < 2; ++times) {
        commands.synkCategorySubMenu({});
        EXPECT_EQ(popUp.titles,
                  (QStringList{u"Category"_qs, u"Show All"_qs, u"Friends"_qs, u"Work"_qs, u""_qs}));
        EXPECT_EQ(popUp.actions.last(), u"doSelectCatMenu");
    }
    records.setSelectionIndex(1);
    popUp.selected = u"Work"_qs;
    showOnly(u"Work"_qs);
    EXPECT_EQ(records.selectedObjects(), Foundation::ArrayController::Objects{colleague});
    EXPECT_EQ(host.categoryString, u"as it was"); // The document's own note stays.
    search(u"nobody"_qs);
    commands.showAllAndResetFilter({});
    EXPECT_EQ(records.arrangedObjects().size(), 2U);
    EXPECT_EQ(host.searched, u"");
    EXPECT_EQ(host.categoryString, u"");
    EXPECT_EQ(popUp.selected, u"Show All");
    commands.showAllCategory({});
    EXPECT_EQ(popUp.selections, 1); // It is selected already.
}

TEST_F(CategoryCommandsTest, TheSheetAddsAndRemovesAndEndsWithANewMenu)
{
    int panelsClosed = 0;
    QObject::connect(&Foundation::ColorPanel::shared(), &Foundation::ColorPanel::closed, &commands,
                     [&panelsClosed] { ++panelsClosed; });
    commands.editCategoriesSheet({});
    EXPECT_EQ(host.window.sheet(), u"myCategorySheet");
    commands.addNewCategory({});
    EXPECT_EQ(categories.getLastCategory()->value(CategoryKey::cat_category).stringValue(), u"Generic");
    EXPECT_EQ(host.changes, QList<int>{0});
    EXPECT_EQ(host.window.categoryScrolls, 0); // Not before the table has its row.
    queue.drain();
    EXPECT_EQ(host.window.categoryScrolls, 1);
    EXPECT_EQ(host.window.popUp.titles.size(), 6);

    const Record record = add(4);
    commands.removeCategory({}); // The new one is selected.
    EXPECT_EQ(categories.content()->count(), 3);
    EXPECT_EQ(
        record->value(RecordKey::categoryPtr).dictionary()->value(CategoryKey::cat_category).stringValue(),
        u"Generic");
    EXPECT_EQ(host.changes, QList<int>{0}); // Removing marks nothing.
    commands.closeCategoriesSheet({});
    EXPECT_TRUE(host.window.sheet().isNull());
    EXPECT_EQ(host.window.popUp.titles.size(), 5); // By the end of the sheet, ahead of the queue.
    EXPECT_EQ(panelsClosed, 1);
}

TEST_F(CategoryCommandsTest, TheChoiceForARecordGoesByThePlaceInThePopUp)
{
    const Record record = add(2);
    EXPECT_FALSE(records.assignCategory(category(2), record));
    EXPECT_EQ(uses(category(2)), 1);
    ActionSender popUp;
    popUp.indexOfSelectedItem = 0;
    commands.categoryWasSet(popUp);
    EXPECT_EQ(uses(category(1)), 1);
    EXPECT_EQ(uses(category(2)), 0);
    EXPECT_EQ(host.window.redrawn, (QStringList{u"category"_qs, u"categoryViews"_qs}));
    EXPECT_EQ(host.changes, QList<int>{0});
    EXPECT_FALSE(host.undo.canUndo());

    const Record former = category(1);
    categories.removeObject(former);
    popUp.indexOfSelectedItem = 7;
    commands.categoryWasSet(popUp); // No such item.
    EXPECT_EQ(record->value(RecordKey::categoryPtr).dictionary(), former);
    EXPECT_TRUE(records.assignCategory(category(3), record));
    EXPECT_EQ(uses(former), 1); // No longer in the list: not counted down.
    EXPECT_EQ(uses(category(3)), 1);
}

TEST_F(CategoryCommandsTest, ANameOrColourRedrawsWhatShowsItAndMarksTheDocument)
{
    VLCategoryEditFieldDelegate nameField(host, commands);
    nameField.controlTextDidChange();
    EXPECT_EQ(host.window.redrawn, (QStringList{u"categoryTable"_qs, u"category"_qs, u"categoryTable"_qs}));
    commands.colorChanged({});
    EXPECT_EQ(host.changes, (QList<int>{0, 0}));
}

TEST_F(CategoryCommandsTest, TheSheetOfCaptionsMarksTheDocumentWhateverWasDone)
{
    LabelCommands labels(host);
    labels.editLabelSheet({});
    EXPECT_EQ(host.window.sheet(), u"myLabelSheet");
    EXPECT_TRUE(host.changes.isEmpty());
    labels.closeLabelSheet({});
    EXPECT_TRUE(host.window.sheet().isNull());
    EXPECT_EQ(host.changes, QList<int>{0});
}

} // namespace
